#pragma once

#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// cmdRemoveStory (also the Delete key on a story node): takes the selected story out of the
// send list.
// 1. No node selected, or no story node: SelectStory in the status panel, with a beep.
// 2. The files of the story's nodes are deleted from Upload (names that are no plain file
//    name are passed over, so that nothing outside Upload goes).
// 3. The staged story is read; one that does not parse is reported ("Parsing error:" path
//    ...) and stays in the list without its files.
// 4. Its source (Metadata/OriginalPath Name), when it is there and read-only, is made
//    writable again.
// 5. The staged story and its marker are deleted, the preview cleared, the list rebuilt.
// True when the story left the list.
bool RemoveStory(EditorSession& session, WorkflowWindow& window);

}  // namespace tessarin
