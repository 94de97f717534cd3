#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/profile_file.h"

namespace tessarin {

// What the news window keeps of its list in the preferences file, section NewsWindow.
inline constexpr std::string_view kNewsWindowSection = "NewsWindow";

// The list's columns that the user sizes: date, headline, slug, category, priority, revision
// and words count. The raw date after them is never shown.
inline constexpr int kNewsListColumns = 7;

// The forms of the date column. DateFormat "1" shows the long date, in the user's long
// pattern and language; otherwise day, month and year in the order of the short date.
// TimeFormat "1" shows the seconds after the hours and minutes.
struct NewsDateFormats {
    bool longDate = false;
    bool seconds = false;
};

// How a row becomes current. Select "1": the row under the mouse; otherwise a click.
enum class NewsRowChoice { OnClick, OnHover };

struct NewsListPreferences {
    NewsDateFormats dates;
    NewsRowChoice choice = NewsRowChoice::OnClick;
    // ColumnWidth_<column>, by column, for the widths that can be used: 1 to
    // kMaxNewsColumnWidth pixels. Any other value keeps the column's design width.
    std::map<int, int> columnWidths;
};
inline constexpr int kMaxNewsColumnWidth = 10000;

NewsListPreferences ReadNewsListPreferences(const ProfileContents& profile);

// The entries that keep the widths of the list's columns, one for each column in widths. A
// hidden column (width 0) keeps the width stored before.
std::vector<ProfileEntry> NewsColumnWidthEntries(std::span<const int> widths);

// The date column's cell of a raw item date: the date, a blank and the time, in the forms
// asked. A long date of a raw date that is no calendar day falls back to the short form; the
// seconds of a raw date that has none are left out.
std::string NewsDateCell(std::string_view rawDate, int dateOrder, const NewsDateFormats& formats);

}  // namespace tessarin
