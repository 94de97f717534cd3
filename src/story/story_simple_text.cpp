#include "story/story_simple_text.h"

#include <cstdint>
#include <vector>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_escape.h"
#include "story/rescue_attribute_cut.h"
#include "story/tag_pair_search.h"

namespace tessarin {
namespace {

constexpr std::int32_t kSuperscriptOffset = 100;
constexpr std::int32_t kSuperscriptSizeReduction = 3;

// The formats that the rescue gives, one bit each, kept per character until the boxes are
// cut apart.
enum RescueFormat : std::uint8_t {
    kBold = 1 << 0,
    kItalic = 1 << 1,
    kUnderline = 1 << 2,
    kInter1 = 1 << 3,
    kInter2 = 1 << 4,
    kInter3 = 1 << 5,
    kSuperscript = 1 << 6,
};
constexpr std::array<std::uint8_t, 3> kInterFormats = {kInter1, kInter2, kInter3};

struct RescueText {
    std::u16string characters;
    std::vector<std::uint8_t> formats;

    void Append(std::u16string_view text, std::uint8_t format) {
        characters += text;
        formats.insert(formats.end(), text.size(), format);
    }
    void Erase(std::size_t start, std::size_t length) {
        characters.erase(start, length);
        formats.erase(formats.begin() + static_cast<std::ptrdiff_t>(start),
                      formats.begin() + static_cast<std::ptrdiff_t>(start + length));
    }
    RescueText Slice(std::size_t start, std::size_t length) const {
        RescueText slice;
        slice.characters = characters.substr(start, length);
        const auto first = formats.begin() + static_cast<std::ptrdiff_t>(start);
        slice.formats.assign(first, first + static_cast<std::ptrdiff_t>(slice.characters.size()));
        return slice;
    }
};

// A tag that the rescue turns into a format switch or a character.
struct RescueTag {
    std::u16string_view tag;
    std::uint8_t switchOn = 0;
    std::uint8_t switchOff = 0;
    std::u16string_view characters;  // what stands for the tag in the text
};
constexpr std::array<RescueTag, 8> kRescueTags = {{
    {u"<p/>", 0, 0, u"\r\n"},
    {u"<b>", kBold, 0, u""},
    {u"</b>", 0, kBold, u""},
    {u"<i>", kItalic, 0, u""},
    {u"</i>", 0, kItalic, u""},
    {u"<u>", kUnderline, 0, u""},
    {u"</u>", 0, kUnderline, u""},
    {u"<euro/>", 0, 0, u"\u20AC"},
}};

const RescueTag* TagAt(std::u16string_view text, std::size_t position) {
    if (text[position] != u'<') return nullptr;
    for (const RescueTag& tag : kRescueTags) {
        if (text.substr(position).starts_with(tag.tag)) return &tag;
    }
    return nullptr;
}

// Text between two tags: the file's own line ends are no text, and the escapes are undone.
// No escape can reach across a tag, so each stretch is unescaped on its own.
void AppendPlain(std::u16string_view text, std::uint8_t format, RescueText& rescue) {
    std::u16string plain(text);
    std::erase_if(plain, [](char16_t c) { return c == u'\r' || c == u'\n'; });
    if (plain.find(u'&') != std::u16string::npos) {
        plain = Utf8ToUtf16(XmlUnescape(Utf16ToUtf8(plain)));
    }
    rescue.Append(plain, format);
}

RescueText ReadFormats(std::u16string_view body) {
    RescueText rescue;
    rescue.characters.reserve(body.size());
    rescue.formats.reserve(body.size());
    std::uint8_t format = 0;
    std::size_t textStart = 0;
    for (std::size_t position = 0; position < body.size();) {
        const RescueTag* tag = TagAt(body, position);
        if (tag == nullptr) {
            ++position;
            continue;
        }
        AppendPlain(body.substr(textStart, position - textStart), format, rescue);
        format = static_cast<std::uint8_t>((format | tag->switchOn) & ~tag->switchOff);
        rescue.Append(tag->characters, format);
        position += tag->tag.size();
        textStart = position;
    }
    AppendPlain(body.substr(textStart), format, rescue);
    return rescue;
}

void ApplyTagPairs(std::u16string_view opening, std::u16string_view closing, std::uint8_t style,
                   RescueText& rescue) {
    const TagPairing pairing = PairTags(rescue.characters, opening, closing);
    if (pairing.removed.empty()) return;
    std::vector<std::int32_t> depth(rescue.characters.size() + 1, 0);
    for (const auto& [first, end] : pairing.styled) {
        ++depth[first];
        --depth[end];
    }
    std::int32_t inside = 0;
    std::size_t kept = 0;
    for (std::size_t position = 0; position < rescue.characters.size(); ++position) {
        inside += depth[position];
        if (pairing.removed[position]) continue;
        rescue.characters[kept] = rescue.characters[position];
        rescue.formats[kept] =
            static_cast<std::uint8_t>(rescue.formats[position] | (inside > 0 ? style : 0));
        ++kept;
    }
    rescue.characters.resize(kept);
    rescue.formats.resize(kept);
}

void ApplyStylePairs(RescueText& rescue) {
    for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
        const char16_t digit = static_cast<char16_t>(u'1' + style);
        ApplyTagPairs(std::u16string(u"<inter") + digit + u">",
                      std::u16string(u"</inter") + digit + u">", kInterFormats[style], rescue);
    }
    ApplyTagPairs(u"<sup>", u"</sup>", kSuperscript, rescue);
}

std::u16string BoxTag(std::u16string_view prefix, int index) {
    return std::u16string(prefix) + static_cast<char16_t>(u'0' + index) + u">";
}

CharFormat ToCharFormat(std::uint8_t format, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    CharFormat result;
    result.bold = (format & (kBold | kInter1 | kInter2 | kInter3)) != 0;
    result.italic = (format & kItalic) != 0;
    result.underline = (format & kUnderline) != 0;
    // The styles are given in the order 1, 2, 3: the last one's colour stays.
    for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
        if (format & kInterFormats[style]) result.colour = settings.interColours[style];
    }
    if (format & kSuperscript) {
        result.offset = kSuperscriptOffset;
        result.fontSize = fontSize - kSuperscriptSizeReduction;
    }
    return result;
}

StyledText ToStyledText(const RescueText& rescue, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    StyledText text;
    const std::u16string_view characters = rescue.characters;
    for (std::size_t start = 0; start < characters.size();) {
        std::size_t end = start + 1;
        while (end < characters.size() && rescue.formats[end] == rescue.formats[start])
            ++end;
        text.Insert(text.Length(), characters.substr(start, end - start),
                    ToCharFormat(rescue.formats[start], settings, fontSize));
        start = end;
    }
    return text;
}

// Boxes 0 to 5 are cut out of the text; what remains is box 6.
std::array<RescueText, kTextBoxCount> SplitBoxes(RescueText rest) {
    std::array<RescueText, kTextBoxCount> boxes;
    for (int index = 0; index < kMainTextBox; ++index) {
        const std::u16string opening = BoxTag(u"<TextBox", index);
        const std::u16string closing = BoxTag(u"</TextBox", index);
        const std::size_t start = rest.characters.find(opening);
        const std::size_t end = rest.characters.find(closing);
        if (start == std::u16string::npos || end == std::u16string::npos || end < start) {
            continue;
        }
        boxes[index] = rest.Slice(start + opening.size(), end - start - opening.size());
        rest.Erase(start, end + closing.size() - start);
    }
    const std::u16string opening = BoxTag(u"<TextBox", kMainTextBox);
    const std::u16string closing = BoxTag(u"</TextBox", kMainTextBox);
    if (rest.characters.ends_with(closing)) {
        rest.Erase(rest.characters.size() - closing.size(), closing.size());
    }
    if (rest.characters.starts_with(opening)) rest.Erase(0, opening.size());
    boxes[kMainTextBox] = std::move(rest);
    return boxes;
}

// The encoding that the prolog names, in capitals; empty when it names none.
std::string DeclaredEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    const std::size_t name = declaration.find("encoding");
    if (name == std::string_view::npos) return {};
    const std::size_t open = declaration.find_first_of("\"'", name);
    if (open == std::string_view::npos) return {};
    const std::size_t close = declaration.find(declaration[open], open + 1);
    if (close == std::string_view::npos) return {};
    std::string encoding(declaration.substr(open + 1, close - open - 1));
    for (char& c : encoding) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return encoding;
}

bool DeclaresWindows1252(std::string_view bytes) {
    const std::string encoding = DeclaredEncoding(bytes);
    for (const std::string_view name :
         {"ISO-8859-1", "ISO_8859-1", "ISO8859-1", "LATIN1", "WINDOWS-1252", "CP1252"}) {
        if (encoding == name) return true;
    }
    return false;
}

}  // namespace

std::u16string DecodeStoryFileText(std::string_view bytes) {
    if (DeclaresWindows1252(bytes)) return Utf8ToUtf16(Windows1252ToUtf8(bytes));
    return Utf8ToUtf16(bytes);
}

std::optional<RescuedBoxes> RescueStoryBoxes(
    std::u16string_view fileText, const MarkupSettings& settings,
    const std::array<std::int32_t, kTextBoxCount>& fontSizes) {
    constexpr std::u16string_view kBodyStart = u"<Body>";
    const std::size_t bodyStart = fileText.find(kBodyStart);
    if (bodyStart == std::u16string_view::npos) return std::nullopt;
    const std::size_t textStart = bodyStart + kBodyStart.size();
    const std::size_t bodyEnd = fileText.find(u"</Body>", textStart);
    if (bodyEnd == std::u16string_view::npos) return std::nullopt;

    std::u16string body =
        CutAttributeMarkers(fileText.substr(textStart, bodyEnd - textStart), u" CharCount=\"");
    body = CutAttributeMarkers(body, u" WordCount=\"");
    RescueText rescue = ReadFormats(body);
    ApplyStylePairs(rescue);

    std::array<RescueText, kTextBoxCount> parts = SplitBoxes(std::move(rescue));
    RescuedBoxes boxes;
    for (int index = 0; index < kTextBoxCount; ++index) {
        boxes[index] = ToStyledText(parts[index], settings, fontSizes[index]);
    }
    return boxes;
}

}  // namespace tessarin
