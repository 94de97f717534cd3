#include <algorithm>
#include <vector>

#include "story/inline_tags.h"
#include "story/story_markup.h"

namespace tessarin {
namespace {

class TagNester {
  public:
    explicit TagNester(std::size_t size) { out_.reserve(size + size / 16); }

    void Opening(InlineTag tag) {
        Reopen();
        Append(tag, false);
        open_.push_back(tag);
    }

    void Closing(InlineTag tag) {
        // A tag closed early by a crossing needs no closing tag of its own.
        if (const auto early = std::find(closedEarly_.begin(), closedEarly_.end(), tag);
            early != closedEarly_.end()) {
            closedEarly_.erase(early);
            return;
        }
        const auto found = std::find(open_.rbegin(), open_.rend(), tag);
        if (found == open_.rend()) return;
        const auto position = found.base() - 1;
        for (auto inner = open_.rbegin(); inner != found; ++inner)
            Append(*inner, true);
        Append(tag, true);
        closedEarly_.insert(closedEarly_.end(), position + 1, open_.end());
        open_.erase(position, open_.end());
    }

    void Character(char16_t character) {
        Reopen();
        out_ += character;
    }

    std::u16string Finish() {
        closedEarly_.clear();
        while (!open_.empty()) {
            Append(open_.back(), true);
            open_.pop_back();
        }
        return std::move(out_);
    }

  private:
    void Reopen() {
        for (const InlineTag tag : closedEarly_) {
            Append(tag, false);
            open_.push_back(tag);
        }
        closedEarly_.clear();
    }

    void Append(InlineTag tag, bool closing) {
        out_ += closing ? kInlineTagClosing[TagIndex(tag)] : kInlineTagOpening[TagIndex(tag)];
    }

    std::u16string out_;
    std::vector<InlineTag> open_;         // outermost first
    std::vector<InlineTag> closedEarly_;  // to open again before the next character
};

}  // namespace

std::u16string NestInlineTags(std::u16string_view tags) {
    TagNester nester(tags.size());
    for (std::size_t position = 0; position < tags.size();) {
        if (const auto match = MatchInlineTag(tags, position)) {
            if (match->closing)
                nester.Closing(match->tag);
            else
                nester.Opening(match->tag);
            position += match->length;
            continue;
        }
        nester.Character(tags[position++]);
    }
    return nester.Finish();
}

}  // namespace tessarin
