#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// A name followed by a number without blanks: "P" and 12 give "P12", "ImageSize" and 2 give
// "ImageSize2". (Built by appending, which also keeps GCC 12's -Wrestrict false alarm on
// literal + std::string away from optimised builds.)
inline std::string NumberedName(std::string_view name, long long number) {
    std::string text(name);
    text += std::to_string(number);
    return text;
}

}  // namespace tessarin
