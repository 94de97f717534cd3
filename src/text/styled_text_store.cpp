#include "text/styled_text_store.h"

#include <iterator>

namespace tessarin {

BlockStore::BlockStore(std::vector<TextBlock> blocks) : blocks_(std::move(blocks)) {
    for (const TextBlock& block : blocks_)
        length_ += block.Size();
    RebuildIndex();
}

char16_t BlockStore::UnitAt(std::size_t position) const {
    const auto [block, offset] = index_.Locate(position);
    return blocks_[block].text[offset];
}

const CharFormat& BlockStore::FormatAt(std::size_t position) const {
    const auto [block, offset] = index_.Locate(position);
    return FormatInBlock(blocks_[block], offset);
}

void BlockStore::Insert(std::size_t position, std::u16string_view text,
                        std::span<const FormatSpan> spans) {
    if (text.empty()) return;
    const bool firstBlock = blocks_.empty();
    if (firstBlock) blocks_.emplace_back();
    // The end of the text lies at the end of the last block, which the index does not find.
    const auto [block, offset] = position >= length_
                                     ? std::pair{blocks_.size() - 1, blocks_.back().Size()}
                                     : index_.Locate(position);
    InsertInBlock(blocks_[block], offset, text, spans);
    length_ += text.size();
    if (blocks_[block].Size() > kMaxBlockSize) {
        SplitOversized(block);
        RebuildIndex();
    } else if (firstBlock) {
        RebuildIndex();
    } else {
        index_.Add(block, text.size());
    }
}

void BlockStore::Erase(std::size_t start, std::size_t length) {
    length = ClampedLength(start, length);
    if (length == 0) return;
    auto [first, offset] = index_.Locate(start);
    // Blocks wholly inside the range are dropped, the one or two at its ends trimmed.
    std::size_t dropFrom = blocks_.size();
    std::size_t dropTo = dropFrom;
    std::size_t block = first;
    for (std::size_t remaining = length; remaining > 0; ++block, offset = 0) {
        TextBlock& current = blocks_[block];
        const std::size_t take = std::min(remaining, current.Size() - offset);
        if (take == current.Size()) {
            dropFrom = std::min(dropFrom, block);
            dropTo = block + 1;
        } else {
            EraseInBlock(current, offset, take);
            index_.Subtract(block, take);
        }
        remaining -= take;
    }
    length_ -= length;
    bool reshaped = dropTo > dropFrom;
    blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(dropFrom),
                  blocks_.begin() + static_cast<std::ptrdiff_t>(dropTo));
    // The trimmed blocks now stand at first and first + 1.
    reshaped |= MergeUndersized(first > 0 ? first - 1 : 0, first + 1);
    if (reshaped) RebuildIndex();
}

void BlockStore::ApplyFormat(std::size_t start, std::size_t length,
                             const std::function<void(CharFormat&)>& change) {
    std::size_t remaining = ClampedLength(start, length);
    if (remaining == 0) return;
    auto [block, offset] = index_.Locate(start);
    for (; remaining > 0; ++block, offset = 0) {
        TextBlock& current = blocks_[block];
        const std::size_t take = std::min(remaining, current.Size() - offset);
        ApplyFormatInBlock(current, offset, take, change);
        remaining -= take;
    }
}

void BlockStore::MapUnits(std::size_t start, std::size_t length, char16_t (*map)(char16_t)) {
    std::size_t remaining = ClampedLength(start, length);
    if (remaining == 0) return;
    auto [block, offset] = index_.Locate(start);
    for (; remaining > 0; ++block, offset = 0) {
        std::u16string& text = blocks_[block].text;
        const std::size_t end = std::min(text.size(), offset + remaining);
        for (std::size_t i = offset; i < end; ++i)
            text[i] = map(text[i]);
        remaining -= end - offset;
    }
}

void BlockStore::SplitOversized(std::size_t block) {
    const TextBlock whole = std::move(blocks_[block]);
    const std::size_t count =
        std::max<std::size_t>(2, (whole.Size() + kPieceSize - 1) / kPieceSize);
    BlockBuilder builder((whole.Size() + count - 1) / count);
    const std::u16string_view text = whole.text;
    std::size_t offset = 0;
    for (const FormatSpan& span : whole.spans) {
        builder.Append(text.substr(offset, span.length), span.format);
        offset += span.length;
    }
    std::vector<TextBlock> pieces = builder.Take();
    const auto at = blocks_.begin() + static_cast<std::ptrdiff_t>(block);
    blocks_.insert(blocks_.erase(at), std::make_move_iterator(pieces.begin()),
                   std::make_move_iterator(pieces.end()));
}

bool BlockStore::MergeUndersized(std::size_t first, std::size_t last) {
    bool merged = false;
    for (std::size_t block = first; block <= last && block < blocks_.size();) {
        const std::size_t size = blocks_[block].Size();
        const std::size_t left = block > 0 ? blocks_[block - 1].Size() : kMaxBlockSize;
        const std::size_t right =
            block + 1 < blocks_.size() ? blocks_[block + 1].Size() : kMaxBlockSize;
        // Joins the small block to its smaller neighbour when the two fit in one block.
        std::size_t into = blocks_.size();
        if (size < kMinBlockSize && std::min(left, right) + size <= kMaxBlockSize) {
            into = left <= right ? block - 1 : block;
        }
        if (into == blocks_.size()) {
            ++block;
            continue;
        }
        AppendBlock(blocks_[into], std::move(blocks_[into + 1]));
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(into) + 1);
        merged = true;
        if (last > 0) --last;
        block = into;
    }
    return merged;
}

void BlockStore::RebuildIndex() {
    std::vector<std::size_t> lengths;
    lengths.reserve(blocks_.size());
    for (const TextBlock& block : blocks_)
        lengths.push_back(block.Size());
    index_.Rebuild(lengths);
}

}  // namespace tessarin
