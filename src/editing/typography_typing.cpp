#include "editing/typography_typing.h"

#include <string>

#include "editing/copy_fit.h"
#include "editing/non_breaking_mark.h"
#include "editing/text_selection.h"
#include "editing/typography_rules.h"

namespace tessarin {
namespace {

// Puts a mark over [position, position + length) of box and counts the change.
void PutMark(EditorSession& session, int box, std::size_t position, std::size_t length) {
    StyledText& text = session.story.boxes[static_cast<std::size_t>(box)];
    PutNonBreakingMark(text, position, length);
    BoxTextChange change;
    change.lengthDelta = 1 - static_cast<std::int64_t>(length);
    BoxTextChanged(session, box, change, ChangeOrigin::User);
}

// Before punctuation typed at position: the blank before becomes a mark (true), or a mark
// goes in at position (the caret moves on by one); nothing after a mark or an anchor.
bool MarkBefore(EditorSession& session, int box, std::size_t& position) {
    const StyledText& text = session.story.boxes[static_cast<std::size_t>(box)];
    if (position == 0) return false;
    const char16_t before = text.CharAt(position - 1);
    if (before == kNonBreakingMark || text.FormatAt(position - 1).isProtected) return false;
    if (before == u' ') {
        PutMark(session, box, position - 1, 1);
        return true;
    }
    PutMark(session, box, position, 0);
    ++position;
    return false;
}

}  // namespace

std::optional<TypedStretch> TypographyTyping::Type(EditorSession& session, TypingBurst* burst,
                                                   int box, std::size_t position,
                                                   std::u16string_view typed,
                                                   std::size_t replacedLength, bool shift) {
    if (duplicateSpaceShown_) session.window.ClearStatus();
    duplicateSpaceShown_ = false;

    TextSelection selection{box, position, replacedLength};
    const StyledText* text = EditableBox(session, selection);
    if (text == nullptr) return std::nullopt;
    if (burst != nullptr && box != session.activeBox) burst->FocusBox(session, box);
    const TypographySwitches switches = TypographySwitchesOf(session.preferences);
    const bool free = !HoldsProtectedText(*text, selection.start, selection.length);
    const std::size_t lengthBefore = text->Length();
    position = selection.start;
    std::size_t start = position;
    std::u16string keyed(typed);

    if (free && switches.removeDuplicateSpaces && typed == u" " && position > 0 &&
        text->CharAt(position - 1) == u' ') {
        session.window.Status() = {session.Message("DuplicateSpace"), false};
        duplicateSpaceShown_ = true;
        return std::nullopt;
    }
    const bool quoteKey = typed == u"\"" && switches.frenchQuotationMarks && !shift;
    const bool closing = quoteKey && closeQuote_;
    if (quoteKey) keyed = closing ? std::u16string(1, kClosingQuote) : u"\u00AB";
    if (free && switches.nonBreakingSpaces &&
        (closing || (typed.size() == 1 && WantsMarkBefore(typed[0])))) {
        if (MarkBefore(session, box, position)) --start;
    }
    const std::optional<std::size_t> typedCaret =
        burst != nullptr ? burst->Type(session, box, position, keyed, selection.length)
                         : TypeText(session, box, position, keyed, selection.length);
    if (!typedCaret) return std::nullopt;
    std::size_t caret = *typedCaret;
    if (quoteKey) {
        closeQuote_ = !closeQuote_;
        if (!closing && switches.nonBreakingSpaces) PutMark(session, box, caret++, 0);
    }
    const std::size_t oldLength = selection.start + selection.length - start;
    return TypedStretch{start, oldLength, oldLength + text->Length() - lengthBefore, caret};
}

}  // namespace tessarin
