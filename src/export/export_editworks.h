#pragma once

#include <string>

#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// The EditWorks QTrans import text of a story: the target database path, the form, field
// codes for topics and keywords, a comment line, the text boxes under their configured
// field codes with the inline styles as QTrans switches, the signature, then the pictures.
// ExportEditWorks (declared with the other writers in export_frame.h) runs the frame around
// ComposeEditWorks and writes the story's name up to its last point + "txt".

// The whole file, as its bytes: Windows-1252 (a character the code page lacks is "?"),
// each line ending in CR LF. Reads the EditWorksQTrans section, the StoryLabel message, the
// captions of the sub-section labels, the program version and context.now (the comment
// line's day name follows the date language of the locale).
std::string ComposeEditWorks(const XmlDocument& story, const ExportContext& context);

}  // namespace tessarin
