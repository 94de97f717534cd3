#include <gtest/gtest.h>

#include "common/fold_accents.h"
#include "common/number_parse.h"
#include "common/reading_idiom.h"
#include "common/xml_escape.h"

namespace tessarin {
namespace {

TEST(XmlEscape, FiveCharactersOutAndEachReplacementOverThePreviousResultIn) {
    EXPECT_EQ(XmlEscape("a & b < c > d \"e\" 'f' caf\xC3\xA9 \xE9"),
              "a &amp; b &lt; c &gt; d &quot;e&quot; &apos;f&apos; caf\xC3\xA9 \xE9");
    EXPECT_EQ(XmlUnescape("&amp;lt; &amp;amp; &quot;a&apos; &lt;b&gt; &lt;&amp;gt;"),
              "< &amp; \"a' <b> <>");
    EXPECT_EQ(XmlUnescape("&#160; &nbsp; & alone"), "&#160; &nbsp; & alone");
}

TEST(FoldAccents, FoldsExactlyTheListedLetters) {
    // Every character from U+00C0 to U+00FF; À Ã Ì Í Ò Ó Ú á ã... are kept on purpose.
    EXPECT_EQ(FoldAccents("ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ"),
              "ÀAAÃAÅÆCEEEEÌÍIIÐÑÒÓOOO×ØUÚUUÝÞß aáaaaåæceeeeìíiiðnòóooo÷øuúuuýþÿ");
    EXPECT_EQ(FoldAccents("Ren\xC3\xA9 \xC5\x93 \xE9 \xC3"), "Rene \xC5\x93 \xE9 \xC3");
}

TEST(ParseLeadingNumber, StopsAtTheFirstCharacterThatDoesNotFit) {
    const std::pair<const char*, double> rows[] = {
        {"abc", 0},  {"12abc", 12}, {"", 0},       {"\t\r\n 7", 7}, {"-3.5x", -3.5}, {"+4", 4},
        {".5", 0.5}, {"5.", 5},     {"1e3", 1000}, {"2E-1z", 0.2},  {"1e", 1},       {"1e+", 1},
        {"1,5", 1},  {"- 3", 0},    {"0x1A", 0},   {"-.", 0},       {"1 2", 1}};
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(ParseLeadingNumber(text), expected) << text;
    const std::pair<const char*, std::int32_t> integers[] = {{"12.9", 12},
                                                             {"-12.9", -12},
                                                             {"99999999999", 2147483647},
                                                             {"-99999999999", -2147483647 - 1},
                                                             {"1e999", 2147483647},
                                                             {"1e-999", 0}};
    for (const auto& [text, expected] : integers)
        EXPECT_EQ(ParseLeadingInteger(text), expected) << text;
}

TEST(IsNumeric, WholeTextMustBeOneNumber) {
    for (const char* text : {"12", "-3.5", " 4 ", "1e5"})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", "   ", "12abc", "abc", "1 2", "-", ".", "1e"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(ReadingIdiom, FourKindsOfValue) {
    EXPECT_TRUE(FlagDefaultFalse("true"));
    EXPECT_FALSE(FlagDefaultFalse("True"));
    EXPECT_FALSE(FlagDefaultTrue("false"));
    EXPECT_TRUE(FlagDefaultTrue("False"));
    EXPECT_EQ(TextOr("", "Notes"), "Notes");
    EXPECT_EQ(TextOr(" ", "Notes"), " ");
    EXPECT_EQ(NumberOr("", 25), 25);
    EXPECT_EQ(NumberOr("abc", 25), 0);
    EXPECT_EQ(NumberOr("12abc", 25), 12);
}

}  // namespace
}  // namespace tessarin
