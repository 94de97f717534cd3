#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "editing/copy_fit.h"
#include "editing/search_replace.h"
#include "editing/typography_typing.h"
#include "session/editor_session.h"

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

// Keys through the typing rules, all three switched on, typed as BM_TypeInLargeBox types them
// (without the undo steps of the editor's typing bursts, which snapshot the whole box), with keys
// that set them off: a blank after a blank is swallowed, "?" after a blank turns it into a mark,
// "!" after a letter puts a mark before it, and the double quote alternates « and » with their
// marks. Every kBurst keys what they put in is deleted with one key.
void BM_TypeInLargeBoxWithTypography(benchmark::State& state) {
    constexpr std::u16string_view kKeys = u"ab  ?c!\"d\" ";
    constexpr std::size_t kBurst = 240;
    const auto size = static_cast<std::size_t>(state.range(0));
    tessarin::ScriptedInteraction user;
    EditorSession session(tessarin::MakeAppPaths(std::filesystem::temp_directory_path()), user);
    session.preferences.FrenchQuotationMarks = true;
    session.panel.limits[tessarin::kMainTextBox] = {100, 200};
    session.story.boxes[tessarin::kMainTextBox] = tessarin::StyledText(MakeMainText(size));
    tessarin::RecountAllBoxes(session);
    tessarin::TypographyTyping typing;

    const std::size_t middle = size / 2;
    std::size_t caret = middle;
    std::size_t typed = 0;
    for (auto _ : state) {
        const char16_t key = kKeys[typed % kKeys.size()];
        const auto stretch = typing.Type(session, nullptr, tessarin::kMainTextBox, caret,
                                         std::u16string_view(&key, 1), 0, false);
        if (stretch) caret = stretch->caret;
        if (++typed == kBurst) {
            tessarin::TypeText(session, tessarin::kMainTextBox, middle, u"", caret - middle);
            caret = middle;
            typed = 0;
        }
    }
    benchmark::DoNotOptimize(session.story.counters[tessarin::kMainTextBox].count);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}
BENCHMARK(BM_TypeInLargeBoxWithTypography)->Arg(1000)->Arg(1000000);

// Replace all over a main box of n units holding a hit every 99 units: "chat" becomes
// "chien" and back again, so that each iteration replaces every hit twice and the box keeps
// its size. Items are the units of the box, so that the rate is the cost per character.
void BM_ReplaceAll(benchmark::State& state) {
    static const std::u16string kSentence =
        u"Le conseil municipal a vot\u00E9 hier soir le budget des \u00E9coles et du chat de "
        u"la mairie, sans un d\u00E9bat. ";
    const auto size = static_cast<std::size_t>(state.range(0));
    std::u16string text;
    while (text.size() < size)
        text += kSentence;
    text.resize(size);
    tessarin::ScriptedInteraction user;
    EditorSession session(tessarin::MakeAppPaths(std::filesystem::temp_directory_path()), user);
    session.story.boxes[tessarin::kMainTextBox] = tessarin::StyledText(text);
    tessarin::RecountAllBoxes(session);

    const tessarin::SearchOptions there{u"chat", true, true};
    const tessarin::SearchOptions back{u"chien", true, true};
    std::int64_t hits = 0;
    for (auto _ : state) {
        hits = tessarin::ReplaceAll(session, there, u"chien");
        tessarin::ReplaceAll(session, back, u"chat");
    }
    state.counters["hits"] = static_cast<double>(hits);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * size));
}
BENCHMARK(BM_ReplaceAll)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
