#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QtTest>
#include <memory>
#include <random>
#include <utility>

#include "editing/copy_fit.h"
#include "ui/story_panel_bench.h"
#include "ui/styled_text_bridge.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using PanelBench = testing::StoryPanelBench;

CharFormat Bold() {
    CharFormat format;
    format.bold = true;
    return format;
}

class StoryPanelTest : public QObject {
    Q_OBJECT

  private slots:
    // Keys reach the core box (a paragraph end is CR LF there, one key away) and the counter
    // and its warnings show the core's count; the count itself is the copy-fit's.
    void TypingMovesTheCounterAndTheWarnings() {
        PanelBench panel;
        panel.Select(0, 0, 0);
        QTest::keyClicks(&panel.Box(0), "abcd");
        QTest::keyClick(&panel.Box(0), Qt::Key_Return);
        QTest::keyClicks(&panel.Box(0), "ef");
        QCOMPARE(panel.Core(0), QStringLiteral("abcd\r\nef"));
        QCOMPARE(panel.Label("lblNbTextBox0"), QStringLiteral("6  [120%]"));
        QVERIFY(panel.Shown("ImageWarningLess0") && !panel.Shown("ImageWarningMore0"));

        // Backspace takes the "f", the "e", then the whole line break.
        for (int key = 0; key < 3; ++key)
            QTest::keyClick(&panel.Box(0), Qt::Key_Backspace);
        QCOMPARE(panel.Core(0), QStringLiteral("abcd"));
        QCOMPARE(panel.Box(0).toPlainText(), QStringLiteral("abcd"));
    }

    // The preference TabInText decides what Tab does in every text box.
    void TheTabKeyFollowsItsPreference() {
        PanelBench panel;
        for (const bool tabInText : {false, true}) {
            panel.bench.session.preferences.TabInText = tabInText;
            panel.panel->Refresh();
            for (int box : {0, 1, 6}) {
                panel.Select(box, 0, 0);
                QTest::keyClick(&panel.Box(box), Qt::Key_Tab);
                const QString row = QStringLiteral("box %1, TabInText %2").arg(box).arg(tabInText);
                QVERIFY2(panel.Box(box).hasFocus() == tabInText, qPrintable(row));
                QVERIFY2(panel.Core(box) == (tabInText ? QStringLiteral("\t") : QString()),
                         qPrintable(row));
            }
        }
    }

    // A click in the list of forms asks the core; the panel follows its answer. What the
    // questions say is the forms' own business.
    void AFormIsChosenOnlyWhenItsQuestionsAreAgreed() {
        PanelBench panel;
        panel.Select(1, 0, 0);
        QTest::keyClicks(&panel.Box(1), "text");
        QListWidget& forms = panel.Find<QListWidget>(QStringLiteral("lstStoryTypes"));
        const auto click = [&forms](int row) {
            QTest::mouseClick(forms.viewport(), Qt::LeftButton, {},
                              forms.visualItemRect(forms.item(row)).center());
            QCoreApplication::processEvents();
        };
        panel.bench.user.QueueAnswer(Answer::No);
        click(2);  // "Main" has no box 1
        QCOMPARE(forms.currentRow(), 0);
        QCOMPARE(panel.Box(1).toPlainText(), QStringLiteral("text"));

        panel.bench.user.QueueAnswer(Answer::No);  // keep the mixed case
        click(1);
        QCOMPARE(forms.currentRow(), 1);
        QVERIFY(panel.Shown("ImageAllCaps1") && !panel.Shown("ImageAllCaps0"));

        panel.bench.user.QueueAnswer(Answer::Yes);
        click(2);
        QCOMPARE(forms.currentRow(), 2);
        QVERIFY(!panel.Box(1).isVisible() && !panel.Shown("lblTextBox1"));
        QCOMPARE(panel.Core(1), QString());
    }

    // Bold, the undo key and Redo go to the core and the box shows its result; the undo
    // ring's own rules are tested with the core.
    void BoldUndoAndRedoGoThroughTheCore() {
        PanelBench panel;
        panel.Select(6, 0, 0);
        QTest::keyClicks(&panel.Box(6), "hello world");
        panel.Select(6, 6, 11);
        panel.panel->Bold();
        const auto boldOnScreen = [&panel] { return panel.Shown(6).FormatAt(8).bold; };
        QVERIFY(panel.bench.session.story.boxes[6].FormatAt(8).bold && boldOnScreen());
        QVERIFY(panel.bench.session.window.Control("Bold").checked);

        QTest::keyClick(&panel.Box(6), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!boldOnScreen());
        QCOMPARE(panel.Box(6).toPlainText(), QStringLiteral("hello world"));
        panel.panel->Redo();
        QVERIFY(boldOnScreen());
    }

    // Keys inside a note's anchor, just behind it or over a selection across it reach the
    // core, which keeps the anchor whole; the document shows the core's box again.
    void ANoteAnchorResistsEditing() {
        PanelBench panel;
        CharFormat anchor;
        anchor.isProtected = anchor.waveUnderline = anchor.highlighted = true;
        anchor.highlight = Rgb(255, 255, 0);
        StyledText& box = panel.bench.session.story.boxes[6];
        box = StyledText(u"see ");
        box.Insert(4, u"JD 12:00", anchor);
        box.Insert(12, u" end", {});
        panel.panel->Refresh();
        QVERIFY(panel.Shown(6) == box);

        panel.Select(6, 7, 7);  // inside the anchor
        QTest::keyClicks(&panel.Box(6), "x");
        panel.Select(6, 12, 12);  // just behind it
        QTest::keyClick(&panel.Box(6), Qt::Key_Backspace);
        panel.Select(6, 2, 10);  // across its start: only "e " goes
        QTest::keyClicks(&panel.Box(6), "Z");
        QCOMPARE(panel.Core(6), QStringLiteral("seZJD 12:00 end"));
        QVERIFY(panel.Shown(6) == box);
    }

    void TheSignatureButtonsSignAndRelease() {
        PanelBench panel;
        QLineEdit& field = panel.Find<QLineEdit>(QStringLiteral("txtSignature"));
        QPushButton& initials = panel.Find<QPushButton>(QStringLiteral("cmdSignature1"));
        QTest::mouseClick(&initials, Qt::LeftButton);
        QVERIFY(initials.isChecked() && field.isEnabled());
        QCOMPARE(field.text(), QStringLiteral("JD"));
        QTest::keyClicks(&field, "!");
        QCOMPARE(QString::fromStdString(panel.bench.session.story.signature),
                 QStringLiteral("JD!"));
        QTest::mouseClick(&initials, Qt::LeftButton);
        QVERIFY(!initials.isChecked() && !field.isEnabled());
        QCOMPARE(field.text(), QString());
    }

    // Paragraphs of one to two units in the document against two in the box, both ways.
    void PositionsMapBetweenParagraphsAndLineBreaks() {
        QTextDocument document;
        StyledTextBridge bridge(document);
        StyledText text(u"ab\r", Bold());
        text.Insert(3, u"\n\r\ncd\ref", {});  // a line break whose CR and LF differ in format
        bridge.Load(text);
        QCOMPARE(document.blockCount(), 3);  // the lone CR is a line separator
        StyledText expected = text;
        expected.Replace(8, 1, u"\u2028");
        expected.ApplyFormat(2, 2, [](CharFormat& format) { format.bold = true; });
        QVERIFY(bridge.Read() == expected);
        const std::size_t boxPositions[] = {0, 1, 2, 4, 6, 7, 8, 9, 10, 11};
        QCOMPARE(document.characterCount(), 10);
        for (int position = 0; position < document.characterCount(); ++position) {
            QCOMPARE(bridge.ToBoxPosition(position), boxPositions[position]);
            QCOMPARE(bridge.ToDocumentPosition(boxPositions[position]), position);
        }
    }

    // A change made elsewhere replaces only the stretch that differs, and a line break that
    // the change makes or undoes at the stretch's edge is one paragraph separator or none.
    void ShowingAChangeReplacesOnlyWhatDiffers() {
        QTextDocument document;
        StyledTextBridge bridge(document);
        std::u16string lines;
        for (int line = 0; line < 1000; ++line)
            lines += u"one more line\r\n";
        StyledText text(lines);
        bridge.Load(text);
        int changed = 0;
        connect(&document, &QTextDocument::contentsChange,
                [&changed](int, int removed, int added) { changed += removed + added; });
        text.ApplyFormat(7005, 4, [](CharFormat& format) { format.bold = true; });
        bridge.Show(text);
        QVERIFY(changed <= 8);
        QVERIFY(bridge.Read() == text);

        const std::pair<std::u16string_view, std::u16string_view> steps[] = {
            {u"x\ry", u"x\u2028y"},
            {u"x\r\ny", u"x\u2029y"},
            {u"x\ny", u"x\u2028y"},
            {u"x\n\r\ny", u"x\u2028\u2029y"},
            {u"xy", u"xy"}};
        for (const auto& [box, shown] : steps) {
            bridge.Show(StyledText(box));
            QCOMPARE(document.toRawText(), QString::fromStdU16String(std::u16string(shown)));
        }
    }

    // Random keys at random places: the document always reads back as the box, and a key
    // in a long box replaces a few characters of the document, never the whole.
    void TypingKeepsTheDocumentInStepChangeByChange() {
        PanelBench panel;
        std::u16string paragraphs;
        for (int line = 0; line < 5000; ++line)
            paragraphs += u"A line of the long main text.\r\n";
        panel.bench.session.story.boxes[6] = StyledText(paragraphs);
        panel.panel->Refresh();
        int changed = 0;
        connect(panel.Box(6).document(), &QTextDocument::contentsChange,
                [&changed](int, int removed, int added) { changed += removed + added; });
        std::mt19937 random(7);
        for (int step = 0; step < 200; ++step) {
            const int end = panel.Box(6).document()->characterCount() - 1;
            const int anchor = static_cast<int>(random() % (end + 1));
            panel.Select(6, anchor, std::min(end, anchor + static_cast<int>(random() % 4)));
            const Qt::Key keys[] = {Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete,
                                    Qt::Key_Space};
            changed = 0;
            QTest::keyClick(&panel.Box(6), keys[random() % 5]);
            QVERIFY(changed <= 8);
        }
        QVERIFY(panel.Shown(6) == panel.bench.session.story.boxes[6]);
        QCOMPARE(panel.Label("lblNbTextBox6").toStdString(),
                 std::to_string(panel.bench.session.story.counters[6].count));
    }
};

TESSARIN_UI_TEST(StoryPanelTest);

}  // namespace
}  // namespace tessarin

#include "story_panel_test.moc"
