#pragma once

#include <string>

#include "export/export_beside_story.h"
#include "session/editor_session.h"

namespace tessarin {

// The RTF fields that bring the story's pictures into a word processor: for each picture
// with a path, an import field of its path ("\" made "/"), then its caption and its credit,
// each after the label of its field and ": ", when not empty, then an empty paragraph. Empty
// when the story has no picture or RTFWithImages is off.
std::string DraftImagesRtf(const EditorSession& session);

// mnuExportRTF: the story's draft, with the picture fields before its last "}", as an RTF
// file beside the story (name up to the last point + ".rtf"). Nothing is written for a story
// without name or directory, an empty draft (EmptyStory) or a file that cannot be written.
BesideStoryExport ExportRtfCommand(EditorSession& session);

}  // namespace tessarin
