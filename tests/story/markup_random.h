#pragma once

#include <random>
#include <span>
#include <string>
#include <string_view>

#include "story/story_markup.h"

namespace tessarin::testing {

// Random styled texts and tag strings for comparing the conversions with their references.
class RandomStoryText {
  public:
    explicit RandomStoryText(unsigned seed) : engine_(seed) {}

    // Any pieces and any formats: protected runs, inter colours, superscript, line breaks with
    // pilcrows, tabs, middle dots, markup characters, blank runs, characters outside 8 bits.
    StyledText Wild(std::size_t pieces);

    // Text as an editor holds it after reading a story: line breaks and their neighbours
    // unformatted, no blank at either end, no raw non-breaking space, no ";" (so that no
    // entity name can be typed), notes without line breaks. Characters outside 8 bits only
    // for a story saved in UTF-8.
    StyledText Tidy(std::size_t pieces, bool utf8);

    // A caption with blanks and tabs but no markup.
    std::string Caption();

    // Up to most pieces, each drawn from the list, end to end.
    std::u16string Pieces(std::span<const std::u16string_view> pieces, int most);

    int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(engine_); }

  private:
    template <typename T>
    const T& Pick(std::span<const T> choices) {
        return choices[static_cast<std::size_t>(Number(static_cast<int>(choices.size())))];
    }
    CharFormat WildFormat();

    std::mt19937 engine_;
};

}  // namespace tessarin::testing
