#include "editing/undo_ring.h"

#include <string_view>

#include "editing/copy_fit.h"

namespace tessarin {
namespace {

int NextSlot(int position) {
    return position % kUndoSlots + 1;
}

int PreviousSlot(int position) {
    return position == 1 ? kUndoSlots : position - 1;
}

int CurrentPosition(UndoRing& ring) {
    if (ring.position == 0) ring.position = 1;
    return ring.position;
}

// Moves to the neighbouring slot and puts its step back; an empty slot leaves the position
// where it was and reports the message.
bool StepTo(EditorSession& session, int slot, std::string_view refusalKey) {
    session.window.ClearStatus();
    UndoRing& ring = session.undo;
    const UndoSlot& step = ring.snapshots[static_cast<std::size_t>(slot)];
    if (step.box == kNoBox) {
        session.window.ShowStatusError(session.Message(refusalKey));
        return false;
    }
    ring.position = slot;
    ring.lastBox = step.box;
    session.story.boxes[static_cast<std::size_t>(step.box)] = step.text;
    RecountBox(session, step.box, ChangeOrigin::User);
    return true;
}

}  // namespace

bool RecordUndo(EditorSession& session, int box) {
    if (box < 0 || box >= kTextBoxCount) return false;
    UndoRing& ring = session.undo;
    const StyledText& text = session.story.boxes[static_cast<std::size_t>(box)];
    const int position = CurrentPosition(ring);
    if (box == ring.lastBox && ring.snapshots[static_cast<std::size_t>(position)].text == text) {
        return false;
    }
    ring.position = NextSlot(position);
    UndoSlot& next = ring.snapshots[static_cast<std::size_t>(NextSlot(ring.position))];
    next.box = kNoBox;
    next.text.Clear();
    UndoSlot& slot = ring.snapshots[static_cast<std::size_t>(ring.position)];
    slot.box = box;
    slot.text = text;
    ring.lastBox = box;
    return true;
}

bool Undo(EditorSession& session) {
    return StepTo(session, PreviousSlot(CurrentPosition(session.undo)), "UndoNotPossible");
}

bool Redo(EditorSession& session) {
    return StepTo(session, NextSlot(CurrentPosition(session.undo)), "RedoNotPossible");
}

void ClearUndo(EditorSession& session) {
    session.undo = UndoRing{};
}

}  // namespace tessarin
