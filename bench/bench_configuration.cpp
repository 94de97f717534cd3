// The configuration load on a large house: the publications tree dominates its cost. Each
// benchmark reports the time per publication node; it must stay flat from 1 000 to 10 000
// nodes. The benchmark program's one main() is shared by every file of bench/.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "app/window_state.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"
#include "config/publications_tree.h"

namespace {

using namespace tessarin;

// Every publication holds 4 classifications of 4 sections of 4 sub-sections: 85 nodes.
constexpr int kBranching = 4;
constexpr int kNodesPerPublication = 1 + kBranching * (1 + kBranching * (1 + kBranching));

struct GeneratedDocument {
    std::string text;
    int nodes = 0;
};

GeneratedDocument GenerateDocument(int wantedNodes) {
    GeneratedDocument document;
    std::string& text = document.text;
    text = R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="1.0" StoriesEncoding="UTF-8" Client="Bench">
<FTPTransmission><FTPServer IPNumber="ftp.example.org" User="bench"/></FTPTransmission>
<Metadata><Forms><Form Name="News" TextBoxes="1237" MaxImages="2" ImageSize1="400"/></Forms>
<Status><StatusItem Name="Ready" FormalName="Usable"/></Status></Metadata>
<Story><TextBox7 Name="Body"/></Story>
<Publications>
)";
    const int publications = (wantedNodes + kNodesPerPublication - 1) / kNodesPerPublication;
    for (int p = 0; p < publications; ++p) {
        text += "<Publication Name=\"Title " + std::to_string(p) + "\">\n";
        for (int c = 0; c < kBranching; ++c) {
            text += "<Classification Name=\"Edition " + std::to_string(c) + "\" Type=\"" +
                    (c % 2 ? "Local" : "General") + "\"" + (c == 3 ? " Preferred=\"false\"" : "") +
                    ">\n";
            for (int s = 0; s < kBranching; ++s) {
                text += "<Section Name=\"Section " + std::to_string(s) + "\">\n";
                for (int t = 0; t < kBranching; ++t) {
                    text += "<SubSection Name=\"Page " + std::to_string(t) + "\" Code1=\"" +
                            std::to_string(t) + "\" Code2=\"" + std::to_string(s) + "\"/>\n";
                }
                text += "</Section>\n";
            }
            text += "</Classification>\n";
        }
        text += "</Publication>\n";
    }
    text += "</Publications>\n</Tessarin>\n";
    document.nodes = publications * kNodesPerPublication;
    return document;
}

// A generated document on disk for the length of one benchmark.
class DocumentOnDisk {
  public:
    explicit DocumentOnDisk(int wantedNodes) {
        const GeneratedDocument document = GenerateDocument(wantedNodes);
        nodes_ = document.nodes;
        folder_ = std::filesystem::temp_directory_path() /
                  ("tessarin-bench-config-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder_);
        std::ofstream(folder_ / "Tessarin.xml", std::ios::binary) << document.text;
    }
    ~DocumentOnDisk() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    DocumentOnDisk(const DocumentOnDisk&) = delete;
    DocumentOnDisk& operator=(const DocumentOnDisk&) = delete;

    std::filesystem::path Document() const { return folder_ / "Tessarin.xml"; }
    std::filesystem::path Preferences() const { return folder_ / "Tessarin.ini"; }
    int Nodes() const { return nodes_; }

  private:
    std::filesystem::path folder_;
    int nodes_ = 0;
};

void ReportPerNode(benchmark::State& state, int nodes) {
    const auto processed = static_cast<int64_t>(state.iterations()) * nodes;
    state.SetItemsProcessed(processed);
    state.counters["nodes"] = nodes;
    state.counters["time_per_node"] = benchmark::Counter(
        static_cast<double>(processed), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// The whole load of start-up, publications in the preferred view (a quarter left out).
void BM_LoadConfiguration(benchmark::State& state) {
    const DocumentOnDisk disk(static_cast<int>(state.range(0)));
    const ProfileFile profile(disk.Preferences());
    const Preferences preferences;
    Configuration configuration;
    WindowState window;
    for (auto _ : state) {
        const bool loaded =
            LoadConfiguration(disk.Document(), profile, preferences, configuration, window);
        if (!loaded) state.SkipWithError("the generated document did not load");
        benchmark::DoNotOptimize(window.Tree("treePublications").Roots().size());
    }
    ReportPerNode(state, disk.Nodes());
}
BENCHMARK(BM_LoadConfiguration)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

// The switch to the full view: the document read again and the whole tree built.
void BM_ShowAllPublications(benchmark::State& state) {
    const DocumentOnDisk disk(static_cast<int>(state.range(0)));
    const Preferences preferences;
    Configuration configuration;
    WindowState window;
    for (auto _ : state) {
        if (!ShowAllPublications(disk.Document(), preferences, configuration, window)) {
            state.SkipWithError("the generated document did not load");
        }
        benchmark::DoNotOptimize(window.Tree("treePublications").Roots().size());
    }
    ReportPerNode(state, disk.Nodes());
}
BENCHMARK(BM_ShowAllPublications)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
