#include <gtest/gtest.h>

#include "markup_random.h"
#include "markup_reference.h"
#include "markup_test_support.h"
#include "story/char_count.h"
#include "story/story_markup.h"
#include "story/tag_pair_search.h"

namespace tessarin {
namespace {

using testing::Describe;

TEST(TagsToStoryText, FormatsCharactersAndFrame) {
    const struct {
        int box;
        const char* xml;
        const char* described;
    } rows[] = {
        {0,
         "<TextBox0>Un <b>mot</b> <i>pench\xC3\xA9</i><p/>\r\n<u>x</u><b><i>y</i></b></TextBox0>",
         "[]Un [b]mot[] [i]pench\xC3\xA9[]\r\n[u]x[bi]y"},
        {1,
         "<TextBox1><euro/><oe/><OE/><tab/>a\xC2\xA0"
         "b\xC2\xB7</TextBox1>",
         "[]\xE2\x82\xAC\xC5\x93\xC5\x92\ta[g]\xC2\xB7[]b\xC2\xB7"},
        // Entities are undone once more than the parser did: "&amp;lt;" in the serialised form
        // was "&lt;" typed by the user and comes back as "<". Tag text that was typed stays.
        {0, "<TextBox0>a &amp;lt; &amp;amp; &lt;b&gt;x&lt;/b&gt; \"'{\\b x}</TextBox0>",
         "[]a < &amp; <b>x</b> \"'{\\b x}"},
        // Blanks around the text and trailing paragraphs go; another box's element is text.
        {0, "<TextBox0>  a\r\n b \xE2\x80\xA9\t </TextBox0>", "[]a b"},
        {2, "<TextBox2>a<p/>\r\n<p/>\r\n</TextBox2>", "[]a"},
        {2, "<TextBox2>a<p></p>b</TextBox2>", "[]a\r\nb"},
        {2, "<TextBox2/>", ""},
        {2, "", ""},
        {2, "<TextBox3>a</TextBox3>", "[]<TextBox3>a</TextBox3>"},
        // Inter styles only in the main box, superscript in every box.
        {6,
         "<TextBox6><inter1>Titre</inter1><p/>\r\nTexte <inter3>x<sup>2</sup></inter3>"
         "\xC2\xA0<inter2>\xC2\xA0</inter2></TextBox6>",
         "[b1]Titre[]\r\nTexte [b3]x[b3s]2[g]\xC2\xB7[b2]\xC2\xB7"},
        {2, "<TextBox2><inter1>T</inter1>x<sup>2</sup></TextBox2>", "[]<inter1>T</inter1>x[s]2"},
        // The writer's empty pairs, serialised as empty elements, leave nothing.
        {6, "<TextBox6>a<b/><inter1/>b<sup/><note/>c</TextBox6>", "[]abc"},
        // Unpaired tags stay visible; deleting a pair can join a new tag, paired too.
        {6, "<TextBox6>&lt;/sup&gt;a&lt;sup&gt;b</TextBox6>", "[]</sup>a<sup>b"},
        {6, "<TextBox6><inter1>a</inter1>&lt;/inter1&gt;b&lt;inter1&gt;c</TextBox6>",
         "[b1]a[]</inter1>b<inter1>c"},
        {6, "<TextBox6>&lt;inter<inter1/>1&gt;y&lt;/inter1&gt;</TextBox6>", "[b1]y"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Describe(TagsToStoryText(row.box, row.xml, {}, 12).text), row.described)
            << row.xml;
}

TEST(TagsToStoryText, NotesAndTheirCharacters) {
    const BoxText read = TagsToStoryText(
        3, "<TextBox3><u>a <note>JD</note> b</u> <note>A&amp;B<b>x</b></note></TextBox3>", {}, 12);
    EXPECT_EQ(Describe(read.text), "[u]a [un]JD[u] b[] [n]A&B[bn]x");
    // "JD" counts 2; "A&amp;B\b x\b0 " counts 7 + 3 + 1 + 4.
    EXPECT_EQ(read.noteCharacters, 17);
    const BoxText nested =
        TagsToStoryText(6, "<TextBox6><note>ab<note/>c</note></TextBox6>", {}, 12);
    EXPECT_EQ(Describe(nested.text), "[n]ab[]c");
    EXPECT_EQ(nested.noteCharacters, 8);  // measured to the first closing tag: the inner one
    MarkupSettings pink;
    pink.bookmarksColour = Rgb(255, 0, 255);
    EXPECT_EQ(TagsToStoryText(3, "<TextBox3><note>N</note></TextBox3>", pink, 12)
                  .text.FormatAt(0)
                  .highlight,
              Rgb(255, 0, 255));

    const std::pair<std::u16string_view, std::int32_t> counts[] = {
        {u"<note>abc</note>", 3},
        {u"<note>a<u>b</u><p/>c<tab/><i>d</i></note>", 1 + 4 + 1 + 8 + 5 + 1 + 1 + 3 + 1 + 4},
        {u"<note>a</note>x<note>bc</note>", 3},
        {u"<note>ab<note>c</note>", 9 + 1},
        {u"<note></note><note>abc", 0},
    };
    for (const auto& [tags, count] : counts)
        EXPECT_EQ(CountNoteCharactersInTags(tags), count) << Utf16ToUtf8(tags);
}

TEST(TagPairing, MatchesTheLiteralLoop) {
    constexpr std::u16string_view kPieces[] = {u"<inter1>", u"</inter1>", u"<inter", u"1>",
                                               u"</inter",  u"</",        u"<",      u"x",
                                               u"y",        u"<sup>",     u"</sup>"};
    testing::RandomStoryText random(99);
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = random.Pieces(kPieces, 30);
        for (const auto& [opening, closing] :
             {std::pair<std::u16string_view, std::u16string_view>{u"<inter1>", u"</inter1>"},
              {u"<sup>", u"</sup>"}}) {
            const TagPairing pairing = PairTags(text, opening, closing);
            std::vector<int> depth(text.size() + 1, 0);
            for (const auto& [first, end] : pairing.styled)
                ++depth[first], --depth[end];
            std::u16string kept, styled;
            int inside = 0;
            for (std::size_t position = 0; position < text.size(); ++position) {
                inside += depth[position];
                if (!pairing.removed.empty() && pairing.removed[position]) continue;
                kept += text[position];
                styled += inside > 0 ? u'1' : u'0';
            }
            const testing::ReferencePairing expected =
                testing::ReferencePairTags(text, opening, closing);
            ASSERT_EQ(kept, expected.text) << Utf16ToUtf8(text);
            ASSERT_EQ(styled, expected.styled) << Utf16ToUtf8(text);
        }
    }
}

TEST(TagsToStoryText, SurvivesAnyBytes) {
    testing::RandomStoryText random(5);
    const std::string alphabet = "<>/&;#bipunoteirsx1AE\xC2\xA0\xE2\x80\xA9\r\n\t \xFF\x80";
    for (int round = 0; round < 2000; ++round) {
        std::string bytes;
        for (int length = random.Number(61); length > 0; --length)
            bytes += alphabet[static_cast<std::size_t>(
                random.Number(static_cast<int>(alphabet.size())))];
        const BoxText read = TagsToStoryText(6, "<TextBox6>" + bytes, {}, 12);
        EXPECT_GE(read.noteCharacters, 0);
        EXPECT_LE(read.text.Length(), bytes.size() + 10);
    }
}

}  // namespace
}  // namespace tessarin
