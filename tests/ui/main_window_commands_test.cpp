#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QTabWidget>
#include <QTextEdit>
#include <QtTest>

#include "ui/editor_driver.h"
#include "ui/main_menu_layout.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::Editor;
using testing::Newsroom;
using testing::ReadBytes;
using testing::TempDir;

// How many receivers a signal of any object has: the count is protected in QObject, and a
// pointer to it, taken through a class that makes it public, reaches it on every object.
struct ReceiverCount : QObject {
    using QObject::receivers;
};
int TriggerReceivers(const QAction& action) {
    int (QObject::*receivers)(const char*) const = &ReceiverCount::receivers;
    return (action.*receivers)(SIGNAL(triggered(bool)));
}

class MainWindowCommandsTest : public QObject {
    Q_OBJECT
  private slots:
    // A menu entry either runs a command or, while its window is not built, is disabled with its
    // button; About tells the program's name and version, Insert adds a picture in its view, and
    // Save and close does both.
    void everyCommandRunsOrIsDisabled() {
        TempDir dir;
        Editor editor(dir, Newsroom());
        QVERIFY(editor.StartAndShow());
        for (const MenuLayout& menu : MainMenuLayout()) {
            for (const MenuEntryLayout& entry : menu.entries) {
                if (entry.key == kMenuSeparator || entry.key == kRecentFilesRows) continue;
                const std::string name = "mnu" + std::string(entry.key);
                const QAction* action = editor.Action(name.c_str());
                if (CommandNotBuiltYet(entry.key)) {
                    QVERIFY2(!action->isEnabled(), name.c_str());
                } else {
                    QVERIFY2(TriggerReceivers(*action) > 0, name.c_str());
                }
            }
        }
        for (const char* button : {"ReceiveWorkflow", "InterceptWorkflow", "SendMail", "Zoom"}) {
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
        editor.Trigger("Zoom");
        QVERIFY(!editor.Action("Zoom")->isChecked());
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

    // The commands' keys, shown in the menus, run them; the title marks unsaved changes.
    void theCommandsHaveTheDesktopsShortcutsUnlessConfigured() {
        TempDir dir;
        Editor editor(dir, Newsroom("", "<FileSaveAs Shortcut=\"F12\"/>"));
        QVERIFY(editor.StartAndShow());

        QCOMPARE(editor.Action("mnuEditionUndo")->shortcuts(),
                 StandardShortcuts(QKeySequence::Undo));
        QCOMPARE(editor.Action("mnuFileSaveAs")->shortcuts(), QList{QKeySequence(Qt::Key_F12)});

        // Pressed in the story's main box, the keys run their commands.
        editor.Trigger("mnuDisplayStory");
        QVERIFY(editor.window.windowTitle().endsWith(QStringLiteral("[*]")));
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
        QVERIFY(help.contains(QStringLiteral("--screenshot FILE")));
    }
};

TESSARIN_UI_TEST(MainWindowCommandsTest);

}  // namespace
}  // namespace tessarin

#include "main_window_commands_test.moc"
