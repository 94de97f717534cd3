#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace tessarin {

// Prefix sums over the lengths of a sequence of blocks (a Fenwick tree): finding the block
// of a position and changing one block's length both take a logarithmic number of steps.
class BlockLengthIndex {
  public:
    // Lays the index over new lengths, in time linear in their number.
    void Rebuild(const std::vector<std::size_t>& lengths);
    void Add(std::size_t block, std::size_t delta);
    void Subtract(std::size_t block, std::size_t delta);

    // The block holding a position below the total, and the position's offset in it.
    std::pair<std::size_t, std::size_t> Locate(std::size_t position) const;

  private:
    std::vector<std::size_t> tree_;  // 1-based: tree_[i] sums a stretch of blocks ending at i
    std::size_t topStep_ = 0;        // the highest power of two not above the block count
};

}  // namespace tessarin
