#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>

#include "config/profile_values.h"
#include "support/temp_dir.h"
#include "transmission/workflow_desk.h"
#include "ui/find_control.h"
#include "ui/my_stories_dialog.h"
#include "ui/search_stories_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

QStringList ListedNames(QTreeWidget& list) {
    QStringList names;
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        names << list.topLevelItem(row)->text(0);
    return names;
}

class SearchStoriesDialogTest : public QObject {
    Q_OBJECT
  private slots:
    void SearchPreviewAndRestoreABackupStory() {
        WorkflowDesk desk;
        desk.Story("fire.xml", "<Publication>Le Soir</Publication>",
                   R"(<TextBox6 CharCount="20">Grand incendie au port</TextBox6>)");
        desk.Story("fire.bml", "<Publication>Le Soir</Publication>",
                   R"(<TextBox6 CharCount="9">Incendie maitrise</TextBox6>)");
        desk.Story("rain.xml", "<Publication>Le Matin</Publication>",
                   R"(<TextBox6 CharCount="5">Pluie</TextBox6>)");
        desk.session.profile.Write("Configuration", "SearchStoriesInto",
                                   (desk.folder / "stories").string());

        SearchStoriesDialog dialog(desk.session, nullptr);
        dialog.show();
        QSignalSpy finished(&dialog, &SearchStoriesDialog::searchFinished);
        auto* list = Find<QTreeWidget>(dialog, "lvStories");
        auto* found = Find<QLabel>(dialog, "lblStoriesFound");
        const auto counts = [&](const char* text) {
            return QString::fromStdString(desk.session.Message("StoriesFound")) + ": " + text;
        };

        Find<QComboBox>(dialog, "lstTxtSearch")->setCurrentText(QStringLiteral(" INCENDIE PORT "));
        QTest::mouseClick(Find<QRadioButton>(dialog, "optOperator2"), Qt::LeftButton);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdSearch"), Qt::LeftButton);
        QVERIFY(finished.wait(10000));
        QCOMPARE(ListedNames(*list), QStringList{QStringLiteral("fire.xml")});
        QCOMPARE(found->text(), counts("2/1"));
        QVERIFY(Find<QLabel>(dialog, "lblAllStoriesSelected")->isHidden());

        // The preview marks each word wherever it stands, in any case.
        list->setCurrentItem(list->topLevelItem(0));
        emit list->itemClicked(list->topLevelItem(0), 0);
        auto* preview = Find<QTextEdit>(dialog, "rtfStory");
        QCOMPARE(preview->toPlainText(), QStringLiteral("Grand incendie au port\n"));
        QCOMPARE(preview->extraSelections().size(), 2);
        preview->selectAll();
        preview->findChild<QAction*>("mnuCopy")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("Grand incendie au port\n"));

        Find<QCheckBox>(dialog, "chkIncludeBackupStories")->setChecked(true);
        QCOMPARE(ListedNames(*list),
                 (QStringList{QStringLiteral("fire.bml"), QStringLiteral("fire.xml")}));

        // An empty text lists every story.
        Find<QComboBox>(dialog, "lstTxtSearch")->setCurrentText(QString());
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdSearch"), Qt::LeftButton);
        QVERIFY(finished.wait(10000));
        QCOMPARE(found->text(), counts("3/3"));
        QVERIFY(!Find<QLabel>(dialog, "lblAllStoriesSelected")->isHidden());

        // Open hands the backup story to the session, which restores it after Yes.
        list->setCurrentItem(list->findItems(QStringLiteral("fire.bml"), Qt::MatchExactly).front());
        desk.user.QueueAnswer(Answer::Yes);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdOpen"), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(desk.session.storyFileName, std::string("fire.xml"));

        // The choices and the history are kept for the next time.
        const ProfileContents stored = desk.session.profile.Load();
        QCOMPARE(stored.Read("Configuration", "Contents0"),
                 std::optional<std::string>("INCENDIE PORT"));
        QCOMPARE(stored.Read("Configuration", "SearchOperator"), std::optional<std::string>("2"));
    }

    // Both windows open where and as large as they were closed, their splitter included; my
    // stories lists both directories and brings archives back.
    void MyStoriesListsBothDirectoriesAndArchivesAndWindowsKeepTheirPlacement() {
        WorkflowDesk desk;
        {
            SearchStoriesDialog search(desk.session, nullptr);
            search.resize(700, 500);
            search.reject();
            MyStoriesDialog stories(desk.session, nullptr);
            stories.resize(640, 480);
            stories.reject();
        }
        const ProfileContents stored = desk.session.profile.Load();
        QCOMPARE(ReadInteger(stored, "SearchStoriesWindow", "Width", 0), 700);
        QCOMPARE(ReadInteger(stored, "MyStoriesWindow", "Height", 0), 480);
        QVERIFY(ReadOptionalInteger(stored, "SearchStoriesWindow", "SizeBarV").has_value());
        QCOMPARE(ReadInteger(stored, "MyStoriesWindow", "WindowState", -1), 0);
        QCOMPARE(SearchStoriesDialog(desk.session, nullptr).size(), QSize(700, 500));
        QCOMPARE(MyStoriesDialog(desk.session, nullptr).size(), QSize(640, 480));

        const std::string personal = (desk.folder / "stories").string();
        const std::string archives = (desk.folder / "old").string();
        desk.session.configuration.workflow.PersonalTextsDirectory = personal;
        desk.session.configuration.workflow.PersonalArchivesDirectory = archives;
        desk.Story("same.xml", "<Publication>Le Soir</Publication>");
        desk.Story("same.bml", "<Publication>Le Soir</Publication>");
        desk.folder.Write("old/same.xml", ReadBytes(desk.folder / "stories/same.xml"));

        MyStoriesDialog dialog(desk.session, nullptr);
        auto* list = Find<QTreeWidget>(dialog, "lvStories");
        QCOMPARE(ListedNames(*list),
                 (QStringList{QStringLiteral("same.xml"), QStringLiteral("same.xml")}));
        QCOMPARE(Find<QLabel>(dialog, "lblCount")->text(), QStringLiteral("2"));
        Find<QCheckBox>(dialog, "chkIncludeBackupStories")->setChecked(true);
        QCOMPARE(list->topLevelItemCount(), 3);

        // The archived copy goes back to the personal folder once the move agrees.
        list->setCurrentItem(list->topLevelItem(1));
        desk.user.QueueAnswer(Answer::Yes);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdArchives"), Qt::LeftButton);
        QCOMPARE(ListedNames(*list),
                 (QStringList{QStringLiteral("same.bml"), QStringLiteral("same.xml")}));

        // Removing asks first; the file goes to the trash only after Yes.
        // Where the machine has no usable trash, the desktop's move puts the file under the
        // working directory: the test works in its own folder so that nothing stays behind.
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString((desk.folder / "data").string()));
        const QString workingDirectory = QDir::currentPath();
        QDir::setCurrent(QString::fromStdString(desk.folder.path().string()));
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            list->setCurrentItem(list->topLevelItem(0));
            desk.user.QueueAnswer(answer);
            QTest::mouseClick(Find<QPushButton>(dialog, "cmdRemove"), Qt::LeftButton);
        }
        QCOMPARE(desk.user.questions.size(), std::size_t{3});
        QCOMPARE(ListedNames(*list), QStringList{QStringLiteral("same.xml")});
        QDir::setCurrent(workingDirectory);
        QVERIFY(!std::filesystem::exists(desk.folder / "stories/same.bml"));
    }
};

TESSARIN_UI_TEST(SearchStoriesDialogTest);

}  // namespace
}  // namespace tessarin

#include "search_stories_dialog_test.moc"
