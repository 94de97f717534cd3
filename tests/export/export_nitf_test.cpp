#include "export/export_nitf.h"

#include <gtest/gtest.h>

#include <string>

#include "newsml_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CrLfLines;
using testing::IsWellFormed;
using testing::ParseStory;
using testing::WriterSetup;

const std::string kFullStory = CrLfLines({
    R"(<?xml version="1.0" encoding="ISO-8859-1" ?>)",
    R"(<Story AppName="Tessarin" AppVersion="0.1.0">)",
    "<Metadata>",
    R"(<Author Name="Author">Jo</Author>)",
    R"(<Publication Name="Publication">Le Matin</Publication>)",
    R"(<PublicationDate Name="Publication date">12/03/2024</PublicationDate>)",
    R"(<PublicationNumber Name="Publication number">42</PublicationNumber>)",
    "<Taxonomy>",
    R"(<Topic FormalItem="15054000">Football</Topic>)",
    "</Taxonomy>",
    "<Keywords>",
    R"(<Keyword CategoryName="Places" CategoryIndex="1">Lyon</Keyword>)",
    "<Keyword CategoryName=\"People\" CategoryIndex=\"2\">Zo\xE9</Keyword>",
    "</Keywords>",
    R"(<Status Name="Status" FormalItem="Embargoed">Embargo</Status>)",
    R"(<OriginalPath Name="/home/jo/match.xml"/>)",
    "</Metadata>",
    "<Body>",
    R"(<TextBox3 CharCount="8" WordCount="1" Name="Title">Victoire</TextBox3>)",
    R"(<TextBox4 CharCount="5" WordCount="1" Name="Sub"><b>Nette</b></TextBox4>)",
    R"(<TextBox6 CharCount="60" WordCount="12" Name="Text"><inter1>Le match</inter1><p/>)",
    "<b>A &amp; B</b> ont gagn\xE9<note>revoir</note> <i>2-0</i> <u>ici</u><sup>e</sup>.<p/>",
    "<inter2>x</inter2><inter3>y</inter3><tab/>5 <euro/> <oe/><OE/>&#160;!</TextBox6>",
    "<Signature>Jo</Signature></Body>",
    "<Images>",
    "<ImageBag>",
    R"(<Image href="file:///match%20du%20jour.jpg"/>)",
    "<Caption>Le but</Caption>",
    "<Credit>Photo X</Credit>",
    "</ImageBag>",
    "<ImageBag>",
    R"(<Image href="tribune.jpg"/>)",
    "</ImageBag>",
    "</Images>",
    "</Story>",
});

std::string Compose(WriterSetup& setup, std::string_view storyBytes) {
    return ComposeNITF(ParseStory(storyBytes), setup.Context(LocalDateTime{2024, 3, 12, 9, 0, 0}));
}

TEST(ExportNITF, ComposesTheWholeDocumentKeepingTheStoryMarkup) {
    WriterSetup setup;
    setup.configuration.exportFormats.NITF.copyriteHolder = "Velmora";
    setup.configuration.workflow.ExportImagesDirectory = "/srv/export/images";
    setup.window.Control("lblTextBox3").caption = "Titre";
    setup.window.Control("lblTextBox6").caption = "Texte";
    const std::string expected = CrLfLines({
        R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
        "<nitf>",
        "<head>",
        "\t<tobject tobject.type=\"news\">",
        "\t\t<tobject.subject tobject.subject.refnum=\"15054000\" "
        "tobject.subject.detail=\"Football\" tobject.subject.ipr=\"IPTC\"/>",
        "\t</tobject>",
        "\t<docdata>",
        "\t\t<urgency ed-urg=\"5\"/>",
        "\t\t<doc.copyright holder=\"Velmora\"/>",
        "\t\t<doc.rights limitations=\"Embargoed\"/>",
        "\t\t<key-list>",
        "\t\t\t<keyword key=\"Lyon\"/>",
        "\t\t\t<keyword key=\"Zo\xE9\"/>",
        "\t\t</key-list>",
        "\t</docdata>",
        "\t<pubdata date.publication=\"12/03/2024\" name=\"Le Matin\" number=\"42\"/>",
        "</head>",
        "<body>",
        "\t<body.head>",
        "\t\t<byline>Jo</byline>",
        "\t\t<hedline>",
        "\t\t\t<hl1>Victoire</hl1>",
        "\t\t\t<hl2>Nette</hl2>",
        "\t\t</hedline>",
        "\t</body.head>",
        "\t<body.content>",
        "\t\t<block style=\"Titre\">",
        "Victoire",
        "\t\t</block>",
        "\t\t<block style=\"Text box 5\">",
        "<em style=\"bold\">Nette</em>",
        "\t\t</block>",
        "\t\t<block style=\"Texte\">",
        "<em style=\"inter1\">Le match</em><p/>",
        "<em style=\"bold\">A &amp; B</em> ont gagn\xE9 <em style=\"italics\">2-0</em> "
        "<em style=\"underline\">ici</em><em style=\"super\">e</em>.<p/>",
        "<em style=\"inter2\">x</em><em style=\"inter3\">y</em>\t5 \x80 \x9C\x8C\xA0!",
        "\t\t</block>",
        "\t\t<media media-type=\"image\">",
        "\t\t\t<media-reference mime-type=\"image/jpeg\" "
        "source=\"file:///srv/export/images/match du jour.jpg\"/>",
        "\t\t\t<media-caption>Le but</media-caption>",
        "\t\t\t<media-producer>Photo X</media-producer>",
        "\t\t</media>",
        "\t\t<media media-type=\"image\">",
        "\t\t\t<media-reference mime-type=\"image/jpeg\" "
        "source=\"file:///srv/export/images/tribune.jpg\"/>",
        "\t\t</media>",
        "\t</body.content>",
        "</body>",
        "</nitf>",
    });
    const std::string output = Compose(setup, kFullStory);
    EXPECT_EQ(output, expected);
    EXPECT_TRUE(IsWellFormed(output));
}

// Values other than the blocks and the picture's source are written as the story's text, not
// escaped: a "<" or "&" there stands bare, while the blocks keep their entities.
TEST(ExportNITF, PlainTextValuesAreNotEscaped) {
    WriterSetup setup;
    const std::string story = R"(<Story><Metadata><Status FormalItem="a&amp;b"/></Metadata>)"
                              R"(<Body><TextBox4>1 &lt; 2 &amp; <b>3</b></TextBox4></Body>)"
                              R"(<Images><ImageBag><Image href=""/>)"
                              R"(<Caption>Tom &amp; Jerry</Caption></ImageBag></Images></Story>)";
    const std::string output = Compose(setup, story);
    EXPECT_EQ(output, CrLfLines({
                          R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
                          "<nitf>",
                          "<head>",
                          "\t<docdata>",
                          "\t\t<urgency ed-urg=\"5\"/>",
                          "\t\t<doc.copyright holder=\"\"/>",
                          "\t\t<doc.rights limitations=\"a&b\"/>",
                          "\t</docdata>",
                          "\t<pubdata/>",
                          "</head>",
                          "<body>",
                          "\t<body.head>",
                          "\t\t<hedline>",
                          "\t\t\t<hl2>1 < 2 & 3</hl2>",
                          "\t\t</hedline>",
                          "\t</body.head>",
                          "\t<body.content>",
                          "\t\t<block style=\"Text box 5\">",
                          "1 &lt; 2 &amp; <em style=\"bold\">3</em>",
                          "\t\t</block>",
                          "\t\t<media media-type=\"image\">",
                          "\t\t\t<media-caption>Tom & Jerry</media-caption>",
                          "\t\t</media>",
                          "\t</body.content>",
                          "</body>",
                          "</nitf>",
                      }));
}

// Without Body the closing rows are still written: body.content is closed but never opened.
TEST(ExportNITF, StoryWithoutBodyGivesTheDocumentThatIsNotWellFormed) {
    WriterSetup setup;
    const std::string story =
        R"(<Story><Images><ImageBag><Image href="a.jpg"/><Credit>AFP</Credit></ImageBag>)"
        R"(</Images></Story>)";
    const std::string output = Compose(setup, story);
    EXPECT_EQ(output,
              CrLfLines({
                  R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
                  "<nitf>",
                  "<body>",
                  "\t\t<media media-type=\"image\">",
                  "\t\t\t<media-reference mime-type=\"image/jpeg\" source=\"file:///a.jpg\"/>",
                  "\t\t\t<media-producer>AFP</media-producer>",
                  "\t\t</media>",
                  "\t</body.content>",
                  "</body>",
                  "</nitf>",
              }));
    EXPECT_FALSE(IsWellFormed(output));
}

// The declaration says ISO-8859-1 whatever the configuration says; the text is Windows-1252
// and only the escaped picture source is UTF-8.
TEST(ExportNITF, Utf8ModeStillDeclaresIso88591) {
    WriterSetup setup;
    setup.configuration.general.storiesEncoding = "UTF-8";
    setup.configuration.workflow.ExportImagesDirectory = "/srv/images/\u00e9t\u00e9";
    const std::string story = CrLfLines({
        R"(<?xml version="1.0" encoding="UTF-8" ?>)",
        "<Story><Metadata><Keywords><Keyword>\xC3\xA9</Keyword></Keywords></Metadata>",
        "<Body><TextBox6>\xC3\xA9 <euro/></TextBox6></Body>",
        "<Images><ImageBag><Image href=\"\xC3\xA9quipe.jpg\"/></ImageBag></Images></Story>",
    });
    EXPECT_EQ(Compose(setup, story),
              CrLfLines({
                  R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
                  "<nitf>",
                  "<head>",
                  "\t<docdata>",
                  "\t\t<urgency ed-urg=\"5\"/>",
                  "\t\t<doc.copyright holder=\"\"/>",
                  "\t\t<doc.rights limitations=\"\"/>",
                  "\t\t<key-list>",
                  "\t\t\t<keyword key=\"\xE9\"/>",
                  "\t\t</key-list>",
                  "\t</docdata>",
                  "\t<pubdata/>",
                  "</head>",
                  "<body>",
                  "\t<body.head>",
                  "\t</body.head>",
                  "\t<body.content>",
                  "\t\t<block style=\"Text box 7\">",
                  "\xE9 \x80",
                  "\t\t</block>",
                  "\t\t<media media-type=\"image\">",
                  "\t\t\t<media-reference mime-type=\"image/jpeg\" "
                  "source=\"file:///srv/images/\xC3\xA9t\xC3\xA9/\xC3\xA9quipe.jpg\"/>",
                  "\t\t</media>",
                  "\t</body.content>",
                  "</body>",
                  "</nitf>",
              }));
}

TEST(ExportNITF, WritesTheStoryItsNameInTheUploadDirectory) {
    testing::TempDir folder;
    WriterSetup setup;
    const std::string upload = folder.path().string() + "/";
    folder.Write("match.xml", kFullStory);
    ExportState state;
    state.UploadDirectory = upload;
    state.CurrentUploadNode = "match.xml";
    state.SourceStoryPath = upload + "match.xml";
    const ExportContext context = setup.Context(LocalDateTime{});

    ExportNITF(state, ExportMode::Layout, context);

    EXPECT_EQ(state.ExportedFilePath, upload + "match.xml");
    EXPECT_EQ(state.TargetPath, "match.xml");
    EXPECT_EQ(state.OriginalStoryPath, "/home/jo/match.xml");
    EXPECT_EQ(testing::ReadBytes(folder / "match.xml"),
              ComposeNITF(ParseStory(kFullStory), context));
}

}  // namespace
}  // namespace tessarin
