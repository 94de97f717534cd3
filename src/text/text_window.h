#pragma once

#include <cstddef>
#include <string>

#include "text/styled_text.h"

namespace tessarin {

// The plain text of a styled text, read a stretch at a time as a pass goes forward, so that a
// long text is never copied whole.
class TextWindow {
  public:
    explicit TextWindow(const StyledText& text) : text_(text), length_(text.Length()) {}

    std::size_t Length() const { return length_; }

    // The unit at a position below Length(); cheapest when positions mostly go forward.
    char16_t At(std::size_t position) {
        // A stretch always reaches a little past the position asked, for looking ahead.
        if (position < start_ || position + kLookAhead >= start_ + stretch_.size()) {
            start_ = position;
            stretch_ = text_.Text(position, kStretchSize);
        }
        return stretch_[position - start_];
    }

  private:
    static constexpr std::size_t kStretchSize = 16384;
    static constexpr std::size_t kLookAhead = 2;

    const StyledText& text_;
    std::size_t length_;
    std::size_t start_ = 0;
    std::u16string stretch_;
};

}  // namespace tessarin
