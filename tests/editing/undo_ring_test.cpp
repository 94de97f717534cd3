#include "editing/undo_ring.h"

#include <gtest/gtest.h>

#include "common/utf8.h"
#include "editing/copy_fit.h"
#include "editing/panel_session.h"

namespace tessarin {
namespace {

class UndoRingTest : public ::testing::Test, public testing::PanelSession {
  protected:
    // Puts text into a box as typing would, then records the step.
    void Type(int box, std::u16string_view text) {
        session.story.boxes[box] = StyledText(text);
        RecountBox(session, box, ChangeOrigin::User);
        EXPECT_TRUE(RecordUndo(session, box));
    }
    std::u16string Box(int box) { return session.story.boxes[box].Text(); }
    const StatusPanel& status() { return session.window.Status(); }
};

TEST_F(UndoRingTest, UndoAndRedoWithoutStepsAreRefusedWithTheirMessageAndABeep) {
    Type(3, u"a");
    Type(3, u"ab");
    EXPECT_FALSE(RecordUndo(session, kNoBox));
    ClearUndo(session);  // as adding a note does
    session.storyModified = false;
    EXPECT_FALSE(Undo(session));
    EXPECT_EQ(Box(3), u"ab");
    EXPECT_TRUE(status().errorPicture);
    EXPECT_FALSE(Redo(session));
    EXPECT_EQ(status().text, "Redo not possible");
    EXPECT_EQ(session.window.beeps, 2);
    EXPECT_EQ(session.undo.position, 1);
    EXPECT_FALSE(session.storyModified);
}

TEST_F(UndoRingTest, StepsGoBackAndForthAndANewStepCutsTheRedoChain) {
    Type(6, u"one");
    EXPECT_FALSE(RecordUndo(session, 6));  // the same text of the same box
    Type(6, u"one two");
    session.storyModified = false;

    EXPECT_TRUE(Undo(session));
    EXPECT_EQ(Box(6), u"one");
    EXPECT_EQ(session.story.counters[6].count, 3);
    EXPECT_TRUE(session.storyModified);
    EXPECT_FALSE(Undo(session));
    EXPECT_EQ(Box(6), u"one");
    EXPECT_TRUE(Redo(session));  // the refused undo left the position where it was
    EXPECT_EQ(Box(6), u"one two");
    EXPECT_EQ(status().text, "");

    Type(6, u"one two three");
    EXPECT_TRUE(Undo(session) && Undo(session));
    Type(6, u"one four");  // the step "one two three" after it is gone
    EXPECT_FALSE(Redo(session));
    EXPECT_EQ(Box(6), u"one four");
}

TEST_F(UndoRingTest, TheRingKeepsTheLastHundredStepsAndWraps) {
    for (int step = 1; step <= 100; ++step)
        Type(6, u"step " + Utf8ToUtf16(std::to_string(step)));
    EXPECT_EQ(session.undo.position, 1);
    int undone = 0;
    while (undone <= kUndoSlots && Undo(session))
        ++undone;  // bounded, should the ring never end
    EXPECT_EQ(undone, 98);
    EXPECT_EQ(Box(6), u"step 2");  // step 1 was overwritten by the empty slot after step 100
}

TEST_F(UndoRingTest, UndoBringsBackEachBoxInTurnAndLeavesTheFocus) {
    session.activeBox = 6;
    Type(0, u"Title");
    Type(6, u"Body");
    Type(0, u"Title two");  // the same text in another box is a step of its own
    Type(6, u"Title two");

    // Each undo takes one box back; the other keeps what it shows.
    const std::pair<std::u16string, std::u16string> steps[] = {
        {u"Title two", u"Title two"}, {u"Title two", u"Body"}, {u"Title", u"Body"}};
    for (const auto& [title, body] : steps) {
        EXPECT_TRUE(Undo(session));
        EXPECT_EQ(Box(0) + u"|" + Box(6), title + u"|" + body);
    }
    EXPECT_FALSE(Undo(session));
    EXPECT_EQ(session.activeBox, 6);
}

}  // namespace
}  // namespace tessarin
