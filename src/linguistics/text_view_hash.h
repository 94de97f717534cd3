#pragma once

#include <functional>
#include <string_view>

namespace tessarin {

// Hashes UTF-16 strings and views alike, so that tables keyed by std::u16string can be
// searched with a view of a longer text, without making a string for each look-up.
struct TextViewHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const {
        return std::hash<std::u16string_view>()(text);
    }
};

}  // namespace tessarin
