#include <benchmark/benchmark.h>

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "cat_comparison.h"
#include "news/news_scan.h"

namespace {

namespace fs = std::filesystem;
using namespace tessarin;
using Clock = std::chrono::steady_clock;

constexpr int kItems = 10000;

// An agency item of some 4 KB: envelope, identification, news lines, metadata and an nitf
// body of twenty paragraphs.
std::string AgencyItem(int number) {
    const std::string id = std::to_string(number);
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE NewsML SYSTEM \"http://127.0.0.1:9/NewsML_1.2.dtd\">\n<NewsML>\n"
        "\t<NewsEnvelope><DateAndTime>202603" +
        std::string(number % 28 < 9 ? "0" : "") + std::to_string(1 + number % 28) + "T" +
        std::to_string(10 + number % 12) + "3000+0100</DateAndTime><Priority FormalName=\"" +
        std::to_string(1 + number % 8) +
        "\"/></NewsEnvelope>\n\t<NewsItem>\n\t\t<Identification><NewsIdentifier>"
        "<NewsItemId>NRD-" +
        id +
        "</NewsItemId><RevisionId>1</RevisionId></NewsIdentifier></Identification>\n"
        "\t\t<NewsManagement><Status FormalName=\"Usable\"/></NewsManagement>\n"
        "\t\t<NewsComponent>\n\t\t\t<NewsLines><HeadLine>Harbour report " +
        id +
        "</HeadLine><DateLine>Troms\xc3\xb8</DateLine><SlugLine>harbour</SlugLine></NewsLines>\n"
        "\t\t\t<DescriptiveMetadata><SubjectCode><Subject FormalName=\"04000000\"/>"
        "</SubjectCode></DescriptiveMetadata>\n"
        "\t\t\t<ContentItem><Characteristics><Property FormalName=\"Words\" Value=\"560\"/>"
        "</Characteristics>\n\t\t\t\t<DataContent><nitf><body><body.content>\n";
    for (int paragraph = 0; paragraph < 20; ++paragraph)
        text +=
            "\t\t\t\t\t<p>The ferries of the northern line sailed again this morning after "
            "three days in port, the harbour master said; the storm has gone east.</p>\n";
    text +=
        "\t\t\t\t</body.content></body></nitf></DataContent>\n\t\t\t</ContentItem>\n"
        "\t\t</NewsComponent>\n\t</NewsItem>\n</NewsML>\n";
    return text;
}

struct NewsStoreBench {
    fs::path root =
        fs::temp_directory_path() / ("tessarin-bench-news-" + std::to_string(::getpid()));

    NewsStoreBench() {
        fs::create_directories(root);
        for (int item = 0; item < kItems; ++item)
            std::ofstream(root / ("item-" + std::to_string(item) + ".xml"), std::ios::binary)
                << AgencyItem(item);
        Cat();  // the files in the page cache
    }
    ~NewsStoreBench() { fs::remove_all(root); }

    double Cat() const { return bench::CatSeconds(root); }

    double Scan(NewsScanner& scanner, std::size_t& rows) const {
        const Clock::time_point start = Clock::now();
        rows = scanner.Scan(root, {}).rows.size();
        return std::chrono::duration<double>(Clock::now() - start).count();
    }
};

// The news list over a store of 10 000 items of some 4 KB: a first scan (every item read), a
// rescan with nothing changed, and cat of the same files, all in each iteration. The counters
// give each time and the ratios of the scans to cat.
void BM_NewsScan(benchmark::State& state) {
    NewsStoreBench bench;
    double first = 0, second = 0, cat = 0;
    for (auto _ : state) {
        NewsScanner scanner;
        std::size_t firstRows = 0, secondRows = 0;
        const double firstScan = bench.Scan(scanner, firstRows);
        const double secondScan = bench.Scan(scanner, secondRows);
        const double catTime = bench.Cat();
        if (firstRows != kItems || secondRows != kItems || catTime < 0) {
            state.SkipWithError("the list does not hold every item, or cat failed");
            break;
        }
        state.SetIterationTime(firstScan);
        first += firstScan;
        second += secondScan;
        cat += catTime;
    }
    bench::SetCatComparisonCounters(state, first, second, cat);
}
BENCHMARK(BM_NewsScan)->UseManualTime()->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
