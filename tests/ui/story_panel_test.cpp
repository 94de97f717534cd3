#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>
#include <fstream>
#include <memory>
#include <random>
#include <utility>

#include "editing/copy_fit.h"
#include "ui/notes_tree.h"
#include "ui/story_panel_bench.h"
#include "ui/styled_text_bridge.h"
#include "ui/ui_test_registry.h"

namespace tessarin {
namespace {

using PanelBench = testing::StoryPanelBench;

// The story panel: keys and gestures handed to the core and shown again, the document in step
// with the boxes, and the editing tools' windows.
class StoryPanelTest : public QObject {
    Q_OBJECT
  private slots:
    // Keys reach the core box (a paragraph end is CR LF there, one key away) and the counter
    // and its warnings show the core's count; the count itself is the copy-fit's.
    void TypingMovesTheCounterTheWarningsAndTheTypingRules() {
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

        // Each key goes through the typing rules of the core (tested there, rule by rule): two
        // blanks and a question mark become one non-breaking mark, shown as a grey middle dot.
        panel.Type(6, QStringLiteral("Oui  ?"));
        QCOMPARE(panel.Text(6), QString::fromUtf16(u"Oui\u00B7?"));
        QTextCursor dot(panel.Box(6).document());
        dot.setPosition(4);
        QCOMPARE(dot.charFormat().foreground().color(), QColor(175, 175, 175));
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
    }

    // Bold, the undo key, Redo and the signature buttons go to the core and the panel shows
    // its result; the undo ring's own rules are tested with the core.
    void BoldUndoRedoAndTheSignatureGoThroughTheCore() {
        PanelBench panel;
        panel.Select(6, 0, 0);
        QTest::keyClicks(&panel.Box(6), "hello world");
        panel.Select(6, 6, 11);
        panel.panel->Bold();
        const auto boldOnScreen = [&panel] { return panel.Shown(6).FormatAt(8).bold; };
        QVERIFY(panel.bench.session.story.boxes[6].FormatAt(8).bold && boldOnScreen());

        QTest::keyClick(&panel.Box(6), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!boldOnScreen());
        QCOMPARE(panel.Box(6).toPlainText(), QStringLiteral("hello world"));
        panel.panel->Redo();
        QVERIFY(boldOnScreen());

        // The signature buttons sign and release.
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

    // Paragraphs of one to two units in the document against two in the box, both ways. A line
    // break that a change makes or undoes at the edge of the stretch it replaces is one
    // paragraph separator or none.
    void TheDocumentMapsAndShowsTheBoxStretchByStretch() {
        QTextDocument document;
        StyledTextBridge bridge(document);
        CharFormat bold;
        bold.bold = true;
        StyledText text(u"ab\r", bold);
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

    // Random keys at random places, then a format: the document always reads back as the box,
    // and a change in a long box replaces a few characters of the document, never the whole.
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
        // A format given to a few characters replaces only those.
        panel.Select(6, 7005, 7009);
        changed = 0;
        panel.panel->Bold();
        QVERIFY(changed > 0 && changed <= 8);
        QVERIFY(panel.Shown(6) == panel.bench.session.story.boxes[6]);
        QCOMPARE(panel.Label("lblNbTextBox6").toStdString(),
                 std::to_string(panel.bench.session.story.counters[6].count));
    }

    // The search window's buttons run the core's search and replace (whose matching is tested
    // with the core); the box being searched is locked and coloured until the window closes.
    void searchWindowFindsReplacesAndRemembers() {
        PanelBench tools;
        tools.Type(0, QStringLiteral("Le chat"));
        tools.Type(6, QStringLiteral("Un chat, deux CHATS."));
        tools.panel->OpenSearch(1);
        auto& search = tools.Find<QDialog>(QStringLiteral("frmSearch"));
        QVERIFY(search.isVisible());
        tools.Find<QLineEdit>(QStringLiteral("txtSearch")).setText(QStringLiteral("chat"));
        tools.Find<QLineEdit>(QStringLiteral("txtReplace")).setText(QStringLiteral("chien"));
        tools.Click("cmdFollowing");
        tools.Click("cmdFollowing");
        QCOMPARE(tools.Box(6).textCursor().selectedText(), QStringLiteral("chat"));
        QVERIFY(tools.Box(6).isReadOnly() && !tools.Box(0).isReadOnly());
        QVERIFY(tools.Box(6).palette().color(QPalette::Base) !=
                tools.Box(0).palette().color(QPalette::Base));
        tools.Click("cmdReplace");
        QCOMPARE(tools.Text(6), QStringLiteral("Un chien, deux CHATS."));

        tools.Click("cmdSearchAll");
        QCOMPARE(tools.Find<QLabel>(QStringLiteral("lblSearchAll")).text(),
                 QStringLiteral("Search all: 2"));
        tools.Click("cmdReplaceAll");
        QCOMPARE(tools.Text(0), QStringLiteral("Le chien"));

        tools.Click("cmdCancel");
        QVERIFY(!search.isVisible());
        QVERIFY(!tools.Box(6).isReadOnly());
        QCOMPARE(tools.bench.session.profile.Read("SearchReplace", "Search"), "chat");
    }

    void notesTreeAddsBookmarksAndRemovesThemWithTheirAnchor() {
        PanelBench tools;
        tools.Type(6, QStringLiteral("deux mots"));
        QTextCursor cursor = tools.Box(6).textCursor();
        cursor.setPosition(5);
        cursor.setPosition(9, QTextCursor::KeepAnchor);
        tools.Box(6).setTextCursor(cursor);
        auto& tree = tools.Find<NotesTree>(QStringLiteral("treeNotes"));
        tree.AddNote(true);

        auto& note = tools.Find<QDialog>(QStringLiteral("frmNote"));
        QVERIFY(note.isVisible());
        tools.Find<QPlainTextEdit>(QStringLiteral("txtNote")).setPlainText(QStringLiteral("a\nb"));
        tools.Click("cmdCancel");
        const StoryNote& added = tools.bench.session.story.notes.at(0);
        QCOMPARE(added.text, std::string("a\r\nb"));
        QVERIFY(added.bookmark);
        const QString title = QString::fromStdString(added.title);
        QCOMPARE(tools.Text(6), QStringLiteral("deux ") + title + QStringLiteral("mots"));
        QCOMPARE(tree.topLevelItem(0)->text(0), QStringLiteral("Notes [1]"));

        // A click on the note selects its anchor.
        QTreeWidgetItem* item = tree.topLevelItem(0)->child(0);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
        QCOMPARE(tools.Box(6).textCursor().selectedText(), title);

        tree.RemoveNote(0);
        QCOMPARE(tools.Text(6), QStringLiteral("deux mots"));
        QCOMPARE(tree.topLevelItem(0)->text(0), QStringLiteral("Notes [0]"));
    }

    void questionsAndAnswersPutTheLabelsAtEachEnter() {
        PanelBench tools;
        tools.Box(6).setFocus();
        tools.panel->ToggleQuestionsAnswers();
        auto& dialog = tools.Find<QDialog>(QStringLiteral("frmQuestionsAnswers"));
        const QList<QWidget*> frames = dialog.findChildren<QWidget*>(QStringLiteral("FrameQA"));
        QCOMPARE(frames.size(), 2);
        frames[0]->findChild<QLineEdit*>(QStringLiteral("txtQA"))->setText(QStringLiteral("Q: "));
        frames[1]->findChild<QLineEdit*>(QStringLiteral("txtQA"))->setText(QStringLiteral("R: "));
        auto* inter1 = frames[1]->findChild<QCheckBox*>(QStringLiteral("chkInter1"));
        inter1->setChecked(true);
        frames[1]->findChild<QCheckBox*>(QStringLiteral("chkInter3"))->setChecked(true);
        QVERIFY(!inter1->isChecked());
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);

        QCOMPARE(tools.Text(6), QStringLiteral("Q: "));
        QTest::keyClicks(&tools.Box(6), QStringLiteral("x"));
        QTest::keyClick(&tools.Box(6), Qt::Key_Return);
        QTest::keyClicks(&tools.Box(6), QStringLiteral("y"));
        QTest::keyClick(&tools.Box(6), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(tools.Text(6), QStringLiteral("Q: x\r\nR: y\r\n"));
    }

    // Characters come from the configured sets and AltGr, snippets by Ctrl and function keys.
    void charactersAndSnippetsComeFromTheConfiguredSetsAndKeys() {
        PanelBench tools;
        std::ofstream(tools.bench.session.paths.appDir / "clips.txt", std::ios::binary)
            << "Paris\r\nLyon\\nMarseille\r\n";
        tools.bench.session.configuration.interface.entries["EditionMultipleClipboard"].File =
            "clips.txt";
        tools.panel->Refresh();
        auto& tree = tools.Find<QTreeWidget>(QStringLiteral("treeClipboard"));
        QCOMPARE(tree.topLevelItem(0)->child(1)->text(0),
                 QStringLiteral("Lyon Marseille [Ctrl+F2]"));
        std::ofstream(tools.bench.session.paths.configurationFile, std::ios::binary)
            << "<Tessarin><InsertCharacters><InsertSetOfCharacters>"
               "<Set Name=\"Latin\">\u00C6\u0152</Set><Set Name=\"Money\">\u20AC\u00A3</Set>"
               "</InsertSetOfCharacters></InsertCharacters></Tessarin>";
        tools.Type(6, QStringLiteral("ab"));
        tools.panel->InsertCharacters();
        auto& dialog = tools.Find<QDialog>(QStringLiteral("frmInsertCharacters"));
        auto& names = tools.Find<QListWidget>(QStringLiteral("lstCharactersName"));
        auto& set = tools.Find<QListWidget>(QStringLiteral("lstCharactersSet"));
        names.setCurrentRow(1);
        QCOMPARE(set.count(), 2);
        QVERIFY(!tools.Find<QPushButton>(QStringLiteral("cmdOK")).isEnabled());
        set.setCurrentRow(0);
        tools.Click("cmdOK");
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"ab\u20AC"));
        tools.Click("cmdCancel");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(tools.bench.session.profile.Read("Configuration", "IndexCharSet"), "1");

        QKeyEvent altGr(QEvent::KeyPress, Qt::Key_AltGr, Qt::NoModifier);
        QApplication::sendEvent(&tools.Box(6), &altGr);
        QTest::keyClicks(&tools.Box(6), QStringLiteral("oo"));
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"ab\u20AC\u0153o"));

        tools.Type(6, QStringLiteral(" A "));
        QTest::keyClick(&tools.Box(6), Qt::Key_F2, Qt::ControlModifier);
        QCOMPARE(tools.Text(6), QString::fromUtf16(u"ab\u20AC\u0153o A Lyon\r\nMarseille"));
    }
};

TESSARIN_UI_TEST(StoryPanelTest);

}  // namespace
}  // namespace tessarin

#include "story_panel_test.moc"
