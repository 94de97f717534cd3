#include "story/story_simple_text.h"

#include <cstdint>
#include <vector>

#include "common/utf8.h"
#include "common/windows1252.h"
#include "common/xml_document.h"
#include "story/markup_formats.h"
#include "story/rescue_attribute_cut.h"

namespace tessarin {
namespace {

// Cuts a stretch out of the units.
void EraseUnits(FormattedUnits& units, std::size_t start, std::size_t length) {
    units.characters.erase(start, length);
    units.formats.erase(units.formats.begin() + static_cast<std::ptrdiff_t>(start),
                        units.formats.begin() + static_cast<std::ptrdiff_t>(start + length));
}

FormattedUnits SliceUnits(const FormattedUnits& units, std::size_t start, std::size_t length) {
    FormattedUnits slice;
    slice.characters = units.characters.substr(start, length);
    const auto first = units.formats.begin() + static_cast<std::ptrdiff_t>(start);
    slice.formats.assign(first, first + static_cast<std::ptrdiff_t>(slice.characters.size()));
    return slice;
}

// A tag that the rescue turns into a format switch or a character.
struct RescueTag {
    std::u16string_view tag;
    std::uint16_t switchOn = 0;
    std::uint16_t switchOff = 0;
    std::u16string_view characters;  // what stands for the tag in the text
};
constexpr std::array<RescueTag, 8> kRescueTags = {{
    {u"<p/>", 0, 0, u"\r\n"},
    {u"<b>", kMarkupBold, 0, u""},
    {u"</b>", 0, kMarkupBold, u""},
    {u"<i>", kMarkupItalic, 0, u""},
    {u"</i>", 0, kMarkupItalic, u""},
    {u"<u>", kMarkupUnderline, 0, u""},
    {u"</u>", 0, kMarkupUnderline, u""},
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
void AppendWithoutLineEnds(std::u16string_view text, std::uint16_t format, FormattedUnits& rescue) {
    std::u16string plain(text);
    std::erase_if(plain, [](char16_t c) { return c == u'\r' || c == u'\n'; });
    AppendUnescaped(plain, format, rescue);
}

FormattedUnits ReadFormats(std::u16string_view body) {
    FormattedUnits rescue;
    rescue.characters.reserve(body.size());
    rescue.formats.reserve(body.size());
    std::uint16_t format = 0;
    std::size_t textStart = 0;
    for (std::size_t position = 0; position < body.size();) {
        const RescueTag* tag = TagAt(body, position);
        if (tag == nullptr) {
            ++position;
            continue;
        }
        AppendWithoutLineEnds(body.substr(textStart, position - textStart), format, rescue);
        format = static_cast<std::uint16_t>((format | tag->switchOn) & ~tag->switchOff);
        rescue.Append(tag->characters, format);
        position += tag->tag.size();
        textStart = position;
    }
    AppendWithoutLineEnds(body.substr(textStart), format, rescue);
    return rescue;
}

std::u16string BoxTag(std::u16string_view prefix, int index) {
    return std::u16string(prefix) + static_cast<char16_t>(u'0' + index) + u">";
}

// Boxes 0 to 5 are cut out of the text; what remains is box 6.
std::array<FormattedUnits, kTextBoxCount> SplitBoxes(FormattedUnits rest) {
    std::array<FormattedUnits, kTextBoxCount> boxes;
    for (int index = 0; index < kMainTextBox; ++index) {
        const std::u16string opening = BoxTag(u"<TextBox", index);
        const std::u16string closing = BoxTag(u"</TextBox", index);
        const std::size_t start = rest.characters.find(opening);
        const std::size_t end = rest.characters.find(closing);
        if (start == std::u16string::npos || end == std::u16string::npos || end < start) {
            continue;
        }
        boxes[index] = SliceUnits(rest, start + opening.size(), end - start - opening.size());
        EraseUnits(rest, start, end + closing.size() - start);
    }
    const std::u16string opening = BoxTag(u"<TextBox", kMainTextBox);
    const std::u16string closing = BoxTag(u"</TextBox", kMainTextBox);
    if (rest.characters.ends_with(closing)) {
        EraseUnits(rest, rest.characters.size() - closing.size(), closing.size());
    }
    if (rest.characters.starts_with(opening)) EraseUnits(rest, 0, opening.size());
    boxes[kMainTextBox] = std::move(rest);
    return boxes;
}

}  // namespace

std::u16string DecodeStoryFileText(std::string_view bytes) {
    if (IsWindows1252Family(DeclaredEncoding(bytes))) return Utf8ToUtf16(Windows1252ToUtf8(bytes));
    return Utf8ToUtf16(bytes);
}

bool HoldsRescuableText(std::u16string_view fileText) {
    bool visible = false;
    for (const char16_t unit : fileText) {
        if (unit == u'\t' || unit == u'\r' || unit == u'\n' || unit == u' ') continue;
        if (unit < u' ' || unit == 0x7F) return false;
        visible = true;
    }
    return visible;
}

RescuedBoxes RescuePlainText(std::u16string_view fileText) {
    std::u16string text;
    text.reserve(fileText.size());
    for (std::size_t position = 0; position < fileText.size(); ++position) {
        const char16_t unit = fileText[position];
        if (unit != u'\r' && unit != u'\n') {
            text += unit;
            continue;
        }
        text += u"\r\n";
        if (unit == u'\r' && position + 1 < fileText.size() && fileText[position + 1] == u'\n') {
            ++position;
        }
    }
    RescuedBoxes boxes;
    boxes[kMainTextBox] = StyledText(text);
    return boxes;
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
    FormattedUnits rescue = ReadFormats(body);
    ApplyInterStylePairs(rescue);
    ApplyTagPairs(u"<sup>", u"</sup>", kMarkupSuperscript, rescue);

    std::array<FormattedUnits, kTextBoxCount> parts = SplitBoxes(std::move(rescue));
    RescuedBoxes boxes;
    for (int index = 0; index < kTextBoxCount; ++index) {
        boxes[index] = ToStyledText(parts[index], settings, fontSizes[index]);
    }
    return boxes;
}

}  // namespace tessarin
