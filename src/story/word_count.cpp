#include "story/word_count.h"

#include "story/markup_text_passes.h"
#include "text/text_window.h"

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

// Counts as the text goes by. Runs of blanks at either end vanish in the trim; every inner
// run keeps what the collapse leaves of it.
class WordCounter {
  public:
    void Add(char16_t c) {
        if (ActsAsBlank(c)) {
            ++pendingRun_;
            return;
        }
        if (seenWord_ && pendingRun_ > 0)
            blanks_ += BlanksAfterCollapsing(pendingRun_, kLongestBlankRun);
        pendingRun_ = 0;
        seenWord_ = true;
    }

    std::int32_t Words() const { return seenWord_ ? static_cast<std::int32_t>(blanks_ + 1) : 0; }

  private:
    std::size_t blanks_ = 0;
    std::size_t pendingRun_ = 0;
    bool seenWord_ = false;
};

}  // namespace

std::int32_t CountWords(std::u16string_view text) {
    WordCounter counter;
    for (const char16_t c : text)
        counter.Add(c);
    return counter.Words();
}

std::int32_t CountStoryWords(const StyledText& text) {
    WordCounter counter;
    TextWindow window(text);
    text.ForEachRun(0, text.Length(), [&counter, &window](const FormatRun& run) {
        if (run.format.isProtected) return;
        for (std::size_t position = run.start; position < run.start + run.length; ++position)
            counter.Add(window.At(position));
    });
    return counter.Words();
}

}  // namespace tessarin
