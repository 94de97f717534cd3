#include "editing/copy_fit.h"

#include <gtest/gtest.h>

#include <random>

#include "attachments/attachment_trees.h"
#include "config/colours.h"
#include "editing/bookmark_anchor.h"
#include "editing/panel_session.h"
#include "story/char_count.h"

namespace tessarin {
namespace {

class CopyFitTest : public ::testing::Test, public testing::PanelSession {
  protected:
    void Fill(int box, std::u16string_view text) {
        session.story.boxes[box] = StyledText(text);
        RecountBox(session, box, ChangeOrigin::Program);
    }
    // The count label, the visible icons ("less", "more") and the label's colour of a box.
    std::string Shown(int box) {
        std::string shown = Control(CountLabelName(box)).caption;
        if (Control(WriteLessIconName(box)).visible) shown += " less";
        if (Control(WriteMoreIconName(box)).visible) shown += " more";
        if (BoxLabelColour(session, box) == 255) shown += " red";
        return shown;
    }
};

TEST_F(CopyFitTest, CountsAgainstTheLimitsAndWarnsOutsideThem) {
    session.panel.limits[3] = {100, 200};
    UpdateCopyFit(session, 3);
    EXPECT_EQ(Shown(3), "0  [0%] more red");
    EXPECT_EQ(Control(LimitsLabelName(3)).caption, "[100,200]");
    EXPECT_EQ(session.window.Status().text, "Box3: missing 100 chars");

    const std::pair<std::size_t, std::string> cases[] = {
        {29, "29  [15%] more red"},  // 14.5 % rounds up
        {100, "100"},
        {200, "200"},
        {201, "201  [101%] less red"}};
    for (const auto& [length, shown] : cases) {
        Fill(3, std::u16string(length, u'x'));
        EXPECT_EQ(Shown(3), shown) << length;
    }
    EXPECT_EQ(session.window.Status().text, "Box3: too much chars: 1");
    session.window.ClearStatus();
    ShowBoxWarning(session, 3);
    EXPECT_EQ(session.window.Status().text, "Box3: too much chars: 1");

    session.preferences.TooMuchNotEnough = false;
    session.window.Status().text = "kept";
    Fill(3, u"short");
    EXPECT_EQ(Shown(3), "5  [3%] more red");
    EXPECT_EQ(session.window.Status().text, "kept");
}

TEST_F(CopyFitTest, PicturesShortenTheMainBox) {
    session.configuration.forms.emplace_back().name = "Long";
    session.configuration.imageSizes = {{"Long", 300}, {"Other", 900}, {"Long", 500}};
    session.panel.formInForce = 0;
    session.story.images.resize(2);
    RecomputeImageAllowance(session);
    session.panel.limits[6] = {1000, 2000};
    Fill(6, std::u16string(150, u'x'));
    EXPECT_EQ(Control(LimitsLabelName(6)).caption, "[1000,2000] -> [200,1200]");
    EXPECT_EQ(Control(CountLabelName(6)).toolTip,
              "Total number of chars for photos = 800\n[1000,2000] -> [200,1200]");
    EXPECT_EQ(Shown(6), "150  [13%] more red");
    EXPECT_EQ(session.window.Status().text, "Box6: missing 50 chars");
    ShowImageAllowanceParts(session);
    EXPECT_EQ(session.window.Status().text, "800 = Photos: 300; 500");
}

TEST_F(CopyFitTest, TypingKeepsTheCountOfAFullRecount) {
    session.panel.limits[6] = {10, 20};
    StyledText& box = session.story.boxes[6];
    box.Insert(0, u"NOTE", AnchorFormat(Rgb(255, 255, 0)));
    session.story.counters[6].noteCharacters = 4;
    std::mt19937 random(11);
    const std::u16string alphabet = u"ab \r\n\r\n";
    for (int edit = 0; edit < 2000; ++edit) {
        std::u16string typed(random() % 3, u' ');
        for (char16_t& unit : typed)
            unit = alphabet[random() % alphabet.size()];
        TypeText(session, 6, random() % (box.Length() + 1), typed, random() % 4);
        ASSERT_EQ(session.story.counters[6].count, CountBoxCharacters(box, 4, 0)) << edit;
    }
    EXPECT_NE(box.Find(u"NOTE", 0, true, false), -1);
    EXPECT_TRUE(session.storyModified);
    EXPECT_EQ(Control(kTotalCountLabel).caption,
              "Total chars=" + std::to_string(session.story.counters[6].count));
}

TEST_F(CopyFitTest, NotesAndParagraphMarksDoNotCount) {
    Fill(3, u"ab\r\ncd");
    session.story.boxes[3].Insert(2, u"JD 10:00:0", AnchorFormat(Rgb(255, 255, 0)));
    BoxTextChanged(session, 3, {10, 0, 10, 0}, ChangeOrigin::Program);
    session.story.boxes[3].Insert(0, u"\u00B6", {});
    BoxTextChanged(session, 3, {1, 0, 0, 1}, ChangeOrigin::Program);
    EXPECT_EQ(session.story.counters[3].count, 4);
    RecountBox(session, 3, ChangeOrigin::Program);
    EXPECT_EQ(session.story.counters[3].count, 4);
    EXPECT_FALSE(session.storyModified);

    // The anchor "JD 10:00:0" stands at 3 to 12.
    EXPECT_EQ(TypeText(session, 3, 5, u"x"), std::nullopt);
    EXPECT_EQ(TypeText(session, 3, 13, u"x"), 14u);
    EXPECT_EQ(session.story.boxes[3].FormatAt(13), CharFormat{});
    EXPECT_EQ(TypeText(session, 3, 1, u"y", 4), 2u);
    EXPECT_EQ(session.story.boxes[3].Text(), u"\u00B6yJD 10:00:0x\r\ncd");
    EXPECT_EQ(session.story.counters[3].count, 4);
}

TEST_F(CopyFitTest, MenusWordsAndSelection) {
    const auto menuEnabled = [&] { return Control("mnuToolsWordStatistics").enabled; };
    RecountAllBoxes(session);
    EXPECT_FALSE(menuEnabled());
    TypeText(session, 0, 0, u" ");
    EXPECT_TRUE(menuEnabled());
    TypeText(session, 0, 0, u"", 1);
    EXPECT_FALSE(menuEnabled() || Control("mnuFormatAutoTypography").enabled);

    Fill(1, u"l'homme porte-avions");
    Fill(2, u"deux mots");
    // Each toggle shows words, then characters again.
    const std::string& boxLabel = Control(CountLabelName(1)).caption;
    const std::string& totalLabel = Control(kTotalCountLabel).caption;
    for (const char* expected : {"3: Words", "20"}) {
        ToggleBoxWords(session, 1);
        EXPECT_EQ(boxLabel, expected);
    }
    for (const char* expected : {"5: Words", "Total chars=29"}) {
        ToggleTotalWords(session);
        EXPECT_EQ(totalLabel, expected);
    }
    // A selection's line breaks are not characters (the status line's wiring is typing's test).
    Fill(6, u"one two\r\nthree");
    EXPECT_EQ(SelectionCountersText(session, 6, 4, 8), "Selected chars=6 / Selected words=2");
}

}  // namespace
}  // namespace tessarin
