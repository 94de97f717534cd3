#include "common/clock.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>

namespace tessarin {

namespace {

std::chrono::year_month_day CalendarDate(const LocalDateTime& when) {
    return std::chrono::year{when.year} / when.month / when.day;
}

// The digits at text[start, start + count) as a number, or -1 when one is not a digit.
int ReadDigits(std::string_view text, std::size_t start, std::size_t count) {
    int value = 0;
    for (std::size_t index = start; index < start + count; ++index) {
        if (text[index] < '0' || text[index] > '9') return -1;
        value = value * 10 + (text[index] - '0');
    }
    return value;
}

LocalDateTime FromTm(const std::tm& local) {
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

// The offset east of UTC, in seconds, that the zone of TZ applies at noon on a day.
long UtcOffsetSecondsOn(int year, int month) {
    std::tm probe{};
    probe.tm_year = year - 1900;
    probe.tm_mon = month - 1;
    probe.tm_mday = 1;
    probe.tm_hour = 12;
    probe.tm_isdst = -1;
    std::mktime(&probe);
    return probe.tm_gmtoff;
}

}  // namespace

LocalDateTime Now() {
    if (const char* frozen = std::getenv("TESSARIN_NOW")) {
        if (const auto parsed = ParseIsoDateTime(frozen)) return *parsed;
    }
    tzset();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return FromTm(local);
}

std::optional<LocalDateTime> ParseIsoDateTime(std::string_view text) {
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    const LocalDateTime when{ReadDigits(text, 0, 4),  ReadDigits(text, 5, 2),
                             ReadDigits(text, 8, 2),  ReadDigits(text, 11, 2),
                             ReadDigits(text, 14, 2), ReadDigits(text, 17, 2)};
    if (!IsValidDate(when.year, when.month, when.day) || when.hour < 0 || when.hour > 23 ||
        when.minute < 0 || when.minute > 59 || when.second < 0 || when.second > 59) {
        return std::nullopt;
    }
    return when;
}

LocalDateTime AddDays(const LocalDateTime& when, int days) {
    const std::chrono::year_month_day moved{std::chrono::sys_days{CalendarDate(when)} +
                                            std::chrono::days{days}};
    LocalDateTime result = when;
    result.year = static_cast<int>(moved.year());
    result.month = static_cast<int>(static_cast<unsigned>(moved.month()));
    result.day = static_cast<int>(static_cast<unsigned>(moved.day()));
    return result;
}

int DayOfWeek(const LocalDateTime& when) {
    return static_cast<int>(
        std::chrono::weekday{std::chrono::sys_days{CalendarDate(when)}}.c_encoding());
}

bool IsValidDate(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1 || day > 31 || year < 1 || year > 9999) return false;
    return CalendarDate({year, month, day}).ok();
}

// The standard (winter) offset is the smaller of the offsets of January and July, since
// daylight saving moves clocks forward in either hemisphere; the bias is its opposite, in
// minutes. This gives the zone's base bias even for zones whose rules call the summer
// offset "standard".
int TimeZoneBaseBiasMinutes() {
    tzset();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const int year = local.tm_year + 1900;
    const long standard = std::min(UtcOffsetSecondsOn(year, 1), UtcOffsetSecondsOn(year, 7));
    return static_cast<int>(-standard / 60);
}

}  // namespace tessarin
