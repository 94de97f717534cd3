#include "editing/text_selection.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "editing/copy_fit.h"

namespace tessarin {
namespace {

template <typename Session>
auto BoxOf(Session& session, TextSelection& selection) -> decltype(&session.story.boxes[0]) {
    if (selection.box < 0 || selection.box >= kTextBoxCount) return nullptr;
    auto& box = session.story.boxes[static_cast<std::size_t>(selection.box)];
    selection.start = std::min(selection.start, box.Length());
    selection.length = std::min(selection.length, box.Length() - selection.start);
    return &box;
}

bool IsProtected(const CharFormat& format) {
    return format.isProtected;
}

}  // namespace

StyledText* SelectedBox(EditorSession& session, TextSelection& selection) {
    return BoxOf(session, selection);
}

const StyledText* SelectedBox(const EditorSession& session, TextSelection& selection) {
    return BoxOf(session, selection);
}

StyledText* EditableBox(EditorSession& session, TextSelection& selection) {
    if (selection.box == kMainTextBox && session.mainBoxLocked) return nullptr;
    return SelectedBox(session, selection);
}

bool HoldsProtectedText(const StyledText& text, std::size_t start, std::size_t length) {
    if (length > 0) return !text.AllOf(start, length, std::not_fn(IsProtected));
    return start > 0 && start < text.Length() && text.FormatAt(start - 1).isProtected &&
           text.FormatAt(start).isProtected;
}

CharFormat TypingFormat(const StyledText& text, std::size_t start, std::size_t length) {
    CharFormat format = text.FormatAt(length > 0 || start == 0 ? start : start - 1);
    format.isProtected = false;
    format.waveUnderline = false;
    format.highlighted = false;
    format.highlight = 0;
    return format;
}

std::optional<std::size_t> ReplaceKeepingProtected(StyledText& text, std::size_t start,
                                                   std::size_t length,
                                                   std::u16string_view replacement) {
    if (!HoldsProtectedText(text, start, length)) {
        const CharFormat format = TypingFormat(text, start, length);
        text.Erase(start, length);
        text.Insert(start, replacement, format);
        return start + replacement.size();
    }
    std::vector<FormatRun> unprotected;
    text.ForEachRun(start, length, [&unprotected](const FormatRun& run) {
        if (!run.format.isProtected) unprotected.push_back(run);
    });
    if (unprotected.empty()) return std::nullopt;
    // From the back, so that the positions of the stretches before stay right.
    for (std::size_t index = unprotected.size() - 1; index > 0; --index) {
        text.Erase(unprotected[index].start, unprotected[index].length);
    }
    return ReplaceKeepingProtected(text, unprotected.front().start, unprotected.front().length,
                                   replacement);
}

}  // namespace tessarin
