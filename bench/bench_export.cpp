#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "export/export_newsml.h"
#include "export/export_nitf.h"

namespace {

using tessarin::ExportContext;
using tessarin::XmlDocument;

// One unit of box text: its markup as the story file holds it and the characters it shows.
struct Piece {
    std::string_view markup;
    std::size_t characters;
};

// The markup of text box 6 showing about `characters` characters: paragraphs of some
// hundred words ending in a break, a bold or italic phrase every few sentences, an
// intertitle now and then, entities, non-breaking spaces, special characters and notes.
std::string BoxMarkup(std::size_t characters) {
    static constexpr Piece kWords[] = {{"le ", 3},
                                       {"conseil ", 8},
                                       {"municipal ", 10},
                                       {"a ", 2},
                                       {"vot\xC3\xA9 ", 5},
                                       {"hier ", 5},
                                       {"soir ", 5},
                                       {"budget ", 7},
                                       {"\xC3\xA9"
                                        "coles ",
                                        7},
                                       {"<oe/>uvre ", 6},
                                       {"projet ", 7},
                                       {"quartier ", 9},
                                       {"l&apos;", 2},
                                       {"maire ", 6},
                                       {"&amp; ", 2},
                                       {"5&#160;", 2},
                                       {"<euro/> ", 2},
                                       {"des ", 4}};
    static constexpr Piece kFormats[] = {{"<b>selon le maire</b> ", 16},
                                         {"<i>a-t-il dit</i> ", 13},
                                         {"<note>\xC3\xA0 revoir</note>", 0},
                                         {"<b><i>urgent</i></b> ", 7},
                                         {"<u>lien</u> ", 5},
                                         {"m<sup>2</sup> ", 3}};
    std::mt19937 random(11);
    std::string markup;
    markup.reserve(characters * 3 / 2);
    std::size_t shown = 0;
    std::size_t wordsInParagraph = 0;
    while (shown < characters) {
        const unsigned pick = random() % 60;
        const Piece& piece =
            pick < std::size(kFormats) ? kFormats[pick] : kWords[random() % std::size(kWords)];
        markup += piece.markup;
        shown += piece.characters;
        if (++wordsInParagraph > 60 + random() % 80) {
            markup += ".<p/>\r\n";
            shown += 3;
            wordsInParagraph = 0;
            if (random() % 5 == 0) {
                markup += "<inter1>Un intertitre</inter1><p/>\r\n";
                shown += 15;
            }
        }
    }
    return markup;
}

std::string StoryBytes(std::size_t characters) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n"
           "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Author Name=\"Author\">Jo</Author>\r\n"
           "<Publication Name=\"Publication\">Le Matin</Publication>\r\n"
           "<Keywords>\r\n<Keyword CategoryName=\"Places\" CategoryIndex=\"1\">Lyon</Keyword>\r\n"
           "</Keywords>\r\n</Metadata>\r\n<Body>\r\n"
           "<TextBox0 CharCount=\"5\" WordCount=\"1\" Name=\"Title\">Titre</TextBox0>\r\n"
           "<TextBox6 CharCount=\"" +
           std::to_string(characters) + "\" WordCount=\"0\" Name=\"Text\">" +
           BoxMarkup(characters) +
           "</TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n<Image href=\"a.jpg\"/>\r\n"
           "<Caption>Le but</Caption>\r\n</ImageBag>\r\n</Images>\r\n</Story>\r\n";
}

// A program around the writers, configured as a newsroom in UTF-8 mode.
struct Program {
    tessarin::Configuration configuration;
    tessarin::WindowState window;
    tessarin::Preferences preferences;
    tessarin::ScriptedInteraction user;

    Program() {
        configuration.general.storiesEncoding = "UTF-8";
        configuration.identity.initials = "JD";
        configuration.exportFormats.NewsML.Provider = "Velmora";
        configuration.exportFormats.NewsML.ImagesDirectory = "/srv/photos";
    }

    ExportContext Context() {
        return ExportContext{.configuration = configuration,
                             .window = window,
                             .preferences = preferences,
                             .user = user,
                             .userName = {},
                             .now = {2024, 3, 12, 10, 30, 0}};
    }
};

// The writers' own work on a parsed story: composing the whole output.
template <typename Compose>
void RunWriter(benchmark::State& state, Compose compose) {
    const std::size_t characters = static_cast<std::size_t>(state.range(0));
    XmlDocument story;
    if (!story.LoadBytes(StoryBytes(characters))) {
        state.SkipWithError("the benchmark story does not parse");
        return;
    }
    Program program;
    const ExportContext context = program.Context();
    for (auto _ : state)
        benchmark::DoNotOptimize(compose(story, context));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * characters));
}

void BM_ExportNewsML(benchmark::State& state) {
    RunWriter(state, [](const XmlDocument& story, const ExportContext& context) {
        return tessarin::ComposeNewsML(story, context, -60);
    });
}
BENCHMARK(BM_ExportNewsML)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_ExportNITF(benchmark::State& state) {
    RunWriter(state, [](const XmlDocument& story, const ExportContext& context) {
        return tessarin::ComposeNITF(story, context);
    });
}
BENCHMARK(BM_ExportNITF)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

}  // namespace
