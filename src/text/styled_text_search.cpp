#include "text/styled_text_search.h"

#include "text/styled_text_case.h"

namespace tessarin {

PatternMatcher::PatternMatcher(std::u16string_view pattern, bool matchCase)
    : matchCase_(matchCase), fallback_(pattern.size(), 0) {
    pattern_.reserve(pattern.size());
    for (char16_t unit : pattern)
        pattern_.push_back(Comparable(unit));
    std::size_t border = 0;
    for (std::size_t i = 1; i < pattern_.size(); ++i) {
        while (border > 0 && pattern_[i] != pattern_[border])
            border = fallback_[border - 1];
        if (pattern_[i] == pattern_[border]) ++border;
        fallback_[i] = border;
    }
}

char16_t PatternMatcher::Comparable(char16_t unit) const {
    return matchCase_ ? unit : FoldCaseUnit(unit);
}

bool PatternMatcher::Feed(char16_t unit) {
    const char16_t comparable = Comparable(unit);
    while (matched_ > 0 && pattern_[matched_] != comparable)
        matched_ = fallback_[matched_ - 1];
    if (pattern_[matched_] == comparable) ++matched_;
    if (matched_ < pattern_.size()) return false;
    matched_ = fallback_[matched_ - 1];
    return true;
}

}  // namespace tessarin
