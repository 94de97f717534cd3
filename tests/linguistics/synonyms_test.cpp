#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "linguistics/synonyms.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::TempDir;
using Lines = std::vector<std::string>;

constexpr std::string_view kDictionary =
    "  chat\\N:matou\\N\\minet\\N  \r\n"
    "\r\n"
    "chat\\V:fouetter\\V\r\n"
    "sans marque: ignorée\r\n"
    "vite\\ADV:rapidement\\ADV\\prompt\\A\r\n"
    "\xC9t\xE9\\N:saison\\N\r\n"  // Windows-1252 bytes
    "zèbre\\N\r\n";

TEST(Synonyms, ListsTheSynonymsOfAWordOrOfItsSingularWithTheirMarks) {
    TempDir folder;
    const SynonymsLoad load = LoadSynonyms(folder.Write("Synonyms.txt", kDictionary));
    ASSERT_TRUE(load.usable);
    EXPECT_EQ(load.warning, "");
    const struct {
        std::string word;
        Lines lines;
    } cases[] = {
        {"chat", {"matou (n.)", "minet (n.)", "fouetter (v.)"}},
        {"chats", {"matou (n.)", "minet (n.)", "fouetter (v.)"}},
        {"vite", {"rapidement (adv.)", "prompt (adj.)"}},
        {"Été", {"saison (n.)"}},
        {"zèbre", {}},
        {"Chat", {}},
        {"sans marque", {}},
    };
    for (const auto& lookup : cases)
        EXPECT_EQ(SynonymsOf(load.dictionary, lookup.word), lookup.lines) << lookup.word;
    EXPECT_EQ(ReplacementOfLine("rapidement (adv.)"), "rapidement");
    EXPECT_EQ(ReplacementOfLine("### rien"), "");
}

TEST(Synonyms, AMissingFileAndAFullLetterAreWarnedAbout) {
    TempDir folder;
    const SynonymsLoad missing = LoadSynonyms(folder / "none.txt");
    EXPECT_FALSE(missing.usable);
    EXPECT_EQ(missing.warning,
              "Unknown synonyms dictionnary:\r\n" + (folder / "none.txt").string());

    std::string many;
    for (int word = 0; word <= 3000; ++word)
        many += "b" + std::to_string(word) + "\\N:x\\N\n";
    const std::filesystem::path file = folder.Write("many.txt", many);
    const SynonymsLoad full = LoadSynonyms(file);
    EXPECT_TRUE(full.usable);
    EXPECT_EQ(full.warning, "Too much synonyms in file:\r\n" + file.string() + "\r\n");
    EXPECT_EQ(full.dictionary.rows[1].size(), 3000u);
    EXPECT_EQ(SynonymsOf(full.dictionary, "b2999"), Lines{"x (n.)"});
    EXPECT_EQ(SynonymsOf(full.dictionary, "b3000"), Lines{});
}

TEST(Synonyms, TheWordAtTheCaretStopsAtAnApostropheOnlyBehindIt) {
    const std::u16string text = u"l'homme, aujourd'hui\r\nvient";
    const struct {
        std::size_t caret;
        std::u16string word;
    } cases[] = {{3, u"homme"}, {9, u"aujourd'hui"}, {18, u"hui"}, {24, u"vient"}, {0, u"l'homme"}};
    for (const auto& at : cases) {
        const WordRange range = WordAtCaret(text, at.caret);
        EXPECT_EQ(text.substr(range.start, range.length), at.word) << at.caret;
    }
}

}  // namespace
}  // namespace tessarin
