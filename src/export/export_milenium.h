#pragma once

#include <string>
#include <string_view>

#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// The Milenium insert file of a story: XML whose element names all come from the
// MileniumInsert section. ExportMilenium (declared with the other writers in
// export_frame.h) runs the frame around ComposeMilenium and writes under the story's name.

// The whole file, as its bytes: declared ISO-8859-1 and written in Windows-1252, as story
// files are (a character the code page lacks is "?"); a CR LF stands before every element
// after the declaration, and the file ends with the root's end tag. Values are written as
// the story holds them: texts read from elements are not escaped again, box texts keep the
// entities of their serialised form. storyName is the staged story's file name; the
// expiration date counts from context.now when the story has no readable publication date.
std::string ComposeMilenium(const XmlDocument& story, std::string_view storyName,
                            const ExportContext& context);

}  // namespace tessarin
