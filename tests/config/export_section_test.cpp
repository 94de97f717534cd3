#include "config/export_section.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tessarin {
namespace {

XmlDocument Parse(std::string_view xml) {
    XmlDocument document;
    EXPECT_TRUE(document.LoadBytes(xml)) << xml;
    return document;
}

ExportSettings Read(std::string_view xml) {
    const XmlDocument document = Parse(xml);
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

TEST(ExportFormatsSection, AbsentSectionsLeaveValuesEmptyAndFlagsOff) {
    const ExportSettings settings = Read("<ExportFormats/>");
    EXPECT_EQ(settings.NewsML.Language, "");
    EXPECT_EQ(settings.NewsML.Provider, "");
    EXPECT_EQ(settings.NewsML.Catalog, "");
    EXPECT_FALSE(settings.NewsML.TextML);
    EXPECT_FALSE(settings.NITF.TextML);
    EXPECT_FALSE(settings.TessarinML.TextML);
    EXPECT_EQ(settings.InDesign.Prologue, "");
    EXPECT_TRUE(settings.InDesign.styles.empty());
    EXPECT_FALSE(settings.EditWorksQTrans.IncludePublication);
    EXPECT_FALSE(settings.EditWorksQTrans.IncludeSubSection);
    EXPECT_FALSE(settings.EditWorksQTrans.AccentsInPath);
    EXPECT_EQ(settings.MileniumInsert.Publication, "");

    ExportSettings fromMissing;
    fromMissing.NewsML.Language = "fr";
    ReadExportFormats(XmlNode(), fromMissing);
    EXPECT_EQ(fromMissing.NewsML.Language, "");
}

TEST(ExportFormatsSection, NewsMLDefaultsApplyToAPresentSection) {
    const ExportSettings settings =
        Read("<ExportFormats><NewsML><Language/></NewsML></ExportFormats>");
    EXPECT_FALSE(settings.NewsML.TextML);
    EXPECT_EQ(settings.NewsML.Catalog, "http://www.afp.com/dtd/AFPCatalog.xml");
    EXPECT_EQ(settings.NewsML.ProviderId, "tessarin.org");
    EXPECT_EQ(settings.NewsML.Provider, "Velmora");
    EXPECT_EQ(settings.NewsML.Language, "en");
    EXPECT_EQ(settings.NewsML.ImagesDirectory, "");
    EXPECT_EQ(settings.NewsML.MappingTextBox[6], "");
}

TEST(ExportFormatsSection, NewsMLValuesAsWritten) {
    const ExportSettings settings = Read(R"(<ExportFormats><NewsML TextML="true">
      <Catalog>http://news.test/catalog.xml</Catalog><ProviderId>paper.test</ProviderId>
      <Provider>The Paper</Provider><Language> </Language>
      <ImagesDirectory RelativePath="pics">/srv/pics</ImagesDirectory>
      <MappingTextBox1>Title</MappingTextBox1><MappingTextBox2></MappingTextBox2>
      <MappingTextBox7>Body</MappingTextBox7></NewsML></ExportFormats>)");
    EXPECT_TRUE(settings.NewsML.TextML);
    EXPECT_EQ(settings.NewsML.Catalog, "http://news.test/catalog.xml");
    EXPECT_EQ(settings.NewsML.ProviderId, "paper.test");
    EXPECT_EQ(settings.NewsML.Provider, "The Paper");
    EXPECT_EQ(settings.NewsML.Language, " ");  // a blank is a value
    EXPECT_EQ(settings.NewsML.ImagesDirectory, "/srv/pics");
    EXPECT_EQ(settings.NewsML.RelativePath, "pics");
    const std::array<std::string, 7> mapping = {"Title", "", "", "", "", "", "Body"};
    EXPECT_EQ(settings.NewsML.MappingTextBox, mapping);
}

TEST(ExportFormatsSection, NitfAndTessarinMLAndRss) {
    const ExportSettings settings = Read(R"(<ExportFormats>
      <NITF TextML="true"><copyrite.holder>The Paper</copyrite.holder></NITF>
      <TessarinML TextML="True"/>
      <RSS><ChannelTitle>T</ChannelTitle><ChannelLink>L</ChannelLink>
        <ChannelDescription>D</ChannelDescription><ChannelLanguage>fr</ChannelLanguage>
        <ChannelManagingEditor>M</ChannelManagingEditor><ChannelWebMaster>W</ChannelWebMaster>
        <ChannelCategory>C</ChannelCategory><ChannelDocs>Docs</ChannelDocs>
        <ChannelTTL>60</ChannelTTL><ChannelImageURL>I</ChannelImageURL></RSS>
    </ExportFormats>)");
    EXPECT_TRUE(settings.NITF.TextML);
    EXPECT_EQ(settings.NITF.copyriteHolder, "The Paper");
    EXPECT_FALSE(settings.TessarinML.TextML);
    const RssExportSettings& rss = settings.RSS;
    EXPECT_EQ(rss.ChannelTitle + rss.ChannelLink + rss.ChannelDescription + rss.ChannelLanguage +
                  rss.ChannelManagingEditor + rss.ChannelWebMaster + rss.ChannelCategory +
                  rss.ChannelDocs + rss.ChannelTTL + rss.ChannelImageURL,
              "TLDfrMWCDocs60I");
}

constexpr std::string_view kTaggedText = R"(<ExportFormats>
  <InDesign><Prologue>/ANSI\</Prologue>
    <Form Name="News" BoxBreak="true">
      <TextBox1 Name="Title">/ParaStyle:Title\/cSize:12\</TextBox1>
      <TextBox2 Name="">/ignored\</TextBox2>
      <TextBox7 Name="Body/Text"></TextBox7>
      <Inter1 Name="Inter">/x\</Inter1>
      <Signature Name="Sig">s</Signature>
    </Form>
    <Form Name="Brief" BoxBreak="True"><Caption Name="Cap">c</Caption></Form>
  </InDesign>
  <XPress><Prologue>/v6.0\</Prologue>
    <Form Name="News" BoxBreak="true"><TextBox1 Name="XTitle">@x:</TextBox1>
      <Credit Name="XCredit">k</Credit></Form>
  </XPress>
</ExportFormats>)";

TEST(ExportFormatsSection, TaggedTextStylesAreKeyedByFormAndEntry) {
    const ExportSettings settings = Read(kTaggedText);
    EXPECT_EQ(settings.InDesign.Prologue, "<ANSI>");
    ASSERT_EQ(settings.InDesign.forms.size(), 2u);
    EXPECT_EQ(settings.InDesign.forms[0].FormName, "News");
    EXPECT_TRUE(settings.InDesign.forms[0].FormBoxBreak);
    EXPECT_EQ(settings.InDesign.forms[1].FormName, "Brief");
    EXPECT_FALSE(settings.InDesign.forms[1].FormBoxBreak);

    const std::vector<TaggedTextStyle>& styles = settings.InDesign.styles;
    ASSERT_EQ(styles.size(), 5u);
    EXPECT_EQ(styles[0].StyleKey, "News_0");
    EXPECT_EQ(styles[0].StyleName, "Title");
    EXPECT_EQ(styles[0].StyleDefinition, "<ParaStyle:Title><cSize:12>");
    EXPECT_EQ(styles[1].StyleKey, "News_6");
    EXPECT_EQ(styles[1].StyleName, "Body/Text");  // names are not converted
    EXPECT_EQ(styles[1].StyleDefinition, "");
    EXPECT_EQ(styles[2].StyleKey, "News_Inter1");
    EXPECT_EQ(styles[2].StyleDefinition, "<x>");
    EXPECT_EQ(styles[3].StyleKey, "News_Signature");
    EXPECT_EQ(styles[4].StyleKey, "Brief_Caption");

    // XPress keeps arrays of its own and has no box break.
    EXPECT_EQ(settings.XPress.Prologue, "<v6.0>");
    ASSERT_EQ(settings.XPress.forms.size(), 1u);
    EXPECT_FALSE(settings.XPress.forms[0].FormBoxBreak);
    ASSERT_EQ(settings.XPress.styles.size(), 2u);
    EXPECT_EQ(settings.XPress.styles[0].StyleKey, "News_0");
    EXPECT_EQ(settings.XPress.styles[0].StyleName, "XTitle");
    EXPECT_EQ(settings.XPress.styles[1].StyleKey, "News_Credit");
}

TEST(ExportFormatsSection, RepeatedReadingStartsTheArraysAnew) {
    const XmlDocument document = Parse(kTaggedText);
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    ReadExportFormats(document.DocumentElement(), settings);
    EXPECT_EQ(settings.InDesign.styles.size(), 5u);
    EXPECT_EQ(settings.InDesign.forms.size(), 2u);
    EXPECT_EQ(settings.XPress.styles.size(), 2u);
}

TEST(ExportFormatsSection, ConfigurationSpellingOfTaggedText) {
    EXPECT_EQ(TaggedTextFromConfiguration("/ANSI\\"), "<ANSI>");
    EXPECT_EQ(TaggedTextFromConfiguration("a//b\\\\c"), "a<<b>>c");
    EXPECT_EQ(TaggedTextFromConfiguration(""), "");
}

TEST(ExportFormatsSection, EditWorksSettings) {
    const ExportSettings settings = Read(R"(<ExportFormats><EditWorksQTrans>
      <RootDB IncludePublication="false" SubSectionInComment="true" SuffixClassification="S"
        PrefixSection="P">ROOT</RootDB>
      <Comment>%c</Comment><SubSectionAsTextBox>sub</SubSectionAsTextBox>
      <xfTaxonomy>x0</xfTaxonomy><xfKeywords1>x1</xfKeywords1><xfKeywords4>x4</xfKeywords4>
      <TextBox1>t1</TextBox1><TextBox7>t7</TextBox7>
      <CaptionElement>&lt;@cap:&gt;/Legend: </CaptionElement>
      <CreditElement>Credit</CreditElement>
      <StyleText>st</StyleText><StyleInter1>s1</StyleInter1><StyleInter2>s2</StyleInter2>
      <StyleInter3>s3</StyleInter3><StyleSignature>sg</StyleSignature>
    </EditWorksQTrans></ExportFormats>)");
    const EditWorksExportSettings& editWorks = settings.EditWorksQTrans;
    EXPECT_EQ(editWorks.RootDB, "ROOT");
    EXPECT_FALSE(editWorks.IncludePublication);
    EXPECT_TRUE(editWorks.IncludeSubSection);
    EXPECT_TRUE(editWorks.SubSectionInComment);
    EXPECT_TRUE(editWorks.AccentsInPath);
    EXPECT_EQ(editWorks.SuffixClassification, "S");
    EXPECT_EQ(editWorks.PrefixSection, "P");
    EXPECT_EQ(editWorks.Comment, "%c");
    EXPECT_EQ(editWorks.SubSectionAsTextBox, "sub");
    EXPECT_EQ(editWorks.xfTaxonomy, "x0");
    const std::array<std::string, 4> keywords = {"x1", "", "", "x4"};
    EXPECT_EQ(editWorks.xfKeywords, keywords);
    EXPECT_EQ(editWorks.TextBox[0], "t1");
    EXPECT_EQ(editWorks.TextBox[6], "t7");
    // Cut at the first ":" or "/", whichever comes first.
    EXPECT_EQ(editWorks.CaptionElement.first, "<@cap");
    EXPECT_EQ(editWorks.CaptionElement.second, ">/Legend: ");
    EXPECT_EQ(editWorks.CreditElement.first, "Credit");
    EXPECT_EQ(editWorks.CreditElement.second, "");
    EXPECT_EQ(editWorks.StyleText + editWorks.StyleInter1 + editWorks.StyleInter2 +
                  editWorks.StyleInter3 + editWorks.StyleSignature,
              "sts1s2s3sg");
}

TEST(ExportFormatsSection, EditWorksCutsAtASlashBeforeAColon) {
    const ExportSettings settings = Read(R"(<ExportFormats><EditWorksQTrans>
      <CaptionElement>Photo/Caption:</CaptionElement><RootDB AccentsInPath="false"/>
    </EditWorksQTrans></ExportFormats>)");
    EXPECT_EQ(settings.EditWorksQTrans.CaptionElement.first, "Photo");
    EXPECT_EQ(settings.EditWorksQTrans.CaptionElement.second, "Caption:");
    EXPECT_FALSE(settings.EditWorksQTrans.AccentsInPath);
    EXPECT_TRUE(settings.EditWorksQTrans.IncludePublication);
}

TEST(ExportFormatsSection, MileniumElementNames) {
    const ExportSettings settings = Read(R"(<ExportFormats><MileniumInsert>
      <Publication>PUB</Publication><Section Level="3">SEC</Section><Story>STO</Story>
      <StoryName>NAME</StoryName><ExpirationDate AddToPublicationDate="30">EXP</ExpirationDate>
      <Form>FORM</Form><Author>AUT</Author><Classification>CLA</Classification>
      <Taxonomy>TAX</Taxonomy><TextBox2>TB2</TextBox2><Signature>SIG</Signature>
      <Image>IMG</Image><CaptionElement>CAP:x</CaptionElement><CreditElement>CRE</CreditElement>
    </MileniumInsert></ExportFormats>)");
    const MileniumExportSettings& milenium = settings.MileniumInsert;
    EXPECT_EQ(milenium.Publication, "PUB");
    EXPECT_EQ(milenium.Section, "SEC");
    EXPECT_EQ(milenium.Level, "3");
    EXPECT_EQ(milenium.Story, "STO");
    EXPECT_EQ(milenium.StoryName, "NAME");
    EXPECT_EQ(milenium.ExpirationDate, "EXP");
    EXPECT_EQ(milenium.AddToPublicationDate, "30");
    EXPECT_EQ(milenium.Form, "FORM");
    EXPECT_EQ(milenium.Author, "AUT");
    EXPECT_EQ(milenium.Classification, "CLA");
    EXPECT_EQ(milenium.Taxonomy, "TAX");
    const std::array<std::string, 7> boxes = {"", "TB2", "", "", "", "", ""};
    EXPECT_EQ(milenium.TextBox, boxes);
    EXPECT_EQ(milenium.Signature, "SIG");
    EXPECT_EQ(milenium.Image, "IMG");
    EXPECT_EQ(milenium.CaptionElement, "CAP:x");  // an element name, not cut here
    EXPECT_EQ(milenium.CreditElement, "CRE");
}

}  // namespace
}  // namespace tessarin
