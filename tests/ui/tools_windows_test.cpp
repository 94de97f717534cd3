#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <deque>
#include <functional>

#include "support/replace_once.h"
#include "ui/editor_driver.h"
#include "ui/find_control.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using namespace testing;

void Click(QWidget& window, const char* button) {
    QTest::mouseClick(Find<QPushButton>(window, button), Qt::LeftButton);
}

// Answers a modal window each time it shows, one scripted step a showing, while the command
// that opened it waits.
class WindowAnswers : public QObject {
  public:
    WindowAnswers(const char* window, std::deque<std::function<void(QWidget&)>> steps)
        : name_(QString::fromUtf8(window)), steps_(std::move(steps)) {
        connect(&poll_, &QTimer::timeout, this, [this] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->objectName() != name_ || !widget->isVisible() || steps_.empty())
                    continue;
                const auto step = std::move(steps_.front());
                steps_.pop_front();
                ++answered;
                step(*widget);
            }
        });
        poll_.start(10);
    }

    int answered = 0;

  private:
    QString name_;
    std::deque<std::function<void(QWidget&)>> steps_;
    QTimer poll_;
};

struct LinguisticsDesk {
    LinguisticsDesk() {
        std::string configuration = Newsroom("", R"(<ToolsSynonyms File="syn.txt"/>)");
        ReplaceOnce(configuration, "Client=", "Language=\"en\" Client=");
        dir.Write("Tessarin.xml", configuration);
        dir.Write("syn.txt", "cat\\N:kitty\\N\\feline\\N\\###\n");
    }
    TempDir dir;
};

double FirstShare(const QSplitter& splitter) {
    const QList<int> sizes = splitter.sizes();
    return static_cast<double>(sizes[0]) / (sizes[0] + sizes[1]);
}

// The windows of the Tools and Help menus, the tips and the panels' shares, driven through the
// main window.
class ToolsWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    // The synonyms window puts the chosen word in place of the word at the caret; the spelling
    // window replaces, ignores and stops. Which words are wrong and which are synonyms is the
    // core's business (tested there).
    void TheSynonymsAndSpellingWindowsChangeTheMainBox() {
        LinguisticsDesk desk;
        Editor editor(desk.dir);
        QVERIFY(editor.StartAndShow());
        editor.Type("Two cats sleep");
        QTextCursor caret = editor.Box(6)->textCursor();
        caret.setPosition(6);
        editor.Box(6)->setTextCursor(caret);
        WindowAnswers choose(
            "frmSynonyms", {[](QWidget& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Synonyms for: cats"));
                auto* list = Find<QListWidget>(dialog, "lstSynonyms");
                list->itemClicked(list->item(1));
                QCOMPARE(Find<QLineEdit>(dialog, "txtReplaceBy")->text(), QStringLiteral("feline"));
                Click(dialog, "cmdOK");
            }});
        editor.Trigger("mnuToolsSynonyms");
        QCOMPARE(choose.answered, 1);
        QCOMPARE(editor.MainBox(), std::u16string(u"Two feline sleep"));

        editor.Type(" A speling fault");
        WindowAnswers replace("frmSpelling", {[](QWidget& dialog) {
                                  auto* suggestions = Find<QListWidget>(dialog, "lstSuggestions");
                                  const auto found = suggestions->findItems(
                                      QStringLiteral("spelling"), Qt::MatchExactly);
                                  QVERIFY(!found.isEmpty());
                                  suggestions->setCurrentItem(found.front());
                                  QCOMPARE(Find<QLineEdit>(dialog, "txtChangeTo")->text(),
                                           QStringLiteral("spelling"));
                                  Click(dialog, "cmdChange");
                              }});
        editor.Trigger("mnuToolsSpellChecker");
        QCOMPARE(replace.answered, 1);
        QCOMPARE(editor.MainBox(), std::u16string(u"Two feline sleep A spelling fault"));

        editor.Type(" zorkle zorkle blorf qwyx");
        QStringList asked;
        auto ask = [&asked](const char* button) {
            return [&asked, button](QWidget& dialog) {
                asked << Find<QLineEdit>(dialog, "txtNotInDictionary")->text();
                Click(dialog, button);
            };
        };
        WindowAnswers stop("frmSpelling", {ask("cmdIgnoreAll"), ask("cmdCancel")});
        editor.Trigger("mnuToolsSpellChecker");
        QCOMPARE(asked, (QStringList{QStringLiteral("zorkle"), QStringLiteral("blorf")}));
        QCOMPARE(editor.MainBox(),
                 std::u16string(u"Two feline sleep A spelling fault zorkle zorkle blorf qwyx"));
    }

    // The counts are the core's; the window lists them, shows the story and filters.
    void FrmWordStatisticsCountsMarksAndShowsAWord() {
        LinguisticsDesk desk;
        Editor editor(desk.dir);
        QVERIFY(editor.StartAndShow());
        editor.Type("The cat, the zorkle.");
        WindowAnswers look("frmWordStatistics", {[](QWidget& dialog) {
                               auto* words = Find<QTreeWidget>(dialog, "lvWords");
                               QCOMPARE(words->topLevelItem(1)->text(1), QStringLiteral("2"));
                               words->itemClicked(words->topLevelItem(1), 0);
                               QCOMPARE(Find<QTextEdit>(dialog, "rtfStory")->toPlainText(),
                                        QStringLiteral("The cat, the zorkle.\n"));
                               Find<QCheckBox>(dialog, "chkDisplayUnknownOnly")->click();
                               QCOMPARE(words->topLevelItemCount(), 1);
                               QCOMPARE(words->topLevelItem(0)->text(0), QStringLiteral("zorkle"));
                               dialog.close();
                           }});
        editor.Trigger("mnuToolsWordStatistics");
        QCOMPARE(look.answered, 1);
        QVERIFY(editor.window.Session().profile.Read("WordStatistics", "Left").has_value());
    }

    // The panels keep their share through a resize and a restart. The tips window opens on the
    // tip after the last one seen and its buttons leaf and remember through the core, whose
    // ring and stored keys are tested there.
    void panelsKeepTheirShareAndTipsTheirPlace() {
        TempDir dir;
        dir.Write(
            "TipOfTheDay.xml",
            "<TipOfTheDay><Tip>One</Tip><Tip>Two\\nlines</Tip><Tip>Three</Tip></TipOfTheDay>");
        {
            Editor editor(dir, Newsroom(),
                          "[MainWindow]\r\nWidth=900\r\nHeight=600\r\nSizeBarVImage=2500\r\n"
                          "[TipOfTheDay]\r\nLastTipOfTheDay=1\r\n");
            QVERIFY(editor.StartAndShow());
            auto* tips = Find<QDialog>(editor.window, "frmTipOfTheDay");
            auto* tip = Find<QLabel>(*tips, "lblTipOfTheDay");
            QCOMPARE(tip->text(), QStringLiteral("Two\nlines"));
            Find<QPushButton>(*tips, "cmdNextTip")->click();
            QCOMPARE(tip->text(), QStringLiteral("Three"));
            Find<QCheckBox>(*tips, "chkShowTipsAtStartup")->setChecked(false);
            Find<QPushButton>(*tips, "cmdClose")->click();
            QVERIFY(
                ReadBytes(dir / "Tessarin.ini")
                    .ends_with("[TipOfTheDay]\r\nLastTipOfTheDay=3\r\nShowTipsAtStartup=0\r\n"));

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
        // Speed 5, three steps up and two down: a key that does nothing or the opposite shows.
        for (const Qt::Key key :
             {Qt::Key_Down, Qt::Key_Plus, Qt::Key_Down, Qt::Key_Up, Qt::Key_Minus, Qt::Key_Space})
            QTest::keyClick(prompter, key);
        QCOMPARE(speed->text(), QStringLiteral("\u25B6 6"));
        QTRY_VERIFY(bar->value() > 0);
        QTest::keyClick(prompter, Qt::Key_Home);
        QCOMPARE(bar->value(), 0);
        QCOMPARE(speed->text(), QStringLiteral("\u275A\u275A 6"));
        QTest::keyClick(prompter, Qt::Key_Escape);
        QTRY_VERIFY(editor.window.findChild<QWidget*>("frmTeleprompter") == nullptr);
    }
};

TESSARIN_UI_TEST(ToolsWindowsTest);

}  // namespace
}  // namespace tessarin

#include "tools_windows_test.moc"
