// The story search over a tree of 10 000 stories of about 5 KB each, in nested folders, a
// tenth of them backup stories. One run measures, on the same files: a first search (nothing
// known yet, every file parsed), a second search with other words (the texts kept from the
// first one), and `cat` of every file with the page cache warm. The counters give each as a
// ratio to `cat`.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "common/file_io.h"
#include "search/search_cache.h"
#include "search/story_search.h"
#include "search/story_walk.h"

namespace {

using namespace tessarin;
namespace fs = std::filesystem;

constexpr int kStories = 10000;

std::string WordsOfAbout(std::size_t bytes, std::mt19937& engine) {
    static const char* const kWords[] = {"conseil",
                                         "municipal",
                                         "vote",
                                         "hier",
                                         "caf\xc3\xa9",
                                         "\xc3\xa9t\xc3\xa9",
                                         "budget",
                                         "&amp;",
                                         "2024",
                                         "port",
                                         "incendie",
                                         "maire",
                                         "\xc3\x89"
                                         "cole",
                                         "rue",
                                         "soir"};
    std::string text;
    while (text.size() < bytes) {
        text += kWords[std::uniform_int_distribution<int>(0, 14)(engine)];
        text += text.size() % 11 == 0 ? "<p/>\r\n" : " ";
    }
    return text;
}

std::string StoryOfAbout5Kb(int index, std::mt19937& engine) {
    std::string story =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<Story AppName=\"Tessarin\">\r\n"
        "<Metadata>\r\n<Author Name=\"Author\">Jean Dupont</Author>\r\n"
        "<CreationDate Name=\"Creation date\">01/02/2025</CreationDate><CreationTime>08:15"
        "</CreationTime>\r\n<LastSaveDate Name=\"Last save date\">20/02/2025</LastSaveDate>"
        "<LastSaveTime>09:30</LastSaveTime>\r\n<LastSaveAuthor>Jean Dupont</LastSaveAuthor>\r\n"
        "<Publication Name=\"Publication\">Le Quotidien</Publication>\r\n"
        "<SectionGeneral Name=\"Section\">Ville</SectionGeneral>\r\n"
        "<PublicationDate Name=\"Publication date\">20/02/2025</PublicationDate>\r\n"
        "<Form Name=\"Form\">Article</Form>\r\n</Metadata>\r\n<Body>\r\n"
        "<TextBox0 CharCount=\"40\" WordCount=\"6\" Name=\"Title\">Story number ";
    story += std::to_string(index);
    story += "</TextBox0>\r\n<TextBox6 CharCount=\"4000\" WordCount=\"600\" Name=\"Text\">";
    story += WordsOfAbout(4200, engine);
    story +=
        "</TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n<Image href=\"a.jpg\"/>\r\n"
        "<Caption>Le port</Caption>\r\n<Credit>AFP</Credit>\r\n"
        "<IPTCKeywords>port; soir</IPTCKeywords>\r\n</ImageBag>\r\n</Images>\r\n</Story>\r\n";
    return story;
}

// Made once for the program, removed at its end.
struct StoryTree {
    StoryTree()
        : root(fs::temp_directory_path() /
               ("tessarin-bench-search-" + std::to_string(::getpid()))) {
        std::mt19937 engine(7);
        for (int index = 0; index < kStories; ++index) {
            const fs::path folder = root / ("desk" + std::to_string(index % 10)) /
                                    ("day" + std::to_string(index / 10 % 10)) /
                                    ("hour" + std::to_string(index / 100 % 10));
            fs::create_directories(folder);
            const char* extension = index % 10 == 3 ? ".bml" : ".xml";
            std::ofstream(folder / ("story" + std::to_string(index) + extension), std::ios::binary)
                << StoryOfAbout5Kb(index, engine);
        }
        std::ofstream list(root / "files.txt");
        for (const fs::path& file : WalkFolderFiles(root, true))
            list << file.string() << '\0';
    }
    ~StoryTree() { fs::remove_all(root); }
    fs::path root;
};

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void BM_StorySearch(benchmark::State& state) {
    static const StoryTree tree;
    const std::string cat =
        "xargs -0 cat < '" + (tree.root / "files.txt").string() + "' > /dev/null";
    double first = 0, second = 0, catTime = 0;
    std::size_t found = 0;
    for (auto _ : state) {
        SearchCache cache;
        const double firstRun = Seconds([&] {
            found = SearchStories(tree.root,
                                  MakeSearchQuery("conseil budget", SearchScope::WholeStory,
                                                  SearchOperator::AllWords, false),
                                  cache)
                        .Found();
        });
        const double secondRun = Seconds([&] {
            found += SearchStories(tree.root,
                                   MakeSearchQuery("maire soir", SearchScope::Text,
                                                   SearchOperator::ExactExpression, true),
                                   cache)
                         .Found();
        });
        const double catRun = Seconds([&] {
            if (std::system(cat.c_str()) != 0) state.SkipWithError("cat failed");
        });
        state.SetIterationTime(firstRun);
        first += firstRun;
        second += secondRun;
        catTime += catRun;
        benchmark::DoNotOptimize(found);
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["first_ms"] = first / runs * 1000;
    state.counters["second_ms"] = second / runs * 1000;
    state.counters["cat_ms"] = catTime / runs * 1000;
    state.counters["first_per_cat"] = first / catTime;
    state.counters["second_per_cat"] = second / catTime;
}
BENCHMARK(BM_StorySearch)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
