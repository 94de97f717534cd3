#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "common/utf8.h"
#include "story/char_count.h"
#include "story/story_markup.h"

namespace tessarin::testing {

// Formats written as short codes: b, i, u for bold, italic and underline; n for a note's
// anchor as the editor inserts it (protected, highlighted in the default bookmarks colour,
// wavy underline); g for the grey of a non-breaking mark; 1, 2, 3 for the default inter
// colours; s for superscript.
inline constexpr std::array<std::pair<char, OleColour>, 4> kColourCodes = {
    {{'g', Rgb(175, 175, 175)},
     {'1', Rgb(0, 0, 255)},
     {'2', Rgb(255, 0, 0)},
     {'3', Rgb(0, 255, 0)}}};

inline CharFormat Format(std::string_view codes) {
    const auto has = [codes](char code) { return codes.find(code) != std::string_view::npos; };
    CharFormat format;
    format.bold = has('b');
    format.italic = has('i');
    format.underline = has('u');
    format.isProtected = format.highlighted = format.waveUnderline = has('n');
    if (has('n')) format.highlight = Rgb(255, 255, 0);
    format.offset = has('s') ? 100 : 0;
    for (const auto& [code, colour] : kColourCodes) {
        if (has(code)) format.colour = colour;
    }
    return format;
}

// A text from pieces, each with its format codes.
inline StyledText Styled(
    std::initializer_list<std::pair<std::u16string_view, std::string_view>> pieces) {
    StyledText text;
    for (const auto& [piece, codes] : pieces)
        text.Insert(text.Length(), piece, Format(codes));
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

// A text as runs: each run's format codes in brackets, then its characters in UTF-8. As read
// back, superscript also has a font 3 points under 12; "?" marks any other format.
inline std::string Describe(const StyledText& text) {
    std::string described;
    for (const FormatRun& run : text.Runs()) {
        const CharFormat& format = run.format;
        std::string codes;
        if (format.bold) codes += 'b';
        if (format.italic) codes += 'i';
        if (format.underline) codes += 'u';
        if (format.isProtected) codes += 'n';
        for (const auto& [code, colour] : kColourCodes) {
            if (format.colour == colour) codes += code;
        }
        if (format.offset != 0) codes += 's';
        CharFormat expected = Format(codes);
        if (format.offset != 0) expected.fontSize = 9;
        if (expected != format) codes += '?';
        described += "[" + codes + "]" + Utf16ToUtf8(text.Text(run.start, run.length));
    }
    return described;
}

}  // namespace tessarin::testing
