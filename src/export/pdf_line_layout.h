#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/styled_text.h"

namespace tessarin {

// The standard font that shows a character of the draft: Times when its font's name begins
// with "Times", Helvetica otherwise, in its bold and italic form (font numbers 5 to 12).
std::int32_t PdfFontNumberFor(const CharFormat& format);

// The byte that stands for a draft character in the fonts' WinAnsi encoding: a middle dot
// becomes a no-break space, and a character the code page lacks becomes "?".
unsigned char PdfByteFor(char16_t unit);

// The second half of a character outside the basic plane, which adds nothing to the output:
// its first half already stands for the character.
bool IsLowSurrogate(char16_t unit);

// Where each line of the draft begins when it is wrapped to a width in points by the real
// glyph widths of the standard fonts: a line ends after a line feed, or before the word that
// would pass the width (after its blanks, which may overhang); a word wider than the line is
// cut where it overflows. The first line begins at 0.
std::vector<std::size_t> WrapDraftLines(const StyledText& draft, double width);

}  // namespace tessarin
