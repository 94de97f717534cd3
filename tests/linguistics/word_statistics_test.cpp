#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/utf8.h"
#include "linguistics/spelling_bridge.h"
#include "linguistics/word_statistics.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using Boxes = std::array<StyledText, kTextBoxCount>;

// "WORD:count" for every listed word, row by row.
std::vector<std::string> Listed(const WordStatistics& statistics) {
    std::vector<std::string> listed;
    for (const auto& row : statistics.rows) {
        for (const WordOccurrences& word : row)
            listed.push_back(Utf16ToUtf8(word.word) + ":" + std::to_string(word.count) +
                             (word.unknown ? "?" : ""));
    }
    return listed;
}

Boxes TwoBoxes(std::u16string_view first, std::u16string_view main) {
    Boxes boxes;
    boxes[0] = StyledText(first);
    boxes[kMainTextBox] = StyledText(main);
    return boxes;
}

TEST(WordStatistics, CountsWordsAsTheStoryWritesThem) {
    const struct {
        std::u16string text;
        std::vector<std::string> listed;
    } cases[] = {
        {u"aujourd'hui l'homme", {"aujourd'hui:1", "homme:1"}},
        {u"Aujourd'hui", {"Aujourd:1", "hui:1"}},
        {u"En 1998 le B2, 3.5 et b2", {"B2:2", "En:1", "et:1", "le:1"}},
        {u"Porte porte PORTE-fenêtre", {"fenêtre:1", "Porte:3"}},
        {u"Été «été» ÉTÉ quelqu'un", {"quelqu'un:1", "Été:3"}},
        {u"a·b_c{dd}<ee>\\ff/gg\tpresqu'île", {"dd:1", "ee:1", "ff:1", "gg:1", "presqu'île:1"}},
    };
    for (const auto& analysed : cases) {
        const WordStatistics statistics = AnalyseWords(TwoBoxes(u"", analysed.text), nullptr);
        EXPECT_EQ(Listed(statistics), analysed.listed) << Utf16ToUtf8(analysed.text);
    }
}

TEST(WordStatistics, LeavesOutNotesAndEmptyWordsAndTotalsEveryBox) {
    Boxes boxes = TwoBoxes(u"Le titre du jour", u"Le jour ");
    CharFormat note;
    note.isProtected = true;
    boxes[kMainTextBox].Insert(boxes[kMainTextBox].Length(), u"notée", note);
    boxes[kMainTextBox].Insert(boxes[kMainTextBox].Length(), u" se lève", CharFormat{});

    const EmptyWords empty({"le", "DU"});
    const WordStatistics statistics = AnalyseWords(boxes, &empty);
    EXPECT_EQ(Listed(statistics),
              (std::vector<std::string>{"jour:2", "lève:1", "se:1", "titre:1"}));
    EXPECT_EQ(statistics.occurrences, 5);
    EXPECT_EQ(statistics.DistinctWords(), 4u);
    EXPECT_EQ(AnalyseWords(boxes, nullptr).occurrences, 8);
}

TEST(WordStatistics, AFullListStopsTheAnalysis) {
    std::u16string text;
    for (std::size_t word = 0; word <= kWordsPerRow; ++word)
        text += u"w" + Utf8ToUtf16(std::to_string(word)) + u" ";
    text += u"zz";
    const WordStatistics statistics = AnalyseWords(TwoBoxes(u"", text), nullptr);
    EXPECT_TRUE(statistics.truncated);
    EXPECT_EQ(statistics.rows['W' - 'A'].size(), kWordsPerRow);
    EXPECT_TRUE(statistics.rows['Z' - 'A'].empty());
}

TEST(WordStatistics, MarksUnknownWordsAndFindsWhereAWordStands) {
    testing::TempDir folder;
    SpellingSettings settings;
    settings.language = "fr";
    settings.personalDictionary = folder / "personal.txt";
    settings.dictionaryFolders = {"/usr/share/hunspell"};
    SpellingBridge bridge;
    ASSERT_EQ(bridge.Start(settings), "");
    const Boxes boxes = TwoBoxes(u"Une fôte", u"Pas de faute, une FAUTE?\r\nfautes");
    WordStatistics statistics = AnalyseWords(boxes, nullptr);
    MarkUnknownWords(statistics, bridge);
    EXPECT_EQ(Listed(statistics), (std::vector<std::string>{"de:1", "fôte:1?", "faute:2",
                                                            "fautes:1", "Pas:1", "Une:2"}));

    const WordPlaces places = PlacesOfWord(boxes, u"Faute");
    EXPECT_EQ(places.text, u"Pas de faute, une FAUTE?\r\nfautes\r\n");
    EXPECT_EQ(places.occurrences,
              (std::vector<std::pair<std::size_t, std::size_t>>{{7, 5}, {18, 5}}));
}

}  // namespace
}  // namespace tessarin
