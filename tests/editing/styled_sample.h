#pragma once

#include <string>
#include <string_view>

#include "app/window_state.h"
#include "editing/bookmark_anchor.h"
#include "text/styled_text.h"

namespace tessarin::testing {

// A styled text written in brackets: what stands between "[" and "]" is a note's anchor
// (highlighted in yellow), the rest is in the plain format. Round-trips through Bracketed.
inline StyledText Sample(std::u16string_view written, const CharFormat& plain = {}) {
    StyledText text;
    const CharFormat anchor = AnchorFormat(Rgb(255, 255, 0));
    bool inAnchor = false;
    for (char16_t unit : written) {
        if (unit == u'[' || unit == u']') {
            inAnchor = unit == u'[';
            continue;
        }
        text.Insert(text.Length(), std::u16string_view(&unit, 1), inAnchor ? anchor : plain);
    }
    return text;
}

inline std::u16string Bracketed(const StyledText& text) {
    std::u16string written;
    for (const FormatRun& run : text.Runs()) {
        const std::u16string piece = text.Text(run.start, run.length);
        written += run.format.isProtected ? u"[" + piece + u"]" : piece;
    }
    return written;
}

}  // namespace tessarin::testing
