#include "story/markup_text_passes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessarin {
namespace {

using Row = std::pair<std::u16string_view, std::u16string_view>;

// The closing tags written when an attribute changes come out in the order of the checks;
// these rows put the usual sequences in a nesting order and move closing tags in front of
// the paragraph tags they touch. The order of the rows is part of the file format.
constexpr std::array<Row, 47> kTagOrderRows = {{
    {u"</b></i>", u"</i></b>"},
    {u"<p/></i></b>", u"</i></b><p/>"},
    {u"</b></u>", u"</u></b>"},
    {u"<p/></u></b>", u"</u></b><p/>"},
    {u"</sup></i></u>", u"</u></i></sup>"},
    {u"</i></u>", u"</u></i>"},
    {u"<p/></u></i>", u"</u></i><p/>"},
    {u"<inter1></b>", u"</b><inter1>"},
    {u"<inter1></i>", u"</i><inter1>"},
    {u"<inter1></u>", u"</u><inter1>"},
    {u"</inter1></b>", u"</b></inter1>"},
    {u"</inter1></i>", u"</i></inter1>"},
    {u"</inter1></u>", u"</u></inter1>"},
    {u"</inter1></sup>", u"</sup></inter1>"},
    {u"<inter2></b>", u"</b><inter2>"},
    {u"<inter2></i>", u"</i><inter2>"},
    {u"<inter2></u>", u"</u><inter2>"},
    {u"</inter2></b>", u"</b></inter2>"},
    {u"</inter2></i>", u"</i></inter2>"},
    {u"</inter2></u>", u"</u></inter2>"},
    {u"</inter2></sup>", u"</sup></inter2>"},
    {u"<inter3></b>", u"</b><inter3>"},
    {u"<inter3></i>", u"</i><inter3>"},
    {u"<inter3></u>", u"</u><inter3>"},
    {u"</inter3></b>", u"</b></inter3>"},
    {u"</inter3></i>", u"</i></inter3>"},
    {u"</inter3></u>", u"</u></inter3>"},
    {u"</inter3></sup>", u"</sup></inter3>"},
    {u"<inter1></inter2>", u"</inter2><inter1>"},
    {u"<inter1></inter3>", u"</inter3><inter1>"},
    {u"<inter1></note>", u"</note><inter1>"},
    {u"<inter2></inter1>", u"</inter1><inter2>"},
    {u"<inter2></inter3>", u"</inter3><inter2>"},
    {u"<inter2></note>", u"</note><inter2>"},
    {u"<inter3></inter1>", u"</inter1><inter3>"},
    {u"<inter3></inter2>", u"</inter2><inter3>"},
    {u"<inter3></note>", u"</note><inter3>"},
    {u"</sup></i></b>", u"</i></b></sup>"},
    {u"</sup></b>", u"</b></sup>"},
    {u"</sup></i>", u"</i></sup>"},
    {u"</sup></u>", u"</u></sup>"},
    {u"<p/></i>", u"</i><p/>"},
    {u"<p/></b>", u"</b><p/>"},
    {u"<p/></u>", u"</u><p/>"},
    {u"<p/></inter1>", u"</inter1><p/>"},
    {u"<p/></inter2>", u"</inter2><p/>"},
    {u"<p/></inter3>", u"</inter3><p/>"},
}};

// Run after the paragraph line breaks are in place.
constexpr std::array<Row, 6> kNoteOrderRows = {{
    {u"<note></i>", u"</i><note>"},
    {u"<i></note>", u"</note><i>"},
    {u"<note></b>", u"</b><note>"},
    {u"<b></note>", u"</note><b>"},
    {u"<note></u>", u"</u><note>"},
    {u"<u></note>", u"</note><u>"},
}};

constexpr std::size_t kLongestDuplicateBlanks = 6;

}  // namespace

void ReplaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to) {
    std::size_t hit = text.find(from);
    if (hit == std::u16string::npos) return;
    std::u16string result;
    result.reserve(text.size() + text.size() / 8);
    std::size_t start = 0;
    while (hit != std::u16string::npos) {
        result.append(text, start, hit - start);
        result.append(to);
        start = hit + from.size();
        hit = text.find(from, start);
    }
    result.append(text, start);
    text.swap(result);
}

std::size_t BlanksAfterCollapsing(std::size_t run, std::size_t longest) {
    for (std::size_t pattern = longest; pattern >= 2; --pattern)
        run = run / pattern + run % pattern;
    return run;
}

void CollapseBlankRuns(std::u16string& text, std::size_t longest) {
    std::size_t write = 0;
    std::size_t read = 0;
    while (read < text.size()) {
        if (text[read] != u' ') {
            text[write++] = text[read++];
            continue;
        }
        std::size_t run = 0;
        while (read < text.size() && text[read] == u' ')
            ++read, ++run;
        const std::size_t kept = BlanksAfterCollapsing(run, longest);
        for (std::size_t blank = 0; blank < kept; ++blank)
            text[write++] = u' ';
    }
    text.resize(write);
}

void FinishBodyText(std::u16string& text, bool removeDuplicateSpaces) {
    for (const auto& [from, to] : kTagOrderRows)
        ReplaceAll(text, from, to);
    ReplaceAll(text, u"<p/>", u"<p/>\r\n");
    std::erase(text, u'\t');
    for (const auto& [from, to] : kNoteOrderRows)
        ReplaceAll(text, from, to);
    if (removeDuplicateSpaces) CollapseBlankRuns(text, kLongestDuplicateBlanks);
}

}  // namespace tessarin
