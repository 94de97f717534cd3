#pragma once

#include <string>
#include <string_view>

#include "common/clock.h"

namespace tessarin {

// The language of month and day names: French when LC_ALL, LC_TIME or LANG (the first
// that is set) starts with "fr", English otherwise.
enum class DateLanguage { English, French };
DateLanguage CurrentDateLanguage();

// The user's short and long date patterns: TESSARIN_SHORT_DATE / TESSARIN_LONG_DATE when
// set, else the locale's (French "dd/MM/yyyy" and "dddd d MMMM yyyy", English "M/d/yyyy"
// and "dddd, MMMM d, yyyy").
std::string ShortDatePattern();
std::string LongDatePattern();

// The order of day, month and year in the short date pattern: 0 month-day-year,
// 1 day-month-year, 2 year-month-day. The first unquoted d, M or y decides: y gives 2,
// d gives 1, M (or none) gives 0.
int DateOrder();

// Formats a date by a pattern of d, dd, ddd, dddd, M, MM, MMM, MMMM, yy, yyyy (a single y
// is the two-digit year without a leading zero); any other character is copied, text
// between single quotes is copied without the quotes, and two single quotes give one.
std::string FormatDate(const LocalDateTime& when, std::string_view pattern, DateLanguage language);

// The short and long date in the user's patterns and language.
std::string FormatShortDate(const LocalDateTime& when);
std::string FormatLongDate(const LocalDateTime& when);

// "hh:mm" and "hh:mm:ss" on the 24-hour clock, with leading zeros: "09:05", "09:05:07".
std::string FormatTimeHourMinute(const LocalDateTime& when);
std::string FormatTimeHourMinuteSecond(const LocalDateTime& when);

}  // namespace tessarin
