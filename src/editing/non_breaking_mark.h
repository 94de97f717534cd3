#pragma once

#include "app/window_state.h"
#include "text/styled_text.h"

namespace tessarin {

// A non-breaking space shows in a text box as a middle dot: grey in black text, in the text's
// own colour otherwise. The story file writes every middle dot as a non-breaking space.
inline constexpr char16_t kNonBreakingMark = u'\u00B7';
inline constexpr OleColour kNonBreakingMarkGrey = Rgb(175, 175, 175);

// The format of a mark put into text of the given format.
inline CharFormat NonBreakingMarkFormat(CharFormat format) {
    if (format.colour == 0) format.colour = kNonBreakingMarkGrey;
    return format;
}

}  // namespace tessarin
