#include "export/export_nitf.h"

#include <gtest/gtest.h>

#include <string>

#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::CrLf;
using testing::ParseStory;
using testing::WriterSetup;

const std::string kFullStory = CrLf(
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\n<Metadata>\n"
    "<Author Name=\"Author\">Jo</Author>\n"
    "<Publication Name=\"Publication\">Le Matin</Publication>\n"
    "<PublicationDate Name=\"Publication date\">12/03/2024</PublicationDate>\n"
    "<PublicationNumber Name=\"Publication number\">42</PublicationNumber>\n<Taxonomy>\n"
    "<Topic FormalItem=\"15054000\">Football</Topic>\n</Taxonomy>\n<Keywords>\n"
    "<Keyword CategoryName=\"Places\" CategoryIndex=\"1\">Lyon</Keyword>\n"
    "<Keyword CategoryName=\"People\" CategoryIndex=\"2\">Zo\xE9</Keyword>\n</Keywords>\n"
    "<Status Name=\"Status\" FormalItem=\"Embargoed\">Embargo</Status>\n"
    "<OriginalPath Name=\"/home/jo/match.xml\"/>\n</Metadata>\n<Body>\n"
    "<TextBox3 CharCount=\"8\" WordCount=\"1\" Name=\"Title\">Victoire</TextBox3>\n"
    "<TextBox4 CharCount=\"5\" WordCount=\"1\" Name=\"Sub\"><b>Nette</b></TextBox4>\n"
    "<TextBox6 CharCount=\"60\" WordCount=\"12\" Name=\"Text\"><inter1>Le match</inter1><p/>\n"
    "<b>A &amp; B</b> ont gagn\xE9<note>revoir</note> <i>2-0</i> <u>ici</u><sup>e</sup>.<p/>\n"
    "<inter2>x</inter2><inter3>y</inter3><tab/>5 <euro/> <oe/><OE/>&#160;!</TextBox6>\n"
    "<Signature>Jo</Signature></Body>\n<Images>\n<ImageBag>\n"
    "<Image href=\"file:///match%20du%20jour.jpg\"/>\n<Caption>Le but</Caption>\n"
    "<Credit>Photo X</Credit>\n</ImageBag>\n<ImageBag>\n<Image href=\"tribune.jpg\"/>\n"
    "</ImageBag>\n</Images>\n</Story>\n");

std::string Compose(WriterSetup& setup, std::string_view storyBytes) {
    return ComposeNITF(ParseStory(storyBytes), setup.Context(LocalDateTime{2024, 3, 12, 9, 0, 0}));
}

TEST(ExportNITF, ComposesTheWholeDocumentKeepingTheStoryMarkup) {
    WriterSetup setup;
    setup.configuration.exportFormats.NITF.copyriteHolder = "Velmora";
    setup.configuration.workflow.ExportImagesDirectory = "/srv/export/images";
    setup.window.Control("lblTextBox3").caption = "Titre";
    setup.window.Control("lblTextBox6").caption = "Texte";
    const std::string expected = CrLf(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<nitf>\n<head>\n"
        "\t<tobject tobject.type=\"news\">\n"
        "\t\t<tobject.subject tobject.subject.refnum=\"15054000\" "
        "tobject.subject.detail=\"Football\" tobject.subject.ipr=\"IPTC\"/>\n"
        "\t</tobject>\n\t<docdata>\n\t\t<urgency ed-urg=\"5\"/>\n"
        "\t\t<doc.copyright holder=\"Velmora\"/>\n\t\t<doc.rights limitations=\"Embargoed\"/>\n"
        "\t\t<key-list>\n\t\t\t<keyword key=\"Lyon\"/>\n\t\t\t<keyword key=\"Zo\xE9\"/>\n"
        "\t\t</key-list>\n\t</docdata>\n"
        "\t<pubdata date.publication=\"12/03/2024\" name=\"Le Matin\" number=\"42\"/>\n</head>\n"
        "<body>\n\t<body.head>\n\t\t<byline>Jo</byline>\n\t\t<hedline>\n\t\t\t<hl1>Victoire</hl1>\n"
        "\t\t\t<hl2>Nette</hl2>\n\t\t</hedline>\n\t</body.head>\n\t<body.content>\n"
        "\t\t<block style=\"Titre\">\nVictoire\n\t\t</block>\n\t\t<block style=\"Text box 5\">\n"
        "<em style=\"bold\">Nette</em>\n\t\t</block>\n\t\t<block style=\"Texte\">\n"
        "<em style=\"inter1\">Le match</em><p/>\n"
        "<em style=\"bold\">A &amp; B</em> ont gagn\xE9 <em style=\"italics\">2-0</em> "
        "<em style=\"underline\">ici</em><em style=\"super\">e</em>.<p/>\n"
        "<em style=\"inter2\">x</em><em style=\"inter3\">y</em>\t5 \x80 \x9C\x8C\xA0!\n"
        "\t\t</block>\n\t\t<media media-type=\"image\">\n"
        "\t\t\t<media-reference mime-type=\"image/jpeg\" "
        "source=\"file:///srv/export/images/match du jour.jpg\"/>\n"
        "\t\t\t<media-caption>Le but</media-caption>\n"
        "\t\t\t<media-producer>Photo X</media-producer>\n\t\t</media>\n"
        "\t\t<media media-type=\"image\">\n"
        "\t\t\t<media-reference mime-type=\"image/jpeg\" "
        "source=\"file:///srv/export/images/tribune.jpg\"/>\n"
        "\t\t</media>\n\t</body.content>\n</body>\n</nitf>\n");
    EXPECT_EQ(Compose(setup, kFullStory), expected);
}

// Values other than the blocks and the picture's source are written as the story's text, not
// escaped: a "<" or "&" there stands bare, while the blocks keep their entities. In UTF-8 mode
// the declaration still says ISO-8859-1: the text is Windows-1252 and only the escaped picture
// source is UTF-8. A picture without a name has no reference.
TEST(ExportNITF, PlainTextValuesAreNotEscapedAndUtf8ModeStillDeclaresIso88591) {
    WriterSetup setup;
    setup.configuration.general.storiesEncoding = "UTF-8";
    setup.configuration.workflow.ExportImagesDirectory = "/srv/images/\u00e9t\u00e9";
    const std::string story = CrLf(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
        "<Story><Metadata><Status FormalItem=\"a&amp;b\"/>"
        "<Keywords><Keyword>\xC3\xA9</Keyword></Keywords></Metadata>\n"
        "<Body><TextBox4>1 &lt; 2 &amp; <b>3</b></TextBox4><TextBox6>\xC3\xA9 <euro/></TextBox6>"
        "</Body>\n<Images><ImageBag><Image href=\"\xC3\xA9quipe.jpg\"/></ImageBag><ImageBag>"
        "<Image href=\"\"/><Caption>Tom &amp; Jerry</Caption></ImageBag></Images></Story>\n");
    const std::string expected = CrLf(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<nitf>\n<head>\n\t<docdata>\n"
        "\t\t<urgency ed-urg=\"5\"/>\n\t\t<doc.copyright holder=\"\"/>\n"
        "\t\t<doc.rights limitations=\"a&b\"/>\n\t\t<key-list>\n\t\t\t<keyword key=\"\xE9\"/>\n"
        "\t\t</key-list>\n\t</docdata>\n\t<pubdata/>\n</head>\n<body>\n"
        "\t<body.head>\n\t\t<hedline>\n\t\t\t<hl2>1 < 2 & 3</hl2>\n\t\t</hedline>\n\t</body.head>\n"
        "\t<body.content>\n\t\t<block style=\"Text box 5\">\n"
        "1 &lt; 2 &amp; <em style=\"bold\">3</em>\n\t\t</block>\n"
        "\t\t<block style=\"Text box 7\">\n\xE9 \x80\n\t\t</block>\n"
        "\t\t<media media-type=\"image\">\n\t\t\t<media-reference mime-type=\"image/jpeg\" "
        "source=\"file:///srv/images/\xC3\xA9t\xC3\xA9/\xC3\xA9quipe.jpg\"/>\n\t\t</media>\n"
        "\t\t<media media-type=\"image\">\n\t\t\t<media-caption>Tom & Jerry</media-caption>\n"
        "\t\t</media>\n\t</body.content>\n</body>\n</nitf>\n");
    EXPECT_EQ(Compose(setup, story), expected);
}

// Without Body the closing rows are still written: body.content is closed but never opened.
TEST(ExportNITF, StoryWithoutBodyClosesWhatItNeverOpened) {
    WriterSetup setup;
    const std::string story =
        R"(<Story><Images><ImageBag><Image href="a.jpg"/><Credit>AFP</Credit></ImageBag>)"
        R"(</Images></Story>)";
    const std::string expected = CrLf(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<nitf>\n<body>\n"
        "\t\t<media media-type=\"image\">\n"
        "\t\t\t<media-reference mime-type=\"image/jpeg\" source=\"file:///a.jpg\"/>\n"
        "\t\t\t<media-producer>AFP</media-producer>\n\t\t</media>\n\t</body.content>\n</body>\n"
        "</nitf>\n");
    EXPECT_EQ(Compose(setup, story), expected);
}

}  // namespace
}  // namespace tessarin
