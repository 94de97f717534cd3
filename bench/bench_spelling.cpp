#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/utf8.h"
#include "linguistics/spelling_bridge.h"
#include "linguistics/word_statistics.h"
#include "story/word_count.h"

namespace {

namespace fs = std::filesystem;
using tessarin::StyledText;

const fs::path kDictionaryFolder = "/usr/share/hunspell";

// Words of the French dictionary (its stems, without flags), the vocabulary of the stories.
std::vector<std::u16string> FrenchVocabulary(std::size_t count) {
    std::ifstream dictionary(kDictionaryFolder / "fr_FR.dic");
    std::vector<std::u16string> words;
    std::string line;
    std::getline(dictionary, line);  // the number of entries
    std::size_t seen = 0;
    while (words.size() < count && std::getline(dictionary, line)) {
        const std::string stem = line.substr(0, line.find_first_of("/ \t"));
        // Every seventh entry, so that the words come from the whole alphabet.
        if (stem.size() > 1 && ++seen % 7 == 0) words.push_back(tessarin::Utf8ToUtf16(stem));
    }
    return words;
}

// A story text of about the given number of words: words drawn with a long-tailed
// distribution as prose has them, one in forty misspelt by a doubled letter, punctuation and
// a paragraph break (CR LF) now and then.
std::u16string FrenchStory(std::size_t words) {
    const std::vector<std::u16string> vocabulary = FrenchVocabulary(6000);
    std::mt19937 random(16);
    std::geometric_distribution<std::size_t> rank(0.004);
    std::u16string text;
    for (std::size_t word = 1; word <= words; ++word) {
        std::u16string chosen = vocabulary[rank(random) % vocabulary.size()];
        if (word % 40 == 0) chosen.insert(chosen.size() / 2, 1, chosen[chosen.size() / 2]);
        text += chosen;
        text += word % 97 == 0 ? u".\r\n" : word % 11 == 0 ? u", " : u" ";
    }
    return text;
}

fs::path PlainTextFile(const std::u16string& text) {
    const fs::path file = fs::temp_directory_path() / "tessarin_bench_spelling.txt";
    std::ofstream(file, std::ios::binary) << tessarin::Utf16ToUtf8(text);
    return file;
}

tessarin::SpellingSettings FrenchSettings() {
    tessarin::SpellingSettings settings;
    settings.language = "fr_FR";
    settings.dictionaryFolders = {kDictionaryFolder};
    settings.personalDictionary = fs::temp_directory_path() / "tessarin_bench_personal.txt";
    return settings;
}

constexpr std::size_t kStoryWords = 100000;

// The unknown words of a story of 100 000 words, dictionary loading included, as
// "hunspell -l -d fr_FR" below does on the same text.
void BM_SpellStory(benchmark::State& state) {
    const StyledText story(FrenchStory(kStoryWords));
    std::size_t unknown = 0;
    for (auto _ : state) {
        tessarin::SpellingBridge bridge;
        if (!bridge.Start(FrenchSettings()).empty()) state.SkipWithError("no French dictionary");
        unknown = bridge.UnknownWords(story).size();
        bridge.Stop();
    }
    state.counters["unknown"] = static_cast<double>(unknown);
}
BENCHMARK(BM_SpellStory)->Unit(benchmark::kMillisecond);

// The same check with the dictionary already loaded: the cost of the words alone.
void BM_SpellStoryLoaded(benchmark::State& state) {
    const StyledText story(FrenchStory(kStoryWords));
    std::size_t unknown = 0;
    for (auto _ : state) {
        state.PauseTiming();
        tessarin::SpellingBridge bridge;
        bridge.Start(FrenchSettings());
        state.ResumeTiming();
        unknown = bridge.UnknownWords(story).size();
    }
    state.counters["unknown"] = static_cast<double>(unknown);
}
BENCHMARK(BM_SpellStoryLoaded)->Unit(benchmark::kMillisecond);

// The reference: the hunspell program listing the unknown words of the same plain text.
void BM_HunspellList(benchmark::State& state) {
    const fs::path file = PlainTextFile(FrenchStory(kStoryWords));
    const std::string command =
        "hunspell -l -d " + (kDictionaryFolder / "fr_FR").string() + " < " + file.string();
    std::size_t unknown = 0;
    for (auto _ : state) {
        FILE* listing = popen(command.c_str(), "r");
        if (listing == nullptr) state.SkipWithError("hunspell cannot run");
        unknown = 0;
        for (int c = std::fgetc(listing); c != EOF; c = std::fgetc(listing))
            unknown += c == '\n';
        if (pclose(listing) != 0) state.SkipWithError("hunspell failed");
    }
    state.counters["unknown"] = static_cast<double>(unknown);
    fs::remove(file);
}
BENCHMARK(BM_HunspellList)->Unit(benchmark::kMillisecond);

// A story of 1 000 000 characters in the main box.
std::array<StyledText, tessarin::kTextBoxCount> MillionCharacterStory() {
    std::u16string text = FrenchStory(150000);
    text.resize(1000000);
    std::array<StyledText, tessarin::kTextBoxCount> boxes;
    boxes[tessarin::kMainTextBox] = StyledText(text);
    return boxes;
}

void BM_WordStatistics(benchmark::State& state) {
    const auto boxes = MillionCharacterStory();
    for (auto _ : state) {
        const tessarin::WordStatistics statistics = tessarin::AnalyseWords(boxes, nullptr);
        benchmark::DoNotOptimize(statistics.occurrences);
    }
}
BENCHMARK(BM_WordStatistics)->Unit(benchmark::kMillisecond);

// The story's word count, as the editor keeps it.
void BM_CountStoryWords(benchmark::State& state) {
    const auto boxes = MillionCharacterStory();
    for (auto _ : state) {
        for (const StyledText& box : boxes)
            benchmark::DoNotOptimize(tessarin::CountStoryWords(box));
    }
}
BENCHMARK(BM_CountStoryWords)->Unit(benchmark::kMillisecond);

// Counting each word's occurrences in the plainest way: the text cut at blanks, each piece
// tallied in a hash table.
void BM_PlainWordTally(benchmark::State& state) {
    const auto boxes = MillionCharacterStory();
    for (auto _ : state) {
        std::unordered_map<std::u16string, int> tally;
        for (const StyledText& box : boxes) {
            const std::u16string text = box.Text();
            std::size_t start = 0;
            for (std::size_t at = 0; at <= text.size(); ++at) {
                if (at < text.size() && text[at] != u' ' && text[at] != u'\r' && text[at] != u'\n')
                    continue;
                if (at > start) ++tally[text.substr(start, at - start)];
                start = at + 1;
            }
        }
        benchmark::DoNotOptimize(tally.size());
    }
}
BENCHMARK(BM_PlainWordTally)->Unit(benchmark::kMillisecond);

}  // namespace
