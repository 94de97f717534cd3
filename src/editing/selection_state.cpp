#include "editing/selection_state.h"

#include "common/utf8.h"
#include "editing/copy_fit.h"

namespace tessarin {
namespace {

// Narrows the selection so that no blank stands at either end of it.
void TrimBlanks(const StyledText& box, TextSelection& selection) {
    while (selection.length > 0 && box.CharAt(selection.start) == u' ') {
        ++selection.start;
        --selection.length;
    }
    while (selection.length > 0 && box.CharAt(selection.start + selection.length - 1) == u' ') {
        --selection.length;
    }
}

}  // namespace

ToolbarState ToolbarStateOf(const EditorSession& session, TextSelection selection) {
    const StyledText* box = SelectedBox(session, selection);
    if (box == nullptr) return {};
    const auto allOf = [&](auto test) {
        if (selection.length == 0) {
            return !box->Empty() &&
                   test(box->FormatAt(selection.start == 0 ? 0 : selection.start - 1));
        }
        return box->AllOf(selection.start, selection.length, test);
    };
    ToolbarState state;
    state.bold = allOf([](const CharFormat& format) { return format.bold; });
    state.italic = allOf([](const CharFormat& format) { return format.italic; });
    state.underline = allOf([](const CharFormat& format) { return format.underline; });
    state.superscript = allOf([](const CharFormat& format) { return format.offset > 0; });
    state.interEnabled = selection.box == kMainTextBox;
    return state;
}

ContextMenuState ContextMenuStateOf(const EditorSession& session, TextSelection selection) {
    ContextMenuState state;
    const StyledText* box = SelectedBox(session, selection);
    state.selection = selection;
    if (box == nullptr || selection.length == 0) return state;
    state.cut = state.copy = state.copyToMultipleClipboard = true;
    state.addNote = session.configuration.story.notes.visible;
    TrimBlanks(*box, state.selection);
    state.synonyms = state.selection.length > 0 &&
                     !HoldsProtectedText(*box, state.selection.start, state.selection.length);
    if (state.synonyms) {
        state.synonymText = Utf16ToUtf8(box->Text(state.selection.start, state.selection.length));
    }
    return state;
}

}  // namespace tessarin
