#include "story/rescue_attribute_cut.h"

namespace tessarin {
namespace {

// What the loop cuts of a marker when no "\">" follows it.
constexpr std::size_t kShortCut = 9;
constexpr std::u16string_view kAttributeEnd = u"\">";

void TrimTrailingBlanks(std::u16string& text) {
    const std::size_t last = text.find_last_not_of(u' ');
    text.resize(last == std::u16string::npos ? 0 : last + 1);
}

void TrimLeadingBlanks(std::u16string& text) {
    if (text.empty() || text.front() != u' ') return;
    text.erase(0, text.find_first_not_of(u' '));
}

// The loop restarts its search at the start of the joined text each time, but everything
// before a cut was searched already, so the text is read once from left to right: the kept
// text grows in out, and a marker is found as soon as out ends with it. A match can only
// start before the cut when it runs across the join, which out's end shows as well.
class MarkerCutter {
  public:
    MarkerCutter(std::u16string_view text, std::u16string_view marker)
        : input_(text), marker_(marker) {
        out_.reserve(text.size());
    }

    std::u16string Run() {
        while (!pending_.empty() || next_ < input_.size()) {
            const char16_t unit = TakeNext();
            out_ += unit;
            if (unit == marker_.back() && out_.ends_with(marker_)) Cut();
        }
        if (cutSomething_) TrimTrailingBlanks(out_);
        return std::move(out_);
    }

  private:
    char16_t TakeNext() {
        if (!pending_.empty()) {
            const char16_t unit = pending_.front();
            pending_.erase(0, 1);
            return unit;
        }
        return input_[next_++];
    }

    // The marker ends out. Its last character, a quotation mark, is the last one read, so
    // nothing is pending, and the "\">" begins there or lies in the input not yet read.
    void Cut() {
        cutSomething_ = true;
        out_.resize(out_.size() - marker_.size());
        const std::size_t end = FindAttributeEnd();
        if (end != std::u16string_view::npos) {
            next_ = end;  // the ">" is read next and stays
        } else {
            pending_ = marker_.substr(kShortCut);
        }
        TrimTrailingBlanks(out_);
        TrimLeadingBlanks(out_);
    }

    // The position in the input of the ">" of the first "\">" that begins at the marker's
    // last character or after it; npos when there is none.
    std::size_t FindAttributeEnd() {
        const std::u16string_view rest = input_.substr(next_);
        if (rest.starts_with(u'>')) return next_;
        if (noAttributeEndAhead_) return std::u16string_view::npos;
        const std::size_t found = rest.find(kAttributeEnd);
        if (found == std::u16string_view::npos) {
            // Nothing ahead of this point will ever hold one: later searches start further on.
            noAttributeEndAhead_ = true;
            return std::u16string_view::npos;
        }
        return next_ + found + 1;
    }

    std::u16string_view input_;
    std::u16string_view marker_;
    std::size_t next_ = 0;
    std::u16string pending_;  // characters to read before input_[next_]
    std::u16string out_;
    bool cutSomething_ = false;
    bool noAttributeEndAhead_ = false;
};

}  // namespace

std::u16string CutAttributeMarkers(std::u16string_view text, std::u16string_view marker) {
    return MarkerCutter(text, marker).Run();
}

}  // namespace tessarin
