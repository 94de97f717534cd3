#include "markup_random.h"

#include "markup_test_support.h"

namespace tessarin::testing {
namespace {

constexpr std::u16string_view kWildPieces[] = {
    u"a",          u"mot",    u"x",      u" ",      u"  ",     u"   ",    u"\r\n", u"\r\n\r\n",
    u"\u00B6\r\n", u"\u00B6", u"\t",     u"\u00B7", u"&",      u"<",      u">",    u"'",
    u"\"",         u"\u0153", u"\u0152", u"\u20AC", u"\u00E9", u"\u00A0", u",",    u"l'a",
    u"\U0001F600", u"\r",     u"\n",     u";",      u"<p/>",   u"\u2019"};

// The last two words are outside the 8-bit code page.
constexpr std::u16string_view kTidyWords[] = {
    u"le", u"mot",   u"porte-avions", u"l'homme", u"été", u"œuvre", u"€",          u"&",     u"<",
    u">",  u"\"x\"", u"a·b",          u"’",       u"1,5", u"x\ty",  u"\U0001F600", u"\u0101"};

constexpr std::string_view kTidyFormats[] = {"b", "i", "u", "bi", "s", "1", "2", ""};

}  // namespace

CharFormat RandomStoryText::WildFormat() {
    CharFormat format;
    format.bold = Number(3) == 0;
    format.italic = Number(3) == 0;
    format.underline = Number(4) == 0;
    format.waveUnderline = Number(6) == 0;
    format.isProtected = Number(6) == 0;
    format.offset = Number(6) == 0 ? 100 : 0;
    const OleColour colours[] = {0, Rgb(0, 0, 255), Rgb(255, 0, 0), Rgb(0, 255, 0),
                                 Rgb(175, 175, 175)};
    format.colour = Number(2) == 0 ? 0 : Pick<OleColour>(colours);
    return format;
}

StyledText RandomStoryText::Wild(std::size_t pieces) {
    StyledText text;
    CharFormat format = WildFormat();
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        if (Number(2) == 0) format = WildFormat();
        text.Insert(text.Length(), Pick<std::u16string_view>(kWildPieces), format);
    }
    return text;
}

StyledText RandomStoryText::Tidy(std::size_t pieces, bool utf8) {
    StyledText text;
    const auto words = std::span(kTidyWords).first(std::size(kTidyWords) - (utf8 ? 0 : 2));
    for (std::size_t piece = 0; piece < pieces; ++piece) {
        if (piece > 0) {
            const int separator = Number(10);
            if (separator == 0) text.Insert(text.Length(), u"\r\n", {});
            if (separator == 1) {
                text.Insert(text.Length(), u" ", {});
                text.Insert(text.Length(), u"JD 12/03/2024 10:00", Format("n"));
            }
            text.Insert(text.Length(), u" ", Format(Pick<std::string_view>(kTidyFormats)));
        }
        text.Insert(text.Length(), Pick<std::u16string_view>(words),
                    Format(Pick<std::string_view>(kTidyFormats)));
    }
    return text;
}

std::string RandomStoryText::Caption() {
    constexpr std::string_view kCaptions[] = {"Titre", "Texte  principal", "Chap\xC3\xB4\tx",
                                              " Signature ", "\xC5\x93uvre"};
    return std::string(Pick<std::string_view>(kCaptions));
}

std::u16string RandomStoryText::Pieces(std::span<const std::u16string_view> pieces, int most) {
    std::u16string text;
    for (int piece = Number(most + 1); piece > 0; --piece)
        text += Pick(pieces);
    return text;
}

}  // namespace tessarin::testing
