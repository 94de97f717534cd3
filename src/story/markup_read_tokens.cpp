#include "story/markup_read_tokens.h"

#include <array>

#include "story/inline_tags.h"
#include "story/markup_text_passes.h"

namespace tessarin {
namespace {

struct TokenForm {
    std::u16string_view tag;
    ReadToken token;
    std::size_t measuredLength;
};

// "<p></p>" is tried before "<p/>", as reading has always done.
constexpr std::array<TokenForm, 14> kTokenForms = {{
    {u"<p></p>", ReadToken::Paragraph, 5},
    {u"<p/>", ReadToken::Paragraph, 5},
    {u"<b>", ReadToken::BoldOn, 3},
    {u"</b>", ReadToken::BoldOff, 4},
    {u"<i>", ReadToken::ItalicOn, 3},
    {u"</i>", ReadToken::ItalicOff, 4},
    {u"<u>", ReadToken::UnderlineOn, 4},
    {u"</u>", ReadToken::UnderlineOff, 8},
    {u"<tab/>", ReadToken::Tab, 1},
    {u"<note>", ReadToken::NoteOn, 6},
    {u"</note>", ReadToken::NoteOff, 7},
    {u"<euro/>", ReadToken::Euro, 7},
    {u"<oe/>", ReadToken::SmallOe, 5},
    {u"<OE/>", ReadToken::CapitalOe, 5},
}};

}  // namespace

std::optional<ReadTokenMatch> MatchReadToken(std::u16string_view tags, std::size_t position) {
    if (position >= tags.size() || tags[position] != u'<') return std::nullopt;
    const std::u16string_view rest = tags.substr(position);
    for (const TokenForm& form : kTokenForms) {
        if (rest.starts_with(form.tag))
            return ReadTokenMatch{form.token, form.tag.size(), form.measuredLength};
    }
    return std::nullopt;
}

void ExpandEmptyInlineElements(std::u16string& tags) {
    if (tags.find(u"/>") == std::u16string::npos) return;
    for (std::size_t index = 0; index < kInlineTagCount; ++index) {
        const std::u16string_view opening = kInlineTagOpening[index];
        std::u16string empty(opening.substr(0, opening.size() - 1));
        empty += u"/>";
        std::u16string pair(opening);
        pair += kInlineTagClosing[index];
        ReplaceAll(tags, empty, pair);
    }
}

}  // namespace tessarin
