#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <random>
#include <string>

#include "app/user_interaction.h"
#include "common/file_io.h"
#include "story/story_file_writer.h"

namespace {

using namespace tessarin;

constexpr LocalDateTime kNow{2025, 2, 20, 9, 30, 0};

CharFormat Formatted(unsigned pick, const Preferences& preferences) {
    CharFormat format;
    switch (pick) {
        case 0:
            format.bold = true;
            break;
        case 1:
            format.italic = true;
            break;
        case 2:
            format.underline = true;
            break;
        case 3:
            format.bold = format.italic = true;
            break;
        case 4:  // a note's anchor
            format.isProtected = format.highlighted = format.waveUnderline = true;
            format.highlight = preferences.BookmarksColor;
            break;
        case 5:
            format.colour = preferences.InterColor1;
            format.bold = true;
            break;
        case 6:
            format.colour = preferences.InterColor2;
            format.bold = true;
            break;
        case 7:
            format.offset = 100;
            break;
        default:
            break;
    }
    return format;
}

// A main text of length units: paragraphs of 60 to 140 words ending in CR LF; now and then
// a word in bold, italic, underline, bold italic, a note's anchor, an inter style or
// superscript; numbers and units joined by a non-breaking mark (the grey middle dot).
StyledText MakeMainText(std::size_t length, const Preferences& preferences) {
    static const char16_t* const kWords[] = {
        u"le",     u"conseil", u"municipal", u"a",     u"voté",      u"hier",  u"soir", u"budget",
        u"écoles", u"œuvre",   u"projet",    u"l'été", u"habitants", u"maire", u"et",   u"« des »"};
    CharFormat nonBreaking;
    nonBreaking.colour = Rgb(175, 175, 175);
    std::mt19937 random(11);
    StyledText text;
    std::size_t wordsInParagraph = 0;
    while (text.Length() < length) {
        const unsigned pick = random() % 24;
        text.Insert(text.Length(), kWords[random() % std::size(kWords)],
                    Formatted(pick, preferences));
        if (pick == 23) {
            text.Insert(text.Length(), u" 12", CharFormat{});
            text.Insert(text.Length(), u"\u00b7", nonBreaking);
            text.Insert(text.Length(), u"%", CharFormat{});
        }
        const bool paragraphEnds = ++wordsInParagraph > 60 + random() % 80;
        text.Insert(text.Length(), paragraphEnds ? u".\r\n" : u" ", CharFormat{});
        if (paragraphEnds) wordsInParagraph = 0;
    }
    text.Erase(length, text.Length() - length);
    return text;
}

struct BenchStory {
    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;
    StoryRecord story;

    explicit BenchStory(std::size_t length) {
        story.author = "Jean Dupont";
        story.publication = "Le Quotidien";
        story.publicationDate = "20/02/2025";
        story.boxes[0] = StyledText(u"Le budget des écoles voté");
        story.boxes[6] = MakeMainText(length, preferences);
        story.notes = {{"Vérifier", "Chiffre à confirmer", true, false}};
    }
    StoryContext Context() { return StoryContext{configuration, window, preferences, user}; }
};

// A save of a story whose main box holds range(0) characters: the file is composed (the
// body's tags included) and written through a temporary file renamed over the target.
void BM_SaveStory(benchmark::State& state) {
    const std::size_t length = static_cast<std::size_t>(state.range(0));
    BenchStory bench(length);
    const StoryContext context = bench.Context();
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() /
        ("tessarin-bench-save-" + std::to_string(::getpid()) + ".xml");
    for (auto _ : state) {
        const std::string bytes = ComposeStoryFile(bench.story, context, "story.xml", kNow);
        if (!WriteFileAtomically(file, bytes)) state.SkipWithError("cannot write the story");
    }
    std::filesystem::remove(file);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * length));
}
BENCHMARK(BM_SaveStory)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// The composing alone, without the disk.
void BM_ComposeStoryFile(benchmark::State& state) {
    const std::size_t length = static_cast<std::size_t>(state.range(0));
    BenchStory bench(length);
    const StoryContext context = bench.Context();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComposeStoryFile(bench.story, context, "story.xml", kNow));
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * length));
}
BENCHMARK(BM_ComposeStoryFile)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
