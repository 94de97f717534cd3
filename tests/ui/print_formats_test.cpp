#include <QAction>
#include <QtTest>

#include "ui/editor_driver.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::Editor;
using testing::Newsroom;
using testing::ReadBytes;
using testing::TempDir;

class PrintFormatsTest : public QObject {
    Q_OBJECT
  private slots:
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
};

TESSARIN_UI_TEST(PrintFormatsTest);

}  // namespace
}  // namespace tessarin

#include "print_formats_test.moc"
