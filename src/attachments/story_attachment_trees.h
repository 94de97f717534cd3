#pragma once

#include "session/editor_session.h"

namespace tessarin {

// Keeps treeImages and treeOtherFiles showing the open story's attachments, whatever put the
// story there (the start, a new story, a story read): each tree has its root, and one node
// per attachment in the story's order. Trees that already show the story are left alone, so
// that the writer's open nodes stay.
void ShowStoryAttachmentTrees(EditorSession& session);

}  // namespace tessarin
