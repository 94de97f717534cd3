#pragma once

#include <string_view>

namespace tessarin {

// The text without the blanks, tabs, carriage returns and line feeds around it.
inline std::string_view TrimWhitespace(std::string_view text) {
    constexpr std::string_view kWhitespace = " \t\r\n";
    const auto first = text.find_first_not_of(kWhitespace);
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(kWhitespace);
    return text.substr(first, last - first + 1);
}

}  // namespace tessarin
