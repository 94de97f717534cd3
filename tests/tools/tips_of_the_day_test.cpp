#include "tools/tips_of_the_day.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::TempDir;

// The tips in order, trimmed, with their line breaks; blank tips and other elements left
// out. No file is no problem; a broken file or another document is told and gives no tip.
TEST(TipsOfTheDay, ReadsTipsAndTellsBrokenFiles) {
    TempDir dir;
    const auto file = dir.Write("TipOfTheDay.xml",
                                "<TipOfTheDay>\n  <Tip>\n    Ctrl+S saves.\n  </Tip>\n"
                                "  <Tip>   </Tip><Other>not a tip</Other>\n"
                                "  <Tip>First line\\nSecond &amp; last</Tip>\n</TipOfTheDay>\n");
    const TipsOfTheDay read = ReadTipsOfTheDay(file);
    EXPECT_EQ(read.problem, "");
    EXPECT_EQ(read.tips, (std::vector<std::string>{"Ctrl+S saves.", "First line\nSecond & last"}));

    EXPECT_EQ(ReadTipsOfTheDay(dir / "missing.xml").problem, "");
    const TipsOfTheDay broken =
        ReadTipsOfTheDay(dir.Write("broken.xml", "<TipOfTheDay><Tip>a</TipOfTheDay>"));
    EXPECT_TRUE(broken.tips.empty());
    EXPECT_TRUE(broken.problem.starts_with("Parsing error: ")) << broken.problem;
    const TipsOfTheDay other =
        ReadTipsOfTheDay(dir.Write("other.xml", "<Tips><Tip>a</Tip></Tips>"));
    EXPECT_TRUE(other.tips.empty());
    EXPECT_NE(other.problem.find("TipOfTheDay"), std::string::npos);
}

// The ring: any index lands on a tip; a new user (LastTipOfTheDay 0) starts at the first tip,
// and one who last saw the last tip starts again at the first.
TEST(TipsOfTheDay, LeafingGoesRound) {
    const std::pair<std::int64_t, std::size_t> cases[] = {{0, 0},  {2, 2},  {3, 0},
                                                          {-1, 2}, {-7, 2}, {2147483648, 2}};
    for (const auto& [index, tip] : cases)
        EXPECT_EQ(TipInRing(index, 3), tip) << index;
    EXPECT_EQ(FirstTipToShow(TipOfTheDaySection{}, 3), 0u);
    EXPECT_EQ(FirstTipToShow(TipOfTheDaySection{true, 3}, 3), 0u);
}

TEST(TipsOfTheDay, RememberedInMemoryAndInThePreferences) {
    TempDir dir;
    ProfileFile profile(dir / "Tessarin.ini");
    Preferences preferences;
    RememberTips(preferences, profile, 4, false);
    EXPECT_EQ(preferences.TipOfTheDay, (TipOfTheDaySection{false, 5}));
    EXPECT_EQ(testing::ReadBytes(dir / "Tessarin.ini"),
              "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\nLastTipOfTheDay=5\r\n");
}

}  // namespace
}  // namespace tessarin
