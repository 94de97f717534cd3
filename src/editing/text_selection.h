#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// A selection in a text box: the box that has the focus (kNoBox: none) and a range of UTF-16
// code units. A length of 0 is the caret.
struct TextSelection {
    int box = kNoBox;
    std::size_t start = 0;
    std::size_t length = 0;

    friend bool operator==(const TextSelection&, const TextSelection&) = default;
};

// The box a selection is in, with the selection cut to the box's end; nullptr when the
// selection names no box.
StyledText* SelectedBox(EditorSession& session, TextSelection& selection);
const StyledText* SelectedBox(const EditorSession& session, TextSelection& selection);

// As SelectedBox, for a command that changes the box: nullptr also for the main box of a
// story that is open read-only.
StyledText* EditableBox(EditorSession& session, TextSelection& selection);

// True when a character of the range is protected (a note's anchor). The caret counts as
// protected only inside an anchor, between two protected characters.
bool HoldsProtectedText(const StyledText& text, std::size_t start, std::size_t length);

// The format that text typed over a range takes: that of the range's first character, or for
// the caret that of the character before it; never the marks of a note's anchor, so that what
// is typed beside an anchor does not become part of it.
CharFormat TypingFormat(const StyledText& text, std::size_t start, std::size_t length);

// Replaces a range by text in the typing format, as typing over a selection does, but keeps
// the range's protected characters: only the unprotected stretches go, and the new text
// stands where the first of them stood. Returns the caret behind the new text; nothing, and
// no change, when the whole range (or the caret) lies inside an anchor.
std::optional<std::size_t> ReplaceKeepingProtected(StyledText& text, std::size_t start,
                                                   std::size_t length,
                                                   std::u16string_view replacement);

}  // namespace tessarin
