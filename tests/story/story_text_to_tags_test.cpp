#include <gtest/gtest.h>

#include "markup_test_support.h"
#include "story/story_markup.h"

namespace tessarin {
namespace {

using testing::Anchor;
using testing::Bold;
using testing::BoldItalic;
using testing::Coloured;
using testing::Italic;
using testing::OneBoxBody;
using testing::Plain;
using testing::Styled;
using testing::Superscript;
using testing::Underlined;

constexpr OleColour kInter1 = Rgb(0, 0, 255);

TEST(StoryTextToTags, ClosingTagsComeOutNested) {
    // A bold italic word at the end of a box closes b before i; the order rows swap them.
    EXPECT_EQ(OneBoxBody(0, Styled({{u"un ", Plain()}, {u"mot", BoldItalic()}})),
              "<TextBox0 CharCount=\"6\" WordCount=\"2\" Name=\"Titre\">un <b><i>mot</i></b>"
              "</TextBox0>\r\n");
    // Bold then italic alone crosses; the tags are closed and opened again.
    EXPECT_EQ(OneBoxBody(0, Styled({{u"x", BoldItalic()}, {u" y", Italic()}})),
              "<TextBox0 CharCount=\"3\" WordCount=\"2\" Name=\"Titre\"><b><i>x</i></b><i> y</i>"
              "</TextBox0>\r\n");
    EXPECT_EQ(OneBoxBody(0, Styled({{u"x", Superscript()}, {u"y", Bold()}})),
              "<TextBox0 CharCount=\"2\" WordCount=\"1\" Name=\"Titre\"><sup>x</sup><b>y</b>"
              "</TextBox0>\r\n");
}

TEST(StoryTextToTags, ParagraphsCloseBoldItalicUnderlineAndSuperscript) {
    const std::string expected =
        "<TextBox0 CharCount=\"11\" WordCount=\"3\" Name=\"Titre\">un <b>mot</b><p/>\r\n"
        "suite</TextBox0>\r\n";
    EXPECT_EQ(OneBoxBody(0, Styled({{u"un ", Plain()}, {u"mot", Bold()}, {u"\r\nsuite", Plain()}})),
              expected);
    EXPECT_EQ(OneBoxBody(0, Styled({{u"un ", Plain()}, {u"mot\r\n", Bold()}, {u"suite", Plain()}})),
              expected);
    // A bold line break after plain text opens and closes bold around nothing.
    EXPECT_EQ(OneBoxBody(0, Styled({{u"a", Plain()}, {u"\r\n", Bold()}, {u"b", Plain()}})),
              "<TextBox0 CharCount=\"2\" WordCount=\"2\" Name=\"Titre\">a<b></b><p/>\r\nb"
              "</TextBox0>\r\n");
    // Trailing paragraphs are cut, and a box of line breaks only has an empty element.
    EXPECT_EQ(OneBoxBody(0, Styled({{u"a\r\n\r\n", Plain()}})),
              "<TextBox0 CharCount=\"1\" WordCount=\"1\" Name=\"Titre\">a</TextBox0>\r\n");
    EXPECT_EQ(OneBoxBody(0, Styled({{u"\r\n\r\n", Plain()}})),
              "<TextBox0 CharCount=\"0\" WordCount=\"0\" Name=\"Titre\"></TextBox0>\r\n");
}

TEST(StoryTextToTags, InterStylesOnlyInTheMainBox) {
    // An inter style runs over a paragraph; its closing tag goes in front of a break.
    EXPECT_EQ(OneBoxBody(6, Styled({{u"Titre\r\nTexte", Coloured(kInter1, true)}})),
              "<TextBox6 CharCount=\"10\" WordCount=\"2\" Name=\"Titre\"><inter1>Titre<p/>\r\n"
              "Texte</inter1></TextBox6>\r\n");
    EXPECT_EQ(OneBoxBody(6, Styled({{u"Titre\r\n", Coloured(kInter1, true)}, {u"Texte", Bold()}})),
              "<TextBox6 CharCount=\"10\" WordCount=\"2\" Name=\"Titre\"><inter1>Titre</inter1>"
              "<p/>\r\n<b>Texte</b></TextBox6>\r\n");
    // In another box the colour writes neither the style nor its bold.
    EXPECT_EQ(OneBoxBody(2, Styled({{u"Titre", Coloured(kInter1, true)}})),
              "<TextBox2 CharCount=\"5\" WordCount=\"1\" Name=\"Titre\">Titre</TextBox2>\r\n");
    EXPECT_EQ(OneBoxBody(
                  6, Styled({{u"a ", Bold()}, {u"b", Coloured(Rgb(255, 0, 0))}, {u" c", Plain()}})),
              "<TextBox6 CharCount=\"5\" WordCount=\"3\" Name=\"Titre\"><b>a <inter2>b</inter2></b>"
              " c</TextBox6>\r\n");
}

TEST(StoryTextToTags, NotesAreNotUnderlined) {
    EXPECT_EQ(OneBoxBody(3, Styled({{u"a ", Plain()}, {u"JD", Anchor(true)}, {u" b", Plain()}})),
              "<TextBox3 CharCount=\"6\" WordCount=\"2\" Name=\"Titre\">a <note>JD</note> b"
              "</TextBox3>\r\n");
    // Underlined text around an anchor keeps its underline through the note.
    EXPECT_EQ(
        OneBoxBody(3,
                   Styled({{u"voir ", Underlined()}, {u"JD", Anchor()}, {u" fin", Underlined()}})),
        "<TextBox3 CharCount=\"11\" WordCount=\"2\" Name=\"Titre\"><u>voir <note>JD</note>"
        " fin</u></TextBox3>\r\n");
    // The anchor's characters are no words.
    EXPECT_EQ(OneBoxBody(3, Styled({{u"JD", Anchor()}, {u"b", Italic()}})),
              "<TextBox3 CharCount=\"3\" WordCount=\"1\" Name=\"Titre\"><note>JD</note><i>b</i>"
              "</TextBox3>\r\n");
}

TEST(StoryTextToTags, CharactersWithTheirOwnForm) {
    EXPECT_EQ(OneBoxBody(1, Styled({{u"\u0153 \u0152 \u20AC a\u00B7b \u00A0&<>'\"\tz", Plain()}})),
              "<TextBox1 CharCount=\"18\" WordCount=\"6\" Name=\"Titre\"><oe/> <OE/> <euro/> "
              "a&#160;b \xA0&amp;&lt;&gt;&apos;&quot;<tab/>z</TextBox1>\r\n");
    // A pilcrow before a line break is a display aid; elsewhere it is text.
    EXPECT_EQ(
        OneBoxBody(1, Styled({{u"a\u00B6\r\nb\u00B6", Plain()}})),
        "<TextBox1 CharCount=\"4\" WordCount=\"2\" Name=\"Titre\">a<p/>\r\nb\xB6</TextBox1>\r\n");
}

TEST(StoryTextToTags, DuplicateBlanksAndTabsInTextAndCaption) {
    const StyledText text = Styled({{u"a  b   c", Plain()}});
    EXPECT_EQ(
        OneBoxBody(0, text, {}, "Texte  principal\t!"),
        "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Texte principal!\">a b c</TextBox0>\r\n");
    MarkupSettings keep;
    keep.removeDuplicateSpaces = false;
    EXPECT_EQ(OneBoxBody(0, text, keep, "Texte  principal"),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Texte  principal\">a  b   "
              "c</TextBox0>\r\n");
    // The collapse runs 6, 5, 4, 3 and 2 blanks once each: a run of 209 keeps two.
    const StyledText wide = Styled({{u"a" + std::u16string(209, u' ') + u"b", Plain()}});
    EXPECT_EQ(OneBoxBody(0, wide),
              "<TextBox0 CharCount=\"211\" WordCount=\"2\" Name=\"Titre\">a  b"
              "</TextBox0>\r\n");
    // The caption is written raw, and the passes over the body run over it too.
    EXPECT_EQ(
        OneBoxBody(0, Styled({{u"x", Plain()}}), {}, "a</b></i><p/>b"),
        "<TextBox0 CharCount=\"1\" WordCount=\"1\" Name=\"a</i></b><p/>\r\nb\">x</TextBox0>\r\n");
    EXPECT_EQ(OneBoxBody(0, Styled({{u"x", Plain()}}), {}, "R&D \"1\""),
              "<TextBox0 CharCount=\"1\" WordCount=\"1\" Name=\"R&D \"1\"\">x</TextBox0>\r\n");
}

TEST(StoryTextToTags, Encodings) {
    const StyledText text = Styled({{u"\u00E9t\u00E9 \u2019 \U0001F600", Plain()}});
    EXPECT_EQ(OneBoxBody(0, text),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"Titre\">"
              "\xE9t\xE9 \x92 ?</TextBox0>\r\n");
    MarkupSettings utf8;
    utf8.utf8 = true;
    EXPECT_EQ(OneBoxBody(0, text, utf8, "\xC3\xA9"),
              "<TextBox0 CharCount=\"8\" WordCount=\"3\" Name=\"\xC3\xA9\">\xC3\xA9t\xC3\xA9 "
              "\xE2\x80\x99 \xED\xA0\xBD\xED\xB8\x80</TextBox0>\r\n");
}

TEST(StoryTextToTags, SignatureAndBoxOrder) {
    const StyledText title = Styled({{u"T", Plain()}});
    const StyledText main = Styled({{u"M", Plain()}});
    const StyledText empty;
    StoryBodyInput input;
    input.boxes[6] = {&main, "Texte", 1};
    input.boxes[0] = {&title, "Titre", 1};
    input.boxes[3] = {&empty, "Vide", 0};
    input.signature = "J.  Dupont & \xE2\x82\xAC";
    EXPECT_EQ(StoryTextToTags(input),
              "<TextBox0 CharCount=\"1\" WordCount=\"1\" Name=\"Titre\">T</TextBox0>\r\n"
              "<TextBox6 CharCount=\"1\" WordCount=\"1\" Name=\"Texte\">M</TextBox6>\r\n"
              "<Signature>J.  Dupont &amp; \x80</Signature>");
    input.initialsSignature = true;
    input.settings.utf8 = true;
    EXPECT_TRUE(StoryTextToTags(input).ends_with(
        "<Signature Type=\"I\">J.  Dupont &amp; \xE2\x82\xAC</Signature>"));
    input.boxes = {};
    input.signature.clear();
    EXPECT_EQ(StoryTextToTags(input), "");
}

TEST(NestInlineTags, RepairsOnlyCrossings) {
    const auto nest = [](std::u16string_view tags) { return NestInlineTags(tags); };
    EXPECT_EQ(nest(u"<b><i>x</i></b><p/>\r\n<u>y</u>"), u"<b><i>x</i></b><p/>\r\n<u>y</u>");
    EXPECT_EQ(nest(u"<b><i>x</b> y</i>"), u"<b><i>x</i></b><i> y</i>");
    EXPECT_EQ(nest(u"<b><i>x</b></i>z"), u"<b><i>x</i></b>z");
    EXPECT_EQ(nest(u"<inter1><b><i>x</inter1>y</i></b>"),
              u"<inter1><b><i>x</i></b></inter1><b><i>y</i></b>");
    EXPECT_EQ(nest(u"<note><u>a</note><p/>b</u>"), u"<note><u>a</u></note><u><p/>b</u>");
    // A tag opened right before the crossing moves behind it.
    EXPECT_EQ(nest(u"<note>JD<b><sup></note> x</sup></b>"), u"<note>JD</note><b><sup> x</sup></b>");
    EXPECT_EQ(nest(u"<note><b>x<sup></note> y</sup></b>"),
              u"<note><b>x</b></note><b><sup> y</sup></b>");
    // Stray and unclosed tags; other tags are text.
    EXPECT_EQ(nest(u"x</b>y<i>z"), u"xy<i>z</i>");
    EXPECT_EQ(nest(u"<tab/><p/></sup>&lt;"), u"<tab/><p/>&lt;");
}

}  // namespace
}  // namespace tessarin
