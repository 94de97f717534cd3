#include "config/export_section.h"

#include <gtest/gtest.h>

#include <string_view>

#include "config/section_reading.h"

namespace tessarin {
namespace {

using testing::Joined;

ExportSettings Read(std::string_view xml) {
    const XmlDocument document = testing::ParseSection(xml);
    ExportSettings settings;
    ReadExportFormats(document.DocumentElement(), settings);
    return settings;
}

TEST(ExportFormatsSection, NewsMLDefaultsOrValuesAsWritten) {
    // The defaults come with a NewsML element only; a missing section clears what was read.
    ExportSettings absent = Read("<ExportFormats/>");
    EXPECT_EQ(Joined({absent.NewsML.Language, absent.NewsML.Provider, absent.NewsML.Catalog}),
              "||");
    absent.NewsML.Language = "fr";
    ReadExportFormats(XmlNode(), absent);
    EXPECT_EQ(absent.NewsML.Language, "");

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

// The writers' tests read these sections whole; here what their output cannot show: a style
// without a name is left out, names are not converted, "True" is no box break, a second
// reading starts the arrays anew, a doubled mark stands for itself.
TEST(ExportFormatsSection, TaggedTextStylesAreKeyedByFormAndEntry) {
    const XmlDocument document = testing::ParseSection(R"(<ExportFormats><InDesign>
    <Form Name="News" BoxBreak="true"><TextBox1 Name="Title">/ParaStyle:Title\</TextBox1>
      <TextBox2 Name="">/ignored\</TextBox2><TextBox7 Name="Body/Text"></TextBox7></Form>
    <Form Name="Brief" BoxBreak="True"><Caption Name="Cap">c</Caption></Form>
    </InDesign></ExportFormats>)");
    ExportSettings settings;
    for (int reading = 0; reading < 2; ++reading)
        ReadExportFormats(document.DocumentElement(), settings);
    std::vector<std::string> rows;
    for (const TaggedTextForm& form : settings.InDesign.forms)
        rows.push_back(Joined({form.FormName, form.FormBoxBreak ? "break" : ""}));
    for (const TaggedTextStyle& style : settings.InDesign.styles)
        rows.push_back(Joined({style.StyleKey, style.StyleName, style.StyleDefinition}));
    EXPECT_EQ(rows,
              (std::vector<std::string>{"News|break", "Brief|", "News_0|Title|<ParaStyle:Title>",
                                        "News_6|Body/Text|", "Brief_Caption|Cap|c"}));
    EXPECT_EQ(TaggedTextFromConfiguration("a//b\\\\c"), "a<<b>>c");
}

// The writers' tests read the rest of the section; caption and credit are cut at the first
// ":" or "/", whichever comes first.
TEST(ExportFormatsSection, EditWorksElementsAreCutAtTheirFirstSeparator) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"&lt;@cap:&gt;/Legend: ", "<@cap|>/Legend: "},
        {"Photo/Caption:", "Photo|Caption:"},
        {"Credit", "Credit|"}};
    for (const auto& [element, parts] : cases) {
        SCOPED_TRACE(element);
        const EditWorksExportSettings editWorks =
            Read("<ExportFormats><EditWorksQTrans><CaptionElement>" + std::string(element) +
                 "</CaptionElement><CreditElement>" + std::string(element) +
                 "</CreditElement></EditWorksQTrans></ExportFormats>")
                .EditWorksQTrans;
        EXPECT_EQ(Joined({editWorks.CaptionElement.first, editWorks.CaptionElement.second}), parts);
        EXPECT_EQ(Joined({editWorks.CreditElement.first, editWorks.CreditElement.second}), parts);
    }
}

}  // namespace
}  // namespace tessarin
