#include "common/date_format.h"

#include <array>
#include <cstdlib>

namespace tessarin {

namespace {

struct CalendarNames {
    std::array<std::string_view, 7> days;  // Sunday first
    std::array<std::string_view, 7> shortDays;
    std::array<std::string_view, 12> months;
    std::array<std::string_view, 12> shortMonths;
};

constexpr CalendarNames kEnglish = {
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
    {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
    {"January", "February", "March", "April", "May", "June", "July", "August", "September",
     "October", "November", "December"},
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
};

constexpr CalendarNames kFrench = {
    {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"},
    {"dim.", "lun.", "mar.", "mer.", "jeu.", "ven.", "sam."},
    {"janvier", "f\u00e9vrier", "mars", "avril", "mai", "juin", "juillet", "ao\u00fbt", "septembre",
     "octobre", "novembre", "d\u00e9cembre"},
    {"janv.", "f\u00e9vr.", "mars", "avr.", "mai", "juin", "juil.", "ao\u00fbt", "sept.", "oct.",
     "nov.", "d\u00e9c."},
};

// The value of an environment variable, or nothing when it is unset or empty.
std::string_view Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

std::string Padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

// One run of a pattern letter ("dd", "MMMM" ...) as text.
std::string FormatField(const LocalDateTime& when, char letter, std::size_t count,
                        const CalendarNames& names) {
    switch (letter) {
        case 'd':
            if (count >= 4) return std::string(names.days[DayOfWeek(when)]);
            if (count == 3) return std::string(names.shortDays[DayOfWeek(when)]);
            return Padded(when.day, count);
        case 'M':
            if (count >= 4) return std::string(names.months[when.month - 1]);
            if (count == 3) return std::string(names.shortMonths[when.month - 1]);
            return Padded(when.month, count);
        default:  // 'y'
            if (count >= 3) return Padded(when.year, 4);
            return Padded(when.year % 100, count);
    }
}

}  // namespace

DateLanguage CurrentDateLanguage() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const std::string_view value = Environment(variable);
        if (!value.empty()) {
            return value.starts_with("fr") ? DateLanguage::French : DateLanguage::English;
        }
    }
    return DateLanguage::English;
}

std::string ShortDatePattern() {
    const std::string_view configured = Environment("TESSARIN_SHORT_DATE");
    if (!configured.empty()) return std::string(configured);
    return CurrentDateLanguage() == DateLanguage::French ? "dd/MM/yyyy" : "M/d/yyyy";
}

std::string LongDatePattern() {
    const std::string_view configured = Environment("TESSARIN_LONG_DATE");
    if (!configured.empty()) return std::string(configured);
    return CurrentDateLanguage() == DateLanguage::French ? "dddd d MMMM yyyy"
                                                         : "dddd, MMMM d, yyyy";
}

// The year first gives year-month-day; otherwise the day before the month gives
// day-month-year, and anything else month-day-year. Quoted text is skipped.
int DateOrder() {
    const std::string pattern = ShortDatePattern();
    bool quoted = false;
    for (const char letter : pattern) {
        if (letter == '\'') quoted = !quoted;
        if (quoted) continue;
        if (letter == 'y') return 2;
        if (letter == 'd') return 1;
        if (letter == 'M') return 0;
    }
    return 0;
}

std::string FormatDate(const LocalDateTime& when, std::string_view pattern, DateLanguage language) {
    const CalendarNames& names = language == DateLanguage::French ? kFrench : kEnglish;
    std::string text;
    bool quoted = false;
    for (std::size_t index = 0; index < pattern.size();) {
        const char letter = pattern[index];
        if (letter == '\'') {
            const bool doubled = index + 1 < pattern.size() && pattern[index + 1] == '\'';
            if (doubled) text += '\'';
            if (!doubled) quoted = !quoted;
            index += doubled ? 2 : 1;
            continue;
        }
        if (quoted || (letter != 'd' && letter != 'M' && letter != 'y')) {
            text += letter;
            ++index;
            continue;
        }
        std::size_t count = 1;
        while (index + count < pattern.size() && pattern[index + count] == letter)
            ++count;
        text += FormatField(when, letter, count, names);
        index += count;
    }
    return text;
}

std::string FormatShortDate(const LocalDateTime& when) {
    return FormatDate(when, ShortDatePattern(), CurrentDateLanguage());
}

std::string FormatLongDate(const LocalDateTime& when) {
    return FormatDate(when, LongDatePattern(), CurrentDateLanguage());
}

std::string FormatTimeHourMinute(const LocalDateTime& when) {
    return Padded(when.hour, 2) + ":" + Padded(when.minute, 2);
}

std::string FormatTimeHourMinuteSecond(const LocalDateTime& when) {
    return FormatTimeHourMinute(when) + ":" + Padded(when.second, 2);
}

}  // namespace tessarin
