#pragma once

#include <cstdint>
#include <string_view>

#include "text/styled_text.h"

namespace tessarin {

// The line breaks in text: each CR directly followed by LF.
std::int64_t CountLineBreaks(std::u16string_view text);

// The character count of a text box that the copy-fit shows and a story file records: the
// length of its text, less two for each line break (CR LF), less the box's note characters
// (the length of its note anchors as the box's counter keeps it), less the paragraph marks
// that the paragraph display has put in. A blank, a tab and a middle dot count for one.
std::int32_t CountBoxCharacters(const StyledText& text, std::int32_t noteCharacters,
                                std::int32_t paragraphMarks);

// The note characters that reading a box adds to its counter, measured on the box's tag
// text (line ends and the element's own tags removed): for each "<note>" the distance to the
// first "</note>" after it, less 6. Entities and inner tags count as they stand, except that
// paragraph, bold, italic, underline and tab tags count with the length of the rich-text
// words that stood for them when notes were measured ("\par ", "\b ", "\b0 ", "\i ", "\i0 ",
// "\ul ", "\ulnone ", a tab).
std::int32_t CountNoteCharactersInTags(std::u16string_view tags);

}  // namespace tessarin
