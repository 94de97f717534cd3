#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/clock.h"
#include "common/date_format.h"
#include "config/messages_section.h"

namespace tessarin {

// Reads a date typed or stored in a short date pattern (d, dd, M, MM, MMM, MMMM, y, yy,
// yyyy; ddd and dddd stand for a day name, which is skipped). Blanks around the text are
// ignored. Day and month numbers take one or two digits, years one to four; a year of one
// or two digits is placed in 1930 to 2029. Month names are those of the language, or the
// English ones, with their ASCII letters in any case. A separator of the pattern matches
// any one character that is neither a letter nor a digit, so "1-2-2024" and "1.2.2024" read
// as "1/2/2024" does; quoted text must stand as it is. Nothing when the text does not
// follow the pattern or names no calendar day.
std::optional<LocalDateTime> ParseDate(std::string_view text, std::string_view pattern,
                                       DateLanguage language);

// The same in the user's short date pattern and language.
std::optional<LocalDateTime> ParseShortDate(std::string_view text);

// What the writer is told of a date that does not read: InvalidDate, then the short date
// form that dates are read in, between brackets ("Invalid date (dd/MM/yyyy)"), so that a
// date typed or stored in another form can be put right.
std::string InvalidDateText(const MessageTexts& messages);

// The long date form of a date held as short date text; text that is no date is returned
// as it stands.
std::string LongDateOfShortDateText(std::string_view text);

}  // namespace tessarin
