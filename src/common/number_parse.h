#pragma once

#include <cstdint>
#include <string_view>

namespace tessarin {

// The numeric parse that stored values have always been read with: leading blanks are
// skipped, then an optional sign, digits, an optional decimal point with digits and an
// optional exponent are taken; the parse stops at the first character that does not fit.
// "abc" is 0, "12abc" is 12, "" is 0, " 7" is 7, "-3.5x" is -3.5.
double ParseLeadingNumber(std::string_view text);

// ParseLeadingNumber truncated towards zero and clamped to the 32-bit range.
std::int32_t ParseLeadingInteger(std::string_view text);

// True when the whole text, blanks around it aside, is one number in the form that
// ParseLeadingNumber reads ("12", "-3.5", " 4 "); false for "", "12abc" and "abc".
bool IsNumeric(std::string_view text);

}  // namespace tessarin
