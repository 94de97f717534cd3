#include "export/export_milenium.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "common/scoped_environment.h"
#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::StoryFile;

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\" ?>";

// Element names of a MileniumInsert section; short dates are day/month/year.
class MileniumTest : public ::testing::Test {
  protected:
    void Configure(std::string_view sectionAttributes, std::string_view expirationAttributes) {
        setup_.configuration.exportFormats = testing::ReadSettings(
            "<MileniumInsert><Publication>Journal</Publication><Section" +
            std::string(sectionAttributes) +
            ">Rubrique</Section><Story>Article</Story><StoryName>Nom</StoryName><ExpirationDate" +
            std::string(expirationAttributes) +
            ">Expire</ExpirationDate><Form>Gabarit</Form><Author>Auteur</Author>"
            "<Classification>Classement</Classification><Taxonomy>Theme</Taxonomy>"
            "<TextBox1>Titre</TextBox1><TextBox7>Texte</TextBox7><Signature>Signe</Signature>"
            "<Image>Photo</Image><CaptionElement>Legende</CaptionElement>"
            "<CreditElement>Credit</CreditElement></MileniumInsert>");
    }

    std::string Compose(const std::string& storyBytes) {
        return ComposeMilenium(testing::ParseStory(storyBytes), "story.xml", setup_.Context());
    }

    testing::ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    testing::WriterSetup setup_;
};

TEST_F(MileniumTest, WritesEveryElementUnderConfiguredNames) {
    Configure("", " AddToPublicationDate=\"3\"");
    const std::string expected =
        std::string(kHead) +
        "\r\n<Journal>P/Q/\xC9"
        "co\r\n<Rubrique>Sec</Rubrique>\r\n<Article>\r\n<Nom>story.xml</Nom>"
        "\r\n<Expire>02/03/2024</Expire>\r\n<Gabarit>News</Gabarit>"
        "\r\n<Classement>Sec/#SG/#Loc/#SL/#X</Classement>\r\n<Theme>\xC9"
        "conomie</Theme>\r\n<Theme>Vide</Theme>\r\n<Theme>Non</Theme>"
        "\r\n<Auteur>Marie Dupr\xE9</Auteur>\r\n<Titre><P>Titre</P></Titre>"
        "\r\n<Texte><P><B><I>x</I></B> <I>y</I> <U>z</U><SUP>e</SUP><INTER>Inter</INTER></P>"
        "<P>A&amp;B &lt;c&gt; \x80\x9C\x8C\td<B>gh</B></P></Texte>\r\n<Signe><P>Jean</P></Signe>"
        "\r\n<Photo>a b.jpg</Photo>\r\n<Legende><P>L\xE9gende</P></Legende>"
        "\r\n<Legende1><P>Sans image</P></Legende1>\r\n<Photo2>c.jpg</Photo2>"
        "\r\n</Article>\r\n</Journal>";
    EXPECT_EQ(Compose(StoryFile(testing::kLayoutStory)), expected);
}

// The section element follows the level: 2 (the default) takes the general section, else the
// general sub-section, 3 the local ones. The expiration counts from the publication date, or
// from today (5 March 2024) without one or with the "0" of a story without date.
TEST_F(MileniumTest, SectionAndExpirationDate) {
    const struct {
        std::string_view section;
        std::string_view expiration;
        std::string_view metadata;
        std::string_view expected;  // from the publication's start tag to the story's end tag
    } rows[] = {
        {"", "", "<SubSectionGeneral>SG</SubSectionGeneral><PublicationDate>0</PublicationDate>",
         "\r\n<Rubrique>SG</Rubrique>\r\n<Article>\r\n<Nom>story.xml</Nom>"
         "\r\n<Expire>20/03/2024</Expire>\r\n<Classement>SG</Classement>"},
        {" Level=\"3\"", "", "<SubSectionGeneral>SG</SubSectionGeneral>",
         "\r\n<Article>\r\n<Nom>story.xml</Nom>\r\n<Expire>20/03/2024</Expire>"
         "\r\n<Classement>SG</Classement>"},
        {" Level=\"3\"", "", "<SubSectionLocal>L</SubSectionLocal>",
         "\r\n<Rubrique>L</Rubrique>\r\n<Article>\r\n<Nom>story.xml</Nom>"
         "\r\n<Expire>20/03/2024</Expire>\r\n<Classement>L</Classement>"},
        {"", " AddToPublicationDate=\"-1\"", "<PublicationDate>01/01/2025</PublicationDate>",
         "\r\n<Article>\r\n<Nom>story.xml</Nom>\r\n<Expire>31/12/2024</Expire>"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.metadata);
        Configure(row.section, row.expiration);
        const std::string out =
            Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata>" + std::string(row.metadata) +
                              "</Metadata></Story>"));
        const std::size_t start = out.find("<Journal>") + 9;
        EXPECT_EQ(out.substr(start, out.find("\r\n</Article>") - start), row.expected);
    }
}

TEST_F(MileniumTest, StoryWithoutMetadataOrBodyAndIntertitleAfterABreak) {
    Configure("", "");
    EXPECT_EQ(
        Compose(StoryFile("<Story AppName=\"Tessarin\"/>")),
        std::string(kHead) +
            "\r\n<Journal>\r\n<Article>\r\n<Nom>story.xml</Nom>\r\n<Expire>20/03/2024</Expire>"
            "\r\n</Article>\r\n</Journal>");
    // The line end that the story file has after each break is cut first, so a break right
    // before an intertitle's start or end goes with it; a box opening on an empty paragraph
    // keeps it as an empty paragraph; the other intertitle styles have no Milenium form.
    const std::string out = Compose(StoryFile(
        "<Story AppName=\"Tessarin\"><Body><TextBox0><p/>\nUn<p/>\nDeux<p/>\n\tTrois</TextBox0>"
        "<TextBox6>a<p/>\n<inter1>T<p/>\n</inter1>b<p/>\n<inter2>U</inter2></TextBox6></Body>"
        "</Story>"));
    EXPECT_NE(out.find("\r\n<Titre><P></P><P>Un</P><P>Deux</P><P>Trois</P></Titre>"
                       "\r\n<Texte><P>a<INTER>T</INTER>b</P><P><inter2>U</inter2></P></Texte>\r\n"),
              std::string::npos)
        << out;
}

}  // namespace
}  // namespace tessarin
