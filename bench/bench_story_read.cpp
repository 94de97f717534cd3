// Opening a story whose main text box holds a long story: parse, metadata, the seven boxes
// through the markup reader with their counters, notes and attachments. Items are
// characters of box 6, so the time per character at 10 000, 100 000 and 1 000 000
// characters can be compared; it must stay flat.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "story/story_context.h"
#include "story/story_file_reader.h"
#include "story/story_markup.h"
#include "story/story_record.h"

namespace {

using namespace tessarin;

// Paragraphs of words, some bold, italic or underlined, an intertitle in the first inter
// style every eight paragraphs, non-breaking spaces, accents and a note anchor now and then.
StyledText FormattedStory(std::size_t characters) {
    constexpr std::array<std::u16string_view, 10> kWords = {
        u"the",        u"council", u"voted",   u"yesterday", u"caf\u00E9",
        u"\u0153uvre", u"&",       u"<works>", u"2024",      u"\u20AC12"};
    std::mt19937 engine(11);
    const auto roll = [&engine](int below) {
        return std::uniform_int_distribution<int>(0, below - 1)(engine);
    };
    CharFormat intertitle;
    intertitle.colour = Rgb(0, 0, 255);
    intertitle.bold = true;
    CharFormat note;
    note.isProtected = note.highlighted = note.waveUnderline = true;
    note.highlight = Rgb(255, 255, 0);
    StyledText text;
    for (int paragraph = 0; text.Length() < characters; ++paragraph) {
        const bool isIntertitle = paragraph % 8 == 0;
        for (int word = 0; word < (isIntertitle ? 4 : 50); ++word) {
            CharFormat format = isIntertitle ? intertitle : CharFormat();
            if (!isIntertitle) {
                const int style = roll(15);
                format.bold = style == 0;
                format.italic = style == 1;
                format.underline = style == 2;
            }
            if (word > 0) text.Insert(text.Length(), roll(20) == 0 ? u"\u00B7" : u" ", format);
            text.Insert(text.Length(), kWords[static_cast<std::size_t>(roll(kWords.size()))],
                        format);
            if (!isIntertitle && roll(300) == 0) text.Insert(text.Length(), u"AL 21/11", note);
        }
        text.Insert(text.Length(), u".\r\n", CharFormat());
    }
    text.Erase(characters, text.Length() - characters);
    return text;
}

std::string StoryFile(const StyledText& mainText) {
    StoryBodyInput input;
    input.boxes[kMainTextBox] = {&mainText, "Text", static_cast<std::int32_t>(mainText.Length())};
    const StyledText title(u"A title");
    input.boxes[0] = {&title, "Title", 7};
    input.signature = "AL";
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- bench.xml -->\r\n"
           "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Author Name=\"By\">Ann Lee</Author>\r\n<Publication Name=\"Paper\">Herald"
           "</Publication>\r\n</Metadata>\r\n<Body>\r\n" +
           StoryTextToTags(input) +
           "</Body>\r\n<Notes>\r\n<Note Name=\"AL 21/11\" Bookmark=\"true\">Check</Note>\r\n"
           "</Notes>\r\n</Story>\r\n";
}

void BM_ReadStory(benchmark::State& state) {
    const auto characters = static_cast<std::size_t>(state.range(0));
    const std::filesystem::path file = std::filesystem::temp_directory_path() /
                                       ("tessarin-bench-read-" + std::to_string(getpid()) + "-" +
                                        std::to_string(characters) + ".xml");
    std::ofstream(file, std::ios::binary) << StoryFile(FormattedStory(characters));

    Configuration configuration;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;
    const StoryContext context{configuration, window, preferences, user};
    StoryRecord story;
    for (auto _ : state) {
        if (ReadStory(file, context, story) != StoryReadOutcome::Read) {
            state.SkipWithError("the story did not read");
            break;
        }
        benchmark::DoNotOptimize(story.counters[kMainTextBox].count);
    }
    std::filesystem::remove(file);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(characters));
}
BENCHMARK(BM_ReadStory)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
