#pragma once

#include "export/export_beside_story.h"
#include "session/editor_session.h"

namespace tessarin {

// The width in points to which the PDF export wraps the story's lines: the A4 page less a
// margin of 50 points on either side.
inline constexpr double kPdfTextWidth = 595 - 2 * 50;

// mnuExportPDF: the story's text boxes as a PDF beside its file (name up to the last point +
// ".pdf"), A4, in Helvetica or Times by each character's font, with the lines wrapped to the
// page width; a new page when the lines pass 750 points. The information dictionary takes the
// first non-empty box of 0 to 5 as title, the user's name as author, the taxonomy topics as
// subject and, when the configuration shows keywords, the story's keywords, each list joined
// by "; ". Nothing is written for a story without name or directory, nor for an empty story
// (EmptyStory in the status panel) or a file that cannot be written (told in the status panel).
BesideStoryExport ExportPdfCommand(EditorSession& session);

}  // namespace tessarin
