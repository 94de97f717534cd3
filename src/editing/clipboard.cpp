#include "editing/clipboard.h"

#include "common/utf8.h"
#include "editing/box_change.h"

namespace tessarin {
namespace {

// Line ends of any kind (CR LF, LF, CR) as the CR LF pairs of a text box.
std::u16string WithBoxLineEnds(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char16_t unit = text[index];
        if (unit == u'\r' || unit == u'\n') {
            result += u"\r\n";
            if (unit == u'\r' && index + 1 < text.size() && text[index + 1] == u'\n') ++index;
        } else {
            result += unit;
        }
    }
    return result;
}

}  // namespace

bool CopySelection(const EditorSession& session, TextSelection selection,
                   TextClipboard& clipboard) {
    const StyledText* box = SelectedBox(session, selection);
    if (box == nullptr || selection.length == 0 ||
        HoldsProtectedText(*box, selection.start, selection.length)) {
        return false;
    }
    clipboard.text = Utf16ToUtf8(box->Text(selection.start, selection.length));
    return true;
}

bool CutSelection(EditorSession& session, TextSelection& selection, TextClipboard& clipboard) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr || !CopySelection(session, selection, clipboard)) return false;
    const BoxTextChange change = MeasureBoxEdit(*box, selection.start, selection.length, u"");
    box->Erase(selection.start, selection.length);
    selection.length = 0;
    CommitBoxChange(session, selection.box, change);
    return true;
}

bool PasteClipboard(EditorSession& session, TextSelection& selection,
                    const TextClipboard& clipboard) {
    StyledText* box = EditableBox(session, selection);
    if (box == nullptr || clipboard.text.empty() ||
        HoldsProtectedText(*box, selection.start, selection.length)) {
        return false;
    }
    const std::u16string pasted = WithBoxLineEnds(Utf8ToUtf16(clipboard.text));
    const BoxTextChange change = MeasureBoxEdit(*box, selection.start, selection.length, pasted);
    selection.start = *ReplaceKeepingProtected(*box, selection.start, selection.length, pasted);
    selection.length = 0;
    CommitBoxChange(session, selection.box, change);
    return true;
}

}  // namespace tessarin
