#include "story/tag_pair_search.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <queue>

namespace tessarin {
namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

using MinHeap = std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>>;

MinHeap Occurrences(std::u16string_view text, std::u16string_view tag) {
    std::vector<std::size_t> found;
    for (std::size_t hit = text.find(tag); hit != std::u16string_view::npos;
         hit = text.find(tag, hit + 1))
        found.push_back(hit);
    return MinHeap(std::greater<>(), std::move(found));
}

// The characters that are still in the text, as a doubly linked chain over their positions.
class LiveChain {
  public:
    explicit LiveChain(std::size_t size) : next_(size), previous_(size), last_(size - 1) {
        for (std::size_t position = 0; position < size; ++position) {
            next_[position] = position + 1 < size ? position + 1 : kNone;
            previous_[position] = position > 0 ? position - 1 : kNone;
        }
    }

    std::size_t Next(std::size_t position) const { return next_[position]; }
    // The live character before a position, kNone standing for the end of the text.
    std::size_t Before(std::size_t position) const {
        return position == kNone ? last_ : previous_[position];
    }

    std::size_t Advance(std::size_t position, std::size_t steps) const {
        while (steps-- > 0)
            position = next_[position];
        return position;
    }

    // Unlinks count characters from first; returns the live character after them (kNone at
    // the end) and marks them removed.
    std::size_t Remove(std::size_t first, std::size_t count, std::vector<bool>& removed) {
        const std::size_t before = previous_[first];
        std::size_t after = first;
        for (std::size_t step = 0; step < count; ++step) {
            removed[after] = true;
            after = next_[after];
        }
        if (before != kNone) next_[before] = after;
        if (after != kNone)
            previous_[after] = before;
        else
            last_ = before;
        return after;
    }

  private:
    std::vector<std::size_t> next_;
    std::vector<std::size_t> previous_;
    std::size_t last_;
};

class PairSearch {
  public:
    PairSearch(std::u16string_view text, std::u16string_view opening, std::u16string_view closing)
        : text_(text), opening_(opening), closing_(closing), chain_(text.size()) {}

    void Run(MinHeap openings, MinHeap closings, TagPairing& pairing) {
        pairing.removed.assign(text_.size(), false);
        while (!openings.empty() && !closings.empty() && openings.top() < closings.top()) {
            const std::size_t opening = openings.top();
            const std::size_t closing = closings.top();
            openings.pop();
            closings.pop();
            const std::size_t openingLast = chain_.Advance(opening, opening_.size() - 1);
            pairing.styled.emplace_back(openingLast + 1, closing);
            const std::size_t afterClosing =
                chain_.Remove(closing, closing_.size(), pairing.removed);
            const std::size_t afterOpening =
                chain_.Remove(opening, opening_.size(), pairing.removed);
            joined_.clear();
            FindJoinedTags(afterClosing, openings, closings);
            if (afterOpening != afterClosing) FindJoinedTags(afterOpening, openings, closings);
        }
    }

  private:
    static constexpr std::size_t kWindowSide = 8;  // the longest tag less one

    // Tags that the deletion joined across the gap before the live character right.
    void FindJoinedTags(std::size_t right, MinHeap& openings, MinHeap& closings) {
        std::array<std::size_t, 2 * kWindowSide> window{};
        std::size_t before = 0;
        for (std::size_t position = chain_.Before(right); position != kNone && before < kWindowSide;
             position = chain_.Before(position))
            window[before++] = position;
        std::reverse(window.begin(), window.begin() + static_cast<std::ptrdiff_t>(before));
        std::size_t size = before;
        for (std::size_t position = right; position != kNone && size < window.size();
             position = chain_.Next(position))
            window[size++] = position;
        FindSpanning(window, before, size, opening_, openings);
        FindSpanning(window, before, size, closing_, closings);
    }

    void FindSpanning(const std::array<std::size_t, 2 * kWindowSide>& window, std::size_t before,
                      std::size_t size, std::u16string_view tag, MinHeap& heap) {
        const std::size_t first = before >= tag.size() ? before - tag.size() + 1 : 0;
        for (std::size_t start = first; start < before && start + tag.size() <= size; ++start) {
            bool matches = true;
            for (std::size_t offset = 0; offset < tag.size() && matches; ++offset)
                matches = text_[window[start + offset]] == tag[offset];
            if (!matches ||
                std::find(joined_.begin(), joined_.end(), window[start]) != joined_.end())
                continue;
            joined_.push_back(window[start]);
            heap.push(window[start]);
        }
    }

    std::u16string_view text_;
    std::u16string_view opening_;
    std::u16string_view closing_;
    LiveChain chain_;
    std::vector<std::size_t> joined_;
};

}  // namespace

TagPairing PairTags(std::u16string_view text, std::u16string_view opening,
                    std::u16string_view closing) {
    TagPairing pairing;
    MinHeap openings = Occurrences(text, opening);
    MinHeap closings = Occurrences(text, closing);
    if (openings.empty() || closings.empty() || closings.top() < openings.top()) return pairing;
    PairSearch(text, opening, closing).Run(std::move(openings), std::move(closings), pairing);
    return pairing;
}

}  // namespace tessarin
