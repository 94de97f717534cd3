#include "export/newsml_body_text.h"

#include <array>
#include <string_view>

#include "export/newsml_box_markup.h"
#include "story/story_file_bytes.h"

namespace tessarin {
namespace {

struct Replacement {
    std::string_view from;
    std::string_view to;
};

// Intertitles stand outside paragraphs.
constexpr std::array<Replacement, 6> kIntertitlesOutOfParagraphs{{
    {"<p><inter1>", "<inter1>"},
    {"<p><inter2>", "<inter2>"},
    {"<p><inter3>", "<inter3>"},
    {"</inter1></p>", "</inter1>"},
    {"</inter2></p>", "</inter2>"},
    {"</inter3></p>", "</inter3>"},
}};

// The tags that survive the escape are turned into marks that hold no angle bracket and no
// ampersand, and back after it.
constexpr std::array<Replacement, 17> kTagsToMarks{{
    {"<b>", "!em style=bold!!"},
    {"<i>", "!em style=italics!!"},
    {"<u>", "!em style=underline!!"},
    {"<sup>", "!em style=super!!"},
    {"</b>", "!/em!!"},
    {"</i>", "!/em!!"},
    {"</u>", "!/em!!"},
    {"</sup>", "!/em!!"},
    {"<inter1>", "!hl2!!"},
    {"<inter2>", "!hl2!!"},
    {"<inter3>", "!hl2!!"},
    {"</inter1>", "!/hl2!!"},
    {"</inter2>", "!/hl2!!"},
    {"</inter3>", "!/hl2!!"},
    {"<p>", "!p!!"},
    {"</p>", "!/p!!"},
    {"<p/>", "!p/!!"},
}};

constexpr std::array<Replacement, 10> kMarksToTags{{
    {"!em style=bold!!", "<em style=\"bold\">"},
    {"!em style=underline!!", "<em style=\"underline\">"},
    {"!em style=italics!!", "<em style=\"italics\">"},
    {"!em style=super!!", "<em style=\"super\">"},
    {"!/em!!", "</em>"},
    {"!hl2!!", "<hl2>"},
    {"!/hl2!!", "</hl2>"},
    {"!p!!", "<p>"},
    {"!/p!!", "</p>"},
    {"!p/!!", "<p/>"},
}};

constexpr std::array<Replacement, 3> kSpecialCharactersUtf8{{
    {"<euro/>", "\u20AC"},
    {"<oe/>", "\u0153"},
    {"<OE/>", "\u0152"},
}};

constexpr std::array<Replacement, 3> kSpecialCharactersSpelled{{
    {"<euro/>", "euro"},
    {"<oe/>", "oe"},
    {"<OE/>", "OE"},
}};

template <std::size_t N>
void ReplaceEach(std::string& text, const std::array<Replacement, N>& table) {
    for (const Replacement& row : table)
        ReplaceAllInText(text, row.from, row.to);
}

// One break for a run of two, three or four: three passes, each once.
void JoinParagraphBreaks(std::string& text) {
    ReplaceAllInText(text, "<p/><p/><p/><p/>", "<p/>");
    ReplaceAllInText(text, "<p/><p/><p/>", "<p/>");
    ReplaceAllInText(text, "<p/><p/>", "<p/>");
}

}  // namespace

std::string NewsMLBodyBytes(const XmlNode& textBox6, bool utf8) {
    std::string text = BoxMarkupWithoutFrame(textBox6, 6);
    ReplaceAllInText(text, "\r", "");
    ReplaceAllInText(text, "\n", "");
    JoinParagraphBreaks(text);
    ReplaceAllInText(text, "<p/>", "</p><p>");
    text = "<p>" + text + "</p>";
    ReplaceEach(text, kIntertitlesOutOfParagraphs);
    ReplaceEach(text, kTagsToMarks);
    ReplaceEach(text, utf8 ? kSpecialCharactersUtf8 : kSpecialCharactersSpelled);
    ReplaceAllInText(text, "<tab/>", "\t");
    std::string bytes = StoryFileBytes(utf8).EscapedBytes(text);
    ReplaceEach(bytes, kMarksToTags);
    return bytes;
}

}  // namespace tessarin
