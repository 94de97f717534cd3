#include "story/word_count.h"

#include <string>

#include "story/markup_text_passes.h"

namespace tessarin {
namespace {

constexpr std::size_t kLongestBlankRun = 8;

bool ActsAsBlank(char16_t c) {
    switch (c) {
        case u' ':
        case u'\r':
        case u'\n':
        case u',':
        case u';':
        case u':':
        case u'.':
        case u'?':
        case u'!':
        case u'\'':
        case u'"':
            return true;
        default:
            return false;
    }
}

}  // namespace

std::int32_t CountWords(std::u16string_view text) {
    // Runs of blanks at either end vanish in the trim; every inner run keeps what the
    // collapse leaves of it.
    std::size_t blanks = 0;
    std::size_t pendingRun = 0;
    bool seenWord = false;
    for (const char16_t c : text) {
        if (ActsAsBlank(c)) {
            ++pendingRun;
            continue;
        }
        if (seenWord && pendingRun > 0)
            blanks += BlanksAfterCollapsing(pendingRun, kLongestBlankRun);
        pendingRun = 0;
        seenWord = true;
    }
    return seenWord ? static_cast<std::int32_t>(blanks + 1) : 0;
}

std::int32_t CountStoryWords(const StyledText& text) {
    const std::u16string plain = text.Text();
    std::u16string unprotected;
    unprotected.reserve(plain.size());
    for (const FormatRun& run : text.Runs()) {
        if (!run.format.isProtected) unprotected.append(plain, run.start, run.length);
    }
    return CountWords(unprotected);
}

}  // namespace tessarin
