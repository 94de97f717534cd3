#pragma once

#include <string>

#include "session/editor_session.h"

namespace tessarin {

// The summary of the story's metadata that the button cmdMetadataTooltip shows as its tool
// tip, refreshed after every change of a metadata value and at start.

// How the desktop editor shows that tool tip: lines up to 350 pixels wide, shown for
// 32760 milliseconds.
inline constexpr int kMetadataTipWidth = 350;
inline constexpr int kMetadataTipDelayMs = 32760;

// The tool text: first the number of pictures and ImagesLabel ("2 Photos"); then, for each
// metadata field that is not "invisible" and not empty, in the order of the metadata tab, a
// line break, the field's label, ":", a line break, three blanks and the value; then the
// checked taxonomy topics (under the taxonomy's name) and the keywords (under the name of the
// keywords tree), when these are switched on, each topic or keyword on a line of its own
// after three blanks.
std::string MetadataToolText(const EditorSession& session);

// Rebuilds the tool tip of cmdMetadataTooltip and shows the copy-fit counters of every box
// again (the pictures change what the main box may hold). The story's modified flag is the
// caller's.
void MetadataChanged(EditorSession& session);

// What follows any change of a metadata value: the story is modified, and MetadataChanged.
void MetadataValueChanged(EditorSession& session);

}  // namespace tessarin
