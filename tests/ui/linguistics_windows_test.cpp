#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
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

class LinguisticsWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    void TheSpellingDialogReplacesIgnoresAndStops() {
        LinguisticsDesk desk;
        Editor editor(desk.dir);
        QVERIFY(editor.StartAndShow());
        editor.Type("A speling fault");
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
        QCOMPARE(editor.MainBox(), std::u16string(u"A spelling fault"));

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
        QCOMPARE(editor.MainBox(), std::u16string(u"A spelling fault zorkle zorkle blorf qwyx"));
    }

    // The list of synonyms and the word at the caret come from the core (tested there); the
    // window puts the chosen word in place of it.
    void FrmSynonymsReplacesTheWordAtTheCaret() {
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
};

TESSARIN_UI_TEST(LinguisticsWindowsTest);

}  // namespace
}  // namespace tessarin

#include "linguistics_windows_test.moc"
