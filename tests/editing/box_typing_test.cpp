#include "editing/box_typing.h"

#include <gtest/gtest.h>

#include "editing/panel_session.h"

namespace tessarin {
namespace {

class BoxTypingTest : public ::testing::Test, public testing::PanelSession {
  protected:
    // Types at the end of box, one key at a time.
    void Keys(int box, std::u16string_view keys) {
        for (char16_t key : keys) {
            const std::size_t end = Text(box).size();
            ASSERT_TRUE(burst.Type(session, box, end, std::u16string(1, key), 0));
        }
    }
    std::u16string Text(int box) { return session.story.boxes[box].Text(); }

    TypingBurst burst;
};

// A blank ending a word is the undo test's; the word ends are the story's separators, and one
// anywhere in what is typed ends the burst.
TEST(EndsTypingBurst, AWordEndAnywhereInWhatIsTypedEndsTheBurst) {
    for (std::u16string_view key : {u"\u00B7", u"\u00A0", u"'", u"ab c"})
        EXPECT_TRUE(EndsTypingBurst(key)) << std::string(key.begin(), key.end());
    for (std::u16string_view key : {u"a", u"\u00E9", u"-", u""})
        EXPECT_FALSE(EndsTypingBurst(key));
}

TEST_F(BoxTypingTest, UndoTakesBackWholeWordsAndNeverLosesTheTypingSinceTheLastStep) {
    burst.FocusBox(session, 6);
    EXPECT_EQ(session.activeBox, 6);
    Keys(6, u"one two");  // "one " is a step; "two" is typed after it
    EXPECT_TRUE(burst.Pending());
    EXPECT_TRUE(burst.Undo(session));  // records "one two" first, then goes back to "one "
    EXPECT_FALSE(burst.Pending());
    EXPECT_EQ(Text(6), u"one ");
    EXPECT_TRUE(burst.Undo(session));
    EXPECT_EQ(Text(6), u"");
    EXPECT_FALSE(burst.Undo(session));
    EXPECT_TRUE(burst.Redo(session) && burst.Redo(session));
    EXPECT_EQ(Text(6), u"one two");
    EXPECT_FALSE(burst.Redo(session));
    EXPECT_EQ(session.story.counters[6].count, 7);
}

TEST_F(BoxTypingTest, LeavingABoxRecordsItsTypingAndRedoSurvivesTheFocus) {
    burst.FocusBox(session, 2);
    Keys(2, u"ab");
    burst.FocusBox(session, 4);  // "ab" becomes a step before box 4's own
    EXPECT_FALSE(burst.Pending());
    EXPECT_TRUE(burst.Undo(session));  // to box 2's "ab"
    EXPECT_TRUE(burst.Undo(session));
    EXPECT_EQ(Text(2), u"");
    // Nothing was typed since: redo is not cut by ending a burst that has nothing in it.
    EXPECT_TRUE(burst.Redo(session));
    EXPECT_EQ(Text(2), u"ab");
    EXPECT_EQ(session.activeBox, 4);
}

// A key refused by the locked main box leaves nothing to record; the signature is typed freely.
TEST_F(BoxTypingTest, ARefusedKeyLeavesNothingToRecordAndTheSignatureModifiesTheStory) {
    session.mainBoxLocked = true;
    EXPECT_FALSE(burst.Type(session, 6, 0, u"x", 0));
    EXPECT_FALSE(burst.Pending() || session.storyModified);
    EXPECT_EQ(Text(6), u"");
    TypeSignature(session, "J. Doe");
    EXPECT_EQ(session.story.signature, "J. Doe");
    EXPECT_TRUE(session.storyModified);
}

TEST_F(BoxTypingTest, TheToolbarAndTheCountersFollowTheSelection) {
    CharFormat bold;
    bold.bold = true;
    session.story.boxes[2] = StyledText(u"bold", bold);
    session.story.boxes[2].Insert(4, u" plain text", {});

    EXPECT_TRUE(ShowSelection(session, {2, 0, 4}));
    EXPECT_TRUE(Control("Bold").checked);
    EXPECT_FALSE(Control("Inter").enabled || Control("mnuFormatInter").enabled);
    EXPECT_EQ(session.window.Status().text, "Selected chars=4 / Selected words=1");
    EXPECT_FALSE(ShowSelection(session, {2, 0, 4}));  // nothing new to show

    session.window.Status().text = "kept";
    EXPECT_TRUE(ShowSelection(session, {6, 0, 0}));  // the caret in the main box
    EXPECT_FALSE(Control("Bold").checked);
    EXPECT_TRUE(Control("Inter").enabled);
    EXPECT_EQ(session.window.Status().text, "kept");  // an empty selection leaves the panel
}

}  // namespace
}  // namespace tessarin
