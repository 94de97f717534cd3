#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessarin {

// The tags that reading a text box turns into formats or characters. Every other tag stays
// in the text as plain characters (the inter and superscript tags are paired later, on the
// plain text).
enum class ReadToken {
    Paragraph,
    BoldOn,
    BoldOff,
    ItalicOn,
    ItalicOff,
    UnderlineOn,
    UnderlineOff,
    Tab,
    NoteOn,
    NoteOff,
    Euro,
    SmallOe,
    CapitalOe,
};

struct ReadTokenMatch {
    ReadToken token;
    std::size_t length = 0;          // in the tag text
    std::size_t measuredLength = 0;  // as note characters are measured (see char_count.h)
};

// The token that starts at position, if any.
std::optional<ReadTokenMatch> MatchReadToken(std::u16string_view tags, std::size_t position);

// The serialised form of an element writes an element without content as "<b/>", while the
// story's writer put "<b></b>" in the file; this gives each paired inline tag back the form
// that the file holds.
void ExpandEmptyInlineElements(std::u16string& tags);

}  // namespace tessarin
