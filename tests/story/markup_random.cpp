#include "markup_random.h"

#include <array>
#include <string_view>

namespace tessarin::testing {
namespace {

constexpr std::array<std::u16string_view, 30> kWildPieces = {
    u"a",          u"mot",    u"x",      u" ",      u"  ",     u"   ",    u"\r\n", u"\r\n\r\n",
    u"\u00B6\r\n", u"\u00B6", u"\t",     u"\u00B7", u"&",      u"<",      u">",    u"'",
    u"\"",         u"\u0153", u"\u0152", u"\u20AC", u"\u00E9", u"\u00A0", u",",    u"l'a",
    u"\U0001F600", u"\r",     u"\n",     u";",      u"<p/>",   u"\u2019"};

// The last two words are outside the 8-bit code page.
constexpr std::array<std::u16string_view, 17> kTidyWords = {u"le",
                                                            u"mot",
                                                            u"porte-avions",
                                                            u"l'homme",
                                                            u"\u00E9t\u00E9",
                                                            u"\u0153uvre",
                                                            u"\u20AC",
                                                            u"&",
                                                            u"<",
                                                            u">",
                                                            u"\"x\"",
                                                            u"a\u00B7b",
                                                            u"\u2019",
                                                            u"1,5",
                                                            u"x\ty",
                                                            u"\U0001F600",
                                                            u"\u0101"};

}  // namespace

CharFormat RandomStoryText::WildFormat() {
    const std::array<OleColour, 5> colours = {0, Rgb(0, 0, 255), Rgb(255, 0, 0), Rgb(0, 255, 0),
                                              kGrey};
    CharFormat format;
    format.bold = Number(3) == 0;
    format.italic = Number(3) == 0;
    format.underline = Number(4) == 0;
    format.waveUnderline = Number(6) == 0;
    format.isProtected = Number(6) == 0;
    format.offset = Number(6) == 0 ? 100 : 0;
    format.colour = Number(2) == 0 ? 0 : colours[static_cast<std::size_t>(Number(5))];
    return format;
}

StyledText RandomStoryText::Wild(std::size_t pieces) {
    StyledText text;
    CharFormat format = WildFormat();
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        if (Number(2) == 0) format = WildFormat();
        text.Insert(text.Length(),
                    kWildPieces[static_cast<std::size_t>(Number(kWildPieces.size()))], format);
    }
    return text;
}

CharFormat RandomStoryText::TidyFormat() {
    CharFormat format;
    switch (Number(8)) {
        case 0:
            format.bold = true;
            break;
        case 1:
            format.italic = true;
            break;
        case 2:
            format.underline = true;
            break;
        case 3:
            format.bold = format.italic = true;
            break;
        case 4:
            format.offset = 100;
            break;
        case 5:
            format.colour = Rgb(0, 0, 255);
            break;
        case 6:
            format.colour = Rgb(255, 0, 0);
            break;
        default:
            break;
    }
    return format;
}

StyledText RandomStoryText::Tidy(std::size_t pieces, bool utf8) {
    StyledText text;
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        if (piece > 0) {
            const int separator = Number(10);
            if (separator == 0) {
                text.Insert(text.Length(), u"\r\n", {});
            } else if (separator == 1) {
                CharFormat note;
                note.isProtected = note.highlighted = note.waveUnderline = true;
                note.highlight = Rgb(255, 255, 0);
                text.Insert(text.Length(), u" ", {});
                text.Insert(text.Length(), u"JD 12/03/2024 10:00", note);
            }
            text.Insert(text.Length(), u" ", TidyFormat());
        }
        const std::u16string_view word = kTidyWords[static_cast<std::size_t>(
            Number(utf8 ? kTidyWords.size() : kTidyWords.size() - 2))];
        text.Insert(text.Length(), word, TidyFormat());
    }
    return text;
}

std::string RandomStoryText::Caption() {
    constexpr std::array<std::string_view, 5> kCaptions = {
        "Titre", "Texte  principal", "Chap\xC3\xB4\tx", " Signature ", "\xC5\x93uvre"};
    return std::string(kCaptions[static_cast<std::size_t>(Number(kCaptions.size()))]);
}

}  // namespace tessarin::testing
