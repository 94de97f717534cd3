#include <gtest/gtest.h>

#include "markup_test_support.h"
#include "story/char_count.h"
#include "story/word_count.h"

namespace tessarin {
namespace {

using testing::Styled;

TEST(WordCount, SeparatorsBlankRunsAndNoteAnchors) {
    const std::pair<std::u16string, std::int32_t> rows[] = {
        {u"l'homme", 2},
        {u"porte-avions", 1},
        {u"  Un, deux;trois:quatre.cinq?six!sept\"huit\r\nneuf  ", 9},
        {u"a\tb \u00A0 c\u00B7d", 3},
        {u"", 0},
        {u" ,.\r\n ", 0},
        // Runs of 8 down to 2 blanks are replaced once each: 11367 blanks leave two.
        {u"a" + std::u16string(11366, u' ') + u"b", 2},
        {u"a" + std::u16string(11367, u' ') + u"b", 3},
    };
    for (const auto& [text, words] : rows)
        EXPECT_EQ(CountWords(text), words) << text.size();
}

TEST(CharCount, LineBreaksNotesAndParagraphMarks) {
    // 13 units holding two CR LF pairs and a lone CR; a note of 2 characters takes 2 off.
    const StyledText text = Styled({{u"ab\r\n\tc\u00B7 ", ""}, {u"JD", "n"}, {u"\r\n\r", ""}});
    EXPECT_EQ(CountBoxCharacters(text, 0, 0), 9);
    EXPECT_EQ(CountBoxCharacters(text, 2, 0), 7);
    EXPECT_EQ(CountBoxCharacters(Styled({{u"a\u00B6\r\nb\u00B6", ""}}), 0, 2), 2);
    // A CR LF pair, a CR CR LF run and a lone CR around the 64 KiB steps at which a box is
    // read: every pair takes two off, whatever its place.
    for (const std::size_t before : {65531u, 65532u, 65533u, 65534u, 65535u, 65536u, 131071u}) {
        const std::u16string longText = std::u16string(before, u'a') + u"\r\nb\r\r\nc\r";
        EXPECT_EQ(CountBoxCharacters(StyledText(longText), 0, 0),
                  static_cast<std::int32_t>(longText.size()) - 4)
            << before;
    }
}

}  // namespace
}  // namespace tessarin
