#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "story/char_count.h"
#include "story/story_markup.h"

namespace tessarin::testing {

inline CharFormat Plain() {
    return {};
}
inline CharFormat Bold() {
    CharFormat format;
    format.bold = true;
    return format;
}
inline CharFormat Italic() {
    CharFormat format;
    format.italic = true;
    return format;
}
inline CharFormat BoldItalic() {
    CharFormat format = Bold();
    format.italic = true;
    return format;
}
inline CharFormat Underlined() {
    CharFormat format;
    format.underline = true;
    return format;
}
inline CharFormat Coloured(OleColour colour, bool bold = false) {
    CharFormat format;
    format.colour = colour;
    format.bold = bold;
    return format;
}
inline CharFormat Superscript() {
    CharFormat format;
    format.offset = 100;
    return format;
}
// A note's anchor as the editor inserts it.
inline CharFormat Anchor(bool underline = false) {
    CharFormat format;
    format.isProtected = true;
    format.highlighted = true;
    format.highlight = Rgb(255, 255, 0);
    format.waveUnderline = true;
    format.underline = underline;
    return format;
}

inline StyledText Styled(std::initializer_list<std::pair<std::u16string_view, CharFormat>> pieces) {
    StyledText text;
    for (const auto& [piece, format] : pieces)
        text.Insert(text.Length(), piece, format);
    return text;
}

// The body of a story whose only text is one box, with its character count computed.
inline std::string OneBoxBody(int index, const StyledText& text,
                              const MarkupSettings& settings = {}, std::string caption = "Titre") {
    StoryBodyInput input;
    auto& box = input.boxes[static_cast<std::size_t>(index)];
    box.text = &text;
    box.caption = std::move(caption);
    box.charCount = CountBoxCharacters(text, 0, 0);
    input.settings = settings;
    return StoryTextToTags(input);
}

}  // namespace tessarin::testing
