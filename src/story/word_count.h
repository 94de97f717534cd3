#pragma once

#include <cstdint>
#include <string_view>

#include "text/styled_text.h"

namespace tessarin {

// The words of a plain text as a story counts them: line ends, ",", ";", ":", ".", "?", "!",
// "'" and the double quote act as blanks; runs of 8, 7, ... 2 blanks are each replaced by one
// blank, in that order; the ends are trimmed; the count is the blanks left plus one, or 0 for
// nothing left. So "l'homme" is two words and "porte-avions" one.
std::int32_t CountWords(std::u16string_view text);

// The words of a text box: its protected characters (note anchors) are left out first.
std::int32_t CountStoryWords(const StyledText& text);

}  // namespace tessarin
