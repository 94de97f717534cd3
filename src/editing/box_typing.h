#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// Typing into the text boxes as the desktop editor forwards it: the focus, the keys, the end
// of a typing burst with its undo step, and what the window shows for a selection.
//
// Typing is recorded for undo by bursts, not key by key: a key that ends a word records the
// box, and so do the focus moving to another box and the undo and redo commands, so that
// what was typed since the last step is never lost by an undo and never undone in pieces.

// True when typed holds a character that ends a word as the story counts words: a blank, a
// tab, a line break, a non-breaking space or mark, ",", ";", ":", ".", "?", "!", "'" or the
// double quote.
bool EndsTypingBurst(std::u16string_view typed);

// Whether the active box holds typing that no undo step has recorded yet. The editor keeps
// one for its session.
class TypingBurst {
  public:
    // A box got the focus: the burst of the box that had it ends, the box becomes the active
    // box and its text is recorded as an undo step.
    void FocusBox(EditorSession& session, int box);

    // A key typed into box, as TypeText takes it. A key that ends a word ends the burst.
    // Returns the caret behind the typed text; nothing when the core refused the key.
    std::optional<std::size_t> Type(EditorSession& session, int box, std::size_t position,
                                    std::u16string_view typed, std::size_t replacedLength);

    // Records the active box when it holds unrecorded typing.
    void End(EditorSession& session);

    // Undo and Redo of the editor's ring, after the burst has ended.
    bool Undo(EditorSession& session);
    bool Redo(EditorSession& session);

    bool Pending() const { return pending_; }

  private:
    bool pending_ = false;
};

// The selection of the active box changed: the toolbar buttons Bold, Italic, Underline and
// Superscript show its attributes, Inter and mnuFormatInter are enabled in the main box only,
// and a selection that is not empty shows its counters (SelectionCountersText) in the status
// panel. True when any of that changed.
bool ShowSelection(EditorSession& session, TextSelection selection);

// The writer typed into txtSignature: the text is the story's signature, and the story is
// modified.
void TypeSignature(EditorSession& session, std::string text);

}  // namespace tessarin
