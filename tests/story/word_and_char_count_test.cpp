#include <gtest/gtest.h>

#include "markup_test_support.h"
#include "story/char_count.h"
#include "story/word_count.h"

namespace tessarin {
namespace {

using testing::Anchor;
using testing::Plain;
using testing::Styled;

TEST(WordCount, SeparatorsAndBlankRuns) {
    EXPECT_EQ(CountWords(u"l'homme"), 2);
    EXPECT_EQ(CountWords(u"porte-avions"), 1);
    EXPECT_EQ(CountWords(u"  Un, deux;trois:quatre.cinq?six!sept\"huit\r\nneuf  "), 9);
    EXPECT_EQ(CountWords(u"a\tb \u00A0 c\u00B7d"), 3);
    EXPECT_EQ(CountWords(u""), 0);
    EXPECT_EQ(CountWords(u" ,.\r\n "), 0);
    // Runs of 8 down to 2 blanks are replaced once each: 11367 blanks leave two.
    EXPECT_EQ(CountWords(u"a" + std::u16string(11366, u' ') + u"b"), 2);
    EXPECT_EQ(CountWords(u"a" + std::u16string(11367, u' ') + u"b"), 3);
}

TEST(WordCount, NoteAnchorsAreNoWords) {
    EXPECT_EQ(
        CountStoryWords(Styled({{u"un ", Plain()}, {u"JD 12/03", Anchor()}, {u" mot", Plain()}})),
        2);
    EXPECT_EQ(CountStoryWords(Styled({{u"JD", Anchor()}})), 0);
}

TEST(CharCount, LineBreaksNotesAndParagraphMarks) {
    const StyledText text =
        Styled({{u"ab\r\n\tc\u00B7 ", Plain()}, {u"JD", Anchor()}, {u"\r\n\r", Plain()}});
    // 13 units holding two CR LF pairs and a lone CR.
    EXPECT_EQ(CountBoxCharacters(text, 0, 0), 9);
    // A note of 2 characters leaves the count as it was before the note.
    EXPECT_EQ(CountBoxCharacters(text, 2, 0), 7);
    EXPECT_EQ(CountBoxCharacters(Styled({{u"a\u00B6\r\nb\u00B6", Plain()}}), 0, 2), 2);
    EXPECT_EQ(CountBoxCharacters(StyledText(), 0, 0), 0);
}

TEST(CharCount, LineBreaksAnywhereInALargeBox) {
    // A CR LF pair, a CR CR LF run and a lone CR at each of many places around the 64 KiB
    // steps at which a box is read: every pair takes two off, whatever its place.
    for (const std::size_t before : {65531u, 65532u, 65533u, 65534u, 65535u, 65536u, 131071u}) {
        const std::u16string text = std::u16string(before, u'a') + u"\r\nb\r\r\nc\r";
        EXPECT_EQ(CountBoxCharacters(StyledText(text), 0, 0),
                  static_cast<std::int32_t>(text.size()) - 4)
            << before;
    }
}

}  // namespace
}  // namespace tessarin
