#include "story/tag_pair_search.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
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

// The positions that deleted tags took, as stretches that neither overlap nor touch, and
// the live characters around them.
class RemovedStretches {
  public:
    explicit RemovedStretches(std::size_t size) : size_(size) {}

    // The smallest live position at or after position; kNone past the end.
    std::size_t LiveFrom(std::size_t position) const {
        if (position >= size_) return kNone;
        const auto stretch = Holding(position);
        if (stretch == stretches_.end()) return position;
        return stretch->second < size_ ? stretch->second : kNone;
    }

    // The largest live position at or before position; kNone before the start.
    std::size_t LiveUpTo(std::size_t position) const {
        if (position == kNone) return kNone;
        const auto stretch = Holding(position);
        if (stretch == stretches_.end()) return position;
        return stretch->first > 0 ? stretch->first - 1 : kNone;
    }

    // The position of the live character steps characters after a live position.
    std::size_t Advance(std::size_t position, std::size_t steps) const {
        while (steps-- > 0)
            position = LiveFrom(position + 1);
        return position;
    }

    // The whole stretch that holds a removed position.
    std::pair<std::size_t, std::size_t> StretchOf(std::size_t position) const {
        return *Holding(position);
    }

    // Marks [first, end) removed, joining the stretches it overlaps or touches.
    void Remove(std::size_t first, std::size_t end) {
        auto next = stretches_.upper_bound(first);
        if (next != stretches_.begin()) {
            const auto before = std::prev(next);
            if (before->second >= first) {
                first = before->first;
                end = std::max(end, before->second);
                stretches_.erase(before);
            }
        }
        while (next != stretches_.end() && next->first <= end) {
            end = std::max(end, next->second);
            next = stretches_.erase(next);
        }
        stretches_.emplace(first, end);
    }

    std::vector<bool> Marks() const {
        std::vector<bool> marks(size_, false);
        for (const auto& [first, end] : stretches_)
            std::fill(marks.begin() + static_cast<std::ptrdiff_t>(first),
                      marks.begin() + static_cast<std::ptrdiff_t>(end), true);
        return marks;
    }

  private:
    std::map<std::size_t, std::size_t>::const_iterator Holding(std::size_t position) const {
        auto stretch = stretches_.upper_bound(position);
        if (stretch == stretches_.begin()) return stretches_.end();
        --stretch;
        return stretch->second > position ? stretch : stretches_.end();
    }

    std::size_t size_;
    std::map<std::size_t, std::size_t> stretches_;  // first -> end
};

class PairSearch {
  public:
    PairSearch(std::u16string_view text, std::u16string_view opening, std::u16string_view closing)
        : text_(text), opening_(opening), closing_(closing), removed_(text.size()) {}

    void Run(MinHeap openings, MinHeap closings, TagPairing& pairing) {
        while (!openings.empty() && !closings.empty() && openings.top() < closings.top()) {
            const std::size_t opening = openings.top();
            const std::size_t closing = closings.top();
            openings.pop();
            closings.pop();
            const std::size_t openingLast = removed_.Advance(opening, opening_.size() - 1);
            const std::size_t closingLast = removed_.Advance(closing, closing_.size() - 1);
            pairing.styled.emplace_back(openingLast + 1, closing);
            removed_.Remove(closing, closingLast + 1);
            removed_.Remove(opening, openingLast + 1);
            const auto aroundOpening = removed_.StretchOf(opening);
            const auto aroundClosing = removed_.StretchOf(closing);
            joined_.clear();
            FindJoinedTags(aroundClosing, openings, closings);
            if (aroundOpening != aroundClosing) FindJoinedTags(aroundOpening, openings, closings);
        }
        pairing.removed = removed_.Marks();
    }

  private:
    static constexpr std::size_t kWindowSide = 8;  // the longest tag less one

    // Tags that the deletion joined across the removed stretch.
    void FindJoinedTags(std::pair<std::size_t, std::size_t> stretch, MinHeap& openings,
                        MinHeap& closings) {
        std::array<std::size_t, 2 * kWindowSide> window{};
        std::size_t before = 0;
        for (std::size_t position =
                 removed_.LiveUpTo(stretch.first == 0 ? kNone : stretch.first - 1);
             position != kNone && before < kWindowSide;
             position = removed_.LiveUpTo(position == 0 ? kNone : position - 1))
            window[before++] = position;
        std::reverse(window.begin(), window.begin() + static_cast<std::ptrdiff_t>(before));
        std::size_t size = before;
        for (std::size_t position = removed_.LiveFrom(stretch.second);
             position != kNone && size < window.size(); position = removed_.LiveFrom(position + 1))
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
    RemovedStretches removed_;
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
