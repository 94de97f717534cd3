#pragma once

#include <string>
#include <vector>

#include "story/inline_tags.h"

namespace tessarin {

// Receives a box's tags and characters in order and appends them to out, repairing crossed
// tags as NestInlineTags (story_markup.h) describes. Nothing else may append to out until
// Finish; the owner may take out's content away after a character with Forget.
class TagNester {
  public:
    explicit TagNester(std::u16string& out) : out_(out) {}

    void Opening(InlineTag tag);
    void Closing(InlineTag tag);
    void Character(char16_t character);
    void Characters(std::u16string_view characters);
    void Finish();
    // Clears out after its content was taken: right after a character no tag written so far
    // can be taken back any more.
    void Forget();

  private:
    struct OpenTag {
        InlineTag tag;
        std::size_t end;  // the length of all output right after the opening tag
    };

    void Open(InlineTag tag);
    void Reopen();

    std::size_t Written() const { return forgotten_ + out_.size(); }

    std::u16string& out_;
    std::size_t forgotten_ = 0;
    std::vector<OpenTag> open_;           // outermost first
    std::vector<InlineTag> closedEarly_;  // to open again before the next character
};

}  // namespace tessarin
