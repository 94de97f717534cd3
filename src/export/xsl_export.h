#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "export/export_beside_story.h"
#include "session/editor_session.h"

namespace tessarin {

// The style sheets of the XSLT folder ("*.xsl", in any case), in the order of their names;
// the export menu offers each one.
std::vector<std::filesystem::path> StyleSheetsIn(const std::filesystem::path& xsltDir);

// mnuExportXSL: the saved story file transformed by the style sheet given, or else the one
// that the preferences name (XSLT, or Tessarin.xsl in the XSLT folder while UseXSLT is on),
// written beside the
// story under the style sheet's extension. A style sheet that does not parse is told in a
// critical box ("Parsing error:" path ", Ligne: " ...) and nothing is written; a story that
// does not parse, the same with the export's parse error text. A failed transformation
// leaves an empty file, shows InvalidXSLT in the status panel with the error picture and the
// processor's reason in a critical box.
BesideStoryExport ExportXslCommand(EditorSession& session,
                                   const std::optional<std::filesystem::path>& styleSheet = {});

}  // namespace tessarin
