#include "export/export_tagged_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "common/xml_document.h"
#include "config/configuration.h"
#include "config/export_section.h"
#include "config/preferences.h"
#include "export/tagged_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::Staged;
using testing::StoryFile;

XmlDocument Load(const std::string& bytes) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(bytes));
    return document;
}

// The InDesign and XPress sections as a configuration document writes them.
ExportSettings ReadSettings(std::string_view sections) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes("<ExportFormats>" + std::string(sections) + "</ExportFormats>"));
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

std::string Compose(TaggedTextLayout layout, const std::string& storyBytes,
                    const TaggedTextExportSettings& settings) {
    const XmlDocument story = Load(storyBytes);
    return ComposeTaggedText(layout, story, settings);
}

constexpr std::string_view kSections = R"(<InDesign>
<Prologue>/Version:5\</Prologue>
<Form Name="News" BoxBreak="true">
<TextBox1 Name="Titre">/Def:Titre\</TextBox1>
<TextBox7 Name="Texte">/Def:Texte\</TextBox7>
<Inter1 Name="Inter">/Def:Inter\</Inter1>
<Caption Name="Legende">/Def:Legende\</Caption>
<Signature Name="Signe"></Signature>
</Form>
<Form Name="News2"><TextBox1 Name="Titre2">/Def:Titre2\</TextBox1></Form>
<Form Name="Brief"><TextBox7 Name="Court">/Def:Court\</TextBox7></Form>
</InDesign>
<XPress>
<Prologue>/v5\</Prologue>
<Form Name="News" BoxBreak="true">
<TextBox1 Name="Titre">@Titre=/B\</TextBox1>
<TextBox7 Name="Texte">@Texte=/P\</TextBox7>
<Inter1 Name="Inter">@Inter=/B\</Inter1>
<Inter2 Name="Inter2"/>
<Inter3 Name="Inter3"/>
<Credit Name="Credit">@Credit=/I\</Credit>
</Form>
</XPress>)";

// Every inline tag, the entities, a no-break space, the special letters, a note, a box
// break setting, a signature, a picture with caption and credit.
constexpr std::string_view kStory = R"(<Story AppName="Tessarin" AppVersion="0.1.0">
<Metadata>
<Form Name="Type" Index="0">News</Form>
</Metadata>
<Body>
<TextBox0 CharCount="5" WordCount="1" Name="Titre">Titre</TextBox0>
<TextBox6 CharCount="40" WordCount="9" Name="Texte"><b><i>Gras</i></b> et <b>b</b><i>i</i><u>u</u><sup>er</sup><p/>
<inter1>Inter</inter1><p/>
A&amp;B &lt;x&gt;&#160;<euro/><oe/><OE/><tab/>é<note>secret</note>.</TextBox6>
<Signature>Jean</Signature></Body>
<Images>
<ImageBag>
<Image href="file:///a.jpg"/>
<Caption>Légende</Caption>
<Credit>AFP</Credit>
</ImageBag>
</Images>
</Story>
)";

TEST(ExportTaggedTextTest, InDesignWritesHeadStylesBoxesSignatureAndCaption) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string expected =
        "<ANSI-WIN>\r\n<Version:5>\r\n"
        "<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n<Def:Legende>\r\n<Def:Titre2>\r\n"
        "<ParaStyle:Titre>Titre<cNextXChars:Box>\r\n"
        "<ParaStyle:Texte><cTypeface:Bold Italic>Gras<cTypeface:> et "
        "<cTypeface:Bold>b<cTypeface:><cTypeface:Italic>i<cTypeface:>"
        "<cUnderline:1>u<cUnderline:><cPosition:Superscript>er<cPosition:>\r\n"
        "<ParaStyle:Inter>Inter\r\n"
        "<ParaStyle:Texte>A&amp;B \\<x\\><0x00A0>\x80\x9C\x8C\t\xE9.\r\n"
        "<ParaStyle:Signe>Jean\r\n"
        "<ParaStyle:Legende>L\xE9gende\r\n";
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, StoryFile(kStory), settings.InDesign), expected);
    // A story saved in UTF-8 reaches layout in the same bytes.
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, StoryFile(kStory, true), settings.InDesign),
              expected);
}

TEST(ExportTaggedTextTest, XPressTogglesItsTagsAndHasNoBoxBreak) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string expected =
        "<v5>\r\n@Titre=<B>\r\n@Texte=<P>\r\n@Inter=<B>\r\n@Credit=<I>\r\n"
        "@Titre:Titre\r\n"
        "@Texte:<B><I>Gras<I><B> et <B>b<B><I>i<I><U>u<U><V>er<V>\r\n"
        "@Inter:Inter\r\n"
        "@Texte:A&amp;B <\\<>x<\\>><\\!p>\x80\x9C\x8C\t\xE9.\r\n"
        "@Credit:AFP\r\n";
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, StoryFile(kStory), settings.XPress), expected);
}

// A box that opens with an intertitle, doubled and tripled breaks, and bold closed inside
// italic, which the single rows take.
constexpr std::string_view kBreaksStory = R"(<Story AppName="Tessarin">
<Metadata>
<Form>News</Form>
</Metadata>
<Body>
<TextBox6><inter1>Chapeau</inter1><p/>
Suite<p/>
<p/>
<p/>
<i><b>x</b></i><p/>
<p/>
fin</TextBox6>
</Body>
</Story>
)";

TEST(ExportTaggedTextTest, IntertitleAtTheStartAndRunsOfBreaks) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string story = StoryFile(kBreaksStory);
    // InDesign makes doubled breaks single in one pass and keeps the box's mark in front.
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, story, settings.InDesign),
              "<ANSI-WIN>\r\n<Version:5>\r\n"
              "<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n<Def:Legende>\r\n<Def:Titre2>\r\n"
              "<ParaStyle:Texte><ParaStyle:Inter>Chapeau\r\n<ParaStyle:Texte>Suite\r\n\r\n"
              "<cTypeface:Italic><cTypeface:Bold>x<cTypeface:><cTypeface:>\r\nfin\r\n");
    // XPress drops the box's mark before the intertitle and the empty paragraph after it.
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, story, settings.XPress),
              "<v5>\r\n@Titre=<B>\r\n@Texte=<P>\r\n@Inter=<B>\r\n@Credit=<I>\r\n"
              "@Inter:Chapeau\r\n@Texte:Suite\r\n\r\n\r\n<I><B>x<B><I>\r\n\r\nfin\r\n");
}

// A box that opens on an empty paragraph, with several paragraphs and an intertitle right
// after a paragraph end: the text starts directly after the box's mark.
TEST(ExportTaggedTextTest, BoxOpeningOnAnEmptyParagraphStartsAfterItsMark) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string story = StoryFile(
        "<Story AppName=\"Tessarin\"><Metadata><Form>News</Form></Metadata><Body>"
        "<TextBox6><p/>\nUn<p/>\n<inter1>Inter</inter1><p/>\nDeux<p/>\nTrois</TextBox6>"
        "</Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, story, settings.InDesign),
              "<ANSI-WIN>\r\n<Version:5>\r\n"
              "<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n<Def:Legende>\r\n<Def:Titre2>\r\n"
              "<ParaStyle:Texte>Un\r\n<ParaStyle:Inter>Inter\r\n"
              "<ParaStyle:Texte>Deux\r\nTrois\r\n");
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, story, settings.XPress),
              "<v5>\r\n@Titre=<B>\r\n@Texte=<P>\r\n@Inter=<B>\r\n@Credit=<I>\r\n"
              "@Texte:Un\r\n@Inter:Inter\r\n@Texte:Deux\r\nTrois\r\n");
}

TEST(ExportTaggedTextTest, StoryWithoutStylesIsWrittenBare) {
    const ExportSettings settings = ReadSettings(kSections);
    // No Metadata: no head, no form, no marks; without a mark the box's breaks go too.
    const std::string noMetadata = StoryFile(
        "<Story AppName=\"Tessarin\"><Body><TextBox0>a<p/>\nb<inter1>c</inter1></TextBox0>"
        "<Signature>Jean</Signature></Body>"
        "<Images><ImageBag><Caption>Cap</Caption></ImageBag></Images></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, noMetadata, settings.InDesign), "abc\r\n");
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, noMetadata, settings.XPress), "abc\r\n");

    // A form the section does not name: the head, no definitions, bare text.
    const std::string otherForm = StoryFile(
        "<Story AppName=\"Tessarin\"><Metadata><Form>Sport</Form></Metadata>"
        "<Body><TextBox6>t</TextBox6></Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, otherForm, settings.InDesign),
              "<ANSI-WIN>\r\n<Version:5>\r\nt\r\n");

    // Metadata without a form: every definition of the section is in the head.
    const std::string noForm = StoryFile(
        "<Story AppName=\"Tessarin\"><Metadata/><Body><TextBox6>t</TextBox6></Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, noForm, settings.InDesign),
              "<ANSI-WIN>\r\n<Version:5>\r\n<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n"
              "<Def:Legende>\r\n<Def:Titre2>\r\n<Def:Court>\r\nt\r\n");
}

TEST(ExportTaggedTextTest, XPressIntertitleWithoutStyleTakesTheBoxMarkAway) {
    // The form defines the text style but no intertitle: replacing "mark + empty mark" by the
    // empty mark removes the text style's mark from the whole output.
    const ExportSettings settings = ReadSettings(
        "<XPress><Form Name=\"Brief\"><TextBox1 Name=\"Titre\">@Titre=</TextBox1>"
        "<TextBox7 Name=\"Texte\">@Texte=</TextBox7></Form></XPress>");
    const std::string story = StoryFile(
        "<Story AppName=\"Tessarin\"><Metadata><Form>Brief</Form></Metadata><Body>"
        "<TextBox0>T</TextBox0><TextBox6>a<p/>\nb</TextBox6></Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, story, settings.XPress),
              "\r\n@Titre=\r\n@Texte=\r\nT\r\na\r\nb\r\n");
}

TEST(ExportTaggedTextTest, NoteRightAfterACutNoteStays) {
    // The search goes on six characters after the place of the note it cut.
    const std::string story = StoryFile(
        "<Story AppName=\"Tessarin\"><Body><TextBox0>a<note>n</note><note>m</note>b"
        "<note>o</note></TextBox0></Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, story, {}), "a<note>m</note>b\r\n");
}

TEST(ExportTaggedTextTest, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string story = StoryFile(
        "<Story AppName=\"Tessarin\"><Body><TextBox0>\xE2\x80\x9C\xCE\xB1\xE2\x80\x9D</TextBox0>"
        "</Body></Story>",
        true);
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, story, settings.InDesign), "\x93?\x94\r\n");
}

// A layout send: the writer reads the staged story, writes base name + ".xtg" beside it and
// leaves the delivery folders and the target path; a story that does not parse writes
// nothing and is reported.
TEST(ExportTaggedTextTest, XPressLayoutSendWritesOutputAndDeliveryFolders) {
    const testing::TempDir folder;
    const std::string upload = (folder / "Upload").string() + "/";
    const std::string texts = (folder / "texts").string();
    std::filesystem::create_directories(texts);
    folder.Write("Upload/front.page.xml",
                 StoryFile("<Story AppName=\"Tessarin\"><Metadata>"
                           "<OriginalPath Name=\"/home/ann/front.page.xml\"/>"
                           "<Publication>Le Jour</Publication><PublicationDate>05/03/2024"
                           "</PublicationDate><Form>News</Form></Metadata>"
                           "<Body><TextBox0>T</TextBox0></Body></Story>"));
    folder.Write("Upload/broken.xml", "<Story AppName=\"Tessarin\"><Body>");

    Configuration configuration;
    configuration.exportFormats = ReadSettings(kSections);
    configuration.workflow.ExportTextsDirectory = texts;
    WindowState window;
    Preferences preferences;
    ScriptedInteraction user;
    const ExportContext context{.configuration = configuration,
                                .window = window,
                                .preferences = preferences,
                                .user = user,
                                .userName = {}};

    ExportState state = Staged(upload, "front.page.xml");
    ExportXPress(state, ExportMode::Layout, context);
    EXPECT_EQ(state.ExportedFilePath, upload + "front.page.xtg");
    EXPECT_EQ(testing::ReadBytes(state.ExportedFilePath),
              "<v5>\r\n@Titre=<B>\r\n@Texte=<P>\r\n@Inter=<B>\r\n@Credit=<I>\r\n@Titre:T\r\n");
    const std::string deepest = texts + "/Le Jour/05-03-2024/front.page";
    EXPECT_TRUE(std::filesystem::is_directory(deepest));
    EXPECT_EQ(state.TargetDirectory, deepest);
    EXPECT_EQ(state.TargetPath, deepest + "/front.page.xtg");
    EXPECT_EQ(state.OriginalStoryPath, "/home/ann/front.page.xml");

    ExportState broken = Staged(upload, "broken.xml");
    ExportInDesign(broken, ExportMode::Layout, context);
    EXPECT_FALSE(std::filesystem::exists(upload + "broken.txt"));
    ASSERT_EQ(user.messages.size(), 1u);
    EXPECT_TRUE(user.messages[0].starts_with("Parsing error:" + upload + "broken.xml, line:"));
    EXPECT_EQ(user.beeps, 1);
}

}  // namespace
}  // namespace tessarin
