#include "news/news_list_preferences.h"

#include <charconv>
#include <optional>
#include <tuple>

#include "common/clock.h"
#include "common/date_format.h"
#include "config/profile_values.h"
#include "news/news_item.h"

namespace tessarin {
namespace {

std::string ColumnWidthKey(int column) {
    return "ColumnWidth_" + std::to_string(column);
}

// The calendar day of a raw item date, when its first eight characters are one.
std::optional<LocalDateTime> RawDay(std::string_view rawDate) {
    if (rawDate.size() < 8) return std::nullopt;
    LocalDateTime day;
    for (auto [field, from, length] :
         {std::tuple{&day.year, 0, 4}, std::tuple{&day.month, 4, 2}, std::tuple{&day.day, 6, 2}}) {
        const char* first = rawDate.data() + from;
        const auto [end, error] = std::from_chars(first, first + length, *field);
        if (error != std::errc() || end != first + length) return std::nullopt;
    }
    if (!IsValidDate(day.year, day.month, day.day)) return std::nullopt;
    return day;
}

}  // namespace

NewsListPreferences ReadNewsListPreferences(const ProfileContents& profile) {
    NewsListPreferences preferences;
    preferences.dates.longDate = ReadFlag(profile, kNewsWindowSection, "DateFormat", false);
    preferences.dates.seconds = ReadFlag(profile, kNewsWindowSection, "TimeFormat", false);
    if (ReadFlag(profile, kNewsWindowSection, "Select", false))
        preferences.choice = NewsRowChoice::OnHover;
    for (int column = 0; column < kNewsListColumns; ++column) {
        const std::optional<std::int32_t> width =
            ReadOptionalInteger(profile, kNewsWindowSection, ColumnWidthKey(column));
        if (width && *width > 0 && *width <= kMaxNewsColumnWidth)
            preferences.columnWidths[column] = *width;
    }
    return preferences;
}

std::vector<ProfileEntry> NewsColumnWidthEntries(std::span<const int> widths) {
    std::vector<ProfileEntry> entries;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (widths[column] <= 0) continue;
        entries.push_back({std::string(kNewsWindowSection),
                           ColumnWidthKey(static_cast<int>(column)),
                           std::to_string(widths[column])});
    }
    return entries;
}

std::string NewsDateCell(std::string_view rawDate, int dateOrder, const NewsDateFormats& formats) {
    const std::optional<LocalDateTime> day = formats.longDate ? RawDay(rawDate) : std::nullopt;
    std::string cell = day ? FormatLongDate(*day) : ShownNewsDate(rawDate, dateOrder);
    cell += " " + ShownNewsTime(rawDate);
    if (formats.seconds && rawDate.size() >= 15 && rawDate[8] == 'T')
        cell += ":" + std::string(rawDate.substr(13, 2));
    return cell;
}

}  // namespace tessarin
