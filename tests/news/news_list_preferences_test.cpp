#include "news/news_list_preferences.h"

#include <gtest/gtest.h>

#include "common/scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

TEST(NewsListPreferencesTest, ReadsFlagsAndOnlyUsableWidths) {
    const NewsListPreferences read = ReadNewsListPreferences(ProfileContents(
        "[NewsWindow]\r\nDateFormat=1\r\nTimeFormat=1\r\nSelect=1\r\nColumnWidth_0=140\r\n"
        "ColumnWidth_1=10000\r\nColumnWidth_2=0\r\nColumnWidth_3=-40\r\nColumnWidth_4=abc\r\n"
        "ColumnWidth_5=10001\r\nColumnWidth_6=55px\r\nColumnWidth_7=90\r\n"));
    EXPECT_TRUE(read.dates.longDate && read.dates.seconds);
    EXPECT_EQ(read.choice, NewsRowChoice::OnHover);
    EXPECT_EQ(read.columnWidths, (std::map<int, int>{{0, 140}, {1, 10000}, {6, 55}}));
    const NewsListPreferences other =
        ReadNewsListPreferences(ProfileContents("[NewsWindow]\r\nDateFormat=yes\r\nSelect=2\r\n"));
    EXPECT_FALSE(other.dates.longDate || other.choice == NewsRowChoice::OnHover);
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
        {"20260307T091530Z", 1, {false, true}, "07/03/2026 09:15:30"},
        {"20260307T091530+0100", 2, {true, true}, "Saturday 7 March 2026 09:15:30"},
        // No seconds to show, no calendar day to name: the short forms stay.
        {"20260307T0915", 0, {true, true}, "Saturday 7 March 2026 09:15"},
        {"20261399T091530", 2, {true, true}, "2026/13/99 09:15:30"},
    };
    for (const auto& test : tests)
        EXPECT_EQ(NewsDateCell(test.raw, test.order, test.forms), test.cell) << test.raw;
}

}  // namespace
}  // namespace tessarin
