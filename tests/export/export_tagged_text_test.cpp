#include "export/export_tagged_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::kLayoutStory;
using testing::ReadSettings;
using testing::StoryFile;

std::string Compose(TaggedTextLayout layout, const std::string& storyBytes,
                    const TaggedTextExportSettings& settings) {
    return ComposeTaggedText(layout, testing::ParseStory(storyBytes), settings);
}

// The InDesign and XPress sections as a configuration document writes them.
constexpr std::string_view kSections = R"(<InDesign><Prologue>/Version:5\</Prologue>
<Form Name="News" BoxBreak="true"><TextBox1 Name="Titre">/Def:Titre\</TextBox1>
<TextBox7 Name="Texte">/Def:Texte\</TextBox7><Inter1 Name="Inter">/Def:Inter\</Inter1>
<Caption Name="Legende">/Def:Legende\</Caption><Signature Name="Signe"></Signature></Form>
<Form Name="News2"><TextBox1 Name="Titre2">/Def:Titre2\</TextBox1></Form>
<Form Name="Brief"><TextBox7 Name="Court">/Def:Court\</TextBox7></Form></InDesign>
<XPress><Prologue>/v5\</Prologue>
<Form Name="News" BoxBreak="true"><TextBox1 Name="Titre">@Titre=/B\</TextBox1>
<TextBox7 Name="Texte">@Texte=/P\</TextBox7><Inter1 Name="Inter">@Inter=/B\</Inter1>
<Inter2 Name="Inter2"/><Inter3 Name="Inter3"/><Credit Name="Credit">@Credit=/I\</Credit>
</Form></XPress>)";

// The heads of the News form: each layout's opening and the definitions of News and News2.
constexpr std::string_view kInDesignHead =
    "<ANSI-WIN>\r\n<Version:5>\r\n"
    "<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n<Def:Legende>\r\n<Def:Titre2>\r\n";
constexpr std::string_view kXPressHead =
    "<v5>\r\n@Titre=<B>\r\n@Texte=<P>\r\n@Inter=<B>\r\n@Credit=<I>\r\n";

TEST(ExportTaggedTextTest, InDesignWritesHeadStylesBoxesSignatureAndCaptions) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string expected =
        std::string(kInDesignHead) +
        "<ParaStyle:Titre>Titre<cNextXChars:Box>\r\n"
        "<ParaStyle:Texte><cTypeface:Bold Italic>x<cTypeface:> <cTypeface:Italic>y<cTypeface:> "
        "<cUnderline:1>z<cUnderline:><cPosition:Superscript>e<cPosition:>\r\n"
        "<ParaStyle:Inter>Inter\r\n"
        "<ParaStyle:Texte>A&amp;B \\<c\\><0x00A0>\x80\x9C\x8C\td<cTypeface:Bold>gh<cTypeface:>\r\n"
        "<ParaStyle:Signe>Jean\r\n<ParaStyle:Legende>L\xE9gende\r\n"
        "<ParaStyle:Legende>Sans image\r\n";
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, StoryFile(kLayoutStory), settings.InDesign),
              expected);
    // A story saved in UTF-8 reaches layout in the same bytes.
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, StoryFile(kLayoutStory, true), settings.InDesign),
              expected);
}

TEST(ExportTaggedTextTest, XPressTogglesItsTagsAndHasNoBoxBreak) {
    const ExportSettings settings = ReadSettings(kSections);
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, StoryFile(kLayoutStory), settings.XPress),
              std::string(kXPressHead) +
                  "@Titre:Titre\r\n"
                  "@Texte:<B><I>x<I><B> <I>y<I> <U>z<U><V>e<V>\r\n"
                  "@Inter:Inter\r\n"
                  "@Texte:A&amp;B <\\<>c<\\>><\\!p>\x80\x9C\x8C\td<B>gh<B>\r\n@Credit:AFP\r\n");
}

// A News story with these boxes gives both layouts' head of the News form, then their text.
void ExpectNewsBoxes(std::string_view boxes, std::string_view inDesign, std::string_view xPress) {
    const ExportSettings settings = ReadSettings(kSections);
    const std::string story =
        StoryFile("<Story AppName=\"Tessarin\"><Metadata><Form>News</Form></Metadata><Body>" +
                  std::string(boxes) + "</Body></Story>");
    EXPECT_EQ(Compose(TaggedTextLayout::InDesign, story, settings.InDesign),
              std::string(kInDesignHead) + std::string(inDesign));
    EXPECT_EQ(Compose(TaggedTextLayout::XPress, story, settings.XPress),
              std::string(kXPressHead) + std::string(xPress));
}

// InDesign makes doubled breaks single in one pass and keeps the box's mark in front of an
// opening intertitle; XPress drops that mark and the empty paragraph after it. Bold closed
// inside italic is for the single rows.
TEST(ExportTaggedTextTest, IntertitleAtTheStartAndRunsOfBreaks) {
    ExpectNewsBoxes(
        "<TextBox6><inter1>Chapeau</inter1><p/>\nSuite<p/>\n<p/>\n<p/>\n<i><b>x</b></i><p/>\n"
        "<p/>\nfin</TextBox6>",
        "<ParaStyle:Texte><ParaStyle:Inter>Chapeau\r\n<ParaStyle:Texte>Suite\r\n\r\n"
        "<cTypeface:Italic><cTypeface:Bold>x<cTypeface:><cTypeface:>\r\nfin\r\n",
        "@Inter:Chapeau\r\n@Texte:Suite\r\n\r\n\r\n<I><B>x<B><I>\r\n\r\nfin\r\n");
}

// A box that opens on an empty paragraph, with several paragraphs and an intertitle right
// after a paragraph end: the text starts directly after the box's mark.
TEST(ExportTaggedTextTest, BoxOpeningOnAnEmptyParagraphStartsAfterItsMark) {
    ExpectNewsBoxes(
        "<TextBox6><p/>\nUn<p/>\n<inter1>Inter</inter1><p/>\nDeux<p/>\nTrois</TextBox6>",
        "<ParaStyle:Texte>Un\r\n<ParaStyle:Inter>Inter\r\n<ParaStyle:Texte>Deux\r\nTrois\r\n",
        "@Texte:Un\r\n@Inter:Inter\r\n@Texte:Deux\r\nTrois\r\n");
}

TEST(ExportTaggedTextTest, WhatTheSectionsDoNotStyleIsWrittenBare) {
    const ExportSettings settings = ReadSettings(kSections);
    // The form defines the text style but no intertitle: replacing "mark + empty mark" by the
    // empty mark removes the text style's mark from the whole XPress output.
    const ExportSettings brief = ReadSettings(
        "<XPress><Form Name=\"Brief\"><TextBox1 Name=\"Titre\">@Titre=</TextBox1>"
        "<TextBox7 Name=\"Texte\">@Texte=</TextBox7></Form></XPress>");
    constexpr std::string_view kWithoutMetadata =
        "<Story><Body><TextBox0>a<p/>\nb<inter1>c</inter1></TextBox0><Signature>Jean</Signature>"
        "</Body><Images><ImageBag><Caption>Cap</Caption></ImageBag></Images></Story>";
    const struct {
        TaggedTextLayout layout;
        const TaggedTextExportSettings& settings;
        std::string_view story;
        std::string_view expected;
    } rows[] = {
        // No Metadata: no head, no form, no marks; without a mark the box's breaks go too.
        {TaggedTextLayout::InDesign, settings.InDesign, kWithoutMetadata, "abc\r\n"},
        {TaggedTextLayout::XPress, settings.XPress, kWithoutMetadata, "abc\r\n"},
        // A form the section does not name: the head, no definitions, bare text.
        {TaggedTextLayout::InDesign, settings.InDesign,
         "<Story><Metadata><Form>Sport</Form></Metadata><Body><TextBox6>t</TextBox6></Body>"
         "</Story>",
         "<ANSI-WIN>\r\n<Version:5>\r\nt\r\n"},
        // Metadata without a form: every definition of the section is in the head.
        {TaggedTextLayout::InDesign, settings.InDesign,
         "<Story><Metadata/><Body><TextBox6>t</TextBox6></Body></Story>",
         "<ANSI-WIN>\r\n<Version:5>\r\n<Def:Titre>\r\n<Def:Texte>\r\n<Def:Inter>\r\n"
         "<Def:Legende>\r\n<Def:Titre2>\r\n<Def:Court>\r\nt\r\n"},
        {TaggedTextLayout::XPress, brief.XPress,
         "<Story><Metadata><Form>Brief</Form></Metadata><Body><TextBox0>T</TextBox0>"
         "<TextBox6>a<p/>\nb</TextBox6></Body></Story>",
         "\r\n@Titre=\r\n@Texte=\r\nT\r\na\r\nb\r\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.story);
        EXPECT_EQ(Compose(row.layout, StoryFile(row.story), row.settings), row.expected);
    }
}

}  // namespace
}  // namespace tessarin
