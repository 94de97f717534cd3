#pragma once

#include <string>
#include <string_view>

#include "common/xml_document.h"
#include "export/export_frame.h"

namespace tessarin {

// The program's own format: the story file itself, cleaned for its destination.

// Changes the story's document as the TessarinML writer does and returns the document's
// bytes as it is then saved:
// - in mode Layout, every Notes child of the root and every note element under Body goes
//   (notes never reach layout), and each href of Images/ImageBag/Image and
//   Files/FileBag/File becomes "file:///" + the bare file name (the text after the last
//   "\" or "/"), since the files travel beside the story;
// - in Metadata, LastSaveDate is removed and appended anew with Name = the caption of
//   lblLastSaveDate and the text short date + " " + "hh:mm" of now, then LastSaveAuthor is
//   removed and appended anew with the user's name, so both end up last;
// - when logs are kept (LogsEnabled), a Log with Type = logType and the text logLine is
//   appended to Logs, which is appended to the root when the story has none.
std::string ComposeTessarinML(XmlDocument& story, ExportMode mode, std::string_view logType,
                              std::string_view logLine, const ExportContext& context);

}  // namespace tessarin
