#include "story/markup_read_tokens.h"

#include <array>

#include "story/inline_tags.h"

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
    std::u16string expanded;
    std::size_t copied = 0;
    for (std::size_t position = tags.find(u'<'); position != std::u16string::npos;
         position = tags.find(u'<', position + 1)) {
        const std::u16string_view rest = std::u16string_view(tags).substr(position);
        for (std::size_t index = 0; index < kInlineTagCount; ++index) {
            // "<b>" without its ">" and then "/>".
            const std::u16string_view opening = kInlineTagOpening[index];
            const std::u16string_view name = opening.substr(0, opening.size() - 1);
            if (!rest.starts_with(name) || rest.substr(name.size(), 2) != u"/>") continue;
            expanded.append(tags, copied, position - copied);
            expanded += opening;
            expanded += kInlineTagClosing[index];
            copied = position + name.size() + 2;
            break;
        }
    }
    if (copied == 0) return;
    expanded.append(tags, copied);
    tags.swap(expanded);
}

}  // namespace tessarin
