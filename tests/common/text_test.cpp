#include <gtest/gtest.h>

#include "common/fold_accents.h"
#include "common/number_parse.h"
#include "common/reading_idiom.h"
#include "common/xml_escape.h"

namespace tessarin {
namespace {

TEST(XmlEscape, ReplacesTheFiveCharacters) {
    EXPECT_EQ(XmlEscape("a & b < c > d \"e\" 'f'"),
              "a &amp; b &lt; c &gt; d &quot;e&quot; &apos;f&apos;");
    EXPECT_EQ(XmlEscape("&amp;"), "&amp;amp;");
    EXPECT_EQ(XmlEscape("caf\xC3\xA9 \xE9"), "caf\xC3\xA9 \xE9");
}

TEST(XmlUnescape, EachReplacementRunsOverThePreviousResult) {
    EXPECT_EQ(XmlUnescape("&amp;lt;"), "<");
    EXPECT_EQ(XmlUnescape("&amp;amp;"), "&amp;");
    EXPECT_EQ(XmlUnescape("&quot;a&apos; &lt;b&gt;"), "\"a' <b>");
    EXPECT_EQ(XmlUnescape("&lt;&amp;gt;"), "<>");
    EXPECT_EQ(XmlUnescape("&#160; &nbsp; & alone"), "&#160; &nbsp; & alone");
    EXPECT_EQ(XmlUnescape(XmlEscape("<\"x\" & 'y'>")), "<\"x\" & 'y'>");
}

TEST(FoldAccents, FoldsExactlyTheListedLetters) {
    EXPECT_EQ(FoldAccents("\xC3\xA0\xC3\xA2\xC3\xA4\xC3\xA3"), "aaaa");  // à â ä ã
    EXPECT_EQ(FoldAccents("\xC3\xA7"), "c");                             // ç
    EXPECT_EQ(FoldAccents("\xC3\xA9\xC3\xA8\xC3\xAA\xC3\xAB"), "eeee");  // é è ê ë
    EXPECT_EQ(FoldAccents("\xC3\xAE\xC3\xAF\xC3\xB1"), "iin");           // î ï ñ
    EXPECT_EQ(FoldAccents("\xC3\xB4\xC3\xB6\xC3\xB5"), "ooo");           // ô ö õ
    EXPECT_EQ(FoldAccents("\xC3\xB9\xC3\xBB\xC3\xBC"), "uuu");           // ù û ü
    EXPECT_EQ(FoldAccents("\xC3\x84\xC3\x82\xC3\x81\xC3\x87"), "AAAC");  // Ä Â Á Ç
    EXPECT_EQ(FoldAccents("\xC3\x89\xC3\x8A\xC3\x8B\xC3\x88"), "EEEE");  // É Ê Ë È
    EXPECT_EQ(FoldAccents("\xC3\x8E\xC3\x8F"), "II");                    // Î Ï
    EXPECT_EQ(FoldAccents("\xC3\x94\xC3\x96\xC3\x95"), "OOO");           // Ô Ö Õ
    EXPECT_EQ(FoldAccents("\xC3\x9C\xC3\x9B\xC3\x99"), "UUU");           // Ü Û Ù
    EXPECT_EQ(FoldAccents("Ren\xC3\xA9 M\xC3\xBCller"), "Rene Muller");
}

TEST(FoldAccents, LeavesEveryOtherLetterAlone) {
    // á í ó ú À Ã Ñ are kept on purpose; the others were never in the list.
    const std::string kept =
        "\xC3\xA1\xC3\xAD\xC3\xB3\xC3\xBA\xC3\x80\xC3\x83\xC3\x91"
        "\xC3\xAC\xC3\xB2\xC3\xBF\xC3\x8D\xC3\x9F\xC3\x86\xC5\x93 plain \xC3";
    EXPECT_EQ(FoldAccents(kept), kept);
    EXPECT_EQ(FoldAccents("\xE9"), "\xE9");  // a Windows-1252 byte is not a UTF-8 letter
}

TEST(ParseLeadingNumber, StopsAtTheFirstCharacterThatDoesNotFit) {
    EXPECT_EQ(ParseLeadingNumber("abc"), 0.0);
    EXPECT_EQ(ParseLeadingNumber("12abc"), 12.0);
    EXPECT_EQ(ParseLeadingNumber(""), 0.0);
    EXPECT_EQ(ParseLeadingNumber(" 7"), 7.0);
    EXPECT_EQ(ParseLeadingNumber("\t\r\n 7"), 7.0);
    EXPECT_EQ(ParseLeadingNumber("-3.5x"), -3.5);
    EXPECT_EQ(ParseLeadingNumber("+4"), 4.0);
    EXPECT_EQ(ParseLeadingNumber(".5"), 0.5);
    EXPECT_EQ(ParseLeadingNumber("5."), 5.0);
    EXPECT_EQ(ParseLeadingNumber("1e3"), 1000.0);
    EXPECT_EQ(ParseLeadingNumber("2E-1z"), 0.2);
    EXPECT_EQ(ParseLeadingNumber("1e"), 1.0);
    EXPECT_EQ(ParseLeadingNumber("1e+"), 1.0);
    EXPECT_EQ(ParseLeadingNumber("1,5"), 1.0);
    EXPECT_EQ(ParseLeadingNumber("- 3"), 0.0);
    EXPECT_EQ(ParseLeadingNumber("0x1A"), 0.0);
    EXPECT_EQ(ParseLeadingNumber("-."), 0.0);
    EXPECT_EQ(ParseLeadingNumber("1 2"), 1.0);
}

TEST(ParseLeadingInteger, TruncatesAndClamps) {
    EXPECT_EQ(ParseLeadingInteger("12.9"), 12);
    EXPECT_EQ(ParseLeadingInteger("-12.9"), -12);
    EXPECT_EQ(ParseLeadingInteger("99999999999"), 2147483647);
    EXPECT_EQ(ParseLeadingInteger("-99999999999"), -2147483647 - 1);
    EXPECT_EQ(ParseLeadingInteger("1e999"), 2147483647);
    EXPECT_EQ(ParseLeadingInteger("1e-999"), 0);
}

TEST(IsNumeric, WholeTextMustBeOneNumber) {
    EXPECT_TRUE(IsNumeric("12"));
    EXPECT_TRUE(IsNumeric("-3.5"));
    EXPECT_TRUE(IsNumeric(" 4 "));
    EXPECT_TRUE(IsNumeric("1e5"));
    EXPECT_FALSE(IsNumeric(""));
    EXPECT_FALSE(IsNumeric("   "));
    EXPECT_FALSE(IsNumeric("12abc"));
    EXPECT_FALSE(IsNumeric("abc"));
    EXPECT_FALSE(IsNumeric("1 2"));
    EXPECT_FALSE(IsNumeric("-"));
    EXPECT_FALSE(IsNumeric("."));
}

TEST(ReadingIdiom, FourKindsOfValue) {
    EXPECT_TRUE(FlagDefaultFalse("true"));
    EXPECT_FALSE(FlagDefaultFalse("True"));
    EXPECT_FALSE(FlagDefaultFalse(""));
    EXPECT_FALSE(FlagDefaultTrue("false"));
    EXPECT_TRUE(FlagDefaultTrue("False"));
    EXPECT_TRUE(FlagDefaultTrue(""));
    EXPECT_EQ(TextOr("", "Notes"), "Notes");
    EXPECT_EQ(TextOr(" ", "Notes"), " ");
    EXPECT_EQ(NumberOr("", 25), 25);
    EXPECT_EQ(NumberOr("abc", 25), 0);
    EXPECT_EQ(NumberOr("12abc", 25), 12);
}

}  // namespace
}  // namespace tessarin
