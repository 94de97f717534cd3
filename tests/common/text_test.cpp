#include <gtest/gtest.h>

#include "common/fold_accents.h"
#include "common/number_parse.h"
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

// A number is read up to the first character that does not fit; the text is numeric when that
// number is all there is, blanks around it aside.
TEST(ParseLeadingNumber, StopsAtTheFirstCharacterThatDoesNotFit) {
    const struct {
        const char* text;
        double number;
        bool numeric;
    } rows[] = {{"abc", 0, false},      {"12abc", 12, false},  {"", 0, false},
                {"   ", 0, false},      {"\t\r\n 7", 7, true}, {" 4 ", 4, true},
                {"-3.5x", -3.5, false}, {"+4", 4, true},       {".5", 0.5, true},
                {"5.", 5, true},        {"1e3", 1000, true},   {"2E-1z", 0.2, false},
                {"1e", 1, false},       {"1e+", 1, false},     {"1,5", 1, false},
                {"- 3", 0, false},      {"-", 0, false},       {".", 0, false},
                {"0x1A", 0, false},     {"-.", 0, false},      {"1 2", 1, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(ParseLeadingNumber(row.text), row.number) << row.text;
        EXPECT_EQ(IsNumeric(row.text), row.numeric) << row.text;
    }
    const std::pair<const char*, std::int32_t> integers[] = {{"12.9", 12},
                                                             {"-12.9", -12},
                                                             {"99999999999", 2147483647},
                                                             {"-99999999999", -2147483647 - 1},
                                                             {"1e999", 2147483647},
                                                             {"1e-999", 0}};
    for (const auto& [text, expected] : integers)
        EXPECT_EQ(ParseLeadingInteger(text), expected) << text;
}

}  // namespace
}  // namespace tessarin
