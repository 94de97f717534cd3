#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/utf8.h"
#include "common/xml_escape.h"
#include "story/char_count.h"
#include "story/markup_read_tokens.h"
#include "story/story_markup.h"
#include "story/tag_pair_search.h"

// Reading turns the tags into formats directly, character run by character run. The program
// this replaces built a rich-text string from the tags and let a rich-text control read it;
// a backslash or a brace in a story's text was then read as rich-text syntax. Without that
// string they are plain characters, as the writer meant them.

namespace tessarin {
namespace {

constexpr char16_t kNoBreakSpace = 0x00A0;
constexpr char16_t kMiddleDot = 0x00B7;
constexpr OleColour kNonBreakingMarkColour = Rgb(175, 175, 175);
constexpr std::int32_t kSuperscriptOffset = 100;
constexpr std::int32_t kSuperscriptSizeReduction = 3;

// The formats that reading gives, one bit each, kept per character until the text is whole.
enum ReadFormat : std::uint16_t {
    kBold = 1 << 0,
    kItalic = 1 << 1,
    kUnderline = 1 << 2,
    kNote = 1 << 3,
    kNonBreakingMark = 1 << 4,
    kInter1 = 1 << 5,
    kInter2 = 1 << 6,
    kInter3 = 1 << 7,
    kSuperscript = 1 << 8,
};
constexpr std::array<std::uint16_t, 3> kInterFormats = {kInter1, kInter2, kInter3};

struct ReadText {
    std::u16string characters;
    std::vector<std::uint16_t> formats;

    void Append(std::u16string_view text, std::uint16_t format) {
        characters += text;
        formats.insert(formats.end(), text.size(), format);
    }
};

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

// Text between two tags is unescaped on its own: no entity can reach across a tag.
void AppendUnescaped(std::u16string_view text, std::uint16_t format, ReadText& read) {
    if (text.find(u'&') == std::u16string_view::npos) {
        read.Append(text, format);
        return;
    }
    read.Append(Utf8ToUtf16(XmlUnescape(Utf16ToUtf8(text))), format);
}

ReadText TagsToFormats(std::u16string_view tags) {
    ReadText read;
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
                format |= kBold;
                break;
            case ReadToken::BoldOff:
                format &= ~kBold;
                break;
            case ReadToken::ItalicOn:
                format |= kItalic;
                break;
            case ReadToken::ItalicOff:
                format &= ~kItalic;
                break;
            case ReadToken::UnderlineOn:
                format |= kUnderline;
                break;
            case ReadToken::UnderlineOff:
                format &= ~kUnderline;
                break;
            case ReadToken::Tab:
                read.Append(u"\t", format);
                break;
            case ReadToken::NoteOn:
                format |= kNote;
                break;
            case ReadToken::NoteOff:
                format &= ~kNote;
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
void MarkNonBreakingSpaces(ReadText& read) {
    for (std::size_t position = 0; position < read.characters.size(); ++position) {
        if (read.characters[position] != kNoBreakSpace) continue;
        read.characters[position] = kMiddleDot;
        read.formats[position] |= kNonBreakingMark;
    }
}

void ApplyTagPairs(std::u16string_view opening, std::u16string_view closing, std::uint16_t style,
                   ReadText& read) {
    const TagPairing pairing = PairTags(read.characters, opening, closing);
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
    for (std::size_t position = 0; position < read.characters.size(); ++position) {
        for (; edge != edges.end() && edge->first == position; ++edge)
            inside += edge->second;
        if (pairing.removed[position]) continue;
        read.characters[kept] = read.characters[position];
        read.formats[kept] =
            static_cast<std::uint16_t>(read.formats[position] | (inside > 0 ? style : 0));
        ++kept;
    }
    read.characters.resize(kept);
    read.formats.resize(kept);
}

CharFormat ToCharFormat(std::uint16_t format, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    CharFormat result;
    result.bold = (format & (kBold | kInter1 | kInter2 | kInter3)) != 0;
    result.italic = (format & kItalic) != 0;
    result.underline = (format & kUnderline) != 0;
    // A note's wavy underline is kept apart from the underline, so that underlined text
    // around an anchor stays underlined after it.
    if (format & kNote) {
        result.isProtected = true;
        result.highlighted = true;
        result.highlight = settings.bookmarksColour;
        result.waveUnderline = true;
    }
    if (format & kNonBreakingMark) result.colour = kNonBreakingMarkColour;
    // The styles were given in the order 1, 2, 3: the last one's colour stays.
    for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
        if (format & kInterFormats[style]) result.colour = settings.interColours[style];
    }
    if (format & kSuperscript) {
        result.offset = kSuperscriptOffset;
        result.fontSize = fontSize - kSuperscriptSizeReduction;
    }
    return result;
}

StyledText ToStyledText(const ReadText& read, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    StyledText text;
    const std::u16string_view characters = read.characters;
    for (std::size_t start = 0; start < characters.size();) {
        std::size_t end = start + 1;
        while (end < characters.size() && read.formats[end] == read.formats[start])
            ++end;
        text.Insert(text.Length(), characters.substr(start, end - start),
                    ToCharFormat(read.formats[start], settings, fontSize));
        start = end;
    }
    return text;
}

}  // namespace

BoxText TagsToStoryText(int index, std::string_view elementXml, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    const std::u16string tags = BoxTags(index, elementXml);
    BoxText box;
    box.noteCharacters = CountNoteCharactersInTags(tags);
    ReadText read = TagsToFormats(tags);
    MarkNonBreakingSpaces(read);
    if (index == kMainTextBox) {
        for (std::size_t style = 0; style < kInterFormats.size(); ++style) {
            const std::u16string number = AsciiUnits(std::to_string(style + 1));
            ApplyTagPairs(u"<inter" + number + u">", u"</inter" + number + u">",
                          kInterFormats[style], read);
        }
    }
    ApplyTagPairs(u"<sup>", u"</sup>", kSuperscript, read);
    box.text = ToStyledText(read, settings, fontSize);
    return box;
}

BoxText TagsToStoryText(int index, XmlNode element, const MarkupSettings& settings,
                        std::int32_t fontSize) {
    element.RemoveAllAttributes();
    return TagsToStoryText(index, element.Xml(), settings, fontSize);
}

}  // namespace tessarin
