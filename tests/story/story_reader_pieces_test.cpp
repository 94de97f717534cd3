#include <gtest/gtest.h>

#include <string>

#include "common/utf8.h"
#include "common/xml_document.h"
#include "markup_random.h"
#include "markup_reference.h"
#include "markup_test_support.h"
#include "story/rescue_attribute_cut.h"
#include "story/story_href.h"
#include "story/story_plain_text.h"
#include "story/story_preview_text.h"
#include "story/story_simple_text.h"

namespace tessarin {
namespace {

TEST(StoryHref, EveryFormThatStoriesHoldNamesItsFile) {
    const std::pair<const char*, const char*> rows[] = {
        {"file:///home/ann/photo.jpg", "/home/ann/photo.jpg"},
        {"file:///C:\\Photos\\a.jpg", "C:/Photos/a.jpg"},
        {"file:///c:/Photos/a.jpg", "c:/Photos/a.jpg"},
        {"file://\\\\server\\share\\a.jpg", "//server/share/a.jpg"},
        {"/srv/Le%20Caf%c3%a9%20bar.jpg", "/srv/Le Caf\xC3\xA9 bar.jpg"},
        {"/srv/Le%C3%A9%2F.jpg", "/srv/Le%C3%A9%2F.jpg"},  // no other decoding
    };
    for (const auto& [href, path] : rows)
        EXPECT_EQ(PathFromStoryHref(href), path) << href;
}

// The loop as it reads, searching the whole text again after every cut.
std::u16string CutByTheLoop(std::u16string text, std::u16string_view marker) {
    for (std::size_t found = text.find(marker); found != std::u16string::npos;
         found = text.find(marker)) {
        const std::size_t end = text.find(u"\">", found);
        const std::size_t rest = end != std::u16string::npos ? end + 1 : found + 9;
        text = testing::TrimBlanks(std::u16string_view(text).substr(0, found)) +
               testing::TrimBlanks(std::u16string_view(text).substr(rest));
    }
    return text;
}

TEST(RescueAttributeCut, AgreesWithTheLoopAndStaysLinear) {
    constexpr std::u16string_view kMarker = u" CharCount=\"";
    EXPECT_EQ(
        CutAttributeMarkers(u"<TextBox3 CharCount=\"12\" WordCount=\"3\" Name=\"T\">x y ", kMarker),
        u"<TextBox3>x y");
    constexpr std::u16string_view kPieces[] = {
        u" CharCount=\"", u"\">", u" ", u"x", u"\"", u">", u"t=\"", u" CharCoun", u"nt=\"", u"  "};
    testing::RandomStoryText random(7);
    for (int round = 0; round < 5000; ++round) {
        const std::u16string text = random.Pieces(kPieces, 11);
        EXPECT_EQ(CutAttributeMarkers(text, kMarker), CutByTheLoop(text, kMarker))
            << Utf16ToUtf8(text);
    }
    std::u16string markers;
    for (int copy = 0; copy < 200'000; ++copy)
        markers += kMarker;
    EXPECT_EQ(CutAttributeMarkers(markers, kMarker).size(), 200'000u * 3);
}

TEST(StoryFileText, TheDeclarationDecidesTheEncodingAndTheRescueNeedsABody) {
    // The ISO-8859-1 reading is the rescue's test.
    EXPECT_EQ(DecodeStoryFileText("<?xml version='1.0' encoding='UTF-8'?>\xC3\xA9\xE9"),
              u"<?xml version='1.0' encoding='UTF-8'?>\u00E9\u00E9");
    EXPECT_EQ(DecodeStoryFileText("no prolog \xE2\x82\xAC"), u"no prolog \u20AC");

    EXPECT_FALSE(RescueStoryBoxes(u"</Body><Body>", {}, {}));
    const auto boxes = RescueStoryBoxes(
        u"<Body><TextBox2>b</TextBox2></TextBox1><TextBox1><TextBox6>six</TextBox6></Body>", {},
        {});
    ASSERT_TRUE(boxes);
    EXPECT_EQ((*boxes)[2].Text(), u"b");
    EXPECT_TRUE((*boxes)[1].Empty());  // its closing tag stands before the opening one
    EXPECT_EQ((*boxes)[6].Text(), u"</TextBox1><TextBox1><TextBox6>six");
}

std::string PlainTextOf(std::string_view story) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(story));
    return StoryPlainText(document.DocumentElement());
}

// The plain text of the send list's preview.
TEST(StoryPlainText, BoxesBecomePlainLinesWithoutNotes) {
    EXPECT_EQ(
        PlainTextOf(
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\r\n<Story AppName=\"Tessarin\"><Body>\r\n"
            "<TextBox0 CharCount=\"5\" WordCount=\"1\" "
            "Name=\"Title\">Big\t<b>news</b></TextBox0>\r\n"
            "<TextBox6 CharCount=\"9\" Name=\"Text\"><inter1>Lead</inter1> 5<euro/> "
            "<note>AL 01</note>c<oe/>ur <OE/><p/>\r\n<i>x</i><sup>2</sup> &amp;lt; &lt;b&gt; "
            "&#160;<u></u><tab/><b><note>kept</note></b></TextBox6>\r\n"
            "<Signature>AL</Signature></Body></Story>"),
        "Bignews\r\nLead 5\xE2\x82\xAC c\xC5\x93ur \xC5\x92\r\nx2 < <b> \xC2\xA0<tab/>kept\r\n");
    EXPECT_EQ(PlainTextOf("<Story><Body><TextBox7>x</TextBox7><TextBox3/></Body></Story>"), "\r\n");
    EXPECT_EQ(PlainTextOf("<Story/>"), "");
}

// The preview of a found story keeps the formats and leaves the notes out.
TEST(StoryPreviewText, BoxesKeepTheirFormatsWithoutNotes) {
    XmlDocument document;
    ASSERT_TRUE(document.LoadBytes(
        "<Story><Body><TextBox0 CharCount=\"5\">Big <b>news</b></TextBox0>"
        "<TextBox6 Name=\"Text\">A <note>AL 01</note><i>b</i><sup>2</sup></TextBox6>"
        "</Body></Story>"));
    EXPECT_EQ(testing::Describe(StoryPreviewText(document.DocumentElement(), Preferences{})),
              "[]Big [b]news[]\r\nA [i]b[s]2[]\r\n");
}

}  // namespace
}  // namespace tessarin
