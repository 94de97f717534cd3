#include <algorithm>
#include <vector>

#include "story/inline_tags.h"
#include "story/story_markup.h"

namespace tessarin {
namespace {

class TagNester {
  public:
    explicit TagNester(std::size_t size) { out_.reserve(size + size / 16); }

    // Tags closed early wait for the next character, so that one whose own closing tag
    // follows is not opened around nothing.
    void Opening(InlineTag tag) { Open(tag); }

    void Closing(InlineTag tag) {
        // A tag closed early by a crossing needs no closing tag of its own.
        if (const auto early = std::find(closedEarly_.begin(), closedEarly_.end(), tag);
            early != closedEarly_.end()) {
            closedEarly_.erase(early);
            return;
        }
        const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                        [tag](const OpenTag& open) { return open.tag == tag; });
        if (found == open_.rend()) return;
        // The inner tags close first, innermost first; one that was opened with nothing
        // after it moves behind the closing tag instead of being closed around nothing.
        std::vector<InlineTag> inner;
        for (auto tagAbove = open_.rbegin(); tagAbove != found; ++tagAbove) {
            if (out_.size() == tagAbove->end)
                out_.resize(tagAbove->end - OpeningOf(tagAbove->tag).size());
            else
                out_ += ClosingOf(tagAbove->tag);
            inner.push_back(tagAbove->tag);
        }
        out_ += ClosingOf(tag);
        closedEarly_.insert(closedEarly_.end(), inner.rbegin(), inner.rend());
        open_.erase(found.base() - 1, open_.end());
    }

    void Character(char16_t character) {
        Reopen();
        out_ += character;
    }

    std::u16string Finish() {
        closedEarly_.clear();
        while (!open_.empty()) {
            out_ += ClosingOf(open_.back().tag);
            open_.pop_back();
        }
        return std::move(out_);
    }

  private:
    struct OpenTag {
        InlineTag tag;
        std::size_t end;  // the output's length right after the opening tag
    };

    static std::u16string_view OpeningOf(InlineTag tag) { return kInlineTagOpening[TagIndex(tag)]; }
    static std::u16string_view ClosingOf(InlineTag tag) { return kInlineTagClosing[TagIndex(tag)]; }

    void Open(InlineTag tag) {
        out_ += OpeningOf(tag);
        open_.push_back({tag, out_.size()});
    }

    void Reopen() {
        for (const InlineTag tag : closedEarly_)
            Open(tag);
        closedEarly_.clear();
    }

    std::u16string out_;
    std::vector<OpenTag> open_;           // outermost first
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
