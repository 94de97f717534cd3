// The story text markup in both directions on a main text box that looks like a story:
// paragraphs, bold, italic and underlined words, note anchors, intertitles in the inter
// styles and non-breaking spaces. Items are characters of the box, so the time per
// character at 10 000 and at 1 000 000 characters can be compared.

#include <benchmark/benchmark.h>

#include <array>
#include <random>
#include <string>

#include "common/xml_document.h"
#include "story/char_count.h"
#include "story/story_markup.h"

namespace {

using tessarin::CharFormat;
using tessarin::Rgb;
using tessarin::StyledText;

StyledText StoryLikeText(std::size_t characters) {
    constexpr std::array<std::u16string_view, 12> kWords = {
        u"le",           u"conseil", u"municipal", u"a",    u"vot\u00E9",  u"hier",
        u"l'\u00E9cole", u"des",     u"travaux",   u"pour", u"\u0153uvre", u"2024"};
    std::mt19937 engine(2024);
    const auto roll = [&engine](int below) {
        return std::uniform_int_distribution<int>(0, below - 1)(engine);
    };
    StyledText text;
    int paragraph = 0;
    while (text.Length() < characters) {
        CharFormat intertitle;
        intertitle.colour = Rgb(0, 0, 255);
        intertitle.bold = true;
        const bool isIntertitle = paragraph % 8 == 0;
        const int words = isIntertitle ? 5 : 60;
        for (int word = 0; word < words; ++word) {
            CharFormat format = isIntertitle ? intertitle : CharFormat();
            if (!isIntertitle) {
                const int style = roll(20);
                format.bold = style == 0;
                format.italic = style == 1;
                format.underline = style == 2;
            }
            if (word > 0) text.Insert(text.Length(), roll(15) == 0 ? u"\u00B7" : u" ", format);
            text.Insert(text.Length(), kWords[static_cast<std::size_t>(roll(kWords.size()))],
                        format);
            if (!isIntertitle && roll(200) == 0) {
                CharFormat note;
                note.isProtected = note.highlighted = note.waveUnderline = true;
                note.highlight = Rgb(255, 255, 0);
                text.Insert(text.Length(), u"JD 12/03/2024 10:00", note);
            }
        }
        text.Insert(text.Length(), u".\r\n", CharFormat());
        ++paragraph;
    }
    return text;
}

tessarin::StoryBodyInput MainBoxInput(const StyledText& text) {
    tessarin::StoryBodyInput input;
    input.boxes[tessarin::kMainTextBox].text = &text;
    input.boxes[tessarin::kMainTextBox].caption = "Texte";
    input.boxes[tessarin::kMainTextBox].charCount = tessarin::CountBoxCharacters(text, 0, 0);
    return input;
}

void BM_StoryTextToTags(benchmark::State& state) {
    const StyledText text = StoryLikeText(static_cast<std::size_t>(state.range(0)));
    const tessarin::StoryBodyInput input = MainBoxInput(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(tessarin::StoryTextToTags(input));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text.Length()));
}
BENCHMARK(BM_StoryTextToTags)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void BM_TagsToStoryText(benchmark::State& state) {
    const StyledText text = StoryLikeText(static_cast<std::size_t>(state.range(0)));
    const std::string body = tessarin::StoryTextToTags(MainBoxInput(text));
    tessarin::XmlDocument document;
    if (!document.LoadBytes("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Body>\r\n" +
                            body + "</Body>\r\n")) {
        state.SkipWithError("the body does not parse");
        return;
    }
    tessarin::XmlNode element = document.DocumentElement().SelectSingleNode("TextBox6");
    element.RemoveAllAttributes();
    const std::string xml = element.Xml();
    const tessarin::MarkupSettings settings;
    for (auto _ : state)
        benchmark::DoNotOptimize(tessarin::TagsToStoryText(6, xml, settings, 12));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text.Length()));
}
BENCHMARK(BM_TagsToStoryText)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
