#include "editing/formatting.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "editing/clipboard.h"
#include "editing/copy_fit.h"
#include "editing/panel_session.h"
#include "editing/selection_state.h"
#include "editing/signature.h"
#include "editing/styled_sample.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

using testing::Sample;

class FormattingTest : public ::testing::Test, public testing::PanelSession {
  protected:
    // Fills a box as reading a story does, with the length of its note anchors.
    StyledText& Put(int box, StyledText text, std::int32_t noteCharacters = 0) {
        session.story.boxes[box] = std::move(text);
        session.story.counters[box].noteCharacters = noteCharacters;
        RecountBox(session, box, ChangeOrigin::Program);
        return session.story.boxes[box];
    }
};

TEST_F(FormattingTest, CharacterFormatsToggleOverTheSelectionAndNeverTouchAnAnchor) {
    StyledText& box = Put(6, Sample(u"plain [NOTE] tail"));
    box.ApplyFormat(0, 2, [](CharFormat& format) { format.bold = true; });
    TextSelection selection{6, 0, 6};
    EXPECT_TRUE(ToggleBold(session, selection));
    EXPECT_TRUE(box.AllOf(0, 6, [](const CharFormat& format) { return format.bold; }));
    EXPECT_TRUE(session.storyModified);
    EXPECT_EQ(session.undo.position, 2);
    EXPECT_TRUE(ToggleBold(session, selection));
    EXPECT_EQ(box, Sample(u"plain [NOTE] tail"));

    TextSelection overAnchor{6, 4, 4}, caret{6, 1, 0};
    EXPECT_FALSE(ToggleItalic(session, overAnchor));
    EXPECT_FALSE(ToggleUnderline(session, caret));
    EXPECT_EQ(box, Sample(u"plain [NOTE] tail"));

    TextSelection exponent{6, 1, 1};  // raised 3 points smaller than the box's 12
    EXPECT_TRUE(ToggleSuperscript(session, exponent));
    EXPECT_EQ(box.FormatAt(1).offset, 100);
    EXPECT_EQ(box.FormatAt(1).fontSize, 9);
    EXPECT_TRUE(ToggleSuperscript(session, exponent));
    EXPECT_EQ(box, Sample(u"plain [NOTE] tail"));
}

TEST_F(FormattingTest, InterStylesWholeParagraphsOfTheMainBoxOnly) {
    Put(2, StyledText(u"head"));
    TextSelection inBoxTwo{2, 0, 4};
    EXPECT_FALSE(ToggleInter(session, inBoxTwo, 1));
    EXPECT_EQ(session.window.Status().text, "Allowed only in main text box: Box2");

    const StyledText original(u"one\r\ntwo words\r\n\r\nthree");
    StyledText& box = Put(6, original);
    TextSelection selection{6, 6, 1};
    EXPECT_TRUE(ToggleInter(session, selection, 2));
    EXPECT_EQ(selection, (TextSelection{6, 5, 9}));
    EXPECT_EQ(box.FormatAt(5).colour, session.preferences.InterColor2);
    EXPECT_TRUE(box.FormatAt(13).bold);
    EXPECT_FALSE(box.FormatAt(14).bold);  // the line break stays outside
    EXPECT_TRUE(ToggleInter(session, selection, 2));
    EXPECT_EQ(box, original);

    TextSelection emptyLine{6, 16, 0};
    EXPECT_FALSE(ToggleInter(session, emptyLine, 1));
    EXPECT_EQ(session.window.Status().text, "Select text, please");

    Put(6, Sample(u"a [NOTE] b"));
    TextSelection overAnchor{6, 0, 8};
    EXPECT_FALSE(ToggleInter(session, overAnchor, 1));
}

TEST_F(FormattingTest, CaseChangesKeepFormatsAndAnchorsOverTheSelectionOrTheWholeBox) {
    StyledText& box = Put(0, Sample(u"word [Note] end"));
    box.ApplyFormat(0, 4, [](CharFormat& format) { format.italic = true; });
    TextSelection caret{0, 2, 0};
    EXPECT_TRUE(ChangeToUpperCase(session, caret));
    EXPECT_EQ(box.Text(), u"WORD Note END");
    EXPECT_TRUE(box.FormatAt(3).italic && box.FormatAt(6).isProtected);
    EXPECT_EQ(caret, (TextSelection{0, 2, 0}));
    TextSelection part{0, 0, 2};
    EXPECT_TRUE(ChangeToLowerCase(session, part));
    EXPECT_FALSE(ChangeToLowerCase(session, part));
    EXPECT_EQ(box.Text(), u"woRD Note END");
}

TEST_F(FormattingTest, InsertionsGoBesideAnchorsInTypedFormatButNeverIntoThem) {
    setenv("TESSARIN_NOW", "2024-03-05T09:05:07", 1);
    setenv("TESSARIN_LONG_DATE", "d MMMM yyyy", 1);
    CharFormat red;
    red.colour = Rgb(255, 0, 0);
    StyledText& box = Put(6, Sample(u"[NOTE]x"), 4);
    TextSelection afterAnchor{6, 4, 1};
    EXPECT_TRUE(InsertTime(session, afterAnchor));
    EXPECT_EQ(afterAnchor, (TextSelection{6, 12, 0}));
    EXPECT_TRUE(InsertNonBreakingSpace(session, afterAnchor));
    EXPECT_TRUE(InsertDate(session, afterAnchor));
    EXPECT_EQ(box.Text(), u"NOTE09:05:07\u00B75 March 2024");
    EXPECT_EQ(box.FormatAt(4), CharFormat{});
    EXPECT_EQ(box.FormatAt(12).colour, Rgb(175, 175, 175));
    EXPECT_EQ(session.story.counters[6].count, 21);

    box.Insert(0, u"r", red);
    TextSelection start{6, 1, 0}, insideAnchor{6, 3, 0};
    EXPECT_TRUE(InsertNonBreakingSpace(session, start));
    EXPECT_EQ(box.FormatAt(1).colour, red.colour);
    EXPECT_FALSE(InsertTime(session, insideAnchor));
}

TEST_F(FormattingTest, ClipboardRefusesAnchorsAndPastesPlainText) {
    CharFormat bold;
    bold.bold = true;
    StyledText& box = Put(1, Sample(u"ab[NOTE]cd", bold), 4);
    RecordUndo(session, 1);
    TextClipboard clipboard{"kept"};
    TextSelection overAnchor{1, 1, 2}, last{1, 6, 2};
    EXPECT_FALSE(CutSelection(session, overAnchor, clipboard));
    EXPECT_FALSE(PasteClipboard(session, overAnchor, clipboard));
    EXPECT_EQ(clipboard.text, "kept");

    EXPECT_TRUE(CutSelection(session, last, clipboard));
    EXPECT_EQ(clipboard.text, "cd");
    EXPECT_EQ(box.Text(), u"abNOTE");
    EXPECT_EQ(session.story.counters[1].count, 2);

    clipboard.text = "x\ny\r\n";
    TextSelection replaced{1, 0, 1};
    EXPECT_TRUE(PasteClipboard(session, replaced, clipboard));
    EXPECT_EQ(box.Text(), u"x\r\ny\r\nbNOTE");
    EXPECT_EQ(replaced, (TextSelection{1, 6, 0}));
    EXPECT_TRUE(box.AllOf(0, 7, [](const CharFormat& format) { return format.bold; }));
    EXPECT_TRUE(Undo(session) && Undo(session));
    EXPECT_EQ(box, Sample(u"ab[NOTE]cd", bold));
}

TEST_F(FormattingTest, SignatureButtonsSignWithNameOrInitialsAndReleaseEmptying) {
    session.configuration.identity.author = "Jane Reporter";
    session.configuration.identity.initials = "JR";
    StoryRecord& story = session.story;
    story.signatureEnabled = false;
    PressSignatureButton(session, kInitialsSignatureButton);
    EXPECT_EQ(story.signature, "JR");
    EXPECT_TRUE(SignatureButtonPressed(story, kInitialsSignatureButton));
    PressSignatureButton(session, kNameSignatureButton);
    EXPECT_EQ(story.signature, "JR");  // a signature already there stays
    EXPECT_FALSE(SignatureButtonPressed(story, kInitialsSignatureButton));
    PressSignatureButton(session, kNameSignatureButton);
    EXPECT_FALSE(story.signatureEnabled || !story.signature.empty());
    PressSignatureButton(session, kNameSignatureButton);
    EXPECT_EQ(story.signature, "Jane Reporter");
}

TEST_F(FormattingTest, ToolbarAndContextMenuFollowTheSelection) {
    CharFormat bold;
    bold.bold = true;
    StyledText& box = Put(6, StyledText(u" word  x", bold));
    box.ApplyFormat(7, 1, [](CharFormat& format) { format.bold = false; });
    EXPECT_EQ(ToolbarStateOf(session, {6, 0, 6}), (ToolbarState{true, false, false, false, true}));
    EXPECT_FALSE(ToolbarStateOf(session, {6, 0, 8}).bold);
    EXPECT_TRUE(ToolbarStateOf(session, {6, 7, 0}).bold);  // the character before the caret

    const ContextMenuState menu = ContextMenuStateOf(session, {6, 0, 7});
    EXPECT_TRUE(menu.cut && menu.copy && menu.copyToMultipleClipboard && menu.addNote &&
                menu.synonyms);
    EXPECT_EQ(menu.selection, (TextSelection{6, 1, 4}));
    EXPECT_EQ(menu.synonymText, "word");
    EXPECT_FALSE(ContextMenuStateOf(session, {6, 3, 0}).copy);

    session.configuration.story.notes.visible = false;
    Put(4, Sample(u"a [N]"));
    const ContextMenuState anchored = ContextMenuStateOf(session, {4, 0, 3});
    EXPECT_TRUE(anchored.cut && !anchored.addNote && !anchored.synonyms);
}

}  // namespace
}  // namespace tessarin
