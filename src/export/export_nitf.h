#pragma once

#include <string>

#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// The NITF writer. ExportNITF (declared with the other writers in export_frame.h) runs the
// frame around ComposeNITF.

// The whole NITF document of a story, as the bytes of the file. It declares ISO-8859-1 in
// every case and is written in Windows-1252; only the picture's source, which is escaped,
// is UTF-8 in UTF-8 mode. The text boxes keep their serialised form (entities, <p/> and
// line breaks stay) with their inline tags made <em> elements; no other value is escaped,
// so a "<" or "&" of a headline, a caption or a keyword stands bare. A story without Body
// gives a document that closes body.content without opening it: it is not well-formed.
std::string ComposeNITF(const XmlDocument& story, const ExportContext& context);

}  // namespace tessarin
