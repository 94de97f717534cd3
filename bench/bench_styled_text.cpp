#include <benchmark/benchmark.h>

#include <cstddef>
#include <random>
#include <string>

#include "text/styled_text.h"

namespace {

using tessarin::CharFormat;
using tessarin::StyledText;

// A story-like text of about length units: paragraphs of some hundred words ending in
// CR LF, a bold word or phrase every few sentences and an italic one now and then.
StyledText MakeStory(std::size_t length) {
    static const char16_t* const kWords[] = {u"le",        u"conseil", u"municipal", u"a",
                                             u"voté",      u"hier",    u"soir",      u"budget",
                                             u"écoles",    u"œuvre",   u"projet",    u"quartier",
                                             u"habitants", u"maire",   u"et",        u"des"};
    CharFormat bold;
    bold.bold = true;
    CharFormat italic;
    italic.italic = true;
    std::mt19937 random(7);
    StyledText story;
    std::size_t wordsInParagraph = 0;
    while (story.Length() < length) {
        const std::u16string word = kWords[random() % std::size(kWords)];
        const unsigned pick = random() % 40;
        const CharFormat format = pick == 0 ? bold : pick == 1 ? italic : CharFormat{};
        story.Insert(story.Length(), word, format);
        const bool paragraphEnds = ++wordsInParagraph > 60 + random() % 80;
        story.Insert(story.Length(), paragraphEnds ? u".\r\n" : u" ", CharFormat{});
        if (paragraphEnds) wordsInParagraph = 0;
    }
    story.Erase(length, story.Length() - length);
    return story;
}

// One typed character: a plain unit goes in at the caret, then the format there is read, as
// the editor does to show the toolbar's state. The caret moves on from the middle of the
// text; every kBurst characters the burst is erased in one edit, so the size stays put.
void BM_StyledTextTypeChar(benchmark::State& state) {
    constexpr std::size_t kBurst = 256;
    const std::size_t size = static_cast<std::size_t>(state.range(0));
    StyledText story = MakeStory(size);
    const std::size_t middle = size / 2;
    std::size_t typed = 0;
    for (auto _ : state) {
        const std::size_t caret = middle + typed;
        story.Insert(caret, u"e", CharFormat{});
        benchmark::DoNotOptimize(story.FormatAt(caret));
        if (++typed == kBurst) {
            story.Erase(middle, kBurst);
            typed = 0;
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(BM_StyledTextTypeChar)->Arg(1000)->Arg(1000000);

}  // namespace
