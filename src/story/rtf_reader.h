#pragma once

#include <string_view>

#include "text/styled_text.h"

namespace tessarin {

// Reads an RTF document into styled text: its text in the document's 8-bit code page
// (Windows-1252) and \u characters, paragraphs and line breaks as CR LF, tabs, no-break
// spaces as the editor's middle dot (the last paragraph's mark dropped), typographic quotes and
// dashes, and the bold, italic, underline and superscript of each character. Fonts, sizes and
// colours are not taken: the text takes the font of the box it goes into. Groups that hold no text
// of the document (font and colour tables, style sheet, information, pictures, fields'
// instructions, every
// "\*" destination) and unknown control words are skipped. Any bytes are read without
// failing; what is not RTF is read as text.
StyledText ReadRtf(std::string_view bytes);

}  // namespace tessarin
