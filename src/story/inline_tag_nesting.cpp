#include "story/inline_tag_nesting.h"

#include <algorithm>

#include "story/story_markup.h"

namespace tessarin {
namespace {

std::u16string_view OpeningOf(InlineTag tag) {
    return kInlineTagOpening[TagIndex(tag)];
}
std::u16string_view ClosingOf(InlineTag tag) {
    return kInlineTagClosing[TagIndex(tag)];
}

}  // namespace

// Tags closed early wait for the next character, so that one whose own closing tag follows
// is not opened around nothing.
void TagNester::Opening(InlineTag tag) {
    Open(tag);
}

void TagNester::Closing(InlineTag tag) {
    // A tag closed early by a crossing needs no closing tag of its own.
    if (const auto early = std::find(closedEarly_.begin(), closedEarly_.end(), tag);
        early != closedEarly_.end()) {
        closedEarly_.erase(early);
        return;
    }
    const auto found = std::find_if(open_.rbegin(), open_.rend(),
                                    [tag](const OpenTag& open) { return open.tag == tag; });
    if (found == open_.rend()) return;
    // The inner tags close first, innermost first; one that was opened with nothing after
    // it moves behind the closing tag instead of being closed around nothing.
    std::vector<InlineTag> inner;
    for (auto tagAbove = open_.rbegin(); tagAbove != found; ++tagAbove) {
        if (Written() == tagAbove->end)
            out_.resize(tagAbove->end - forgotten_ - OpeningOf(tagAbove->tag).size());
        else
            out_ += ClosingOf(tagAbove->tag);
        inner.push_back(tagAbove->tag);
    }
    out_ += ClosingOf(tag);
    closedEarly_.insert(closedEarly_.end(), inner.rbegin(), inner.rend());
    open_.erase(found.base() - 1, open_.end());
}

void TagNester::Character(char16_t character) {
    Reopen();
    out_ += character;
}

void TagNester::Characters(std::u16string_view characters) {
    if (characters.empty()) return;
    Reopen();
    out_ += characters;
}

void TagNester::Finish() {
    closedEarly_.clear();
    while (!open_.empty()) {
        out_ += ClosingOf(open_.back().tag);
        open_.pop_back();
    }
}

void TagNester::Forget() {
    forgotten_ += out_.size();
    out_.clear();
}

void TagNester::Open(InlineTag tag) {
    out_ += OpeningOf(tag);
    open_.push_back({tag, Written()});
}

void TagNester::Reopen() {
    for (const InlineTag tag : closedEarly_)
        Open(tag);
    closedEarly_.clear();
}

std::u16string NestInlineTags(std::u16string_view tags) {
    std::u16string nested;
    nested.reserve(tags.size() + tags.size() / 16);
    TagNester nester(nested);
    std::size_t textStart = 0;
    for (std::size_t position = tags.find(u'<'); position != std::u16string_view::npos;) {
        const auto match = MatchInlineTag(tags, position);
        if (!match) {
            position = tags.find(u'<', position + 1);
            continue;
        }
        nester.Characters(tags.substr(textStart, position - textStart));
        if (match->closing)
            nester.Closing(match->tag);
        else
            nester.Opening(match->tag);
        textStart = position + match->length;
        position = tags.find(u'<', textStart);
    }
    nester.Characters(tags.substr(textStart));
    nester.Finish();
    return nested;
}

}  // namespace tessarin
