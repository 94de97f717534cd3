#include "tools/tips_of_the_day.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

TEST(TipsOfTheDay, ReadsTipsInOrderWithLineBreaks) {
    TempDir dir;
    const auto file = dir.Write("TipOfTheDay.xml",
                                "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<TipOfTheDay>\n"
                                "  <Tip>\n    Ctrl+S saves.\n  </Tip>\n"
                                "  <Tip>   </Tip>\n"
                                "  <Tip>First line\\nSecond line</Tip>\n"
                                "  <Other>not a tip</Other>\n"
                                "  <Tip>Caf\xC3\xA9 &amp; cr\xC3\xA8me</Tip>\n"
                                "</TipOfTheDay>\n");
    const TipsOfTheDay read = ReadTipsOfTheDay(file);
    EXPECT_EQ(read.problem, "");
    EXPECT_EQ(read.tips, (std::vector<std::string>{"Ctrl+S saves.", "First line\nSecond line",
                                                   "Caf\xC3\xA9 & cr\xC3\xA8me"}));
}

TEST(TipsOfTheDay, MissingFileIsNoProblemButABrokenOneIsTold) {
    TempDir dir;
    EXPECT_EQ(ReadTipsOfTheDay(dir / "TipOfTheDay.xml").tips.size(), 0u);
    EXPECT_EQ(ReadTipsOfTheDay(dir / "TipOfTheDay.xml").problem, "");

    const TipsOfTheDay broken =
        ReadTipsOfTheDay(dir.Write("broken.xml", "<TipOfTheDay><Tip>a</TipOfTheDay>"));
    EXPECT_TRUE(broken.tips.empty());
    EXPECT_TRUE(broken.problem.starts_with("Parsing error: ")) << broken.problem;
    EXPECT_NE(broken.problem.find("line:1"), std::string::npos) << broken.problem;

    const TipsOfTheDay other = ReadTipsOfTheDay(dir.Write("other.xml", "<Tips><Tip>a</Tip></Tips>"));
    EXPECT_TRUE(other.tips.empty());
    EXPECT_NE(other.problem.find("TipOfTheDay"), std::string::npos);
}

// Leafing goes round; any stored value, however odd, lands on a tip.
TEST(TipsOfTheDay, LeafingGoesRound) {
    struct Case {
        std::int32_t stored;
        std::size_t after, before;
    };
    for (const Case& c : {Case{0, 1, 2}, Case{2, 0, 1}, Case{-1, 0, 1}, Case{-7, 0, 1},
                          Case{3, 1, 2}, Case{2147483647, 2, 0}}) {
        EXPECT_EQ(TipAfter(c.stored, 3), c.after) << c.stored;
        EXPECT_EQ(TipBefore(c.stored, 3), c.before) << c.stored;
    }
    EXPECT_EQ(TipAfter(5, 1), 0u);
}

TEST(TipsOfTheDay, RememberedInMemoryAndInThePreferences) {
    TempDir dir;
    ProfileFile profile(dir / "Tessarin.ini");
    Preferences preferences;
    RememberTips(preferences, profile, 4, false);
    EXPECT_EQ(preferences.TipOfTheDay.LastTipOfTheDay, 4);
    EXPECT_FALSE(preferences.TipOfTheDay.ShowTipsAtStartup);
    EXPECT_EQ(ReadBytes(dir / "Tessarin.ini"),
              "[TipOfTheDay]\r\nShowTipsAtStartup=0\r\nLastTipOfTheDay=4\r\n");
}

}  // namespace
}  // namespace tessarin
