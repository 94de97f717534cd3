#pragma once

#include <string>
#include <string_view>

namespace tessarin {

// Case mapping of single UTF-16 code units, the same table for case changes and for
// comparisons that ignore case. It covers ASCII, Latin-1, Latin Extended-A, basic Greek and
// basic Cyrillic; every other unit (surrogates included) maps to itself. A letter whose upper
// case is more than one character keeps its form: "ß" stays "ß" in upper case.
char16_t ToUpperUnit(char16_t unit);
char16_t ToLowerUnit(char16_t unit);

// The form two units are compared by when case is ignored: the lower case of the upper case,
// so that "ſ" matches "s" and final "ς" matches "σ".
char16_t FoldCaseUnit(char16_t unit);

// A UTF-8 text upper-cased unit by unit with ToUpperUnit, as searches and the personal
// directory test compare texts.
std::string UpperCaseText(std::string_view utf8);

// True for a letter or digit of the scripts above, the units a whole word must not touch.
bool IsWordUnit(char16_t unit);

}  // namespace tessarin
