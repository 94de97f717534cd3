#include <gtest/gtest.h>

#include "editing/copy_fit.h"
#include "editing/non_breaking_mark.h"
#include "editing/panel_session.h"
#include "editing/styled_sample.h"
#include "editing/typography_rules.h"
#include "editing/typography_typing.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

using testing::Bracketed;
using testing::Sample;

struct CommandCase {
    std::u16string_view before;
    TypographySwitches switches;
    std::u16string_view after;
};

constexpr TypographySwitches kDefault{false, true, true};
constexpr TypographySwitches kAll{true, true, true};
constexpr TypographySwitches kQuotesOnly{true, false, false};

TEST(ApplyTypography, RulesRunInOrderAndLeaveAnchorsAlone) {
    const CommandCase cases[] = {
        {u": start", kDefault, u": start"},  // no mark at the very start
        {u"a   b", kDefault, u"a b"},
        {u"a [x   y]  b", kDefault, u"a [x   y] b"},
        {u"Oui ? Non! 5%", kDefault, u"Oui\u00B7? Non\u00B7! 5\u00B7%"},
        {u"d\u00E9j\u00E0\u00B7? a;b", kDefault, u"d\u00E9j\u00E0\u00B7? a\u00B7;b"},
        {u"[JD 12:30] :", kDefault, u"[JD 12:30]\u00B7:"},
        {u"Why  ?", kDefault, u"Why\u00B7?"},  // the double blank goes first
        {u"\"a\" \"b\" \"c", kQuotesOnly, u"\u00ABa\u00BB \u00ABb\u00BB \u00ABc"},
        {u"[\"]\"x\"", kQuotesOnly, u"[\"]\u00ABx\u00BB"},
        {u"\" a \"b\"", kAll, u"\u00AB\u00B7a\u00B7\u00BBb\u00AB"},
        {u"a  : \"b\"", {false, false, false}, u"a  : \"b\""},
    };
    for (const CommandCase& test : cases) {
        StyledText text = Sample(test.before);
        const bool changed = ApplyTypography(text, test.switches);
        EXPECT_EQ(Bracketed(text), test.after)
            << std::string(test.before.begin(), test.before.end());
        EXPECT_EQ(changed, test.before != test.after);
    }
}

class TypographyTest : public ::testing::Test, public testing::PanelSession {
  protected:
    std::u16string Keys(int box, std::u16string_view keys, bool shift = false) {
        for (char16_t key : keys) {
            const std::size_t end = session.story.boxes[box].Length();
            typing.Type(session, &burst, box, end, std::u16string(1, key), 0, shift);
        }
        return session.story.boxes[box].Text();
    }

    TypingBurst burst;
    TypographyTyping typing;
};

TEST_F(TypographyTest, CommandRunsOverEveryBoxAsOneUndoableChange) {
    session.story.boxes[0] = Sample(u"Titre  !");
    session.story.boxes[6] = Sample(u"Texte [N  1] ?");
    RecountAllBoxes(session);
    EXPECT_TRUE(RunAutoTypography(session));
    EXPECT_EQ(Bracketed(session.story.boxes[0]), u"Titre\u00B7!");
    EXPECT_EQ(Bracketed(session.story.boxes[6]), u"Texte [N  1]\u00B7?");
    EXPECT_TRUE(session.storyModified);
    EXPECT_EQ(session.story.counters[0].count, 7);
    EXPECT_TRUE(Undo(session));
    EXPECT_EQ(session.story.boxes[6].Text(), u"Texte N  1 ?");

    session.storyModified = false;
    session.preferences.NonBreakingSpaces = session.preferences.RemoveDuplicateSpaces = false;
    session.story.boxes[1] = Sample(u"a  \"b\"");
    EXPECT_FALSE(RunAutoTypography(session));
    EXPECT_FALSE(session.storyModified);
}

TEST_F(TypographyTest, TypingSwallowsDoubleBlanksUntilTheNextKey) {
    EXPECT_EQ(Keys(6, u"a  "), u"a ");
    EXPECT_EQ(session.window.Status().text, "Space already present");
    EXPECT_EQ(Keys(6, u"b"), u"a b");
    EXPECT_EQ(session.window.Status().text, "");
}

// The mark's colour follows the text's as the formatting test's inserted marks show.
TEST_F(TypographyTest, TypedPunctuationGetsOneMarkBeforeIt) {
    EXPECT_EQ(Keys(6, u":a :b?c\u00B7!"), u":a\u00B7:b\u00B7?c\u00B7!");
    EXPECT_EQ(session.story.counters[6].count, 10);
    EXPECT_EQ(session.story.boxes[6].FormatAt(5).colour, kNonBreakingMarkGrey);
}

TEST_F(TypographyTest, QuoteKeyAlternatesAndShiftGivesThePlainQuote) {
    session.preferences.FrenchQuotationMarks = true;
    EXPECT_EQ(Keys(6, u"\"a\" "), u"\u00AB\u00B7a\u00B7\u00BB ");
    EXPECT_EQ(Keys(6, u"\"", true), u"\u00AB\u00B7a\u00B7\u00BB \"");
    EXPECT_FALSE(typing.NextQuoteCloses());
    // The command keeps its own turn: it starts with « whatever the typing did.
    EXPECT_EQ(Keys(5, u"\""), u"\u00AB\u00B7");
    RunAutoTypography(session);
    EXPECT_EQ(session.story.boxes[6].Text(), u"\u00AB\u00B7a\u00B7\u00BB \u00AB");
    EXPECT_TRUE(typing.NextQuoteCloses());
}

TEST_F(TypographyTest, TypingBesideAnAnchorLeavesItWhole) {
    session.story.boxes[6] = Sample(u"a [N 1]");
    RecountAllBoxes(session);
    std::optional<TypedStretch> typed = typing.Type(session, &burst, 6, 5, u":", 0, false);
    ASSERT_TRUE(typed);
    EXPECT_EQ(Bracketed(session.story.boxes[6]), u"a [N 1]:");
    EXPECT_FALSE(typing.Type(session, &burst, 6, 4, u" ", 0, false));  // inside the anchor
    typed = typing.Type(session, &burst, 6, 0, u"b ?", 2, false);
    ASSERT_TRUE(typed);
    EXPECT_EQ(Bracketed(session.story.boxes[6]), u"b ?[N 1]:");
}

}  // namespace
}  // namespace tessarin
