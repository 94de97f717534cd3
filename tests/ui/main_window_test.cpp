#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>

#include "app/missing_configuration.h"
#include "support/temp_dir.h"
#include "ui/editor_driver.h"
#include "ui/main_window.h"
#include "ui/qt_user_interaction.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using testing::Editor;
using testing::Newsroom;
using testing::ReadBytes;
using testing::TempDir;

class MainWindowTest : public QObject {
    Q_OBJECT
  private slots:
    // The title names the client and the new story; the recent files' rows wait for a file.
    void startShowsTheConfiguredWindow() {
        TempDir dir;
        Editor editor(dir, Newsroom());
        QVERIFY(editor.StartAndShow());

        QCOMPARE(editor.window.objectName(), QStringLiteral("frmTessarin"));
        QCOMPARE(editor.window.windowTitle(),
                 QStringLiteral("Tessarin " TESSARIN_VERSION " - Valley Courier - New story[*]"));
        QVERIFY(editor.Action("Save")->isVisible() && editor.Action("SepUndo")->isVisible());
        QVERIFY(!editor.Action("mnuSepMRU")->isVisible());

        // The Informations view is shown, and its button pressed to agree with it.
        auto* tabs = editor.window.findChild<QTabWidget*>("tabDisplay");
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageInformations"));
        QVERIFY(editor.Action("Informations")->isChecked());
        editor.Trigger("mnuDisplayStory");
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageStory"));
        QVERIFY(editor.Action("Story")->isChecked());
        QVERIFY(!editor.Action("mnuDisplayMetadata")->isChecked());
    }

    void aFirstStartWithoutConfigurationSaysWhereItGoes() {
        TempDir dir;
        Editor editor(dir);
        // The first login opens; giving it up ends the start.
        QTimer::singleShot(0, [] {
            QWidget* login = QApplication::activeModalWidget();
            QVERIFY(login != nullptr);
            QCOMPARE(login->objectName(), QStringLiteral("frmFirstLogin"));
            static_cast<QDialog*>(login)->reject();
        });
        QCOMPARE(editor.window.Start(""), std::optional<int>(1));
        QCOMPARE(editor.user.messages,
                 std::vector<std::string>{MissingConfigurationMessage(MakeAppPaths(dir.path()))});

        // A configuration named on the command line reaches the start, which installs it.
        TempDir elsewhere;
        Editor installed(dir);
        QCOMPARE(installed.window.Start(elsewhere.Write("newsroom.xml", Newsroom()).string()),
                 std::optional<int>());
    }

    void aSecondInstanceEndsWhenTheConfigurationForbidsIt() {
        TempDir dir;
        Editor first(dir, Newsroom("MultipleInstances=\"false\""));
        QCOMPARE(first.window.Start(""), std::optional<int>());
        Editor second(dir);
        QCOMPARE(second.window.Start(""), std::optional<int>(1));
        QCOMPARE(second.user.messages, std::vector<std::string>{"Program already running"});
    }

    // Save names the story in the title and the recent files; a closed story opens again from
    // there. New and Open run from their keys and their menu in the shortcut and import tests.
    void saveCloseAndReopenFromTheRecentFiles() {
        TempDir dir;
        Editor editor(dir, Newsroom());
        QVERIFY(editor.StartAndShow());
        const std::filesystem::path story = dir / "brief.xml";

        editor.Type("Council votes the budget");
        editor.user.QueuePath(story);
        editor.Trigger("Save");
        QVERIFY(std::filesystem::exists(story));
        QVERIFY(!editor.window.Session().storyModified);
        QCOMPARE(editor.window.windowTitle(),
                 QStringLiteral("Tessarin " TESSARIN_VERSION " - Valley Courier - brief.xml[*]"));
        QVERIFY(editor.Action("mnuSepMRU")->isVisible());
        QCOMPARE(editor.Action("mnuFileMRU1")->text(), QStringLiteral("brief.xml"));

        editor.Trigger("Close");
        QCOMPARE(editor.MainBox(), std::u16string());
        editor.Trigger("mnuFileMRU1");
        QCOMPARE(editor.MainBox(), std::u16string(u"Council votes the budget"));
        QVERIFY(editor.user.questions.empty());
    }

    void closingAsksAboutTheModifiedStory() {
        TempDir dir;
        Editor editor(dir, Newsroom());
        QVERIFY(editor.StartAndShow());
        editor.Type("Unsaved lead");

        editor.user.QueueAnswer(Answer::Cancel);
        QVERIFY(!editor.window.close());
        QVERIFY(editor.window.isVisible());
        QCOMPARE(editor.MainBox(), std::u16string(u"Unsaved lead"));

        editor.user.QueueAnswer(Answer::No);
        QVERIFY(editor.window.close());
        const std::string preferences = ReadBytes(dir / "Tessarin.ini");
        const QString width = QStringLiteral("Width=%1\r\n").arg(editor.window.width());
        QVERIFY(preferences.find(width.toStdString()) != std::string::npos);
    }

    void aWithdrawnInformationsViewLeavesTheStoryView() {
        TempDir dir;
        Editor editor(dir, Newsroom("MetadataVisible=\"false\""));
        QVERIFY(editor.StartAndShow());
        auto* tabs = editor.window.findChild<QTabWidget*>("tabDisplay");
        QVERIFY(!tabs->isTabVisible(0));
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageStory"));
        QVERIFY(!editor.Action("Informations")->isVisible());
        editor.Trigger("mnuDisplayMetadata");
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageStory"));
    }

    void thePreferencesPlaceTheWindowAndRunTheAutomaticSave() {
        TempDir dir;
        Editor editor(dir, Newsroom(),
                      "[MainWindow]\r\nWidth=640\r\nHeight=480\r\n"
                      "[Preferences]\r\nBackupAuto=1\r\nStatusTime=0\r\n");
        QVERIFY(editor.StartAndShow());
        QCOMPARE(editor.window.size(), QSize(640, 480));
        auto* timer = editor.window.findChild<QTimer*>("TimerBackupAuto");
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 60000);
        QVERIFY(editor.window.findChild<QWidget*>("StatusDate")->isVisible());
        QVERIFY(!editor.window.findChild<QWidget*>("StatusTime")->isVisible());
    }

    void fileDialogFiltersKeepEveryEntry() {
        QCOMPARE(DialogNameFilter("Stories XML (*.xml)|*.xml|Backup stories (*.bml)|*.bml"),
                 QStringLiteral("Stories XML (*.xml);;Backup stories (*.bml)"));
        QCOMPARE(DialogNameFilter("Stories RTF/TXT (*.rtf;*txt)|*.rtf;*.txt"),
                 QStringLiteral("Stories RTF/TXT (*.rtf *.txt)"));
    }
};

TESSARIN_UI_TEST(MainWindowTest);

}  // namespace
}  // namespace tessarin

#include "main_window_test.moc"
