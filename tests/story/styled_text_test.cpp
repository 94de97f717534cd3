#include "text/styled_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {
namespace {

CharFormat Bold() {
    CharFormat format;
    format.bold = true;
    return format;
}

// "one two three" with the middle word bold.
StyledText PlainBoldPlain() {
    StyledText text(u"one  three");
    text.Insert(4, u"two", Bold());
    return text;
}

// The runs as "start+length" with a "b" for bold, for short comparisons.
std::string Shapes(const std::vector<FormatRun>& runs) {
    std::string shapes;
    for (const FormatRun& run : runs) {
        shapes += std::to_string(run.start) + "+" + std::to_string(run.length) +
                  (run.format.bold ? "b " : " ");
    }
    return shapes;
}

TEST(StyledTextTest, ReadingsPastTheEndAreCutAndRangesClipped) {
    const StyledText text = PlainBoldPlain();
    EXPECT_EQ(text.Text(10, 50), u"ree");
    EXPECT_EQ(text.Text(40, 1), u"");
    EXPECT_EQ(text.CharAt(13), u'\0');
    EXPECT_EQ(text.FormatAt(99), CharFormat{});  // the last character's: plain
    EXPECT_EQ(StyledText(u"x", Bold()).FormatAt(5), Bold());
    EXPECT_EQ(StyledText().FormatAt(0), CharFormat{});

    std::vector<FormatRun> visited;
    const auto visit = [&visited](const FormatRun& run) { visited.push_back(run); };
    text.ForEachRun(5, 100, visit);
    EXPECT_EQ(Shapes(visited), "5+2b 7+6 ");
    visited.clear();
    text.ForEachRun(3, 0, visit);
    EXPECT_TRUE(visited.empty());

    // AllOf tests every character of a range, or the format at the position of an empty one.
    const auto isBold = [](const CharFormat& format) { return format.bold; };
    EXPECT_TRUE(text.AllOf(4, 3, isBold));
    EXPECT_FALSE(text.AllOf(3, 3, isBold));
    EXPECT_TRUE(text.AllOf(5, 0, isBold));
    EXPECT_FALSE(text.AllOf(7, 0, isBold));
    EXPECT_FALSE(text.AllOf(50, 3, isBold));  // past the end: the last character's format
}

TEST(StyledTextTest, FindIgnoresCaseBeyondAsciiAndSeesTheLettersAroundTheStart) {
    const struct {
        std::u16string_view text, what;
        std::size_t start;
        bool matchCase, wholeWord;
        std::int64_t found;
    } rows[] = {
        {u"Word sword WORD words word", u"word", 0, false, false, 0},
        {u"Word sword WORD words word", u"word", 1, false, true, 11},
        {u"Word sword WORD words word", u"word", 26, false, false, -1},
        {u"Word sword WORD words word", u"", 0, false, false, -1},
        {u"L'ŒUVRE ÉTÉ Ÿ ſ", u"œuvre", 0, false, false, 2},
        {u"L'ŒUVRE ÉTÉ Ÿ ſ", u"œuvre", 0, true, false, -1},
        {u"L'ŒUVRE ÉTÉ Ÿ ſ", u"été", 0, false, true, 8},
        {u"L'ŒUVRE ÉTÉ Ÿ ſ", u"ÿ", 0, false, true, 12},
        {u"L'ŒUVRE ÉTÉ Ÿ ſ", u"S", 0, false, true, 14},
        {u"éte te", u"te", 0, false, true, 4},  // accented letters are letters
    };
    for (const auto& row : rows) {
        EXPECT_EQ(StyledText(row.text).Find(row.what, row.start, row.matchCase, row.wholeWord),
                  row.found)
            << row.found;
    }
}

TEST(StyledTextTest, CaseChangesKeepEveryFormat) {
    StyledText text(u"café ");
    text.ApplyFormat(3, 1, [](CharFormat& format) { format.bold = true; });
    CharFormat italic;
    italic.italic = true;
    text.Insert(5, u"œuvre straße ÿ", italic);
    const std::string before = Shapes(text.Runs());

    text.ToUpper(0, text.Length());
    EXPECT_EQ(text.Text(), u"CAFÉ ŒUVRE STRAßE Ÿ");
    EXPECT_EQ(Shapes(text.Runs()), before);
    text.ToLower(0, 4);
    EXPECT_EQ(text.Text(), u"café ŒUVRE STRAßE Ÿ");
    text.ToLower(0, 100);
    EXPECT_EQ(text.Text(), u"café œuvre straße ÿ");
    EXPECT_EQ(Shapes(text.Runs()), before);
}

TEST(StyledTextTest, CopiesMovesEqualityAndInsertionIntoItself) {
    StyledText original = PlainBoldPlain();
    StyledText copy = original;
    copy.Insert(0, u"x", {});
    EXPECT_EQ(original.Text(), u"one two three");
    StyledText moved = std::move(original);
    EXPECT_EQ(moved, PlainBoldPlain());
    EXPECT_TRUE(original.Empty());  // NOLINT(bugprone-use-after-move): the state is defined
    original.Insert(0, u"again", Bold());
    EXPECT_EQ(original.Text(), u"again");

    // Equal when text and formats are, however the text was built.
    StyledText typed;
    for (char16_t unit : std::u16string(u"one two three"))
        typed.Insert(typed.Length(), {&unit, 1}, {});
    typed.ApplyFormat(4, 3, [](CharFormat& format) { format.bold = true; });
    EXPECT_EQ(typed, moved);
    typed.ApplyFormat(0, 1, [](CharFormat& format) { format.colour = 255; });
    EXPECT_NE(typed, moved);
    EXPECT_NE(StyledText(u"a"), StyledText(u"b"));
    EXPECT_NE(StyledText(u"a"), StyledText(u"a", Bold()));
    EXPECT_EQ(StyledText(), StyledText(u""));

    moved.Insert(99, moved);  // into itself, at the end
    EXPECT_EQ(moved.Text(), u"one two threeone two three");
    EXPECT_EQ(Shapes(moved.Runs()), "0+4 4+3b 7+10 17+3b 20+6 ");
}

// A plain model of the same content: one format code per code unit, its bits standing for
// bold, italic and a red colour.
struct ReferenceText {
    std::u16string text;
    std::string formats;
};

constexpr char kBoldBit = 1;

CharFormat FormatOfCode(char code) {
    CharFormat format;
    format.bold = (code & kBoldBit) != 0;
    format.italic = (code & 2) != 0;
    format.colour = (code & 4) != 0 ? 255 : 0;
    return format;
}

std::u16string RandomText(std::mt19937& random, std::size_t length) {
    static const std::u16string kAlphabet = u"abcXYZ éŒ\r\n";
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i)
        text += kAlphabet[random() % kAlphabet.size()];
    return text;
}

// Position by position, with the test alphabet's letters as the word characters.
std::int64_t NaiveFind(const std::u16string& text, const std::u16string& what, std::size_t from,
                       bool wholeWord) {
    const auto isLetter = [](char16_t unit) {
        return std::u16string(u"abcXYZéŒ").find(unit) != std::u16string::npos;
    };
    for (std::size_t at = from; at + what.size() <= text.size(); ++at) {
        if (text.compare(at, what.size(), what) != 0) continue;
        const std::size_t after = at + what.size();
        if (wholeWord && ((at > 0 && isLetter(text[at - 1])) ||
                          (after < text.size() && isLetter(text[after])))) {
            continue;
        }
        return static_cast<std::int64_t>(at);
    }
    return -1;
}

// The runs cover the text without gaps, adjacent runs differ, and each run's characters
// have its format in the model.
void ExpectSameContent(const StyledText& text, const ReferenceText& reference) {
    ASSERT_TRUE(text.Text() == reference.text);
    std::size_t position = 0;
    const std::vector<FormatRun> runs = text.Runs();
    for (std::size_t index = 0; index < runs.size(); ++index) {
        const FormatRun& run = runs[index];
        ASSERT_EQ(run.start, position);
        ASSERT_GT(run.length, 0u);
        if (index > 0) {
            ASSERT_NE(runs[index - 1].format, run.format) << "at " << position;
        }
        const char code = reference.formats[position];
        ASSERT_EQ(run.format, FormatOfCode(code)) << "at " << position;
        ASSERT_EQ(std::string_view(reference.formats)
                      .substr(position, run.length)
                      .find_first_not_of(code),
                  std::string_view::npos)
            << "in the run at " << position;
        position += run.length;
    }
    ASSERT_EQ(position, reference.text.size());
}

// Random edits, large enough to split and merge the text's inner blocks many times, against
// the plain model: inserts, erases, format changes, copies of slices and typing over a
// range, at positions sometimes past the end.
TEST(StyledTextTest, RandomEditsMatchAPlainModel) {
    std::mt19937 random(20261121);
    StyledText text;
    ReferenceText reference;
    for (int step = 0; step < 3000; ++step) {
        SCOPED_TRACE(step);
        const std::size_t length = reference.text.size();
        const std::size_t position = random() % (length + 10);
        const std::size_t at = std::min(position, length);
        const std::size_t count =
            random() % 8 == 0 ? random() % 4000 : random() % 40;  // now and then a big one
        // Erasing is forced now and then so that the text stays below some 6 000 units.
        switch (length > 6000 ? 2 : random() % 6) {
            case 0:
            case 1: {
                const std::u16string inserted = RandomText(random, count);
                const char code = static_cast<char>(random() % 8);
                text.Insert(position, inserted, FormatOfCode(code));
                reference.text.insert(at, inserted);
                reference.formats.insert(at, inserted.size(), code);
                break;
            }
            case 2:
                text.Erase(position, count);
                reference.text.erase(at, count);
                reference.formats.erase(at, count);
                break;
            case 3: {
                const bool bold = random() % 2 == 0;
                text.ApplyFormat(position, count,
                                 [bold](CharFormat& format) { format.bold = bold; });
                for (std::size_t i = at; i < std::min(length, at + count); ++i) {
                    reference.formats[i] = static_cast<char>(
                        bold ? reference.formats[i] | kBoldBit : reference.formats[i] & ~kBoldBit);
                }
                break;
            }
            case 4: {
                const std::size_t from = random() % (length + 1);
                text.Insert(position, text.Slice(from, count));
                reference.text.insert(at, reference.text.substr(from, count));
                reference.formats.insert(at, reference.formats.substr(from, count));
                break;
            }
            default: {
                // Typing takes the format of the range's first character, or for an empty
                // range of the character before it.
                const std::u16string typed = RandomText(random, 1 + count % 3);
                const std::size_t replaced = std::min(count % 5, length - at);
                const char code =
                    length == 0
                        ? 0
                        : reference
                              .formats[replaced > 0 || at == 0 ? std::min(at, length - 1) : at - 1];
                text.Replace(position, count % 5, typed);
                reference.text.replace(at, replaced, typed);
                reference.formats.replace(at, replaced, typed.size(), code);
                break;
            }
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSameContent(text, reference));
        if (!reference.text.empty()) {
            const std::size_t probe = random() % reference.text.size();
            ASSERT_EQ(text.FormatAt(probe), FormatOfCode(reference.formats[probe]));
            ASSERT_EQ(text.CharAt(probe), reference.text[probe]);
            const std::u16string what = reference.text.substr(probe, 1 + random() % 4);
            const std::size_t from = random() % reference.text.size();
            const bool wholeWord = random() % 2 == 0;
            ASSERT_EQ(text.Find(what, from, true, wholeWord),
                      NaiveFind(reference.text, what, from, wholeWord));
        }
    }
}

}  // namespace
}  // namespace tessarin
