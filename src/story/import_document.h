#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "session/editor_session.h"
#include "story/file_operations.h"
#include "text/styled_text.h"

namespace tessarin {

// Documents made elsewhere, opened as new stories: their text lands in the main box (box 6)
// in that box's font, keeping bold, italic, underline and superscript; the other boxes and
// the metadata stay as a new story has them. The story is modified and nothing is written
// until it is saved.

// The text of a plain text file: UTF-8 when its bytes are (a byte order mark dropped),
// Windows-1252 otherwise; every line end (CR LF, LF or CR) becomes CR LF and a no-break space
// the editor's middle dot.
StyledText ReadTextDocument(std::string_view bytes);

// ImportRtfDocument and ImportTextDocument: the editor is reset, then the file's text goes
// into box 6. A file that cannot be read leaves the reset, empty editor; false then.
bool ImportRtfDocument(EditorSession& session, const std::filesystem::path& document);
bool ImportTextDocument(EditorSession& session, const std::filesystem::path& document);

// ImportWordDocument, for ".doc", ".docx" and ".odt" files: the office suite converts the
// document to RTF, headless, in a folder of its own that is removed after, and the RTF is
// imported. Without the office suite the status panel says WordNotInstalled and nothing
// changes; a document it cannot convert leaves the reset, empty editor.
bool ImportWordDocument(EditorSession& session, const std::filesystem::path& document);

// Where the office suite's converter is: "soffice" found on the PATH.
std::optional<std::filesystem::path> OfficeConverter();

// The importers for the open command: by the document's extension; word documents are
// offered when the office suite is there.
DocumentImport StandardDocumentImport();

}  // namespace tessarin
