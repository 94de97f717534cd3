#include "editing/box_change.h"

#include "editing/undo_ring.h"

namespace tessarin {

void CommitBoxChange(EditorSession& session, int box, const BoxTextChange& change) {
    BoxTextChanged(session, box, change, ChangeOrigin::User);
    RecordUndo(session, box);
}

}  // namespace tessarin
