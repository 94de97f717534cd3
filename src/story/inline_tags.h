#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tessarin {

// The paired tags of a story's inline text, in the order in which the writer checks them for
// each character.
enum class InlineTag { Inter1, Inter2, Inter3, Superscript, Bold, Note, Italic, Underline };
inline constexpr std::size_t kInlineTagCount = 8;

inline constexpr std::array<std::u16string_view, kInlineTagCount> kInlineTagOpening = {
    u"<inter1>", u"<inter2>", u"<inter3>", u"<sup>", u"<b>", u"<note>", u"<i>", u"<u>"};
inline constexpr std::array<std::u16string_view, kInlineTagCount> kInlineTagClosing = {
    u"</inter1>", u"</inter2>", u"</inter3>", u"</sup>", u"</b>", u"</note>", u"</i>", u"</u>"};

constexpr std::size_t TagIndex(InlineTag tag) {
    return static_cast<std::size_t>(tag);
}

// A paired tag found at a position of a tag text.
struct InlineTagMatch {
    InlineTag tag;
    bool closing = false;
    std::size_t length = 0;
};

// The paired tag (opening or closing) that starts at position, if any.
std::optional<InlineTagMatch> MatchInlineTag(std::u16string_view text, std::size_t position);

}  // namespace tessarin
