#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/utf8.h"
#include "story/char_count.h"
#include "story/markup_formats.h"
#include "story/markup_read_tokens.h"
#include "story/story_markup.h"

// Reading turns the tags into formats directly, character run by character run. The program
// this replaces built a rich-text string from the tags and let a rich-text control read it;
// a backslash or a brace in a story's text was then read as rich-text syntax. Without that
// string they are plain characters, as the writer meant them.

namespace tessarin {
namespace {

constexpr char16_t kNoBreakSpace = 0x00A0;
constexpr char16_t kMiddleDot = 0x00B7;

std::u16string AsciiUnits(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

void TrimBlanks(std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string::npos) {
        text.clear();
        return;
    }
    text.erase(text.find_last_not_of(u' ') + 1);
    text.erase(0, first);
}

// Deletes every occurrence, left to right, in place; what a deletion joins is not searched
// again.
void EraseAll(std::u16string& text, std::u16string_view what) {
    std::size_t hit = text.find(what);
    if (hit == std::u16string::npos) return;
    std::size_t write = hit;
    std::size_t read = hit;
    while (hit != std::u16string::npos) {
        std::copy(text.begin() + static_cast<std::ptrdiff_t>(read),
                  text.begin() + static_cast<std::ptrdiff_t>(hit),
                  text.begin() + static_cast<std::ptrdiff_t>(write));
        write += hit - read;
        read = hit + what.size();
        hit = text.find(what, read);
    }
    std::copy(text.begin() + static_cast<std::ptrdiff_t>(read), text.end(),
              text.begin() + static_cast<std::ptrdiff_t>(write));
    text.resize(write + text.size() - read);
}

// Line ends, tabs and the element's own tags go; what stays is the box's tag text.
std::u16string BoxTags(int index, std::string_view elementXml) {
    std::u16string tags = Utf8ToUtf16(elementXml);
    ExpandEmptyInlineElements(tags);
    std::erase_if(tags,
                  [](char16_t c) { return c == 0x2029 || c == u'\r' || c == u'\n' || c == u'\t'; });
    const std::u16string name = u"TextBox" + AsciiUnits(std::to_string(index));
    EraseAll(tags, u"<" + name + u">");
    EraseAll(tags, u"</" + name + u">");
    EraseAll(tags, u"<" + name + u"/>");
    TrimBlanks(tags);
    while (tags.ends_with(u"<p/>"))
        tags.resize(tags.size() - 4);
    return tags;
}

FormattedUnits TagsToFormats(std::u16string_view tags) {
    FormattedUnits read;
    read.characters.reserve(tags.size());
    read.formats.reserve(tags.size());
    std::uint16_t format = 0;
    std::size_t textStart = 0;
    for (std::size_t position = 0; position < tags.size();) {
        const auto match = MatchReadToken(tags, position);
        if (!match) {
            ++position;
            continue;
        }
        AppendUnescaped(tags.substr(textStart, position - textStart), format, read);
        switch (match->token) {
            case ReadToken::Paragraph:
                read.Append(u"\r\n", format);
                break;
            case ReadToken::BoldOn:
                format |= kMarkupBold;
                break;
            case ReadToken::BoldOff:
                format &= ~kMarkupBold;
                break;
            case ReadToken::ItalicOn:
                format |= kMarkupItalic;
                break;
            case ReadToken::ItalicOff:
                format &= ~kMarkupItalic;
                break;
            case ReadToken::UnderlineOn:
                format |= kMarkupUnderline;
                break;
            case ReadToken::UnderlineOff:
                format &= ~kMarkupUnderline;
                break;
            case ReadToken::Tab:
                read.Append(u"\t", format);
                break;
            case ReadToken::NoteOn:
                format |= kMarkupNote;
                break;
            case ReadToken::NoteOff:
                format &= ~kMarkupNote;
                break;
            case ReadToken::Euro:
                read.Append(u"\u20AC", format);
                break;
            case ReadToken::SmallOe:
                read.Append(u"\u0153", format);
                break;
            case ReadToken::CapitalOe:
                read.Append(u"\u0152", format);
                break;
        }
        position += match->length;
        textStart = position;
    }
    AppendUnescaped(tags.substr(textStart), format, read);
    return read;
}

// Every non-breaking space is shown as a grey middle dot. No colour has been given yet at
// this point, so every one of them is black and turns grey.
void MarkNonBreakingSpaces(FormattedUnits& read) {
    for (std::size_t position = 0; position < read.characters.size(); ++position) {
        if (read.characters[position] != kNoBreakSpace) continue;
        read.characters[position] = kMiddleDot;
        read.formats[position] |= kMarkupNonBreakingMark;
    }
}

}  // namespace

BoxText TagsToStoryText(int index, std::string_view elementXml, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    const std::u16string tags = BoxTags(index, elementXml);
    BoxText box;
    box.noteCharacters = CountNoteCharactersInTags(tags);
    FormattedUnits read = TagsToFormats(tags);
    MarkNonBreakingSpaces(read);
    if (index == kMainTextBox) ApplyInterStylePairs(read);
    ApplyTagPairs(u"<sup>", u"</sup>", kMarkupSuperscript, read);
    box.text = ToStyledText(read, settings, fontSize);
    return box;
}

BoxText TagsToStoryText(int index, XmlNode element, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    element.RemoveAllAttributes();
    return TagsToStoryText(index, element.Xml(), settings, fontSize);
}

}  // namespace tessarin
