#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "app/editor_session.h"
#include "editing/copy_fit.h"

namespace {

using tessarin::EditorSession;

// A main text of length units: sentences of plain words, a paragraph break (CR LF) now and
// then, as a long story has them.
std::u16string MakeMainText(std::size_t length) {
    static const std::u16string kSentence =
        u"Le conseil municipal a voté hier soir le budget des écoles. ";
    std::u16string text;
    text.reserve(length + kSentence.size());
    for (std::size_t sentence = 1; text.size() < length; ++sentence) {
        text += kSentence;
        if (sentence % 8 == 0) text += u"\r\n";
    }
    text.resize(length);
    return text;
}

// One key typed into the main box through the editor's own entry: the insertion, the count
// kept from the change, the copy-fit display (both sizes lie far beyond the limits, so each
// key builds the warning), the total and the menus, and the all-caps test. The caret moves on
// from the middle of the text; every kBurst keys the burst is deleted with one key, so the
// size stays put.
void BM_TypeInLargeBox(benchmark::State& state) {
    constexpr std::size_t kBurst = 256;
    const auto size = static_cast<std::size_t>(state.range(0));
    tessarin::ScriptedInteraction user;
    EditorSession session(tessarin::MakeAppPaths(std::filesystem::temp_directory_path()), user);
    session.panel.limits[tessarin::kMainTextBox] = {100, 200};
    session.story.boxes[tessarin::kMainTextBox] = tessarin::StyledText(MakeMainText(size));
    tessarin::RecountAllBoxes(session);

    const std::size_t middle = size / 2;
    std::size_t typed = 0;
    for (auto _ : state) {
        tessarin::TypeText(session, tessarin::kMainTextBox, middle + typed, u"e");
        if (++typed == kBurst) {
            tessarin::TypeText(session, tessarin::kMainTextBox, middle, u"", kBurst);
            typed = 0;
        }
    }
    benchmark::DoNotOptimize(session.story.counters[tessarin::kMainTextBox].count);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(BM_TypeInLargeBox)->Arg(1000)->Arg(1000000);

}  // namespace
