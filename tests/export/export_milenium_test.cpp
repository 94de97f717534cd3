#include "export/export_milenium.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/scoped_environment.h"
#include "config/configuration.h"
#include "config/preferences.h"
#include "export/tagged_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;
using testing::Staged;
using testing::StoryFile;

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\" ?>";

// Element names of a MileniumInsert section; the time is frozen on 5 March 2024 and short
// dates are day/month/year.
class MileniumTest : public ::testing::Test {
  protected:
    void Configure(std::string_view sectionAttributes, std::string_view expirationAttributes) {
        const std::string section =
            "<ExportFormats><MileniumInsert><Publication>Journal</Publication>"
            "<Section" +
            std::string(sectionAttributes) +
            ">Rubrique</Section>"
            "<Story>Article</Story><StoryName>Nom</StoryName>"
            "<ExpirationDate" +
            std::string(expirationAttributes) +
            ">Expire</ExpirationDate>"
            "<Form>Gabarit</Form><Author>Auteur</Author><Classification>Classement</Classification>"
            "<Taxonomy>Theme</Taxonomy><TextBox1>Titre</TextBox1><TextBox7>Texte</TextBox7>"
            "<Signature>Signe</Signature><Image>Photo</Image><CaptionElement>Legende</"
            "CaptionElement>"
            "<CreditElement>Credit</CreditElement></MileniumInsert></ExportFormats>";
        XmlDocument document;
        ASSERT_TRUE(document.LoadBytes(section));
        ReadExportFormats(document.DocumentElement(), configuration_.exportFormats);
    }

    std::string Compose(const std::string& storyBytes) {
        XmlDocument story;
        EXPECT_TRUE(story.LoadBytes(storyBytes));
        return ComposeMilenium(story, "story.xml", Context());
    }

    ExportContext Context() {
        return {.configuration = configuration_,
                .window = window_,
                .preferences = preferences_,
                .user = user_,
                .userName = {}};
    }

    // The output of a story with only these Metadata elements, between the Story start tag
    // and the end tags.
    std::string StoryPartOf(std::string_view metadata) {
        const std::string out = Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata>" +
                                                  std::string(metadata) + "</Metadata></Story>"));
        const std::size_t start = out.find("<Article>") + 9;
        return out.substr(start, out.find("\r\n</Article>") - start);
    }

    ScopedEnvironment now_{"TESSARIN_NOW", "2024-03-05T09:07:00"};
    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    Configuration configuration_;
    WindowState window_;
    Preferences preferences_;
    ScriptedInteraction user_;
};

constexpr std::string_view kStory = R"(<Story AppName="Tessarin" AppVersion="0.1.0">
<Metadata>
<Author Name="Auteur">Marie</Author>
<Publication Name="Publication">Le Jour</Publication>
<Classification Name="Rubrique">Éco</Classification>
<SectionGeneral Name="Section">Sec</SectionGeneral>
<SubSectionGeneral Name="Sous-section">SG</SubSectionGeneral>
<SubSectionLocal Name="Sous-locale">SL</SubSectionLocal>
<PublicationDate Name="Date">28/02/2024</PublicationDate>
<Taxonomy>
<Topic FormalItem="04000000">Économie</Topic>
<Topic FormalItem="">Vide</Topic>
</Taxonomy>
<Form Name="Type" Index="0">News</Form>
</Metadata>
<Body>
<TextBox0 CharCount="5" WordCount="1" Name="Titre">Titre</TextBox0>
<TextBox6 CharCount="40" WordCount="9" Name="Texte"><b>x</b> <i>y</i> <u>z</u><sup>e</sup><p/>
<inter1>Inter</inter1><p/>
A&amp;B &lt;c&gt;&#160;<euro/><oe/><OE/><tab/>d<note>n</note></TextBox6>
<Signature>Jean</Signature></Body>
<Images>
<ImageBag>
<Image href="file:///a%20b.jpg"/>
<Caption>Légende</Caption>
<Credit>AFP</Credit>
</ImageBag>
<ImageBag>
<Image href=""/>
<Caption>Sans image</Caption>
</ImageBag>
<ImageBag>
<Image href="c.jpg"/>
</ImageBag>
</Images>
</Story>
)";

TEST_F(MileniumTest, WritesEveryElementUnderConfiguredNames) {
    Configure("", " AddToPublicationDate=\"3\"");
    const std::string expected =
        std::string(kHead) +
        "\r\n<Journal>Le Jour/\xC9"
        "co"
        "\r\n<Rubrique>Sec</Rubrique>"
        "\r\n<Article>"
        "\r\n<Nom>story.xml</Nom>"
        "\r\n<Expire>02/03/2024</Expire>"
        "\r\n<Gabarit>News</Gabarit>"
        "\r\n<Classement>Sec/#SG/#SL</Classement>"
        "\r\n<Theme>\xC9"
        "conomie</Theme>"
        "\r\n<Theme>Vide</Theme>"
        "\r\n<Auteur>Marie</Auteur>"
        "\r\n<Titre><P>Titre</P></Titre>"
        "\r\n<Texte><P><B>x</B> <I>y</I> <U>z</U><SUP>e</SUP><INTER>Inter</INTER></P>"
        "<P>A&amp;B &lt;c&gt; \x80\x9C\x8C\td</P></Texte>"
        "\r\n<Signe><P>Jean</P></Signe>"
        "\r\n<Photo>a b.jpg</Photo>"
        "\r\n<Legende><P>L\xE9gende</P></Legende>"
        "\r\n<Legende1><P>Sans image</P></Legende1>"
        "\r\n<Photo2>c.jpg</Photo2>"
        "\r\n</Article>"
        "\r\n</Journal>";
    const std::string out = Compose(StoryFile(kStory));
    EXPECT_EQ(out, expected);
    EXPECT_EQ(Compose(StoryFile(kStory, true)), expected);

    XmlDocument written;
    EXPECT_TRUE(written.LoadBytes(out));
    EXPECT_EQ(written.DocumentElement().SelectSingleNode("Article/Texte").Text(),
              "x y zeInterA&B <c> \xE2\x82\xAC\xC5\x93\xC5\x92\td");
}

TEST_F(MileniumTest, SectionFollowsTheLevel) {
    Configure("", "");
    constexpr std::string_view kGeneralOnly =
        "<SubSectionGeneral>SG</SubSectionGeneral><PublicationDate>0</PublicationDate>";
    // Level 2 by default: the general sub-section stands in for a missing section.
    EXPECT_EQ(StoryPartOf(kGeneralOnly),
              "\r\n<Nom>story.xml</Nom>\r\n<Expire>20/03/2024</Expire>"
              "\r\n<Classement>SG</Classement>");
    const std::string out = Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata>" +
                                              std::string(kGeneralOnly) + "</Metadata></Story>"));
    EXPECT_NE(out.find("\r\n<Rubrique>SG</Rubrique>\r\n<Article>"), std::string::npos);

    Configure(" Level=\"3\"", "");
    EXPECT_EQ(Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata>" +
                                std::string(kGeneralOnly) + "</Metadata></Story>"))
                  .find("<Rubrique>"),
              std::string::npos);
    EXPECT_NE(Compose(StoryFile("<Story AppName=\"Tessarin\"><Metadata><SubSectionLocal>L"
                                "</SubSectionLocal></Metadata></Story>"))
                  .find("\r\n<Rubrique>L</Rubrique>\r\n"),
              std::string::npos);
}

TEST_F(MileniumTest, ExpirationCountsFromTodayWithoutAPublicationDate) {
    Configure("", "");
    // No date, and the "0" of a story without date: today plus the default 15 days.
    EXPECT_EQ(StoryPartOf(""), "\r\n<Nom>story.xml</Nom>\r\n<Expire>20/03/2024</Expire>");
    EXPECT_EQ(StoryPartOf("<PublicationDate>0</PublicationDate>"),
              "\r\n<Nom>story.xml</Nom>\r\n<Expire>20/03/2024</Expire>");
    Configure("", " AddToPublicationDate=\"-1\"");
    EXPECT_EQ(StoryPartOf("<PublicationDate>01/01/2025</PublicationDate>"),
              "\r\n<Nom>story.xml</Nom>\r\n<Expire>31/12/2024</Expire>");
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

// The output has the story's own name, so a layout send writes it over the staged story.
TEST_F(MileniumTest, LayoutSendWritesOverTheStagedStory) {
    Configure("", "");
    configuration_.workflow.ExportTextsDirectory = "/export";
    const testing::TempDir folder;
    const std::string upload = (folder / "Upload").string() + "/";
    folder.Write("Upload/front.xml",
                 StoryFile("<Story AppName=\"Tessarin\"><Metadata><OriginalPath Name=\"/a/b.xml\"/>"
                           "</Metadata></Story>"));
    ExportState state = Staged(upload, "front.xml");
    ExportMilenium(state, ExportMode::Layout, Context());
    EXPECT_EQ(state.ExportedFilePath, state.SourceStoryPath);
    EXPECT_EQ(
        testing::ReadBytes(state.ExportedFilePath),
        std::string(kHead) +
            "\r\n<Journal>\r\n<Article>\r\n<Nom>front.xml</Nom>\r\n<Expire>20/03/2024</Expire>"
            "\r\n</Article>\r\n</Journal>");
    EXPECT_EQ(state.TargetPath, "/export/front.xml");
    EXPECT_EQ(state.OriginalStoryPath, "/a/b.xml");
}

}  // namespace
}  // namespace tessarin
