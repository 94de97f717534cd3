#include "story/inline_tags.h"

namespace tessarin {

std::optional<InlineTagMatch> MatchInlineTag(std::u16string_view text, std::size_t position) {
    if (position >= text.size() || text[position] != u'<') return std::nullopt;
    const std::u16string_view rest = text.substr(position);
    for (std::size_t index = 0; index < kInlineTagCount; ++index) {
        const auto tag = static_cast<InlineTag>(index);
        if (rest.starts_with(kInlineTagOpening[index]))
            return InlineTagMatch{tag, false, kInlineTagOpening[index].size()};
        if (rest.starts_with(kInlineTagClosing[index]))
            return InlineTagMatch{tag, true, kInlineTagClosing[index].size()};
    }
    return std::nullopt;
}

}  // namespace tessarin
