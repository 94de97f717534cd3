#include "story/story_plain_text.h"

#include <array>
#include <string_view>

#include "common/utf8.h"
#include "common/xml_escape.h"
#include "config/configuration.h"
#include "story/markup_read_tokens.h"
#include "story/markup_text_passes.h"

namespace tessarin {
namespace {

constexpr std::u16string_view kLineBreak = u"\r\n";

struct Replacement {
    std::u16string_view from;
    std::u16string_view to;
};

// In this order; the format tags go without a trace.
constexpr std::array<Replacement, 20> kPlainTextReplacements = {{
    {u"<euro/>", u"\u20AC"}, {u"<oe/>", u"\u0153"}, {u"<OE/>", u"\u0152"}, {u"<p/>", kLineBreak},
    {u"<b>", u""},           {u"</b>", u""},        {u"<i>", u""},         {u"</i>", u""},
    {u"<u>", u""},           {u"</u>", u""},        {u"<sup>", u""},       {u"</sup>", u""},
    {u"<inter1>", u""},      {u"</inter1>", u""},   {u"<inter2>", u""},    {u"</inter2>", u""},
    {u"<inter3>", u""},      {u"</inter3>", u""},   {u"<note>", u""},      {u"</note>", u""},
}};

void RemoveNoteChildren(const XmlNode& box) {
    for (XmlNode note : box.SelectNodes("note"))
        note.Remove();
}

std::string BoxPlainText(XmlNode box, int index, PlainTextTabs tabs) {
    RemoveNoteChildren(box);
    box.RemoveAllAttributes();
    std::u16string text = Utf8ToUtf16(box.Xml());
    ExpandEmptyInlineElements(text);
    std::erase_if(text, [](char16_t c) { return c == u'\t' || c == u'\r' || c == u'\n'; });
    const std::u16string name = u"TextBox" + std::u16string(1, static_cast<char16_t>(u'0' + index));
    ReplaceAll(text, u"<" + name + u"/>", u"");
    ReplaceAll(text, u"<" + name + u">", u"");
    ReplaceAll(text, u"</" + name + u">", u"");
    for (const Replacement& replacement : kPlainTextReplacements) {
        ReplaceAll(text, replacement.from, replacement.to);
    }
    if (tabs == PlainTextTabs::AsTab) ReplaceAll(text, u"<tab/>", u"\t");
    return XmlUnescape(Utf16ToUtf8(text)) + "\r\n";
}

}  // namespace

std::string StoryPlainText(const XmlNode& root, PlainTextTabs tabs) {
    const XmlNode body = root.SelectSingleNode("Body");
    std::string plain;
    for (int index = 0; index < kTextBoxCount; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        if (box) plain += BoxPlainText(box, index, tabs);
    }
    return plain;
}

}  // namespace tessarin
