#include "story/rtf_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "common/utf8.h"

namespace tessarin {
namespace {

// The text with each run marked: "[b]" bold, "[i]" italic, "[u]" underline, "[s]" raised,
// "[.]" the no-break mark's grey.
std::string Marked(const StyledText& text) {
    std::string marked;
    for (const FormatRun& run : text.Runs()) {
        std::string marks;
        if (run.format.bold) marks += "b";
        if (run.format.italic) marks += "i";
        if (run.format.underline) marks += "u";
        if (run.format.offset > 0) marks += "s";
        if (run.format.colour != 0) marks += ".";
        const std::string piece = Utf16ToUtf8(text.Text(run.start, run.length));
        marked += marks.empty() ? piece : "[" + marks + "]" + piece + "[/]";
    }
    return marked;
}

TEST(RtfReaderTest, TextParagraphsAndRuns) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {R"({\rtf1\ansi{\fonttbl{\f0\fnil Times;}}{\colortbl;\red0\green0\blue0;}\pard\f0\fs24 )"
         R"(Hello \b bold\b0  end\par})",
         "Hello [b]bold[/] end"},
        {R"({\rtf1 a\par\par b\line c\tab d\par})", "a\r\n\r\nb\r\nc\td"},
        {R"({\rtf1 {\i a\ul b}c\super 2\nosupersub\i\b0 d\plain e})",
         "[i]a[/][iu]b[/]c[s]2[/][i]d[/]e"},
        {R"({\rtf1\uc1 caf\'e9 \u8364? \uc2\u945\'3f?x\u-4064?})", "café € αx\xEF\x80\xA0"},
        {R"({\rtf1 a\~b \{\}\\ \emdash\lquote x\rquote})", "a[.]\xC2\xB7[/]b {}\\ —‘x’"},
        {R"({\rtf1 {\*\generator Writer;}{\info{\title T}}{\field{\*\fldinst HYPERLINK}{\fldrslt link}})"
         R"( \unknownword12 x{\pict\bin4 {}}}}y})",
         "link xy"},
        {"plain words, no RTF", "plain words, no RTF"},
    };
    for (const auto& [rtf, expected] : cases)
        EXPECT_EQ(Marked(ReadRtf(rtf)), expected) << rtf;
}

// Whatever the bytes, reading ends and gives some text: unbalanced groups, cut control
// words and escapes at the end, random noise.
TEST(RtfReaderTest, AnyBytesAreRead) {
    for (const char* rtf : {"}}}{{{\\", "{\\rtf1 a\\'", "{\\rtf1 a\\'4", "{\\u", "\\u99999999999x",
                            "{\\*", "\\bin999999999 ab", "{\\uc9\\u65"}) {
        ReadRtf(rtf);
    }
    std::mt19937 random(13);
    const std::string alphabet = "{}\\'*abu019- \r\n\xE9";
    for (int round = 0; round < 200; ++round) {
        std::string bytes;
        for (int i = 0; i < 300; ++i)
            bytes += alphabet[random() % alphabet.size()];
        const StyledText text = ReadRtf(bytes);
        EXPECT_LE(text.Length(), bytes.size());
    }
}

}  // namespace
}  // namespace tessarin
