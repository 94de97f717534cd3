#include "editing/character_insertion.h"

#include <gtest/gtest.h>

#include "config/character_sets_section.h"
#include "editing/panel_session.h"
#include "editing/styled_sample.h"

namespace tessarin {
namespace {

using testing::Sample;

class CharacterInsertionTest : public ::testing::Test, public testing::PanelSession {};

TEST(CharacterSets, NamedSetsOfCharactersInTheirOrder) {
    XmlDocument document;
    document.LoadBytes(
        "<InsertCharacters><InsertSetOfCharacters>"
        "<Set Name='Latin'>\u00C6 \u0152\u00E6</Set><Set Name=''>x</Set><Set Name='Vide'/>"
        "<Set Name='Euro'>\u20AC</Set></InsertSetOfCharacters></InsertCharacters>");
    const CharacterSets sets = ReadCharacterSets(document.DocumentElement());
    EXPECT_EQ(sets.names, (std::vector<std::string>{"Latin", "Euro"}));
    EXPECT_EQ(sets.characters, (std::vector<std::u16string>{u"\u00C6\u0152\u00E6", u"\u20AC"}));
    EXPECT_TRUE(ReadCharacterSets(XmlNode()).names.empty());
}

TEST(CharacterCodeText, CodesOfTheEightBitCodePage) {
    EXPECT_EQ(CharacterCodeText(u'\u20AC'), "128");
    EXPECT_EQ(CharacterCodeText(u'?'), "63");
    EXPECT_EQ(CharacterCodeText(u'\u4E2D'), "?");
}

TEST_F(CharacterInsertionTest, CharacterReplacesTheSelectionButNeverAnAnchor) {
    EXPECT_EQ(CharacterTargetBox(session), kMainTextBox);
    session.story.boxes[2] = Sample(u"oeuvre [N 1]");
    TextSelection selection{2, 0, 2};
    ASSERT_TRUE(InsertCharacter(session, selection, u'\u0153'));
    EXPECT_EQ(session.story.boxes[2].Text(), u"\u0153uvre N 1");
    EXPECT_EQ(selection, (TextSelection{2, 1, 0}));
    EXPECT_TRUE(session.storyModified);
    TextSelection anchor{2, 7, 2};
    EXPECT_FALSE(InsertCharacter(session, anchor, u'x'));
}

TEST_F(CharacterInsertionTest, AltGrMakesCapitalsOnceAndOnlyWhenSwitchedOn) {
    AltGrCapitals altGr;
    const std::pair<char16_t, char16_t> cases[] = {
        {u'A', u'\u00C6'}, {u'o', u'\u0153'}, {u'\u00E9', u'\u00C9'}, {u'\u00EA', u'\u00EA'}};
    for (const auto& [typed, result] : cases) {
        altGr.AltGrPressed();
        EXPECT_EQ(altGr.Typed(session, typed), result);
        EXPECT_EQ(altGr.Typed(session, typed), typed);
    }
    session.preferences.UseAltGrForCaps = false;
    altGr.AltGrPressed();
    EXPECT_EQ(altGr.Typed(session, u'A'), u'A');
}

}  // namespace
}  // namespace tessarin
