#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "editing/box_typing.h"
#include "session/editor_session.h"

namespace tessarin {

// A key that changed a box: [start, start + oldLength) of the text as it was became
// [start, start + newLength), and the caret stands at caret.
struct TypedStretch {
    std::size_t start = 0;
    std::size_t oldLength = 0;
    std::size_t newLength = 0;
    std::size_t caret = 0;
};

// Typing with the automatic typography switched on by the user's preferences, on text that
// is not protected:
//   RemoveDuplicateSpaces  a blank typed after a blank is swallowed, and the status panel
//                          says DuplicateSpace until the next key;
//   NonBreakingSpaces      ":", ";", "!", "?" or "%" typed after a blank makes that blank a
//                          non-breaking mark, and after anything else but a mark puts a mark
//                          before it;
//   FrenchQuotationMarks   the double quote typed without shift gives « and » by turns,
//                          with a mark inside them when NonBreakingSpaces is on.
// The editor keeps one for its session: the quotation marks' turn lives here, apart from
// the typography command's own.
class TypographyTyping {
  public:
    // A key typed into box over [position, position + replacedLength), through burst (the
    // editor's), or with no burst straight into the box without undo steps (the command line
    // and measurements); nothing when the key was refused or swallowed.
    std::optional<TypedStretch> Type(EditorSession& session, TypingBurst* burst, int box,
                                     std::size_t position, std::u16string_view typed,
                                     std::size_t replacedLength, bool shift);

    // True when the next double quote closes.
    bool NextQuoteCloses() const { return closeQuote_; }

  private:
    bool closeQuote_ = false;
    bool duplicateSpaceShown_ = false;
};

}  // namespace tessarin
