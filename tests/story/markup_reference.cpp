#include "markup_reference.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_escape.h"

namespace tessarin::testing {
namespace {

// The replacement rows, "from to" separated by ", ", each applied over the whole body in turn.
constexpr std::u16string_view kRows =
    u"</b></i> </i></b>, <p/></i></b> </i></b><p/>, </b></u> </u></b>, "
    u"<p/></u></b> </u></b><p/>, </sup></i></u> </u></i></sup>, </i></u> </u></i>, "
    u"<p/></u></i> </u></i><p/>, <inter1></b> </b><inter1>, <inter1></i> </i><inter1>, "
    u"<inter1></u> </u><inter1>, </inter1></b> </b></inter1>, </inter1></i> </i></inter1>, "
    u"</inter1></u> </u></inter1>, </inter1></sup> </sup></inter1>, "
    u"<inter2></b> </b><inter2>, <inter2></i> </i><inter2>, <inter2></u> </u><inter2>, "
    u"</inter2></b> </b></inter2>, </inter2></i> </i></inter2>, </inter2></u> </u></inter2>, "
    u"</inter2></sup> </sup></inter2>, <inter3></b> </b><inter3>, <inter3></i> </i><inter3>, "
    u"<inter3></u> </u><inter3>, </inter3></b> </b></inter3>, </inter3></i> </i></inter3>, "
    u"</inter3></u> </u></inter3>, </inter3></sup> </sup></inter3>, "
    u"<inter1></inter2> </inter2><inter1>, <inter1></inter3> </inter3><inter1>, "
    u"<inter1></note> </note><inter1>, <inter2></inter1> </inter1><inter2>, "
    u"<inter2></inter3> </inter3><inter2>, <inter2></note> </note><inter2>, "
    u"<inter3></inter1> </inter1><inter3>, <inter3></inter2> </inter2><inter3>, "
    u"<inter3></note> </note><inter3>, </sup></i></b> </i></b></sup>, </sup></b> </b></sup>, "
    u"</sup></i> </i></sup>, </sup></u> </u></sup>, <p/></i> </i><p/>, <p/></b> </b><p/>, "
    u"<p/></u> </u><p/>, <p/></inter1> </inter1><p/>, <p/></inter2> </inter2><p/>, "
    u"<p/></inter3> </inter3><p/>";

constexpr std::u16string_view kNoteRows =
    u"<note></i> </i><note>, <i></note> </note><i>, <note></b> </b><note>, "
    u"<b></note> </note><b>, <note></u> </u><note>, <u></note> </note><u>";

// Characters written in a form of their own.
constexpr std::pair<char16_t, std::u16string_view> kCharacterForms[] = {
    {0xB7, u"&#160;"}, {u'\t', u"<tab/>"},  {u'&', u"&amp;"}, {u'\'', u"&apos;"},
    {u'"', u"&quot;"}, {u'<', u"&lt;"},     {u'>', u"&gt;"},  {0x152, u"<OE/>"},
    {0x153, u"<oe/>"}, {0x20AC, u"<euro/>"}};

std::u16string Blanks(std::size_t count) {
    return std::u16string(count, u' ');
}

// Replaces every occurrence, left to right, not looking again at what it wrote.
std::u16string LiteralReplace(std::u16string text, std::u16string_view from,
                              std::u16string_view to) {
    std::u16string result;
    std::size_t start = 0;
    for (std::size_t hit = text.find(from); hit != std::u16string::npos;
         hit = text.find(from, start)) {
        result += text.substr(start, hit - start);
        result += to;
        start = hit + from.size();
    }
    return result + text.substr(start);
}

// The words of a box, by deleting protected characters from the last to the first and running
// the blank replacements one by one.
std::int32_t ReferenceWordCount(const StyledText& text) {
    StyledText draft = text;
    for (std::size_t position = draft.Length(); position-- > 0;) {
        if (draft.FormatAt(position).isProtected) draft.Erase(position, 1);
    }
    std::u16string plain = draft.Text();
    for (const char16_t c : std::u16string_view(u"\r\n,;:.?!'\"")) {
        for (char16_t& unit : plain) {
            if (unit == c) unit = u' ';
        }
    }
    for (std::size_t run = 8; run >= 2; --run)
        plain = LiteralReplace(plain, Blanks(run), u" ");
    plain = TrimBlanks(plain);
    if (plain.empty()) return 0;
    return static_cast<std::int32_t>(std::count(plain.begin(), plain.end(), u' ') + 1);
}

class BodyWriter {
  public:
    BodyWriter(std::u16string& body, int box, const MarkupSettings& settings)
        : body_(body), box_(box), settings_(settings) {}

    void Character(const CharFormat& format, char16_t c) {
        const auto& colours = settings_.interColours;
        const bool anyInter = format.colour == colours[0] || format.colour == colours[1] ||
                              format.colour == colours[2];
        Toggle(inter1_, box_ == 6 && format.colour == colours[0], u"inter1");
        Toggle(inter2_, box_ == 6 && format.colour == colours[1], u"inter2");
        Toggle(inter3_, box_ == 6 && format.colour == colours[2], u"inter3");
        Toggle(sup_, format.offset > 0, u"sup");
        if (!anyInter) Toggle(bold_, format.bold, u"b");
        Toggle(note_, format.isProtected, u"note");
        Toggle(italic_, format.italic, u"i");
        if (!format.isProtected) Toggle(underline_, format.underline, u"u");
        if (c == u'\r' || c == u'\n') {
            if (!emptySeen_) {
                emptySeen_ = true;
                return;
            }
            emptySeen_ = false;
            Toggle(bold_, false, u"b");
            Toggle(italic_, false, u"i");
            Toggle(underline_, false, u"u");
            Toggle(sup_, false, u"sup");
            body_ += u"<p/>";
            return;
        }
        emptySeen_ = false;
        const auto form = std::find_if(std::begin(kCharacterForms), std::end(kCharacterForms),
                                       [c](const auto& entry) { return entry.first == c; });
        if (form != std::end(kCharacterForms))
            body_ += form->second;
        else
            body_ += c;
    }

    void End() {
        Toggle(inter1_, false, u"inter1");
        Toggle(inter2_, false, u"inter2");
        Toggle(inter3_, false, u"inter3");
        Toggle(bold_, false, u"b");
        Toggle(italic_, false, u"i");
        Toggle(underline_, false, u"u");
        Toggle(sup_, false, u"sup");
        Toggle(note_, false, u"note");
    }

  private:
    void Toggle(bool& state, bool on, std::u16string_view name) {
        if (state == on) return;
        state = on;
        body_ += on ? u"<" : u"</";
        body_ += name;
        body_ += u">";
    }

    std::u16string& body_;
    int box_;
    const MarkupSettings& settings_;
    bool inter1_ = false, inter2_ = false, inter3_ = false, sup_ = false, bold_ = false,
         note_ = false, italic_ = false, underline_ = false, emptySeen_ = false;
};

std::u16string ApplyRows(std::u16string body, std::u16string_view rows) {
    for (std::size_t start = 0; start < rows.size();) {
        const std::size_t end = std::min(rows.find(u", ", start), rows.size());
        const std::u16string_view row = rows.substr(start, end - start);
        const std::size_t blank = row.find(u' ');
        body = LiteralReplace(body, row.substr(0, blank), row.substr(blank + 1));
        start = end + 2;
    }
    return body;
}

std::string Encode(const std::u16string& text, bool utf8) {
    return utf8 ? EncodeUtf8Bytes(text) : Utf8ToWindows1252(Utf16ToUtf8(text));
}

}  // namespace

std::u16string TrimBlanks(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return std::u16string(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

std::u16string ReferenceBodyPasses(std::u16string body, bool removeDuplicateSpaces) {
    body = ApplyRows(body, kRows);
    body = LiteralReplace(body, u"<p/>", u"<p/>\r\n");
    body = LiteralReplace(body, u"\t", u"");
    body = ApplyRows(body, kNoteRows);
    if (removeDuplicateSpaces) {
        for (std::size_t run = 6; run >= 2; --run)
            body = TrimBlanks(LiteralReplace(body, Blanks(run), u" "));
    }
    return body;
}

std::string ReferenceStoryTextToTags(const StoryBodyInput& input, bool nest) {
    std::u16string body;
    for (int box = 0; box < 7; ++box) {
        const MarkupBox& source = input.boxes[static_cast<std::size_t>(box)];
        if (source.text == nullptr || source.text->Empty()) continue;
        body += u"<TextBox" + Utf8ToUtf16(std::to_string(box)) + u" CharCount=\"" +
                Utf8ToUtf16(std::to_string(source.charCount)) + u"\" WordCount=\"" +
                Utf8ToUtf16(std::to_string(ReferenceWordCount(*source.text))) + u"\" Name=\"" +
                Utf8ToUtf16(source.caption) + u"\">";
        StyledText draft = *source.text;
        for (auto hit = draft.Text().find(u"\u00B6\r\n"); hit != std::u16string::npos;
             hit = draft.Text().find(u"\u00B6\r\n", hit)) {
            draft.Erase(hit, 1);
        }
        BodyWriter writer(body, box, input.settings);
        for (std::size_t position = 0; position < draft.Length(); ++position)
            writer.Character(draft.FormatAt(position), draft.CharAt(position));
        writer.End();
        while (body.ends_with(u"<p/>"))
            body.resize(body.size() - 4);
        body += u"</TextBox" + Utf8ToUtf16(std::to_string(box)) + u">\r\n";
    }
    body = ReferenceBodyPasses(body, input.settings.removeDuplicateSpaces);
    if (nest) body = NestInlineTags(body);
    std::string bytes = Encode(body, input.settings.utf8);
    if (!input.signature.empty()) {
        bytes += input.initialsSignature ? "<Signature Type=\"I\">" : "<Signature>";
        bytes += Encode(Utf8ToUtf16(XmlEscape(input.signature)), input.settings.utf8);
        bytes += "</Signature>";
    }
    return bytes;
}

ReferencePairing ReferencePairTags(std::u16string text, std::u16string_view opening,
                                   std::u16string_view closing) {
    std::u16string styled(text.size(), u'0');
    for (;;) {
        const auto open = text.find(opening);
        const auto close = text.find(closing);
        if (open == std::u16string::npos || close == std::u16string::npos || close < open) break;
        for (auto position = open + opening.size(); position < close; ++position)
            styled[position] = u'1';
        text.erase(close, closing.size());
        styled.erase(close, closing.size());
        text.erase(open, opening.size());
        styled.erase(open, opening.size());
    }
    return {text, styled};
}

}  // namespace tessarin::testing
