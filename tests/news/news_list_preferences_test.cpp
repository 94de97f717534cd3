#include "news/news_list_preferences.h"

#include <gtest/gtest.h>

#include "common/scoped_environment.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

TEST(NewsListPreferencesTest, ReadsFlagsAndOnlyUsableWidths) {
    const struct {
        const char* stored;
        bool longDate, seconds, hover;
        std::map<int, int> widths;
    } tests[] = {
        {"", false, false, false, {}},
        {"[NewsWindow]\r\nDateFormat=yes\r\nTimeFormat=0\r\nSelect=2\r\n", false, false, false, {}},
        {"[NewsWindow]\r\nDateFormat=1\r\nTimeFormat=1\r\nSelect=1\r\nColumnWidth_0=140\r\n"
         "ColumnWidth_1=10000\r\nColumnWidth_2=0\r\nColumnWidth_3=-40\r\nColumnWidth_4=abc\r\n"
         "ColumnWidth_5=10001\r\nColumnWidth_6=55px\r\nColumnWidth_7=90\r\n",
         true,
         true,
         true,
         {{0, 140}, {1, 10000}, {6, 55}}},
    };
    for (const auto& test : tests) {
        const NewsListPreferences read = ReadNewsListPreferences(ProfileContents(test.stored));
        EXPECT_EQ(read.dates.longDate, test.longDate) << test.stored;
        EXPECT_EQ(read.dates.seconds, test.seconds) << test.stored;
        EXPECT_EQ(read.choice == NewsRowChoice::OnHover, test.hover) << test.stored;
        EXPECT_EQ(read.columnWidths, test.widths) << test.stored;
    }
}

TEST(NewsListPreferencesTest, HiddenColumnKeepsItsStoredWidth) {
    testing::TempDir dir;
    ProfileFile profile(dir.Write("Tessarin.ini", "[NewsWindow]\r\nColumnWidth_1=300\r\n"));
    const int widths[] = {120, 0, 80};
    ASSERT_TRUE(profile.Write(NewsColumnWidthEntries(widths)));
    EXPECT_EQ(ReadNewsListPreferences(profile.Load()).columnWidths,
              (std::map<int, int>{{0, 120}, {1, 300}, {2, 80}}));
}

TEST(NewsListPreferencesTest, DateCellFollowsTheForms) {
    ScopedEnvironment language("LC_ALL", "C");
    ScopedEnvironment longDate("TESSARIN_LONG_DATE", "dddd d MMMM yyyy");
    const struct {
        const char* raw;
        int order;
        NewsDateFormats forms;
        const char* cell;
    } tests[] = {
        {"20260307T091530Z", 1, {false, false}, "07/03/2026 09:15"},
        {"20260307T091530Z", 1, {false, true}, "07/03/2026 09:15:30"},
        {"20260307T091530+0100", 0, {true, false}, "Saturday 7 March 2026 09:15"},
        {"20260307T091530", 2, {true, true}, "Saturday 7 March 2026 09:15:30"},
        // No seconds to show, no calendar day to name: the short forms stay.
        {"20260307T0915", 0, {true, true}, "Saturday 7 March 2026 09:15"},
        {"20261399T091530", 2, {true, true}, "2026/13/99 09:15:30"},
        {"2026-3-7T091530", 2, {true, false}, "2026/-3/-7 09:15"},
        {"20260307", 1, {true, true}, "Saturday 7 March 2026 "},
    };
    for (const auto& test : tests)
        EXPECT_EQ(NewsDateCell(test.raw, test.order, test.forms), test.cell) << test.raw;
}

}  // namespace
}  // namespace tessarin
