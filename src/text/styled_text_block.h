#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "text/styled_text.h"

namespace tessarin {

// A stretch of characters of one format inside a block; its start is the sum of the
// lengths before it.
struct FormatSpan {
    std::size_t length = 0;
    CharFormat format;
};

// A piece of a styled text: a few thousand code units and the spans that cover them. Spans
// are never empty and two neighbours in one block always differ. Every operation costs at
// most the size of the block.
struct TextBlock {
    std::u16string text;
    std::vector<FormatSpan> spans;

    std::size_t Size() const { return text.size(); }
};

// Where an offset of a block falls: the span that holds it and that span's first offset.
// The end of the block gives the number of spans and the block's size.
struct SpanPosition {
    std::size_t index = 0;
    std::size_t start = 0;
};
SpanPosition FindSpan(const TextBlock& block, std::size_t offset);

// The format at an offset below the block's size.
const CharFormat& FormatInBlock(const TextBlock& block, std::size_t offset);

// Inserts text at an offset; spans give its formats and cover it exactly, with neighbours
// that differ.
void InsertInBlock(TextBlock& block, std::size_t offset, std::u16string_view text,
                   std::span<const FormatSpan> spans);
void EraseInBlock(TextBlock& block, std::size_t offset, std::size_t length);
void ApplyFormatInBlock(TextBlock& block, std::size_t offset, std::size_t length,
                        const std::function<void(CharFormat&)>& change);

// Moves all of tail to the end of block.
void AppendBlock(TextBlock& block, TextBlock&& tail);

// Cuts a text into blocks of at most pieceSize units, appending format by format.
class BlockBuilder {
  public:
    explicit BlockBuilder(std::size_t pieceSize) : pieceSize_(pieceSize) {}
    void Append(std::u16string_view text, const CharFormat& format);
    std::vector<TextBlock> Take() { return std::move(blocks_); }

  private:
    std::size_t pieceSize_;
    std::vector<TextBlock> blocks_;
};

}  // namespace tessarin
