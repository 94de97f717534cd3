#pragma once

#include <random>
#include <string>

#include "story/story_markup.h"

namespace tessarin::testing {

inline constexpr OleColour kGrey = Rgb(175, 175, 175);

// Random styled texts for comparing the conversions with their references.
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

    int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(engine_); }

  private:
    CharFormat WildFormat();
    CharFormat TidyFormat();

    std::mt19937 engine_;
};

}  // namespace tessarin::testing
