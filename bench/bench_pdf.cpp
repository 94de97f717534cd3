#include <benchmark/benchmark.h>

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "config/messages_section.h"
#include "export/pdf_export.h"
#include "export/rtf_export.h"
#include "session/editor_session.h"

namespace {

namespace fs = std::filesystem;
using namespace tessarin;

// A folder of the benchmark's own, removed at the end.
struct BenchFolder {
    BenchFolder() {
        std::string pattern = (fs::temp_directory_path() / "tessarin-bench-pdf-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~BenchFolder() { fs::remove_all(path); }
    fs::path path;
};

// An open story whose main box holds about `characters` characters of French text in
// paragraphs of some hundred words, with bold and italic phrases.
struct PdfStory {
    explicit PdfStory(std::size_t characters) : session(MakeAppPaths(folder.path / "app"), user) {
        for (const MessageDefault& message : MessageDefaults())
            session.configuration.messages.Set(message.key, std::string(message.text));
        session.preferences.StartAutoExport = false;
        session.storyDirectory = folder.path;
        session.storyFileName = "story.xml";
        static constexpr const char16_t* kWords[] = {
            u"le ",     u"conseil ", u"municipal ", u"a ",   u"voté ",     u"hier ",
            u"budget ", u"écoles ",  u"l'été ",     u"5 € ", u"quartier ", u"(maire) "};
        std::mt19937 random(7);
        StyledText& box = session.story.boxes[6];
        CharFormat plain, bold, italic;
        bold.bold = true;
        italic.italic = true;
        std::u16string run;
        std::size_t words = 0;
        while (box.Length() + run.size() < characters) {
            run += kWords[random() % std::size(kWords)];
            if (++words % 100 == 0) run += u"\r\n";
            if (words % 17 == 0) {
                box.Insert(box.Length(), run, plain);
                box.Insert(box.Length(), u"selon le maire ", words % 34 ? bold : italic);
                run.clear();
            }
        }
        box.Insert(box.Length(), run, plain);
    }

    BenchFolder folder;
    ScriptedInteraction user;
    EditorSession session;
};

// Our writer: the cost per character must stay flat from 10 k to 1 M characters.
void BM_PdfExport(benchmark::State& state) {
    PdfStory story(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const BesideStoryExport result = ExportPdfCommand(story.session);
        if (!result.Written()) state.SkipWithError("the PDF was not written");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["ns_per_char"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_PdfExport)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// The office suite converting the RTF of the same story to PDF, its profile made beforehand
// by one conversion that is not timed.
void BM_OfficeRtfToPdf(benchmark::State& state) {
    PdfStory story(static_cast<std::size_t>(state.range(0)));
    const fs::path rtf = ExportRtfCommand(story.session).path;
    const std::string command =
        "soffice -env:UserInstallation=file://" + (story.folder.path / "profile").string() +
        " --headless --convert-to pdf --outdir " + (story.folder.path / "office").string() + " " +
        rtf.string() + " >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) state.SkipWithError("soffice failed");
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0) state.SkipWithError("soffice failed");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_OfficeRtfToPdf)
    ->Arg(100'000)
    ->Iterations(3)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
