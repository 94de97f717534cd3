#pragma once

#include "editing/copy_fit.h"
#include "session/editor_session.h"

namespace tessarin {

// The end of every editing command that changed a box, as change measured it (a change of
// format alone is the empty change): the box's counters follow, the story is marked as
// modified, and the new text is recorded as an undo step.
void CommitBoxChange(EditorSession& session, int box, const BoxTextChange& change = {});

}  // namespace tessarin
