#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "common/utf8.h"
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

// A text as runs: each run's format in brackets, then its characters in UTF-8. The codes are
// b, i, u for bold, italic and underline; n for a note anchor (protected, highlighted in the
// default bookmarks colour, wavy underline); g for the grey of a non-breaking mark; 1, 2, 3
// for the default inter colours; s for superscript with a font 3 points under 12; ? for any
// other format.
inline std::string Describe(const StyledText& text) {
    std::string described;
    for (const FormatRun& run : text.Runs()) {
        const CharFormat& format = run.format;
        std::string codes;
        if (format.bold) codes += 'b';
        if (format.italic) codes += 'i';
        if (format.underline) codes += 'u';
        const bool note = format.isProtected && format.highlighted &&
                          format.highlight == Rgb(255, 255, 0) && format.waveUnderline;
        if (note)
            codes += 'n';
        else if (format.isProtected || format.highlighted || format.waveUnderline)
            codes += '?';
        if (format.colour == Rgb(175, 175, 175))
            codes += 'g';
        else if (format.colour == Rgb(0, 0, 255))
            codes += '1';
        else if (format.colour == Rgb(255, 0, 0))
            codes += '2';
        else if (format.colour == Rgb(0, 255, 0))
            codes += '3';
        else if (format.colour != 0)
            codes += '?';
        if (format.offset == 100 && format.fontSize == 9)
            codes += 's';
        else if (format.offset != 0 || format.fontSize != 0)
            codes += '?';
        described += "[" + codes + "]" + Utf16ToUtf8(text.Text(run.start, run.length));
    }
    return described;
}

}  // namespace tessarin::testing
