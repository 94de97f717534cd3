#pragma once

#include <string_view>

#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// A click on a treeUpload node selects it and previews it: the preview and the status panel
// are cleared; an image shows its staged file in Image1; a story shows the plain text of its
// boxes in txtStory (StoryPlainText), or, when it does not parse, the parsing message in the
// status panel with a beep. An other file shows nothing.
void PreviewNode(EditorSession& session, WorkflowWindow& window, std::string_view key);

}  // namespace tessarin
