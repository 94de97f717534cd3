#include "story/markup_formats.h"

#include <algorithm>
#include <utility>

#include "common/utf8.h"
#include "common/xml_escape.h"
#include "story/tag_pair_search.h"

namespace tessarin {
namespace {

constexpr OleColour kNonBreakingMarkColour = Rgb(175, 175, 175);
constexpr std::int32_t kSuperscriptOffset = 100;
constexpr std::int32_t kSuperscriptSizeReduction = 3;
constexpr std::array<std::uint16_t, 3> kInterFormats = {kMarkupInter1, kMarkupInter2,
                                                        kMarkupInter3};

CharFormat ToCharFormat(std::uint16_t format, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    CharFormat result;
    result.bold = (format & (kMarkupBold | kMarkupInter1 | kMarkupInter2 | kMarkupInter3)) != 0;
    result.italic = (format & kMarkupItalic) != 0;
    result.underline = (format & kMarkupUnderline) != 0;
    // A note's wavy underline is kept apart from the underline, so that underlined text
    // around an anchor stays underlined after it.
    if (format & kMarkupNote) {
        result.isProtected = true;
        result.highlighted = true;
        result.highlight = settings.bookmarksColour;
        result.waveUnderline = true;
    }
    if (format & kMarkupNonBreakingMark) result.colour = kNonBreakingMarkColour;
    // The styles were given in the order 1, 2, 3: the last one's colour stays.
    for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
        if (format & kInterFormats[style]) result.colour = settings.interColours[style];
    }
    if (format & kMarkupSuperscript) {
        result.offset = kSuperscriptOffset;
        result.fontSize = fontSize - kSuperscriptSizeReduction;
    }
    return result;
}

}  // namespace

void AppendUnescaped(std::u16string_view text, std::uint16_t format, FormattedUnits& units) {
    if (text.find(u'&') == std::u16string_view::npos) {
        units.Append(text, format);
        return;
    }
    units.Append(Utf8ToUtf16(XmlUnescape(Utf16ToUtf8(text))), format);
}

void ApplyTagPairs(std::u16string_view opening, std::u16string_view closing, std::uint16_t style,
                   FormattedUnits& units) {
    const TagPairing pairing = PairTags(units.characters, opening, closing);
    if (pairing.removed.empty()) return;
    // Where each styled range starts (+1) and ends (-1), in position order.
    std::vector<std::pair<std::size_t, int>> edges;
    for (const auto& [first, end] : pairing.styled) {
        edges.emplace_back(first, 1);
        edges.emplace_back(end, -1);
    }
    std::sort(edges.begin(), edges.end());
    auto edge = edges.begin();
    int inside = 0;
    std::size_t kept = 0;
    for (std::size_t position = 0; position < units.characters.size(); ++position) {
        for (; edge != edges.end() && edge->first == position; ++edge)
            inside += edge->second;
        if (pairing.removed[position]) continue;
        units.characters[kept] = units.characters[position];
        units.formats[kept] =
            static_cast<std::uint16_t>(units.formats[position] | (inside > 0 ? style : 0));
        ++kept;
    }
    units.characters.resize(kept);
    units.formats.resize(kept);
}

void ApplyInterStylePairs(FormattedUnits& units) {
    for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
        const char16_t digit = static_cast<char16_t>(u'1' + style);
        ApplyTagPairs(std::u16string(u"<inter") + digit + u">",
                      std::u16string(u"</inter") + digit + u">", kInterFormats[style], units);
    }
}

StyledText ToStyledText(const FormattedUnits& units, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    StyledText text;
    const std::u16string_view characters = units.characters;
    for (std::size_t start = 0; start < characters.size();) {
        std::size_t end = start + 1;
        while (end < characters.size() && units.formats[end] == units.formats[start])
            ++end;
        text.Insert(text.Length(), characters.substr(start, end - start),
                    ToCharFormat(units.formats[start], settings, fontSize));
        start = end;
    }
    return text;
}

}  // namespace tessarin
