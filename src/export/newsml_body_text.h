#pragma once

#include <string>

#include "common/xml_document.h"

namespace tessarin {

// The content of the NewsML body's DataContent, as final bytes, from the story's TextBox6
// element. Paragraphs become <p> elements (runs of up to four breaks count as one),
// intertitles <hl2> outside the paragraphs, bold, italic, underline and superscript <em>
// with a style; notes are cut. The serialised text is escaped once more as a whole, so an
// entity of the story is escaped twice ("&amp;" gives "&amp;amp;") and a tag that has no
// NewsML form shows as text. In UTF-8 mode the escaped text is UTF-8 and the special
// characters keep their own letters; otherwise the text is in Windows-1252 and they are
// spelled "euro", "oe" and "OE".
std::string NewsMLBodyBytes(const XmlNode& textBox6, bool utf8);

}  // namespace tessarin
