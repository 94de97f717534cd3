#pragma once

#include <string>

#include "common/xml_document.h"
#include "config/export_section.h"
#include "export/export_frame.h"
#include "export/tagged_text_markup.h"

namespace tessarin {

// Tagged text for the page layout programs: each text box of a story goes to layout under
// the paragraph style that the configuration names for the story's form. ExportInDesign
// (base name + ".txt") and ExportXPress (base name + ".xtg"), declared with the other
// writers in export_frame.h, run the frame around ComposeTaggedText and, in layout mode,
// make the delivery folders.

// The whole tagged text file of a story, as the bytes of the file: Windows-1252 (a
// character the code page lacks is "?"), lines ending in CR LF, no line end added at the
// end of the last line beyond the one each part carries. With Metadata: the file head
// (InDesign: "<ANSI-WIN>" and the prologue; XPress: the prologue) and every non-empty style
// definition whose key begins with the form's name. Then each text box under its style,
// the signature under the form's "_Signature" style, and each picture's caption and credit
// under "_Caption" and "_Credit"; parts without their style are left out.
std::string ComposeTaggedText(TaggedTextLayout layout, const XmlDocument& story,
                              const TaggedTextExportSettings& settings);

}  // namespace tessarin
