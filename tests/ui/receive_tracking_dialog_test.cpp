#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

#include "transmission/workflow_desk.h"
#include "ui/find_control.h"
#include "ui/receive_dialog.h"
#include "ui/session_tree_widget.h"
#include "ui/tracking_dialog.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

// A desk where Ann receives into me/ and tracking copies go to track/.
struct ReceivingDesk : WorkflowDesk {
    ReceivingDesk() {
        session.configuration.identity.author = "Ann";
        WorkflowSettings& workflow = session.configuration.workflow;
        workflow.TrackingEnabled = workflow.TrackingDisplayAllowed = true;
        workflow.TrackingClearAllowed = true;
        for (const auto& [field, relative] :
             {std::pair{&workflow.PersonalTextsDirectory, "me"},
              std::pair{&workflow.PersonalImagesDirectory, "me"},
              std::pair{&workflow.TrackingTextsDirectory, "track/texts"},
              std::pair{&workflow.TrackingImagesDirectory, "track/images"}}) {
            fs::create_directories(folder / relative);
            *field = (folder / relative).string();
        }
    }

    void Wait(const char* name, const char* logType) {
        folder.Write(std::string("inbox/Ann/") + name,
                     "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Story><Metadata>"
                     "<Publication>Herald</Publication><PublicationDate>0</PublicationDate>"
                     "</Metadata><Body><TextBox3>Fire</TextBox3><TextBox6 CharCount=\"4\">Hot"
                     "</TextBox6></Body><Logs><Log Type=\"" +
                         std::string(logType) + "\">sent</Log></Logs></Story>\r\n");
    }
};

class ReceiveTrackingWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    void ReceivePreviewsAndTakesStories() {
        ReceivingDesk desk;
        desk.Wait("a.xml", "U");
        desk.Wait("b.xml", "L");
        ReceiveDialog dialog(desk.session, ReceiveKind::Receive, nullptr);
        dialog.show();
        auto* tree = Find<QTreeWidget>(dialog, "treeReceive");
        QCOMPARE(Find<QLabel>(dialog, "StatusPanel1")->text(),
                 QStringLiteral("Waiting stories: 2"));
        emit tree->itemClicked(ItemNamed(*tree, QStringLiteral("a.xml")), 0);
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtStory")->toPlainText(),
                 QStringLiteral("Fire\nHot\n"));
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtLastLog")->toPlainText(),
                 QStringLiteral("sent\nTotal chars=4 / Words=0"));

        tree->setCurrentItem(ItemNamed(*tree, QStringLiteral("a.xml")));
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdGet"), Qt::LeftButton);
        QVERIFY(fs::exists(desk.folder / "me/a.xml"));
        QVERIFY(ItemNamed(*tree, QStringLiteral("a.xml")) == nullptr);
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdGetAll"), Qt::LeftButton);
        QVERIFY(fs::exists(desk.folder / "me/b.xml"));
        QVERIFY(!Find<QPushButton>(dialog, "cmdGet")->isEnabled());
        QCOMPARE(Find<QLabel>(dialog, "StatusPanel1")->text(),
                 QStringLiteral("Waiting stories: 0"));
    }

    void TrackingUpdatesFiltersAndOffersThePopup() {
        ReceivingDesk desk;
        desk.Wait("a.xml", "U");
        desk.Wait("b.xml", "L");
        for (const char* name : {"a.xml", "b.xml"})
            fs::rename(desk.folder / "inbox/Ann" / name, desk.folder / "track/texts" / name);
        TrackingDialog dialog(desk.session, nullptr);
        dialog.show();
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpdate"), Qt::LeftButton);
        auto* tree = Find<QTreeWidget>(dialog, "treeTracking");
        QVERIFY(ItemNamed(*tree, QStringLiteral("[a.xml] Fire")) != nullptr);
        QCOMPARE(Find<QLabel>(dialog, "lblTreeTracking")->text(),
                 QStringLiteral("Stories: 2, Photos: 0, Other files: 0"));

        Find<QAction>(dialog, "mnuDisplayLayout")->trigger();
        QTest::mouseClick(Find<QPushButton>(dialog, "cmdUpdate"), Qt::LeftButton);
        QVERIFY(ItemNamed(*tree, QStringLiteral("[a.xml] Fire")) == nullptr);
        QTreeWidgetItem* story = ItemNamed(*tree, QStringLiteral("[b.xml] Fire"));
        QVERIFY(story != nullptr);
        QCOMPARE(desk.session.profile.Read("TrackingWindow", "TrackingDisplayLayout"),
                 std::optional<std::string>("1"));

        emit tree->itemClicked(story, 0);
        QCOMPARE(Find<QPlainTextEdit>(dialog, "txtStory")->toPlainText(),
                 QStringLiteral("Fire\nHot\nTotal chars=4 / Words=0"));
        QMenu* popup = dialog.PopupFor(SessionTreeWidget::KeyOf(story));
        QVERIFY(popup != nullptr);
        QVERIFY(Find<QAction>(*popup, "mnuPopupSendMessage")->isVisible());
        Find<QAction>(*popup, "mnuPopupDeleteStories")->trigger();
        QVERIFY(!fs::exists(desk.folder / "track/texts/b.xml"));
        QCOMPARE(tree->topLevelItemCount(), 0);
    }
};

TESSARIN_UI_TEST(ReceiveTrackingWindowsTest);

}  // namespace
}  // namespace tessarin

#include "receive_tracking_dialog_test.moc"
