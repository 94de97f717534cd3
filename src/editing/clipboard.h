#pragma once

#include <string>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// The text that copy and cut put aside and paste puts back, in UTF-8; line breaks as the
// boxes hold them (CR LF). The desktop editor keeps it in step with the system clipboard.
struct TextClipboard {
    std::string text;
};

// Copy puts the selected text on the clipboard, unless the selection is empty or holds a
// note's anchor. True when it did.
bool CopySelection(const EditorSession& session, TextSelection selection, TextClipboard& clipboard);

// Cut copies as Copy does, then deletes the selection and records an undo step.
bool CutSelection(EditorSession& session, TextSelection& selection, TextClipboard& clipboard);

// Paste replaces the selection by the clipboard's text as plain text: in the format of typed
// text, every line end made a CR LF. Refused on a selection that holds an anchor, and nothing
// happens when the clipboard is empty. The caret ends behind the pasted text.
bool PasteClipboard(EditorSession& session, TextSelection& selection,
                    const TextClipboard& clipboard);

}  // namespace tessarin
