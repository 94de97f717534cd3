#pragma once

#include "session/editor_session.h"

namespace tessarin {

// The editor's own undo and redo: a ring of 100 whole snapshots of one box's text each
// (session.undo). The position is the slot of the current state; the slot after the newest
// step is always empty, which ends the redo chain.

// Records the box's text as the newest step, unless it equals the current step of the same
// box. The step after it is emptied: what could be redone is gone. Called when a box gets the
// focus, when a typing burst ends and after every command that changed a box. True when a
// step was recorded; false for a box that does not exist.
bool RecordUndo(EditorSession& session, int box);

// Puts back the step before the current one (Undo) or after it (Redo) into its box; the box
// that has the focus stays as it is, the box's counters follow and the story is marked as
// modified. The status panel is cleared first. When there is no such
// step the position stays, and the panel shows UndoNotPossible (RedoNotPossible) with a beep.
// True when a step was put back.
bool Undo(EditorSession& session);
bool Redo(EditorSession& session);

// Empties the whole ring and sets the position to 1: adding or removing a note's anchor must
// never be undone without its note.
void ClearUndo(EditorSession& session);

}  // namespace tessarin
