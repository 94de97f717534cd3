#include "editing/box_typing.h"

#include "editing/copy_fit.h"
#include "editing/selection_state.h"
#include "editing/undo_ring.h"

namespace tessarin {
namespace {

constexpr std::u16string_view kWordEnds = u" \t\r\n,;:.?!'\"\u00A0\u00B7";

// Sets a control's flag and tells whether that changed it.
bool Set(bool& flag, bool value) {
    const bool changed = flag != value;
    flag = value;
    return changed;
}

}  // namespace

bool EndsTypingBurst(std::u16string_view typed) {
    return typed.find_first_of(kWordEnds) != std::u16string_view::npos;
}

void TypingBurst::FocusBox(EditorSession& session, int box) {
    End(session);
    session.activeBox = box;
    RecordUndo(session, box);
}

std::optional<std::size_t> TypingBurst::Type(EditorSession& session, int box, std::size_t position,
                                             std::u16string_view typed,
                                             std::size_t replacedLength) {
    if (box != session.activeBox) FocusBox(session, box);
    const std::optional<std::size_t> caret =
        TypeText(session, box, position, typed, replacedLength);
    if (!caret) return caret;
    pending_ = true;
    if (EndsTypingBurst(typed)) End(session);
    return caret;
}

void TypingBurst::End(EditorSession& session) {
    if (pending_) RecordUndo(session, session.activeBox);
    pending_ = false;
}

bool TypingBurst::Undo(EditorSession& session) {
    End(session);
    return tessarin::Undo(session);
}

bool TypingBurst::Redo(EditorSession& session) {
    End(session);
    return tessarin::Redo(session);
}

bool ShowSelection(EditorSession& session, TextSelection selection) {
    WindowState& window = session.window;
    const ToolbarState state = ToolbarStateOf(session, selection);
    bool changed = false;
    changed |= Set(window.Control("Bold").checked, state.bold);
    changed |= Set(window.Control("Italic").checked, state.italic);
    changed |= Set(window.Control("Underline").checked, state.underline);
    changed |= Set(window.Control("Superscript").checked, state.superscript);
    changed |= Set(window.Control("Inter").enabled, state.interEnabled);
    changed |= Set(window.Control("mnuFormatInter").enabled, state.interEnabled);
    std::string counters =
        SelectionCountersText(session, selection.box, selection.start, selection.length);
    if (!counters.empty() && window.Status().text != counters) {
        window.Status() = {std::move(counters), false};
        changed = true;
    }
    return changed;
}

void TypeSignature(EditorSession& session, std::string text) {
    session.story.signature = std::move(text);
    session.storyModified = true;
}

}  // namespace tessarin
