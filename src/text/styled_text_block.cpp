#include "text/styled_text_block.h"

#include <algorithm>
#include <iterator>

namespace tessarin {
namespace {

// Joins span index with the one before it when both have the same format.
void MergeWithPrevious(TextBlock& block, std::size_t index) {
    auto& spans = block.spans;
    if (index == 0 || index >= spans.size()) return;
    if (spans[index - 1].format != spans[index].format) return;
    spans[index - 1].length += spans[index].length;
    spans.erase(spans.begin() + static_cast<std::ptrdiff_t>(index));
}

// Makes a span start at offset and returns its index (the number of spans at the end).
std::size_t SplitSpanAt(TextBlock& block, std::size_t offset) {
    const SpanPosition position = FindSpan(block, offset);
    if (position.index == block.spans.size() || position.start == offset) return position.index;
    FormatSpan& span = block.spans[position.index];
    FormatSpan tail{span.length - (offset - position.start), span.format};
    span.length = offset - position.start;
    block.spans.insert(block.spans.begin() + static_cast<std::ptrdiff_t>(position.index) + 1,
                       std::move(tail));
    return position.index + 1;
}

// The common case of typing: one format that equals the span at the offset, or the span
// ending there, only lengthens that span.
bool ExtendNeighbourSpan(TextBlock& block, std::size_t offset, const FormatSpan& inserted) {
    const SpanPosition position = FindSpan(block, offset);
    auto& spans = block.spans;
    if (position.index < spans.size() && spans[position.index].format == inserted.format) {
        spans[position.index].length += inserted.length;
        return true;
    }
    if (position.start == offset && position.index > 0 &&
        spans[position.index - 1].format == inserted.format) {
        spans[position.index - 1].length += inserted.length;
        return true;
    }
    return false;
}

}  // namespace

SpanPosition FindSpan(const TextBlock& block, std::size_t offset) {
    SpanPosition position;
    while (position.index < block.spans.size()) {
        const std::size_t end = position.start + block.spans[position.index].length;
        if (offset < end) break;
        position.start = end;
        ++position.index;
    }
    return position;
}

const CharFormat& FormatInBlock(const TextBlock& block, std::size_t offset) {
    return block.spans[FindSpan(block, offset).index].format;
}

void InsertInBlock(TextBlock& block, std::size_t offset, std::u16string_view text,
                   std::span<const FormatSpan> spans) {
    if (text.empty()) return;
    if (spans.size() != 1 || !ExtendNeighbourSpan(block, offset, spans.front())) {
        const std::size_t index = SplitSpanAt(block, offset);
        block.spans.insert(block.spans.begin() + static_cast<std::ptrdiff_t>(index), spans.begin(),
                           spans.end());
        MergeWithPrevious(block, index + spans.size());
        MergeWithPrevious(block, index);
    }
    block.text.insert(offset, text);
}

void EraseInBlock(TextBlock& block, std::size_t offset, std::size_t length) {
    if (length == 0) return;
    const std::size_t first = SplitSpanAt(block, offset);
    const std::size_t last = SplitSpanAt(block, offset + length);
    block.spans.erase(block.spans.begin() + static_cast<std::ptrdiff_t>(first),
                      block.spans.begin() + static_cast<std::ptrdiff_t>(last));
    MergeWithPrevious(block, first);
    block.text.erase(offset, length);
}

void ApplyFormatInBlock(TextBlock& block, std::size_t offset, std::size_t length,
                        const std::function<void(CharFormat&)>& change) {
    if (length == 0) return;
    const std::size_t first = SplitSpanAt(block, offset);
    const std::size_t last = SplitSpanAt(block, offset + length);
    for (std::size_t index = first; index < last; ++index)
        change(block.spans[index].format);
    for (std::size_t index = last + 1; index-- > first;)
        MergeWithPrevious(block, index);
}

void AppendBlock(TextBlock& block, TextBlock&& tail) {
    const std::size_t seam = block.spans.size();
    block.text += tail.text;
    block.spans.insert(block.spans.end(), std::make_move_iterator(tail.spans.begin()),
                       std::make_move_iterator(tail.spans.end()));
    MergeWithPrevious(block, seam);
}

void BlockBuilder::Append(std::u16string_view text, const CharFormat& format) {
    while (!text.empty()) {
        if (blocks_.empty() || blocks_.back().Size() >= pieceSize_) blocks_.emplace_back();
        TextBlock& block = blocks_.back();
        const std::size_t take = std::min(text.size(), pieceSize_ - block.Size());
        block.text.append(text.substr(0, take));
        if (!block.spans.empty() && block.spans.back().format == format) {
            block.spans.back().length += take;
        } else {
            block.spans.push_back({take, format});
        }
        text.remove_prefix(take);
    }
}

}  // namespace tessarin
