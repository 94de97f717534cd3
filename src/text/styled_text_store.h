#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "text/styled_text_block.h"
#include "text/styled_text_index.h"

namespace tessarin {

// The storage behind a styled text: a sequence of blocks of at most kMaxBlockSize units,
// each with its own spans, and an index over their lengths. An edit finds its block through
// the index and rewrites only that block, splitting it when it grows too large and merging it
// with a neighbour when it shrinks too small, so its cost does not depend on the text's size.
class BlockStore {
  public:
    // The size of the blocks that whole texts are cut into: room to type in, few blocks.
    static constexpr std::size_t kPieceSize = 1024;

    BlockStore() = default;
    explicit BlockStore(std::vector<TextBlock> blocks);

    std::size_t Length() const { return length_; }
    // Both need a position below Length().
    char16_t UnitAt(std::size_t position) const;
    const CharFormat& FormatAt(std::size_t position) const;

    // Calls visit(text, format) for each stretch of one format of one block within
    // [start, start + length), cut at the end; stops and returns false when visit does.
    template <typename Visitor>
    bool Visit(std::size_t start, std::size_t length, Visitor&& visit) const;

    // Inserts at a position (clamped to the end); spans cover the text exactly.
    void Insert(std::size_t position, std::u16string_view text, std::span<const FormatSpan> spans);
    void Erase(std::size_t start, std::size_t length);
    void ApplyFormat(std::size_t start, std::size_t length,
                     const std::function<void(CharFormat&)>& change);
    // Replaces each unit of a range by map(unit), keeping formats.
    void MapUnits(std::size_t start, std::size_t length, char16_t (*map)(char16_t));

  private:
    static constexpr std::size_t kMaxBlockSize = 2048;
    static constexpr std::size_t kMinBlockSize = kMaxBlockSize / 4;

    std::size_t ClampedLength(std::size_t start, std::size_t length) const {
        return start >= length_ ? 0 : std::min(length, length_ - start);
    }
    void SplitOversized(std::size_t block);
    bool MergeUndersized(std::size_t first, std::size_t last);
    void RebuildIndex();

    std::vector<TextBlock> blocks_;  // none empty
    BlockLengthIndex index_;
    std::size_t length_ = 0;
};

template <typename Visitor>
bool BlockStore::Visit(std::size_t start, std::size_t length, Visitor&& visit) const {
    std::size_t remaining = ClampedLength(start, length);
    if (remaining == 0) return true;
    auto [block, offset] = index_.Locate(start);
    for (; remaining > 0; ++block) {
        const TextBlock& current = blocks_[block];
        const std::u16string_view text = current.text;
        for (SpanPosition span = FindSpan(current, offset);
             remaining > 0 && span.index < current.spans.size(); ++span.index) {
            const FormatSpan& piece = current.spans[span.index];
            const std::size_t end = span.start + piece.length;
            const std::size_t take = std::min(remaining, end - offset);
            if (!visit(text.substr(offset, take), piece.format)) return false;
            remaining -= take;
            offset = span.start = end;
        }
        offset = 0;
    }
    return true;
}

}  // namespace tessarin
