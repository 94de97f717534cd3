#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "text/styled_text.h"

namespace tessarin {

// A word of a text that the spelling checker looks at: a run of letters and digits, with the
// apostrophes (straight or typographic) and hyphens that stand between two of them, so that
// "l'été", "aujourd'hui" and "porte-avions" are one word each. Positions are in code units.
struct CheckedWord {
    std::size_t start = 0;
    std::size_t length = 0;
};

// The plain text of a box with its note anchors blanked out: every protected character
// becomes a blank of the same length, so that positions stay those of the box and no word
// runs into or out of a note.
std::u16string TextOutsideNotes(const StyledText& text);

// Calls visit for each word of text that starts at or after from (a word boundary), in order, until
// visit returns false. Words that hold a digit ("1998", "B2") are no spelling matter and are left
// out.
void ForEachCheckedWord(std::u16string_view text, std::size_t from,
                        const std::function<bool(const CheckedWord&)>& visit);

// True when the word has no lower-case letter ("NATO", "ÉTÉ").
bool IsUpperCaseWord(std::u16string_view word);

}  // namespace tessarin
