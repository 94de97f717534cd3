#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QMenu>
#include <QPrinter>
#include <QProcess>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>
#include <QUrl>
#include <QtTest>
#include <optional>

#include "app/missing_configuration.h"
#include "export/story_print.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"
#include "support/tool_run.h"
#include "ui/editor_driver.h"
#include "ui/main_menu_layout.h"
#include "ui/main_window.h"
#include "ui/printouts.h"
#include "ui/qt_user_interaction.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

// How many receivers a signal of any object has: the count is protected in QObject, and a
// pointer to it, taken through a class that makes it public, reaches it on every object.
struct ReceiverCount : QObject {
    using QObject::receivers;
};
int TriggerReceivers(const QAction& action) {
    int (QObject::*receivers)(const char*) const = &ReceiverCount::receivers;
    return (action.*receivers)(SIGNAL(triggered(bool)));
}

// The main window as the user drives it: start, menus, keys, files and closing.
class MainWindowTest : public QObject {
    Q_OBJECT
  public slots:
    void Opened(const QUrl& url) { opened_ = url; }

  private slots:
    // The title names the client and the story; Save names it in the title and the recent
    // files, a closed story opens again from there, and closing asks about a modified story.
    // New and Open run from their keys and their menu in the shortcut and import tests.
    void aStoryIsSavedClosedReopenedAndClosingAsks() {
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

        editor.Type("Council votes the budget");
        editor.user.QueuePath(dir / "brief.xml");
        editor.Trigger("Save");
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

        editor.Type(", unsaved");
        editor.user.QueueAnswer(Answer::Cancel);
        QVERIFY(!editor.window.close());
        QVERIFY(editor.window.isVisible());
        QCOMPARE(editor.MainBox(), std::u16string(u"Council votes the budget, unsaved"));

        editor.user.QueueAnswer(Answer::No);
        QVERIFY(editor.window.close());
        const std::string preferences = ReadBytes(dir / "Tessarin.ini");
        const QString width = QStringLiteral("Width=%1\r\n").arg(editor.window.width());
        QVERIFY(preferences.find(width.toStdString()) != std::string::npos);
    }

    // A first start without a configuration says where it goes; a configuration named on the
    // command line is installed, and the one installed here forbids a second instance.
    void theStartInstallsAConfigurationAndKeepsToOneInstance() {
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

        TempDir elsewhere;
        const fs::path named =
            elsewhere.Write("newsroom.xml", Newsroom("MultipleInstances=\"false\""));
        Editor installed(dir);
        QCOMPARE(installed.window.Start(named.string()), std::optional<int>());
        Editor second(dir);
        QCOMPARE(second.window.Start(""), std::optional<int>(1));
        QCOMPARE(second.user.messages, std::vector<std::string>{"Program already running"});
    }

    // The preferences place the window and run the automatic save; a withdrawn Informations
    // view leaves the story view in front.
    void thePreferencesPlaceTheWindowAndAWithdrawnViewStaysHidden() {
        TempDir dir;
        Editor editor(dir, Newsroom("MetadataVisible=\"false\""),
                      "[MainWindow]\r\nWidth=640\r\nHeight=480\r\n"
                      "[Preferences]\r\nBackupAuto=1\r\nStatusTime=0\r\n");
        QVERIFY(editor.StartAndShow());
        QCOMPARE(editor.window.size(), QSize(640, 480));
        auto* timer = editor.window.findChild<QTimer*>("TimerBackupAuto");
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 60000);
        QVERIFY(editor.window.findChild<QWidget*>("StatusDate")->isVisible());
        QVERIFY(!editor.window.findChild<QWidget*>("StatusTime")->isVisible());

        auto* tabs = editor.window.findChild<QTabWidget*>("tabDisplay");
        QVERIFY(!tabs->isTabVisible(0));
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageStory"));
        editor.Trigger("mnuDisplayMetadata");
        QCOMPARE(tabs->currentWidget()->objectName(), QStringLiteral("pageStory"));
    }

    void fileDialogFiltersKeepEveryEntry() {
        QCOMPARE(DialogNameFilter("Stories XML (*.xml)|*.xml|Backup stories (*.bml)|*.bml"),
                 QStringLiteral("Stories XML (*.xml);;Backup stories (*.bml)"));
        QCOMPARE(DialogNameFilter("Stories RTF/TXT (*.rtf;*txt)|*.rtf;*.txt"),
                 QStringLiteral("Stories RTF/TXT (*.rtf *.txt)"));
    }

    // The display aids stay pressed until a new story; the Internet entries open their address
    // and the application entry starts its program, each withdrawn without one; configured tool
    // tips show "\n" as a new line; Help opens the user guide, or says it is missing; printing
    // names a story never saved first and prints its draft under that name.
    void displayAidsOutsideEntriesHelpAndPrinting() {
        TempDir dir;
        const auto program = dir.Write("start.sh", "#!/bin/sh\ntouch \"$0.started\"\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        Editor editor(dir, Newsroom("",
                                    "<ToolsInternet2 URL=\"https://wire.example.org/\">Wire"
                                    "</ToolsInternet2><ToolsApplication Path=\"" +
                                        program.string() +
                                        "\">Layout</ToolsApplication>"
                                        "<EditionMultipleClipboard ToolTipText=\"Drag here\\nor "
                                        "there\"/><FileSave>Save\\nthe story</FileSave>"));
        QVERIFY(editor.StartAndShow());
        QCOMPARE(editor.Find("treeClipboard")->toolTip(), QStringLiteral("Drag here\nor there"));
        QCOMPARE(editor.Action("Save")->toolTip(), QStringLiteral("Save\nthe story"));
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Opened");
        editor.Trigger("mnuHelpContents");
        QCOMPARE(editor.user.messages.back(), std::string("Missing Help file"));
        QCOMPARE(opened_, QUrl());
        const auto guide = dir.Write("docs/user-guide.html", "<html></html>");
        editor.Trigger("mnuHelpContents");
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QCOMPARE(opened_, QUrl::fromLocalFile(QString::fromStdString(guide.string())));

        QVERIFY(!editor.Action("mnuToolsInternet1")->isVisible());
        QVERIFY(editor.Action("mnuToolsInternet2")->isVisible());
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "Opened");
        editor.Trigger("mnuToolsInternet2");
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(opened_, QUrl(QStringLiteral("https://wire.example.org/")));
        QCOMPARE(editor.Action("mnuToolsApplications")->menu()->actions(),
                 QList<QAction*>{editor.Action("mnuToolsApplication")});
        editor.Trigger("mnuToolsApplication");
        QTRY_VERIFY(std::filesystem::exists(program.string() + ".started"));

        const qreal size = editor.Box(6)->document()->defaultFont().pointSizeF();
        editor.Trigger("Zoom");
        editor.Trigger("mnuDisplayParagraphs");
        QCOMPARE(editor.Find<QTabWidget>("tabDisplay")->currentWidget()->objectName(),
                 QStringLiteral("pageStory"));
        QVERIFY(editor.Action("mnuDisplayTextZoom")->isChecked());
        QCOMPARE(editor.Box(6)->document()->defaultFont().pointSizeF(), 2 * size);
        QVERIFY(editor.Box(0)->document()->defaultTextOption().flags() &
                QTextOption::ShowLineAndParagraphSeparators);
        editor.Trigger("mnuFileNew");
        QVERIFY(!editor.Action("Zoom")->isChecked() &&
                !editor.Action("mnuDisplayParagraphs")->isChecked());
        QCOMPARE(editor.Box(6)->document()->defaultFont().pointSizeF(), size);
        QVERIFY(!(editor.Box(6)->document()->defaultTextOption().flags() &
                  QTextOption::ShowLineAndParagraphSeparators));

        EditorSession& session = editor.window.Session();
        QVERIFY(!PrepareStoryPrint(session));  // nothing to print
        editor.Type("Harbour reopens");
        session.story.signature = "J.D.";
        editor.user.QueuePath(dir / "harbour.xml");
        const std::optional<StoryPrintout> printout = PrepareStoryPrint(session);
        QVERIFY(printout.has_value());
        QCOMPARE(editor.user.messages.back(), std::string("Save story before printing"));
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString((dir / "story.pdf").string()));
        StoryDocument(*printout)->print(&printer);
        const std::string printed =
            RunTool("pdftotext -layout " + Quoted((dir / "story.pdf").string()) + " -").output;
        for (const char* part : {"harbour.xml", "Harbour reopens", "J.D."})
            QVERIFY2(printed.find(part) != std::string::npos, printed.c_str());
    }

    // The commands' keys, shown in the menus, run them; the title marks unsaved changes.
    void theCommandsRunFromTheirKeysAndEntries() {
        TempDir dir;
        Editor editor(dir, Newsroom("", "<FileSaveAs Shortcut=\"F12\"/>"));
        QVERIFY(editor.StartAndShow());

        QCOMPARE(editor.Action("mnuEditionUndo")->shortcuts(),
                 StandardShortcuts(QKeySequence::Undo));
        QCOMPARE(editor.Action("mnuFileSaveAs")->shortcuts(), QList{QKeySequence(Qt::Key_F12)});

        // Pressed in the story's main box, the keys run their commands.
        editor.Trigger("mnuDisplayStory");
        QVERIFY(!editor.window.isWindowModified());
        editor.Type("Harbour");
        QVERIFY(editor.window.isWindowModified());
        QTextEdit* box = editor.Box(6);
        box->selectAll();
        QTest::keyClick(box, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_U, Qt::ControlModifier);
        const CharFormat format = editor.window.Session().story.boxes[6].FormatAt(2);
        QVERIFY(format.bold && format.underline && editor.Action("Bold")->isChecked());
        editor.Trigger("mnuEditionUndo");  // the menu's Undo reaches the story panel
        QVERIFY(!editor.window.Session().story.boxes[6].FormatAt(2).underline);
        editor.user.QueuePath(dir / "harbour.xml");
        QTest::keyClick(box, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(fs::exists(dir / "harbour.xml") && !editor.window.isWindowModified());
        QTest::keyClick(box, Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(editor.MainBox(), std::u16string());

        // Every menu entry runs a command; About tells the program's name and version, Insert
        // adds a picture in its view, and Save and close does both.
        for (const MenuLayout& menu : MainMenuLayout()) {
            for (const MenuEntryLayout& entry : menu.entries) {
                if (entry.key == kMenuSeparator || entry.key == kRecentFilesRows) continue;
                const std::string name = "mnu" + std::string(entry.key);
                const QAction* action = editor.Action(name.c_str());
                // The Applications entry holds the menu of its program.
                QVERIFY2(action->menu() != nullptr || TriggerReceivers(*action) > 0, name.c_str());
            }
        }
        for (const char* button : {"ReceiveWorkflow", "InterceptWorkflow", "SendMail"}) {
            QVERIFY2(!editor.Action(button)->isEnabled(), button);
        }
        // The search button stands for the Search menu and opens the search window once the
        // story holds text.
        editor.Trigger("mnuDisplayStory");
        editor.Type("Le chat");
        editor.Trigger("Search");
        const QWidgetList windows = QApplication::topLevelWidgets();
        QVERIFY(std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->objectName() == QStringLiteral("frmSearch") && window->isVisible();
        }));
        for (const char* button : {"Save", "Bold", "Logs", "SendFTP"})
            QVERIFY2(editor.Action(button)->isEnabled(), button);

        editor.Trigger("mnuAbout");
        QVERIFY(editor.user.messages.back().starts_with("Tessarin " TESSARIN_VERSION));
        editor.user.QueuePath(dir.Write("harbour.jpg", "\xFF\xD8\xFF\xD9"));
        editor.Trigger("mnuInsertImage");
        QCOMPARE(editor.Find<QTabWidget>("tabDisplay")->currentWidget()->objectName(),
                 QStringLiteral("pageImages"));
        QCOMPARE(editor.window.Session().story.images.size(), std::size_t{1});
        editor.Trigger("mnuDisplayStory");
        editor.Type("Ferry late");
        editor.user.QueuePath(dir / "ferry.xml");
        editor.Trigger("mnuFileSaveClose");
        QVERIFY(fs::exists(dir / "ferry.xml"));
        QCOMPARE(editor.MainBox(), std::u16string());
    }

    // An RTF document opens as a new story; the export menu then writes the story as RTF, PDF
    // and, once saved, through the style sheet, each beside the story. What the readers and
    // writers make of the text is tested with them.
    void importedDocumentExportsBesideItself() {
        TempDir dir;
        dir.Write("XSLT/Tessarin.xsl",
                  "<xsl:stylesheet version=\"1.0\" "
                  "xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\"><xsl:template "
                  "match=\"/\"><p><xsl:value-of select=\"//TextBox6\"/></p></xsl:template>"
                  "</xsl:stylesheet>");
        const fs::path document = dir.Write("desk/note.rtf", "{\\rtf1 Quay {\\b closed}\\par}");
        Editor editor(dir, Newsroom(), "[Preferences]\r\nStartAutoExport=0\r\n");
        QVERIFY(editor.StartAndShow());

        editor.user.QueuePath(document);
        editor.Trigger("mnuFileOpen");
        QCOMPARE(editor.MainBox(), std::u16string(u"Quay closed"));
        QVERIFY(editor.window.windowTitle().endsWith(QStringLiteral(" - note.xml[*]")));

        for (const char* format : {"RTF", "PDF"}) {
            editor.Trigger(("mnuExport" + std::string(format)).c_str());
            const fs::path written =
                dir / "desk" / ("note." + QString(format).toLower().toStdString());
            QVERIFY2(fs::exists(written), format);
            QCOMPARE(editor.window.Session().window.Status().text,
                     "Exported story: " + written.string());
        }

        editor.Trigger("mnuFileSave");
        QVERIFY(fs::exists(dir / "desk/note.xml"));
        const QList<QAction*> sheets = editor.window.findChildren<QAction*>("mnuExportXSL");
        QCOMPARE(sheets.size(), 1);
        QCOMPARE(sheets[0]->text(), QStringLiteral("Tessarin.xsl"));
        sheets[0]->trigger();
        QVERIFY(ReadBytes(dir / "desk/note.htm").find("<p>Quay closed</p>") != std::string::npos);
    }

    // tessarin --help prints its options where there is no display at all.
    void helpNeedsNoDisplay() {
        QProcess editor;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QLatin1String(display));
        editor.setProcessEnvironment(environment);
        editor.start(QStringLiteral(TESSARIN_EDITOR_PATH), {QStringLiteral("--help")});
        QVERIFY(editor.waitForFinished(10000));
        QCOMPARE(editor.exitStatus(), QProcess::NormalExit);
        QCOMPARE(editor.exitCode(), 0);
        const QString help = QString::fromUtf8(editor.readAllStandardOutput());
        QVERIFY2(help.startsWith(QStringLiteral("usage: tessarin [--app-dir DIR]")),
                 qPrintable(help));
    }

  private:
    QUrl opened_;
};

TESSARIN_UI_TEST(MainWindowTest);

}  // namespace
}  // namespace tessarin

#include "main_window_test.moc"
