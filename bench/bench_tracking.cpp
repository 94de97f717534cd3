#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/app_paths.h"
#include "app/user_interaction.h"
#include "cat_comparison.h"
#include "session/editor_session.h"
#include "tracking/tracking_window.h"

namespace {

namespace fs = std::filesystem;
using namespace tessarin;
using Clock = std::chrono::steady_clock;

constexpr int kCopies = 10000;

// A tracking copy as a send leaves it, some 5 KB: metadata, seven boxes, a picture and logs.
std::string TrackingCopy(int number) {
    const std::string day = std::to_string(1 + number % 28);
    std::string text = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- story-" +
                       std::to_string(number) +
                       ".xml -->\r\n<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n"
                       "<Metadata>\r\n<Publication Name=\"Paper\">Herald</Publication>\r\n"
                       "<Classification>" +
                       std::string(number % 2 ? "Local" : "General") +
                       "</Classification>\r\n<SectionLocal>Section " + std::to_string(number % 7) +
                       "</SectionLocal>\r\n<PublicationDate " + "Name=\"Date\">" +
                       (day.size() == 1 ? "0" + day : day) +
                       "/03/2024</PublicationDate>\r\n<Form>Brief</Form>\r\n<Author>Author " +
                       std::to_string(number % 13) +
                       "</Author>\r\n<LastSaveAuthor>Editor</LastSaveAuthor>\r\n</Metadata>\r\n"
                       "<Body>\r\n<TextBox3 CharCount=\"30\">Le budget des \xe9"
                       "coles vot\xe9 hier soir</TextBox3>\r\n<TextBox6 CharCount=\"4000\">";
    for (int paragraph = 0; paragraph < 60; ++paragraph)
        text += "Le conseil municipal a vot\xe9 le budget, <b>dit-il</b>.<p/>\r\n";
    text +=
        "</TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n<Image href=\"file:///photos/"
        "p" +
        std::to_string(number) +
        ".jpg\"/>\r\n</ImageBag>\r\n</Images>\r\n<Logs><Log Type=\"U\">04/03/2024 10:00 - "
        "Ann -&gt; Desk</Log><Log Type=\"" +
        std::string(number % 3 ? "U" : "L") + "\">05/03/2024 09:07 - Desk</Log></Logs>" +
        "</Story>\r\n";
    return text;
}

struct TrackingBench {
    fs::path root =
        fs::temp_directory_path() / ("tessarin-bench-tracking-" + std::to_string(::getpid()));
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(root / "app"), user};

    TrackingBench() {
        ::setenv("TESSARIN_SHORT_DATE", "dd/MM/yyyy", 1);
        ::setenv("TESSARIN_NOW", "2024-03-15T09:00:00", 1);
        fs::create_directories(root / "texts");
        for (int copy = 0; copy < kCopies; ++copy)
            std::ofstream(root / "texts" / ("story-" + std::to_string(copy) + ".xml"),
                          std::ios::binary)
                << TrackingCopy(copy);
        session.configuration.workflow.TrackingTextsDirectory = (root / "texts").string();
        Cat();  // the files in the page cache
    }
    ~TrackingBench() { fs::remove_all(root); }

    double Cat() const { return bench::CatSeconds(root / "texts"); }

    double Update(TrackingWindow& window) {
        const Clock::time_point start = Clock::now();
        UpdateTracking(session, window);
        return std::chrono::duration<double>(Clock::now() - start).count();
    }
};

// The tracking tree over 10 000 tracking copies of 5 KB: a first update (every file read), a
// second one with nothing changed, and cat of the same files, all in each iteration. The
// counters give each time and the ratios of the updates to cat.
void BM_TrackingUpdate(benchmark::State& state) {
    TrackingBench bench;
    double first = 0, second = 0, cat = 0;
    for (auto _ : state) {
        TrackingWindow window;
        const double firstUpdate = bench.Update(window);
        const double secondUpdate = bench.Update(window);
        const double catTime = bench.Cat();
        if (window.counts.stories != kCopies || catTime < 0) {
            state.SkipWithError("the tree does not hold every story, or cat failed");
            break;
        }
        state.SetIterationTime(firstUpdate);
        first += firstUpdate;
        second += secondUpdate;
        cat += catTime;
    }
    bench::SetCatComparisonCounters(state, first, second, cat);
}
BENCHMARK(BM_TrackingUpdate)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
