#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// Finds a pattern in a stream of code units fed one at a time, each unit looked at once
// (Knuth-Morris-Pratt), optionally ignoring case unit by unit.
class PatternMatcher {
  public:
    // The pattern must not be empty.
    PatternMatcher(std::u16string_view pattern, bool matchCase);

    // Takes the next unit; true when the units fed so far end with the pattern.
    bool Feed(char16_t unit);

  private:
    char16_t Comparable(char16_t unit) const;

    bool matchCase_;
    std::u16string pattern_;
    std::vector<std::size_t> fallback_;  // for each prefix: its longest proper border
    std::size_t matched_ = 0;
};

}  // namespace tessarin
