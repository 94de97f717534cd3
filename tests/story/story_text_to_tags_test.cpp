#include <gtest/gtest.h>

#include "markup_test_support.h"
#include "story/story_markup.h"

namespace tessarin {
namespace {

using testing::OneBoxBody;
using testing::Styled;

TEST(StoryTextToTags, TagsOfEachFormatInEachBox) {
    const struct {
        int box;
        StyledText text;
        int characters, words;
        const char* tags;
    } rows[] = {
        // Closing tags come out nested; crossing ones are closed and opened again.
        {0, Styled({{u"un ", ""}, {u"mot", "bi"}}), 6, 2, "un <b><i>mot</i></b>"},
        {0, Styled({{u"x", "bi"}, {u" y", "i"}}), 3, 2, "<b><i>x</i></b><i> y</i>"},
        {0, Styled({{u"x", "s"}, {u"y", "b"}}), 2, 1, "<sup>x</sup><b>y</b>"},
        // A paragraph closes bold, italic, underline and superscript, wherever the break's
        // format; a bold break after plain text opens and closes bold around nothing.
        {0, Styled({{u"un ", ""}, {u"mot", "b"}, {u"\r\nsuite", ""}}), 11, 3,
         "un <b>mot</b><p/>\r\nsuite"},
        {0, Styled({{u"un ", ""}, {u"mot\r\n", "b"}, {u"suite", ""}}), 11, 3,
         "un <b>mot</b><p/>\r\nsuite"},
        {0, Styled({{u"a", ""}, {u"\r\n", "b"}, {u"b", ""}}), 2, 2, "a<b></b><p/>\r\nb"},
        // Trailing paragraphs are cut; a box of line breaks only has an empty element.
        {0, Styled({{u"a\r\n\r\n", ""}}), 1, 1, "a"},
        {0, Styled({{u"\r\n\r\n", ""}}), 0, 0, ""},
        // An inter style runs over a paragraph and closes in front of a break; only the main
        // box has them, and in another box the colour writes neither the style nor its bold.
        {6, Styled({{u"Titre\r\nTexte", "b1"}}), 10, 2, "<inter1>Titre<p/>\r\nTexte</inter1>"},
        {6, Styled({{u"Titre\r\n", "b1"}, {u"Texte", "b"}}), 10, 2,
         "<inter1>Titre</inter1><p/>\r\n<b>Texte</b>"},
        {2, Styled({{u"Titre", "b1"}}), 5, 1, "Titre"},
        {6, Styled({{u"a ", "b"}, {u"b", "2"}, {u" c", ""}}), 5, 3,
         "<b>a <inter2>b</inter2></b> c"},
        // A note is not underlined, and underlined text keeps its underline through it; the
        // anchor's characters are no words.
        {3, Styled({{u"a ", ""}, {u"JD", "un"}, {u" b", ""}}), 6, 2, "a <note>JD</note> b"},
        {3, Styled({{u"voir ", "u"}, {u"JD", "n"}, {u" fin", "u"}}), 11, 2,
         "<u>voir <note>JD</note> fin</u>"},
        {3, Styled({{u"JD", "n"}, {u"b", "i"}}), 3, 1, "<note>JD</note><i>b</i>"},
        // Characters with their own form; a pilcrow before a line break is a display aid.
        {1, Styled({{u"\u0153 \u0152 \u20AC a\u00B7b \u00A0&<>'\"\tz", ""}}), 18, 6,
         "<oe/> <OE/> <euro/> a&#160;b \xA0&amp;&lt;&gt;&apos;&quot;<tab/>z"},
        {1, Styled({{u"a\u00B6\r\nb\u00B6", ""}}), 4, 2, "a<p/>\r\nb\xB6"},
        // The collapse runs 6, 5, 4, 3 and 2 blanks once each: a run of 209 keeps two.
        {0, Styled({{u"a" + std::u16string(209, u' ') + u"b", ""}}), 211, 2, "a  b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.tags);
        const std::string box = std::to_string(row.box);
        EXPECT_EQ(OneBoxBody(row.box, row.text),
                  "<TextBox" + box + " CharCount=\"" + std::to_string(row.characters) +
                      "\" WordCount=\"" + std::to_string(row.words) + "\" Name=\"Titre\">" +
                      row.tags + "</TextBox" + box + ">\r\n");
    }
}

TEST(StoryTextToTags, BlanksCaptionsAndEncodings) {
    const StyledText text = Styled({{u"a  b   c", ""}});
    EXPECT_EQ(
        OneBoxBody(0, text, {}, "Texte  principal\t!"),
        "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Texte principal!\">a b c</TextBox0>\r\n");
    MarkupSettings keep;
    keep.removeDuplicateSpaces = false;
    EXPECT_EQ(OneBoxBody(0, text, keep, "Texte  principal"),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Texte  principal\">a  b   "
              "c</TextBox0>\r\n");
    // The caption is written raw, and the passes over the body run over it too.
    EXPECT_EQ(
        OneBoxBody(0, Styled({{u"x", ""}}), {}, "a</b></i><p/>b"),
        "<TextBox0 CharCount=\"1\" WordCount=\"1\" Name=\"a</i></b><p/>\r\nb\">x</TextBox0>\r\n");

    const StyledText accented = Styled({{u"\u00E9t\u00E9 \u2019 \U0001F600", ""}});
    EXPECT_EQ(OneBoxBody(0, accented),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Titre\">"
              "\xE9t\xE9 \x92 ?</TextBox0>\r\n");
    MarkupSettings utf8;
    utf8.utf8 = true;
    EXPECT_EQ(OneBoxBody(0, accented, utf8, "\xC3\xA9"),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"\xC3\xA9\">\xC3\xA9t\xC3\xA9 "
              "\xE2\x80\x99 \xED\xA0\xBD\xED\xB8\x80</TextBox0>\r\n");
}

TEST(NestInlineTags, RepairsOnlyCrossings) {
    const std::pair<std::u16string_view, std::u16string_view> rows[] = {
        {u"<b><i>x</i></b><p/>\r\n<u>y</u>", u"<b><i>x</i></b><p/>\r\n<u>y</u>"},
        {u"<b><i>x</b> y</i>", u"<b><i>x</i></b><i> y</i>"},
        {u"<b><i>x</b></i>z", u"<b><i>x</i></b>z"},
        {u"<inter1><b><i>x</inter1>y</i></b>", u"<inter1><b><i>x</i></b></inter1><b><i>y</i></b>"},
        {u"<note><u>a</note><p/>b</u>", u"<note><u>a</u></note><u><p/>b</u>"},
        // A tag opened right before the crossing moves behind it.
        {u"<note>JD<b><sup></note> x</sup></b>", u"<note>JD</note><b><sup> x</sup></b>"},
        {u"<note><b>x<sup></note> y</sup></b>", u"<note><b>x</b></note><b><sup> y</sup></b>"},
        // Stray and unclosed tags; other tags are text.
        {u"x</b>y<i>z", u"xy<i>z</i>"},
        {u"<tab/><p/></sup>&lt;", u"<tab/><p/>&lt;"},
    };
    for (const auto& [tags, nested] : rows)
        EXPECT_EQ(NestInlineTags(tags), nested) << Utf16ToUtf8(tags);
}

}  // namespace
}  // namespace tessarin
