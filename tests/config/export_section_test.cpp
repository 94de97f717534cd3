#include "config/export_section.h"

#include <gtest/gtest.h>

#include <string_view>

#include "config/section_reading.h"

namespace tessarin {
namespace {

using testing::Bits;
using testing::Joined;

ExportSettings Read(std::string_view xml) {
    const XmlDocument document = testing::ParseSection(xml);
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

TEST(ExportFormatsSection, AbsentSectionsLeaveValuesEmptyAndFlagsOff) {
    const ExportSettings settings = Read("<ExportFormats/>");
    const NewsMLExportSettings& newsML = settings.NewsML;
    EXPECT_EQ(Joined({newsML.Language, newsML.Provider, newsML.Catalog, settings.InDesign.Prologue,
                      settings.MileniumInsert.Publication}),
              "||||");
    const EditWorksExportSettings& editWorks = settings.EditWorksQTrans;
    EXPECT_EQ(
        Bits({newsML.TextML, settings.NITF.TextML, settings.TessarinML.TextML,
              editWorks.IncludePublication, editWorks.IncludeSubSection, editWorks.AccentsInPath}),
        "000000");
    EXPECT_TRUE(settings.InDesign.styles.empty());

    ExportSettings fromMissing;
    fromMissing.NewsML.Language = "fr";
    ReadExportFormats(XmlNode(), fromMissing);
    EXPECT_EQ(fromMissing.NewsML.Language, "");
}

TEST(ExportFormatsSection, NewsMLDefaultsOrValuesAsWritten) {
    const NewsMLExportSettings defaults =
        Read("<ExportFormats><NewsML><Language/></NewsML></ExportFormats>").NewsML;
    EXPECT_FALSE(defaults.TextML);
    EXPECT_EQ(Joined({defaults.Catalog, defaults.ProviderId, defaults.Provider, defaults.Language,
                      defaults.ImagesDirectory, defaults.MappingTextBox[6]}),
              "http://www.afp.com/dtd/AFPCatalog.xml|tessarin.org|Velmora|en||");

    const NewsMLExportSettings written = Read(R"(<ExportFormats><NewsML TextML="true">
      <Catalog>http://news.test/catalog.xml</Catalog><ProviderId>paper.test</ProviderId>
      <Provider>The Paper</Provider><Language> </Language>
      <ImagesDirectory RelativePath="pics">/srv/pics</ImagesDirectory>
      <MappingTextBox1>Title</MappingTextBox1><MappingTextBox2></MappingTextBox2>
      <MappingTextBox7>Body</MappingTextBox7></NewsML></ExportFormats>)")
                                             .NewsML;
    EXPECT_TRUE(written.TextML);
    // A blank Language is a value.
    EXPECT_EQ(Joined({written.Catalog, written.ProviderId, written.Provider, written.Language,
                      written.ImagesDirectory, written.RelativePath}),
              "http://news.test/catalog.xml|paper.test|The Paper| |/srv/pics|pics");
    const std::array<std::string, 7> mapping = {"Title", "", "", "", "", "", "Body"};
    EXPECT_EQ(written.MappingTextBox, mapping);
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
    EXPECT_FALSE(settings.TessarinML.TextML);  // "True" is not "true"
    const RssExportSettings& rss = settings.RSS;
    EXPECT_EQ(Joined({rss.ChannelTitle, rss.ChannelLink, rss.ChannelDescription,
                      rss.ChannelLanguage, rss.ChannelManagingEditor, rss.ChannelWebMaster,
                      rss.ChannelCategory, rss.ChannelDocs, rss.ChannelTTL, rss.ChannelImageURL}),
              "T|L|D|fr|M|W|C|Docs|60|I");
}

TEST(ExportFormatsSection, TaggedTextStylesAreKeyedByFormAndEntry) {
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
    const XmlDocument document = testing::ParseSection(kTaggedText);
    ExportSettings settings;
    // A second reading starts the arrays anew.
    for (int reading = 0; reading < 2; ++reading)
        ReadExportFormats(document.DocumentElement(), settings);

    const auto rows = [](const TaggedTextExportSettings& format) {
        std::vector<std::string> rows;
        for (const TaggedTextForm& form : format.forms)
            rows.push_back(Joined({form.FormName, form.FormBoxBreak ? "break" : ""}));
        for (const TaggedTextStyle& style : format.styles)
            rows.push_back(Joined({style.StyleKey, style.StyleName, style.StyleDefinition}));
        return rows;
    };
    EXPECT_EQ(settings.InDesign.Prologue, "<ANSI>");
    // Style names are not converted; XPress keeps arrays of its own and has no box break.
    EXPECT_EQ(
        rows(settings.InDesign),
        (std::vector<std::string>{
            "News|break", "Brief|", "News_0|Title|<ParaStyle:Title><cSize:12>", "News_6|Body/Text|",
            "News_Inter1|Inter|<x>", "News_Signature|Sig|s", "Brief_Caption|Cap|c"}));
    EXPECT_EQ(settings.XPress.Prologue, "<v6.0>");
    EXPECT_EQ(rows(settings.XPress),
              (std::vector<std::string>{"News|", "News_0|XTitle|@x:", "News_Credit|XCredit|k"}));

    EXPECT_EQ(TaggedTextFromConfiguration("a//b\\\\c"), "a<<b>>c");
}

TEST(ExportFormatsSection, EditWorksSettings) {
    const EditWorksExportSettings editWorks = Read(R"(<ExportFormats><EditWorksQTrans>
      <RootDB IncludePublication="false" SubSectionInComment="true" SuffixClassification="S"
        PrefixSection="P">ROOT</RootDB>
      <Comment>%c</Comment><SubSectionAsTextBox>sub</SubSectionAsTextBox>
      <xfTaxonomy>x0</xfTaxonomy><xfKeywords1>x1</xfKeywords1><xfKeywords4>x4</xfKeywords4>
      <TextBox1>t1</TextBox1><TextBox7>t7</TextBox7>
      <CaptionElement>&lt;@cap:&gt;/Legend: </CaptionElement>
      <CreditElement>Credit</CreditElement>
      <StyleText>st</StyleText><StyleInter1>s1</StyleInter1><StyleInter2>s2</StyleInter2>
      <StyleInter3>s3</StyleInter3><StyleSignature>sg</StyleSignature>
    </EditWorksQTrans></ExportFormats>)")
                                                  .EditWorksQTrans;
    EXPECT_EQ(Bits({editWorks.IncludePublication, editWorks.IncludeSubSection,
                    editWorks.SubSectionInComment, editWorks.AccentsInPath}),
              "0111");
    EXPECT_EQ(Joined({editWorks.RootDB, editWorks.SuffixClassification, editWorks.PrefixSection,
                      editWorks.Comment, editWorks.SubSectionAsTextBox, editWorks.xfTaxonomy}),
              "ROOT|S|P|%c|sub|x0");
    EXPECT_EQ(editWorks.xfKeywords, (std::array<std::string, 4>{"x1", "", "", "x4"}));
    EXPECT_EQ(Joined({editWorks.TextBox[0], editWorks.TextBox[6]}), "t1|t7");
    EXPECT_EQ(Joined({editWorks.StyleText, editWorks.StyleInter1, editWorks.StyleInter2,
                      editWorks.StyleInter3, editWorks.StyleSignature}),
              "st|s1|s2|s3|sg");

    // Caption and credit are cut at the first ":" or "/", whichever comes first.
    const EditWorksExportSettings slashFirst = Read(R"(<ExportFormats><EditWorksQTrans>
      <CaptionElement>Photo/Caption:</CaptionElement><RootDB AccentsInPath="false"/>
    </EditWorksQTrans></ExportFormats>)")
                                                   .EditWorksQTrans;
    EXPECT_EQ(Joined({editWorks.CaptionElement.first, editWorks.CaptionElement.second,
                      editWorks.CreditElement.first, editWorks.CreditElement.second,
                      slashFirst.CaptionElement.first, slashFirst.CaptionElement.second}),
              "<@cap|>/Legend: |Credit||Photo|Caption:");
    EXPECT_EQ(Bits({slashFirst.AccentsInPath, slashFirst.IncludePublication}), "01");
}

}  // namespace
}  // namespace tessarin
