#include "story/styled_text.h"

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

CharFormat Italic() {
    CharFormat format;
    format.italic = true;
    return format;
}

// The runs as (start, length, bold, italic) for short comparisons.
struct RunShape {
    std::size_t start;
    std::size_t length;
    bool bold;
    bool italic;
    friend bool operator==(const RunShape&, const RunShape&) = default;
};

std::vector<RunShape> Shapes(const StyledText& text) {
    std::vector<RunShape> shapes;
    for (const FormatRun& run : text.Runs()) {
        shapes.push_back({run.start, run.length, run.format.bold, run.format.italic});
    }
    return shapes;
}

// "plain BOLD plain" with the middle word bold.
StyledText PlainBoldPlain() {
    StyledText text(u"one  three");
    text.Insert(4, u"two", Bold());
    return text;
}

TEST(StyledTextTest, InsertMergesEqualNeighboursAndSplitsOthers) {
    StyledText text = PlainBoldPlain();
    EXPECT_EQ(text.Text(), u"one two three");
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{
                                {0, 4, false, false}, {4, 3, true, false}, {7, 6, false, false}}));

    text.Insert(7, u"s", Bold());  // at the end of the bold run: joins it
    text.Insert(4, u"[", {});      // plain before bold: joins the plain run
    text.Insert(6, u"i", Italic());
    EXPECT_EQ(text.Text(), u"one [tiwos three");
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{{0, 5, false, false},
                                                   {5, 1, true, false},
                                                   {6, 1, false, true},
                                                   {7, 3, true, false},
                                                   {10, 6, false, false}}));
}

TEST(StyledTextTest, EraseJoinsTheRunsItBringsTogether) {
    StyledText text = PlainBoldPlain();
    text.Erase(4, 3);
    EXPECT_EQ(text.Text(), u"one  three");
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{{0, 10, false, false}}));

    text.Erase(3, 100);  // past the end: cut at the end
    EXPECT_EQ(text.Text(), u"one");
    text.Erase(10, 2);  // wholly past the end: nothing
    EXPECT_EQ(text.Text(), u"one");
    text.Erase(0, 3);
    EXPECT_TRUE(text.Empty());
    EXPECT_TRUE(text.Runs().empty());
}

TEST(StyledTextTest, ReplaceTakesTheFormatOfTheRangeOrOfTheCharacterBefore) {
    StyledText text = PlainBoldPlain();
    text.Replace(4, 3, u"TWO!");  // first character of the range is bold
    EXPECT_EQ(text.Text(), u"one TWO! three");
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{
                                {0, 4, false, false}, {4, 4, true, false}, {8, 6, false, false}}));

    text.Replace(8, 0, u"?");  // empty range after bold: bold, like typing there
    EXPECT_EQ(Shapes(text)[1], (RunShape{4, 5, true, false}));

    text.Replace(0, 0, u">");  // empty range at the start: the first character's format
    EXPECT_EQ(Shapes(text)[0], (RunShape{0, 5, false, false}));

    text.Replace(100, 5, u"<");  // past the end: appended in the last format
    EXPECT_EQ(text.Text(), u">one TWO!? three<");

    StyledText empty;
    empty.Replace(0, 0, u"x");
    EXPECT_EQ(empty.FormatAt(0), CharFormat{});
    EXPECT_EQ(empty.Text(), u"x");
}

TEST(StyledTextTest, LineBreaksCountTwoPositions) {
    StyledText text(u"ab\r\ncd");
    EXPECT_EQ(text.Length(), 6u);
    EXPECT_EQ(text.CharAt(2), u'\r');
    EXPECT_EQ(text.CharAt(3), u'\n');
    EXPECT_EQ(text.Find(u"c", 0, true, false), 4);
    text.Erase(2, 2);
    EXPECT_EQ(text.Text(), u"abcd");
}

TEST(StyledTextTest, ReadingsPastTheEndAreCut) {
    StyledText text = PlainBoldPlain();
    EXPECT_EQ(text.Text(10, 50), u"ree");
    EXPECT_EQ(text.Text(13, 1), u"");
    EXPECT_EQ(text.Text(40, 1), u"");
    EXPECT_EQ(text.CharAt(13), u'\0');
    EXPECT_EQ(text.FormatAt(99), CharFormat{});  // the last character's: plain
    EXPECT_TRUE(text.FormatAt(6).bold);
    EXPECT_EQ(StyledText(u"x", Bold()).FormatAt(5), Bold());
    EXPECT_EQ(StyledText().FormatAt(0), CharFormat{});

    std::vector<RunShape> visited;
    text.ForEachRun(5, 100, [&visited](const FormatRun& run) {
        visited.push_back({run.start, run.length, run.format.bold, run.format.italic});
    });
    EXPECT_EQ(visited, (std::vector<RunShape>{{5, 2, true, false}, {7, 6, false, false}}));
    visited.clear();
    text.ForEachRun(3, 0, [&visited](const FormatRun& run) {
        visited.push_back({run.start, run.length, run.format.bold, run.format.italic});
    });
    EXPECT_TRUE(visited.empty());
}

TEST(StyledTextTest, AllOfTestsEveryCharacterOrThePositionOfAnEmptyRange) {
    const StyledText text = PlainBoldPlain();
    const auto isBold = [](const CharFormat& format) { return format.bold; };
    EXPECT_TRUE(text.AllOf(4, 3, isBold));
    EXPECT_FALSE(text.AllOf(3, 3, isBold));  // starts on a plain blank
    EXPECT_FALSE(text.AllOf(5, 3, isBold));  // ends on a plain blank
    EXPECT_TRUE(text.AllOf(5, 0, isBold));
    EXPECT_FALSE(text.AllOf(7, 0, isBold));
    EXPECT_FALSE(text.AllOf(50, 3, isBold));  // past the end: the last character's format
}

TEST(StyledTextTest, ApplyFormatChangesARangeAndMergesWhatBecomesEqual) {
    StyledText text = PlainBoldPlain();
    text.ApplyFormat(2, 4, [](CharFormat& format) { format.italic = true; });
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{{0, 2, false, false},
                                                   {2, 2, false, true},
                                                   {4, 2, true, true},
                                                   {6, 1, true, false},
                                                   {7, 6, false, false}}));
    text.ApplyFormat(0, 50, [](CharFormat& format) { format = CharFormat{}; });
    EXPECT_EQ(Shapes(text), (std::vector<RunShape>{{0, 13, false, false}}));
}

TEST(StyledTextTest, FindHonoursStartCaseAndWholeWords) {
    const StyledText text(u"Word sword WORD words word");
    EXPECT_EQ(text.Find(u"word", 0, false, false), 0);  // at the very start
    EXPECT_EQ(text.Find(u"word", 0, true, false), 6);
    EXPECT_EQ(text.Find(u"word", 1, false, false), 6);
    EXPECT_EQ(text.Find(u"word", 1, false, true), 11);
    EXPECT_EQ(text.Find(u"word", 12, false, true), 22);  // at the very end
    EXPECT_EQ(text.Find(u"word", 12, true, true), 22);
    EXPECT_EQ(text.Find(u"word", 23, false, false), -1);
    EXPECT_EQ(text.Find(u"wordy", 0, false, false), -1);
    EXPECT_EQ(text.Find(u"word", 26, false, false), -1);
    EXPECT_EQ(text.Find(u"word", 400, false, false), -1);
    EXPECT_EQ(text.Find(u"", 0, false, false), -1);
    // A start inside a word still sees the letter before it.
    EXPECT_EQ(StyledText(u"xword word").Find(u"word", 1, false, true), 6);
    // A pattern that overlaps itself.
    EXPECT_EQ(StyledText(u"aaab").Find(u"aab", 0, true, false), 1);
}

TEST(StyledTextTest, FindIgnoresCaseBeyondAscii) {
    const StyledText text(u"L'ŒUVRE ÉTÉ Ÿ ſ");
    EXPECT_EQ(text.Find(u"œuvre", 0, false, false), 2);
    EXPECT_EQ(text.Find(u"œuvre", 0, true, false), -1);
    EXPECT_EQ(text.Find(u"été", 0, false, true), 8);
    EXPECT_EQ(text.Find(u"ÿ", 0, false, true), 12);
    EXPECT_EQ(text.Find(u"S", 0, false, true), 14);
    // Accented letters are letters: "é" touching a word breaks it.
    EXPECT_EQ(StyledText(u"éte te").Find(u"te", 0, false, true), 4);
}

TEST(StyledTextTest, CaseChangesKeepEveryFormat) {
    StyledText text(u"café ");
    text.ApplyFormat(3, 1, [](CharFormat& format) { format.bold = true; });
    text.Insert(5, u"œuvre straße ÿ", Italic());
    const auto before = Shapes(text);

    text.ToUpper(0, text.Length());
    EXPECT_EQ(text.Text(), u"CAFÉ ŒUVRE STRAßE Ÿ");
    EXPECT_EQ(Shapes(text), before);
    EXPECT_TRUE(text.FormatAt(3).bold);

    text.ToLower(0, 4);
    EXPECT_EQ(text.Text(), u"café ŒUVRE STRAßE Ÿ");
    text.ToLower(0, 100);
    EXPECT_EQ(text.Text(), u"café œuvre straße ÿ");
    EXPECT_EQ(Shapes(text), before);
}

TEST(StyledTextTest, SliceAndInsertOfStyledTextKeepFormats) {
    const StyledText source = PlainBoldPlain();
    const StyledText slice = source.Slice(2, 7);
    EXPECT_EQ(slice.Text(), u"e two t");
    EXPECT_EQ(Shapes(slice), (std::vector<RunShape>{
                                 {0, 2, false, false}, {2, 3, true, false}, {5, 2, false, false}}));
    EXPECT_TRUE(source.Slice(13, 5).Empty());

    StyledText target(u"[]", Italic());
    target.Insert(1, slice);
    EXPECT_EQ(target.Text(), u"[e two t]");
    EXPECT_EQ(Shapes(target), (std::vector<RunShape>{{0, 1, false, true},
                                                     {1, 2, false, false},
                                                     {3, 3, true, false},
                                                     {6, 2, false, false},
                                                     {8, 1, false, true}}));
    target.Insert(99, target);  // into itself, at the end
    EXPECT_EQ(target.Text(), u"[e two t][e two t]");
    EXPECT_EQ(target.Runs().size(), 9u);  // the two italic brackets met and joined
}

TEST(StyledTextTest, EqualityComparesTextAndFormats) {
    EXPECT_EQ(PlainBoldPlain(), PlainBoldPlain());
    StyledText copy = PlainBoldPlain();
    copy.ApplyFormat(0, 1, [](CharFormat& format) { format.colour = 255; });
    EXPECT_NE(copy, PlainBoldPlain());
    EXPECT_NE(StyledText(u"a"), StyledText(u"b"));
    EXPECT_NE(StyledText(u"a"), StyledText(u"a", Bold()));
    EXPECT_EQ(StyledText(), StyledText(u""));

    // Built in different ways, the same content compares equal.
    StyledText typed;
    for (char16_t unit : std::u16string(u"one two three"))
        typed.Insert(typed.Length(), {&unit, 1}, {});
    typed.ApplyFormat(4, 3, [](CharFormat& format) { format.bold = true; });
    EXPECT_EQ(typed, PlainBoldPlain());
}

TEST(StyledTextTest, CopiesAreIndependentAndMovesLeaveAnEmptyText) {
    StyledText original = PlainBoldPlain();
    StyledText copy = original;
    copy.Insert(0, u"x", {});
    EXPECT_EQ(original.Text(), u"one two three");

    StyledText moved = std::move(original);
    EXPECT_EQ(moved.Text(), u"one two three");
    EXPECT_TRUE(original.Empty());  // NOLINT(bugprone-use-after-move): the state is defined
    original.Insert(0, u"again", Bold());
    EXPECT_EQ(original.Text(), u"again");

    copy = moved;
    EXPECT_EQ(copy, moved);
    copy.Clear();
    EXPECT_TRUE(copy.Empty());
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

char RandomCode(std::mt19937& random) {
    return static_cast<char>(random() % 8);
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

void ExpectSameContent(const StyledText& text, const ReferenceText& reference, int step) {
    ASSERT_TRUE(text.Text() == reference.text) << "step " << step;
    std::size_t position = 0;
    std::size_t previousEnd = 0;
    const FormatRun* previous = nullptr;
    const std::vector<FormatRun> runs = text.Runs();
    for (const FormatRun& run : runs) {
        ASSERT_EQ(run.start, previousEnd) << "step " << step;
        ASSERT_GT(run.length, 0u) << "step " << step;
        if (previous) {
            ASSERT_NE(previous->format, run.format) << "step " << step;
        }
        const char code = reference.formats[position];
        ASSERT_EQ(run.format, FormatOfCode(code)) << "step " << step << " at " << position;
        const std::string_view runCodes =
            std::string_view(reference.formats).substr(position, run.length);
        ASSERT_EQ(runCodes.find_first_not_of(code), std::string_view::npos)
            << "step " << step << " in the run at " << position;
        position += run.length;
        previousEnd = run.start + run.length;
        previous = &run;
    }
    ASSERT_EQ(position, reference.text.size()) << "step " << step;
}

// Random edits, large enough to split and merge the text's inner blocks many times, against
// the plain model.
TEST(StyledTextTest, RandomEditsMatchAPlainModel) {
    std::mt19937 random(20261121);
    StyledText text;
    ReferenceText reference;
    for (int step = 0; step < 3000; ++step) {
        const std::size_t length = reference.text.size();
        const std::size_t position = random() % (length + 10);  // sometimes past the end
        const std::size_t at = std::min(position, length);
        const std::size_t count =
            random() % 8 == 0 ? random() % 4000 : random() % 40;  // now and then a big one
        // Erasing is forced now and then so that the text stays below some 6 000 units.
        switch (length > 6000 ? 2 : random() % 6) {
            case 0:
            case 1: {
                const std::u16string inserted = RandomText(random, count);
                const char code = RandomCode(random);
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
        ASSERT_NO_FATAL_FAILURE(ExpectSameContent(text, reference, step));
        if (!reference.text.empty()) {
            const std::size_t probe = random() % reference.text.size();
            ASSERT_EQ(text.FormatAt(probe), FormatOfCode(reference.formats[probe]))
                << "step " << step;
            ASSERT_EQ(text.CharAt(probe), reference.text[probe]) << "step " << step;
            const std::u16string what = reference.text.substr(probe, 1 + random() % 4);
            const std::size_t from = random() % reference.text.size();
            const bool wholeWord = random() % 2 == 0;
            ASSERT_EQ(text.Find(what, from, true, wholeWord),
                      NaiveFind(reference.text, what, from, wholeWord))
                << "step " << step;
        }
    }
}

}  // namespace
}  // namespace tessarin
