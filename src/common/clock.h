#pragma once

#include <optional>
#include <string_view>

namespace tessarin {

// A local calendar date and time, to the second.
struct LocalDateTime {
    int year = 1900;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const LocalDateTime&, const LocalDateTime&) = default;
};

// Now, in local time: the frozen value of TESSARIN_NOW=YYYY-MM-DDTHH:MM:SS when that is
// set and well-formed, else the system clock in the time zone of TZ.
LocalDateTime Now();

// Reads "YYYY-MM-DDTHH:MM:SS"; nothing when the text is not a valid date and time.
std::optional<LocalDateTime> ParseIsoDateTime(std::string_view text);

// The date moved by a number of days (negative moves back); the time stays.
LocalDateTime AddDays(const LocalDateTime& when, int days);

// 0 for Sunday to 6 for Saturday.
int DayOfWeek(const LocalDateTime& when);

// True when the year, month and day name a real calendar day of the years 1 to 9999.
bool IsValidDate(int year, int month, int day);

// The time zone's base bias in minutes, as "UTC = local time + bias" counts it, without
// daylight saving: -60 for Paris (UTC+1), 300 for New York (UTC-5). Read from TZ.
int TimeZoneBaseBiasMinutes();

}  // namespace tessarin
