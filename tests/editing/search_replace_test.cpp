#include "editing/search_replace.h"

#include <gtest/gtest.h>

#include "editing/copy_fit.h"
#include "editing/panel_session.h"
#include "editing/styled_sample.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

using testing::Bracketed;
using testing::Sample;

class SearchReplaceTest : public ::testing::Test, public testing::PanelSession {
  protected:
    void Boxes(std::u16string_view box0, std::u16string_view box6) {
        session.story.boxes[0] = Sample(box0);
        session.story.boxes[6] = Sample(box6);
        RecountAllBoxes(session);
    }
    std::optional<TextSelection> Next(std::u16string what, bool wholeWord = false) {
        return run.FindNext(session, {std::move(what), false, wholeWord});
    }

    SearchRun run;
};

TEST_F(SearchReplaceTest, FindNextRunsThroughTheBoxesThenStartsAgain) {
    Next(u"x");
    EXPECT_EQ(session.window.Status().text, "Empty story:");

    Boxes(u"Lune", u"la lune, LUNE");
    const TextSelection expected[] = {{0, 0, 4}, {6, 3, 4}, {6, 9, 4}};
    for (const TextSelection& hit : expected) {
        EXPECT_EQ(Next(u"lune"), hit);
        EXPECT_EQ(session.activeBox, hit.box);
    }
    EXPECT_FALSE(Next(u"lune"));
    ASSERT_EQ(user.messages.size(), 1u);
    EXPECT_EQ(user.messages[0], "Search completed");
    EXPECT_EQ(Next(u"lune"), expected[0]);
    // A new search text starts from box 0 again.
    EXPECT_EQ(Next(u"la"), (TextSelection{6, 0, 2}));
}

TEST_F(SearchReplaceTest, WholeWordsEndAtMarksButNotAtAccentedLetters) {
    Boxes(u"", u"chat\u00B7: chats ach\u00E9t chat");
    EXPECT_EQ(Next(u"chat", true), (TextSelection{6, 0, 4}));
    EXPECT_EQ(Next(u"chat", true), (TextSelection{6, 19, 4}));
}

TEST_F(SearchReplaceTest, ReplaceAllSkipsAnchorsAndNeverRescansWhatItPutIn) {
    Boxes(u"a [a] a", u"aa");
    EXPECT_EQ(ReplaceAllAndTell(session, {u"a", true, false}, u"aa"), 4);
    EXPECT_EQ(Bracketed(session.story.boxes[0]), u"aa [a] aa");
    EXPECT_EQ(Bracketed(session.story.boxes[6]), u"aaaa");
    EXPECT_EQ(session.story.counters[0].count, 7);
    ASSERT_EQ(user.messages.size(), 1u);
    EXPECT_EQ(user.messages[0], "Search completed\n4 Replacements done");
    EXPECT_TRUE(Undo(session));
    EXPECT_EQ(session.story.boxes[6].Text(), u"aa");
    EXPECT_EQ(ReplaceAll(session, {u"A", true, false}, u"b"), 0);
}

TEST_F(SearchReplaceTest, ReplaceTakesTheHitAndMovesPastTheReplacement) {
    Boxes(u"", u"le chat et le chien");
    std::optional<TextSelection> hit = Next(u"le");
    ASSERT_TRUE(hit);
    hit = run.Replace(session, *hit, {u"le"}, u"le le");
    EXPECT_EQ(session.story.boxes[6].Text(), u"le le chat et le chien");
    EXPECT_EQ(hit, (TextSelection{6, 14, 2}));
    EXPECT_TRUE(session.storyModified);
}

TEST_F(SearchReplaceTest, SearchAllMarksEveryHitInGreenUntilTheRunRestarts) {
    Boxes(u"ab [ab]", u"xab");
    EXPECT_EQ(MarkAllHits(session, {u"ab"}), 3);
    EXPECT_EQ(Control("lblSearchAll").caption, "Search all: 3");
    EXPECT_EQ(session.story.boxes[6].FormatAt(1).highlight, kSearchMarkColour);
    EXPECT_FALSE(session.story.boxes[0].FormatAt(3).highlight == kSearchMarkColour);
    run.Restart(session);
    EXPECT_FALSE(session.story.boxes[6].FormatAt(1).highlighted);
}

}  // namespace
}  // namespace tessarin
