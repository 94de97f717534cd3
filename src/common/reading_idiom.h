#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessarin {

// The four kinds of value in which configuration attributes and elements are read. A
// missing attribute or element reads as the empty text, then the kind's rule applies.
// Comparisons are exact and case-sensitive: "True" is neither "true" nor "false".

// Flag with default false: true only on exactly "true".
inline bool FlagDefaultFalse(std::string_view text) {
    return text == "true";
}

// Flag with default true: false only on exactly "false".
inline bool FlagDefaultTrue(std::string_view text) {
    return text != "false";
}

// Text with a default: the default when the text is empty.
inline std::string TextOr(std::string_view text, std::string_view fallback) {
    return std::string(text.empty() ? fallback : text);
}

// Number: the leading-number parse; the default when the text is empty.
std::int32_t NumberOr(std::string_view text, std::int32_t fallback);

}  // namespace tessarin
