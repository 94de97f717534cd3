#pragma once

#include <string>

#include "editing/text_selection.h"
#include "session/editor_session.h"

namespace tessarin {

// What the editing toolbar shows for a selection: a button is down when the whole selection
// has its attribute, or for the caret when the character before it has; Inter can be used
// only in the main text box.
struct ToolbarState {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool superscript = false;
    bool interEnabled = false;

    friend bool operator==(const ToolbarState&, const ToolbarState&) = default;
};

ToolbarState ToolbarStateOf(const EditorSession& session, TextSelection selection);

// The context menu of a box. With something selected, Cut, Copy and Copy to the multiple
// clipboard are enabled, Add note when the story has notes, and Synonyms when the selection,
// narrowed so that blanks at its ends stand outside it, holds text and no note's anchor.
// selection is that narrowed selection, for the box to show; synonymText its text in UTF-8.
struct ContextMenuState {
    bool cut = false;
    bool copy = false;
    bool copyToMultipleClipboard = false;
    bool addNote = false;
    bool synonyms = false;
    TextSelection selection;
    std::string synonymText;
};

ContextMenuState ContextMenuStateOf(const EditorSession& session, TextSelection selection);

}  // namespace tessarin
