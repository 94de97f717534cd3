#include "text/styled_text_index.h"

namespace tessarin {

void BlockLengthIndex::Rebuild(const std::vector<std::size_t>& lengths) {
    const std::size_t count = lengths.size();
    tree_.assign(count + 1, 0);
    for (std::size_t i = 1; i <= count; ++i) {
        tree_[i] += lengths[i - 1];
        const std::size_t parent = i + (i & (~i + 1));
        if (parent <= count) tree_[parent] += tree_[i];
    }
    topStep_ = 1;
    while (topStep_ * 2 <= count)
        topStep_ *= 2;
}

void BlockLengthIndex::Add(std::size_t block, std::size_t delta) {
    for (std::size_t i = block + 1; i < tree_.size(); i += i & (~i + 1))
        tree_[i] += delta;
}

void BlockLengthIndex::Subtract(std::size_t block, std::size_t delta) {
    for (std::size_t i = block + 1; i < tree_.size(); i += i & (~i + 1))
        tree_[i] -= delta;
}

std::pair<std::size_t, std::size_t> BlockLengthIndex::Locate(std::size_t position) const {
    std::size_t block = 0;
    for (std::size_t step = topStep_; step > 0; step /= 2) {
        const std::size_t next = block + step;
        if (next < tree_.size() && tree_[next] <= position) {
            block = next;
            position -= tree_[next];
        }
    }
    return {block, position};
}

}  // namespace tessarin
