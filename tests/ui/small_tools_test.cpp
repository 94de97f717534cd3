#include <QCheckBox>
#include <QDesktopServices>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextEdit>
#include <QtTest>

#include "ui/editor_driver.h"
#include "ui/find_control.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using testing::Editor;
using testing::Find;
using testing::Newsroom;
using testing::ReadBytes;
using testing::TempDir;

// The addresses that the desktop would open.
class OpenedUrls : public QObject {
    Q_OBJECT
  public slots:
    void open(const QUrl& url) { urls.push_back(url); }

  public:
    std::vector<QUrl> urls;
};

double FirstShare(const QSplitter& splitter) {
    const QList<int> sizes = splitter.sizes();
    return static_cast<double>(sizes[0]) / (sizes[0] + sizes[1]);
}

class SmallToolsTest : public QObject {
    Q_OBJECT
  private slots:
    void panelsKeepTheirShareThroughResizeAndRestart() {
        TempDir dir;
        {
            Editor editor(dir, Newsroom(),
                          "[MainWindow]\r\nWidth=900\r\nHeight=600\r\nSizeBarVImage=2500\r\n");
            QVERIFY(editor.StartAndShow());
            editor.Trigger("mnuDisplayImages");
            auto* splitter = Find<QSplitter>(editor.window, "SizeBarVImage");
            QTRY_VERIFY(std::abs(FirstShare(*splitter) - 0.25) < 0.01);
            editor.window.resize(1500, 800);
            QTRY_VERIFY(splitter->sizes()[0] > 300);
            QVERIFY(std::abs(FirstShare(*splitter) - 0.25) < 0.01);

            // The user drags the bar to the right: the new share is kept.
            QSplitterHandle* handle = splitter->handle(1);
            const QPoint from = handle->rect().center();
            const auto drag = [&](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
                QMouseEvent event(type, at, handle->mapToGlobal(at), Qt::LeftButton, buttons, {});
                QApplication::sendEvent(handle, &event);
            };
            drag(QEvent::MouseButtonPress, from, Qt::LeftButton);
            drag(QEvent::MouseMove, from + QPoint(splitter->width() / 4, 0), Qt::LeftButton);
            drag(QEvent::MouseButtonRelease, from + QPoint(splitter->width() / 4, 0), {});
            QVERIFY(std::abs(FirstShare(*splitter) - 0.5) < 0.02);
            QVERIFY(editor.window.close());
        }
        Editor again(dir);
        QVERIFY(again.StartAndShow());
        again.Trigger("mnuDisplayImages");
        auto* restored = Find<QSplitter>(again.window, "SizeBarVImage");
        QTRY_VERIFY(std::abs(FirstShare(*restored) - 0.5) < 0.02);
    }

    // The window opens on the tip after the last one seen and its buttons leaf and remember
    // through the core, whose ring and stored keys are tested there.
    void tipsLeafRoundAndRememberWhereTheUserIs() {
        TempDir dir;
        dir.Write(
            "TipOfTheDay.xml",
            "<TipOfTheDay><Tip>One</Tip><Tip>Two\\nlines</Tip><Tip>Three</Tip></TipOfTheDay>");
        Editor editor(dir, Newsroom(), "[TipOfTheDay]\r\nLastTipOfTheDay=1\r\n");
        QVERIFY(editor.StartAndShow());
        auto* tips = Find<QDialog>(editor.window, "frmTipOfTheDay");
        auto* tip = Find<QLabel>(*tips, "lblTipOfTheDay");
        QCOMPARE(tip->text(), QStringLiteral("Two\nlines"));
        Find<QPushButton>(*tips, "cmdNextTip")->click();
        QCOMPARE(tip->text(), QStringLiteral("Three"));
        Find<QCheckBox>(*tips, "chkShowTipsAtStartup")->setChecked(false);
        Find<QPushButton>(*tips, "cmdClose")->click();
        QVERIFY(ReadBytes(dir / "Tessarin.ini")
                    .ends_with("[TipOfTheDay]\r\nLastTipOfTheDay=3\r\nShowTipsAtStartup=0\r\n"));
    }

    void teleprompterRunsByTheKeys() {
        TempDir dir;
        Editor editor(dir, Newsroom());
        QVERIFY(editor.StartAndShow());
        editor.Trigger("mnuDisplayTeleprompter");
        QCOMPARE(editor.window.Session().window.Status().text, std::string("Empty story:"));

        std::u16string text;
        for (int line = 1; line <= 200; ++line)
            text += u"Line " + QString::number(line).toStdU16String() + u"\r\n";
        editor.window.Session().story.boxes[6] = StyledText(text);
        editor.Trigger("mnuDisplayTeleprompter");
        auto* prompter = Find<QWidget>(editor.window, "frmTeleprompter");
        QVERIFY(QTest::qWaitForWindowExposed(prompter));
        QVERIFY(prompter->isFullScreen());
        auto* shown = Find<QTextEdit>(*prompter, "txtTeleprompter");
        QVERIFY(shown->toPlainText().startsWith("Line 1\nLine 2"));
        auto* speed = Find<QLabel>(*prompter, "lblTeleprompterSpeed");
        QScrollBar* bar = shown->verticalScrollBar();
        QCOMPARE(speed->text(), QStringLiteral("\u275A\u275A 5"));
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Plus, Qt::Key_Up, Qt::Key_Space})
            QTest::keyClick(prompter, key);
        QCOMPARE(speed->text(), QStringLiteral("\u25B6 6"));
        QTRY_VERIFY(bar->value() > 0);
        QTest::keyClick(prompter, Qt::Key_Home);
        QCOMPARE(bar->value(), 0);
        QCOMPARE(speed->text(), QStringLiteral("\u275A\u275A 6"));
        QTest::keyClick(prompter, Qt::Key_Escape);
        QTRY_VERIFY(editor.window.findChild<QWidget*>("frmTeleprompter") == nullptr);
    }

    // Configured tool tips show "\n" as a new line; Help opens the user guide, or says it is
    // missing.
    void toolTipsOnSeveralLinesAndTheUserGuide() {
        TempDir dir;
        Editor editor(dir,
                      Newsroom("",
                               "<EditionMultipleClipboard ToolTipText=\"Drag here\\nor there\"/>"
                               "<FileSave>Save\\nthe story</FileSave>"));
        QVERIFY(editor.StartAndShow());
        QCOMPARE(Find<QWidget>(editor.window, "treeClipboard")->toolTip(),
                 QStringLiteral("Drag here\nor there"));
        QCOMPARE(editor.Action("Save")->toolTip(), QStringLiteral("Save\nthe story"));

        OpenedUrls opened;
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &opened, "open");
        editor.Trigger("mnuHelpContents");
        QCOMPARE(editor.user.messages.back(), std::string("Missing Help file"));
        const auto guide = dir.Write("docs/user-guide.html", "<html></html>");
        editor.Trigger("mnuHelpContents");
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QCOMPARE(opened.urls,
                 std::vector{QUrl::fromLocalFile(QString::fromStdString(guide.string()))});
    }
};

TESSARIN_UI_TEST(SmallToolsTest);

}  // namespace
}  // namespace tessarin

#include "small_tools_test.moc"
