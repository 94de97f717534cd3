#include "export/export_newsml.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "export/newsml_body_text.h"
#include "export/newsml_box_markup.h"
#include "newsml_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CrLfLines;
using testing::IsWellFormed;
using testing::ParseStory;
using testing::WriterSetup;

constexpr LocalDateTime kJustAfterMidnight{2024, 3, 12, 0, 30, 5};
constexpr int kParisBias = -60;

// A story with every part the writer reads, in the story file's own bytes (Windows-1252).
const std::string kFullStory = CrLfLines({
    R"(<?xml version="1.0" encoding="ISO-8859-1" ?>)",
    R"(<Story AppName="Tessarin" AppVersion="0.1.0">)",
    "<Metadata>",
    "<Author Name=\"Author\">Jo Dupr\xE9</Author>",
    R"(<Publication Name="Publication">Le Matin</Publication>)",
    R"(<Classification Name="Classification">Sports &amp; loisirs</Classification>)",
    R"(<SectionGeneral Name="General section">Football</SectionGeneral>)",
    R"(<SubSectionGeneral Name="General subsection"></SubSectionGeneral>)",
    R"(<PublicationDate Name="Publication date">12/03/2024</PublicationDate>)",
    R"(<PublicationDateFull>Tuesday, March 12, 2024</PublicationDateFull>)",
    "<Taxonomy>",
    R"(<Topic FormalItem="04000000">Economy</Topic>)",
    R"(<Topic FormalItem="04001000">Agriculture</Topic>)",
    R"(<Topic FormalItem="04001001">Arable farming</Topic>)",
    "</Taxonomy>",
    "<Keywords>",
    R"(<Keyword CategoryName="Places" CategoryIndex="1">a</Keyword>)",
    R"(<Keyword CategoryName="People" CategoryIndex="2">b</Keyword>)",
    "</Keywords>",
    R"(<Form Name="Story type" Index="0">Article</Form>)",
    R"(<Status Name="Status" FormalItem="Embargoed">Embargo</Status>)",
    R"(<Genre Name="Genre" FormalItem="Analysis">Analyse</Genre>)",
    R"(<OriginalPath Name="/home/jo/stories/match.xml"/>)",
    "</Metadata>",
    "<Body>",
    R"(<TextBox0 CharCount="16" WordCount="2" Name="Title">Victoire &lt;nette&gt;</TextBox0>)",
    R"(<TextBox6 CharCount="70" WordCount="14" Name="Text"><inter1>Le match</inter1><p/>)",
    "<b>A &amp; B</b> ont gagn\xE9 <i>2-0</i><note>revoir</note>.<p/>",
    "<p/>",
    "<tab/>Prix : 5 <euro/>, <oe/>uvre<sup>2</sup>&#160;!</TextBox6>",
    R"(<Signature Type="I">J.D.</Signature></Body>)",
    "<Images>",
    "<ImageBag>",
    R"(<Image href="match%20du%20jour.jpg"/>)",
    "<Caption>Le but</Caption>",
    "<Credit>Photo X</Credit>",
    "</ImageBag>",
    "<ImageBag>",
    R"(<Image href="file:///tribune.jpg"/>)",
    "</ImageBag>",
    "</Images>",
    "</Story>",
});

void ConfigureNewsroom(WriterSetup& setup) {
    Configuration& configuration = setup.configuration;
    configuration.general.client = "Daily";
    configuration.identity.initials = "JD";
    NewsMLExportSettings& newsML = configuration.exportFormats.NewsML;
    newsML.Catalog = "http://www.example.org/dtd/AFPCatalog.xml";
    newsML.ProviderId = "example.org";
    newsML.Provider = "Velmora";
    newsML.Language = "fr";
    newsML.ImagesDirectory = "/srv/photos";
    newsML.MappingTextBox[6] = "Main text";
    setup.window.Control("lblPublication").caption = "Titre";
    TreeNode keywordsRoot;
    keywordsRoot.key = "K";
    keywordsRoot.text = "Mots-cl\u00e9s";
    setup.window.Tree("treeKeywords").Add(nullptr, keywordsRoot);
}

std::string Compose(WriterSetup& setup, std::string_view storyBytes,
                    const LocalDateTime& now = kJustAfterMidnight, int bias = kParisBias) {
    const XmlDocument story = ParseStory(storyBytes);
    return ComposeNewsML(story, setup.Context(now), bias);
}

TEST(ExportNewsML, ComposesTheWholeDocumentInWindows1252) {
    WriterSetup setup;
    ConfigureNewsroom(setup);
    const std::string expected = CrLfLines({
        R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
        "<NewsML>",
        "\t<Catalog Href=\"http://www.example.org/dtd/AFPCatalog.xml\"/>",
        "\t<NewsEnvelope>",
        "\t\t<DateAndTime>20240312T233005Z</DateAndTime>",
        "\t</NewsEnvelope>",
        "\t<NewsItem>",
        "\t\t<Identification>",
        "\t\t\t<NewsIdentifier>",
        "\t\t\t\t<ProviderId>example.org</ProviderId>",
        "\t\t\t\t<DateId>20240312</DateId>",
        "\t\t\t\t<NewsItemId>JD-003005</NewsItemId>",
        "\t\t\t\t<RevisionId PreviousRevision=\"0\" Update=\"N\">1</RevisionId>",
        "\t\t\t\t<PublicIdentifier>urn:newsml:example.org:20240312:JD-003005:1</PublicIdentifier>",
        "\t\t\t</NewsIdentifier>",
        "\t\t\t<NameLabel>Football</NameLabel>",
        "\t\t</Identification>",
        "\t\t<NewsManagement>",
        "\t\t\t<NewsItemType FormalName=\"News\"/>",
        "\t\t\t<FirstCreated>20240312T233005Z</FirstCreated>",
        "\t\t\t<ThisRevisionCreated>20240312T233005Z</ThisRevisionCreated>",
        "\t\t\t<Status FormalName=\"Embargoed\"/>",
        "\t\t</NewsManagement>",
        "\t\t<NewsComponent>",
        "\t\t\t<TopicSet Duid=\"LocalTopicSet\" FormalName=\"Mots-cl\xE9s\">",
        "\t\t\t\t<Topic Duid=\"topic1\">",
        "\t\t\t\t\t<TopicType FormalName=\"Places\"/>",
        "\t\t\t\t\t<FormalName>a</FormalName>",
        "\t\t\t\t</Topic>",
        "\t\t\t\t<Topic Duid=\"topic2\">",
        "\t\t\t\t\t<TopicType FormalName=\"People\"/>",
        "\t\t\t\t\t<FormalName>b</FormalName>",
        "\t\t\t\t</Topic>",
        "\t\t\t</TopicSet>",
        "\t\t\t<NewsLines>",
        "\t\t\t\t<HeadLine>Victoire &lt;nette&gt;</HeadLine>",
        "\t\t\t\t<ByLine>J.D.</ByLine>",
        "\t\t\t\t<CopyrightLine>\xA9 2024 Velmora</CopyrightLine>",
        "\t\t\t\t<SlugLine>a-b</SlugLine>",
        "\t\t\t</NewsLines>",
        "\t\t\t<AdministrativeMetadata>",
        "\t\t\t\t<Provider>",
        "\t\t\t\t\t<Party FormalName=\"Velmora\"/>",
        "\t\t\t\t</Provider>",
        "\t\t\t\t<Creator>",
        "\t\t\t\t\t<Party FormalName=\"Jo Dupr\xE9\"/>",
        "\t\t\t\t</Creator>",
        "\t\t\t</AdministrativeMetadata>",
        "\t\t\t<DescriptiveMetadata>",
        "\t\t\t\t<Language FormalName=\"fr\"/>",
        "\t\t\t\t<Genre FormalName=\"Analysis\"/>",
        "\t\t\t\t<SubjectCode>",
        "\t\t\t\t\t<Subject Scheme=\"IptcSubjectCodes\" FormalName=\"04000000\"/>",
        "\t\t\t\t\t<SubjectMatter Scheme=\"IptcSubjectCodes\" FormalName=\"04001000\"/>",
        "\t\t\t\t\t<SubjectDetail Scheme=\"IptcSubjectCodes\" FormalName=\"04001001\"/>",
        "\t\t\t\t</SubjectCode>",
        "\t\t\t\t<OfInterestTo FormalName=\"--Sports &amp; loisirs--Football--\"/>",
        "\t\t\t\t<TopicOccurrence Topic=\"#topic1\"/>",
        "\t\t\t\t<TopicOccurrence Topic=\"#topic2\"/>",
        "\t\t\t</DescriptiveMetadata>",
        "\t\t\t<Metadata>",
        "\t\t\t\t<MetadataType FormalName =\"PublishingMetadata\"/>",
        "\t\t\t\t<Property FormalName =\"Titre\" Value=\"Le Matin\"/>",
        "\t\t\t\t<Property FormalName =\"Classification\" Value=\"Sports &amp; loisirs\"/>",
        "\t\t\t\t<Property FormalName =\"General section\" Value=\"Football\"/>",
        "\t\t\t\t<Property FormalName =\"General subsection\" Value=\"\"/>",
        "\t\t\t\t<Property FormalName =\"Publication date\" Value=\"12/03/2024\"/>",
        "\t\t\t\t<Property FormalName =\"Story type\" Value=\"Article\"/>",
        "\t\t\t</Metadata>",
        "\t\t\t<NewsComponent>",
        "\t\t\t\t<Role FormalName=\"Main text\"/>",
        "\t\t\t\t<ContentItem>",
        "\t\t\t\t\t<MediaType FormalName=\"Text\"/>",
        "\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>",
        "\t\t\t\t\t<DataContent><hl2>Le match</hl2><p><em style=\"bold\">A &amp;amp; B</em> "
        "ont gagn\xE9 <em style=\"italics\">2-0</em>.</p><p>\tPrix : 5 euro, oeuvre"
        "<em style=\"super\">2</em>\xA0!</p></DataContent>",
        "\t\t\t\t</ContentItem>",
        "\t\t\t</NewsComponent>",
        "\t\t\t<NewsComponent Duid=\"photo0\">",
        "\t\t\t\t<NewsLines>",
        "\t\t\t\t\t<HeadLine>Le but</HeadLine>",
        "\t\t\t\t</NewsLines>",
        "\t\t\t\t<AdministrativeMetadata>",
        "\t\t\t\t\t<Provider>",
        "\t\t\t\t\t\t<Party FormalName=\"Velmora\"/>",
        "\t\t\t\t\t</Provider>",
        "\t\t\t\t\t<Creator>",
        "\t\t\t\t\t\t<Party FormalName=\"Photo X\"/>",
        "\t\t\t\t\t</Creator>",
        "\t\t\t\t</AdministrativeMetadata>",
        "\t\t\t\t<NewsComponent>",
        "\t\t\t\t\t<Role FormalName=\"Caption\"/>",
        "\t\t\t\t\t<ContentItem>",
        "\t\t\t\t\t\t<MediaType FormalName=\"Text\"/>",
        "\t\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>",
        "\t\t\t\t\t\t<DataContent>",
        "<p>Le but</p>",
        "\t\t\t\t\t\t</DataContent>",
        "\t\t\t\t\t</ContentItem>",
        "\t\t\t\t</NewsComponent>",
        "\t\t\t\t<NewsComponent>",
        "\t\t\t\t\t<Role FormalName=\"Main\"/>",
        "\t\t\t\t\t<ContentItem Href=\"file:///srv/photos/match du jour.jpg\">",
        "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>",
        "\t\t\t\t\t</ContentItem>",
        "\t\t\t\t</NewsComponent>",
        "\t\t\t</NewsComponent>",
        "\t\t\t<NewsComponent Duid=\"photo1\">",
        "\t\t\t\t<AdministrativeMetadata>",
        "\t\t\t\t\t<Provider>",
        "\t\t\t\t\t\t<Party FormalName=\"Velmora\"/>",
        "\t\t\t\t\t</Provider>",
        "\t\t\t\t</AdministrativeMetadata>",
        "\t\t\t\t<NewsComponent>",
        "\t\t\t\t\t<Role FormalName=\"Main\"/>",
        "\t\t\t\t\t<ContentItem Href=\"file:///srv/photos/tribune.jpg\">",
        "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>",
        "\t\t\t\t\t</ContentItem>",
        "\t\t\t\t</NewsComponent>",
        "\t\t\t</NewsComponent>",
        "\t\t</NewsComponent>",
        "\t</NewsItem>",
        "</NewsML>",
    });
    const std::string output = Compose(setup, kFullStory);
    EXPECT_EQ(output, expected);
    EXPECT_TRUE(IsWellFormed(output));
}

// In UTF-8 mode only what is escaped is UTF-8: the copyright sign, Language and the subject
// codes stay single Windows-1252 bytes, and a character beyond the Basic Multilingual Plane
// is written as two three-byte groups.
TEST(ExportNewsML, Utf8ModeEncodesOnlyTheEscapedValues) {
    WriterSetup setup;
    setup.configuration.general.storiesEncoding = "UTF-8";
    setup.configuration.identity.initials = "ZB";
    NewsMLExportSettings& newsML = setup.configuration.exportFormats.NewsML;
    newsML.Provider = "Velmora";
    newsML.Language = "fr-\u00e9";
    const std::string story = CrLfLines({
        R"(<?xml version="1.0" encoding="UTF-8" ?>)",
        R"(<Story AppName="Tessarin" AppVersion="0.1.0">)",
        "<Metadata>",
        "<Author Name=\"Author\">Zo\xC3\xA9</Author>",
        "<Taxonomy>",
        "<Topic FormalItem=\"15000000\xC3\xA9\">Sport</Topic>",
        "</Taxonomy>",
        "</Metadata>",
        "<Body>",
        "<TextBox6 CharCount=\"9\" WordCount=\"3\" Name=\"Text\">Caf\xC3\xA9 <euro/> <oe/><OE/> "
        "\xED\xA0\xBD\xED\xB8\x80</TextBox6>",
        "</Body>",
        "</Story>",
    });
    const std::string expected = CrLfLines({
        R"(<?xml version="1.0" encoding="UTF-8"?>)",
        "<NewsML>",
        "\t<Catalog Href=\"\"/>",
        "\t<NewsEnvelope>",
        "\t\t<DateAndTime>20241105T141500Z</DateAndTime>",
        "\t</NewsEnvelope>",
        "\t<NewsItem>",
        "\t\t<Identification>",
        "\t\t\t<NewsIdentifier>",
        "\t\t\t\t<ProviderId></ProviderId>",
        "\t\t\t\t<DateId>20241105</DateId>",
        "\t\t\t\t<NewsItemId>ZB-091500</NewsItemId>",
        "\t\t\t\t<RevisionId PreviousRevision=\"0\" Update=\"N\">1</RevisionId>",
        "\t\t\t\t<PublicIdentifier>urn:newsml::20241105:ZB-091500:1</PublicIdentifier>",
        "\t\t\t</NewsIdentifier>",
        "\t\t</Identification>",
        "\t\t<NewsManagement>",
        "\t\t\t<NewsItemType FormalName=\"News\"/>",
        "\t\t\t<FirstCreated>20241105T141500Z</FirstCreated>",
        "\t\t\t<ThisRevisionCreated>20241105T141500Z</ThisRevisionCreated>",
        "\t\t\t<Status FormalName=\"Usable\"/>",
        "\t\t</NewsManagement>",
        "\t\t<NewsComponent>",
        "\t\t\t<NewsLines>",
        "\t\t\t\t<ByLine>Zo\xC3\xA9</ByLine>",
        "\t\t\t\t<CopyrightLine>\xA9 2024 Velmora</CopyrightLine>",
        "\t\t\t</NewsLines>",
        "\t\t\t<AdministrativeMetadata>",
        "\t\t\t\t<Creator>",
        "\t\t\t\t\t<Party FormalName=\"Zo\xC3\xA9\"/>",
        "\t\t\t\t</Creator>",
        "\t\t\t</AdministrativeMetadata>",
        "\t\t\t<DescriptiveMetadata>",
        "\t\t\t\t<Language FormalName=\"fr-\xE9\"/>",
        "\t\t\t\t<Genre FormalName=\"Current\"/>",
        "\t\t\t\t<SubjectCode>",
        "\t\t\t\t\t<SubjectDetail Scheme=\"IptcSubjectCodes\" FormalName=\"15000000\xE9\"/>",
        "\t\t\t\t</SubjectCode>",
        "\t\t\t\t<OfInterestTo FormalName=\"\"/>",
        "\t\t\t</DescriptiveMetadata>",
        "\t\t\t<Metadata>",
        "\t\t\t\t<MetadataType FormalName =\"PublishingMetadata\"/>",
        "\t\t\t\t<Property FormalName =\"Publication\" Value=\"\"/>",
        "\t\t\t</Metadata>",
        "\t\t\t<NewsComponent>",
        "\t\t\t\t<Role FormalName=\"\"/>",
        "\t\t\t\t<ContentItem>",
        "\t\t\t\t\t<MediaType FormalName=\"Text\"/>",
        "\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>",
        "\t\t\t\t\t<DataContent><p>Caf\xC3\xA9 \xE2\x82\xAC \xC5\x93\xC5\x92 "
        "\xED\xA0\xBD\xED\xB8\x80</p></DataContent>",
        "\t\t\t\t</ContentItem>",
        "\t\t\t</NewsComponent>",
        "\t\t</NewsComponent>",
        "\t</NewsItem>",
        "</NewsML>",
    });
    const std::string output =
        Compose(setup, story, LocalDateTime{2024, 11, 5, 9, 15, 0}, /*New York*/ 300);
    EXPECT_EQ(output, expected);
    EXPECT_TRUE(IsWellFormed(output));
}

TEST(ExportNewsML, StoryWithoutMetadataOrBodyKeepsTheFrame) {
    WriterSetup setup;
    setup.configuration.exportFormats.NewsML.Provider = "Velmora";
    const std::string expected = CrLfLines({
        R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
        "<NewsML>",
        "\t<Catalog Href=\"\"/>",
        "\t<NewsEnvelope>",
        "\t\t<DateAndTime>20240101T120000Z</DateAndTime>",
        "\t</NewsEnvelope>",
        "\t<NewsItem>",
        "\t\t<Identification>",
        "\t\t\t<NewsIdentifier>",
        "\t\t\t\t<ProviderId></ProviderId>",
        "\t\t\t\t<DateId>20240101</DateId>",
        "\t\t\t\t<NewsItemId>-120000</NewsItemId>",
        "\t\t\t\t<RevisionId PreviousRevision=\"0\" Update=\"N\">1</RevisionId>",
        "\t\t\t\t<PublicIdentifier>urn:newsml::20240101:-120000:1</PublicIdentifier>",
        "\t\t\t</NewsIdentifier>",
        "\t\t</Identification>",
        "\t\t<NewsManagement>",
        "\t\t\t<NewsItemType FormalName=\"News\"/>",
        "\t\t\t<FirstCreated>20240101T120000Z</FirstCreated>",
        "\t\t\t<ThisRevisionCreated>20240101T120000Z</ThisRevisionCreated>",
        "\t\t\t<Status FormalName=\"Usable\"/>",
        "\t\t</NewsManagement>",
        "\t\t<NewsComponent>",
        "\t\t\t<NewsLines>",
        "\t\t\t\t<ByLine></ByLine>",
        "\t\t\t\t<CopyrightLine>\xA9 2024 Velmora</CopyrightLine>",
        "\t\t\t</NewsLines>",
        "\t\t\t<AdministrativeMetadata>",
        "\t\t\t\t<Creator>",
        "\t\t\t\t\t<Party FormalName=\"\"/>",
        "\t\t\t\t</Creator>",
        "\t\t\t</AdministrativeMetadata>",
        "\t\t</NewsComponent>",
        "\t</NewsItem>",
        "</NewsML>",
    });
    const std::string output =
        Compose(setup, R"(<Story AppName="Tessarin"/>)", LocalDateTime{2024, 1, 1, 12, 0, 0}, 0);
    EXPECT_EQ(output, expected);
    EXPECT_TRUE(IsWellFormed(output));
}

// The lines of one part of the output, from the line that starts with `first` through the
// line that starts with `last`.
std::string LinesBetween(const std::string& output, std::string_view first, std::string_view last) {
    const std::size_t start = output.find(first);
    if (start == std::string::npos) return {};
    const std::size_t lastLine = output.find("\n" + std::string(last), start);
    const std::size_t end = output.find("\r\n", lastLine);
    return output.substr(start, end + 2 - start);
}

TEST(ExportNewsML, ByLineAndHeadLineComeFromWhatTheStoryHas) {
    WriterSetup setup;
    const std::string withoutBody =
        R"(<Story><Metadata><Author Name="A">Ana &amp; Bo</Author></Metadata></Story>)";
    EXPECT_EQ(LinesBetween(Compose(setup, withoutBody), "\t\t\t<NewsLines>", "\t\t\t\t<ByLine>"),
              CrLfLines({"\t\t\t<NewsLines>", "\t\t\t\t<ByLine>Ana &amp; Bo</ByLine>"}));

    // An empty signature still wins over the author; the first of boxes 0 to 5 that exists
    // is the headline even when another follows; box 6 alone makes the body component.
    const std::string emptySignature =
        R"(<Story><Metadata><Author>Ana</Author></Metadata>)"
        R"(<Body><TextBox2>Deux</TextBox2><TextBox4>Quatre</TextBox4>)"
        R"(<Signature></Signature></Body></Story>)";
    const std::string output = Compose(setup, emptySignature);
    EXPECT_EQ(LinesBetween(output, "\t\t\t<NewsLines>", "\t\t\t\t<ByLine>"),
              CrLfLines({"\t\t\t<NewsLines>", "\t\t\t\t<HeadLine>Deux</HeadLine>",
                         "\t\t\t\t<ByLine></ByLine>"}));
    EXPECT_EQ(output.find("<ContentItem>"), std::string::npos);
}

TEST(ExportNewsML, UtcTimeMovesTheTimeOfDayOnlyAndWrapsAtMidnight) {
    EXPECT_EQ(UtcTimeText(kJustAfterMidnight, kParisBias), "233005");
    EXPECT_EQ(UtcTimeText(LocalDateTime{2024, 7, 1, 22, 15, 0}, 300), "031500");
    EXPECT_EQ(UtcTimeText(LocalDateTime{2024, 7, 1, 8, 5, 9}, 0), "080509");
}

TEST(ExportNewsML, PicturesNameTheirFolderAndKeepAnEmptyContentItem) {
    WriterSetup setup;
    setup.configuration.exportFormats.NewsML.RelativePath = "photos\\jour";
    setup.configuration.exportFormats.NewsML.ImagesDirectory = "/srv/photos";
    const std::string story = R"(<Story><Images><ImageBag><Image href="a%20b&amp;c.jpg"/>)"
                              R"(</ImageBag><ImageBag><Image href=""/><Credit>AFP</Credit>)"
                              R"(</ImageBag></Images></Story>)";
    const std::string output = Compose(setup, story);
    EXPECT_EQ(LinesBetween(output, "\t\t\t<NewsComponent Duid=\"photo0\">", "\t\t</NewsComponent>"),
              CrLfLines({
                  "\t\t\t<NewsComponent Duid=\"photo0\">",
                  "\t\t\t\t<AdministrativeMetadata>",
                  "\t\t\t\t\t<Provider>",
                  "\t\t\t\t\t\t<Party FormalName=\"\"/>",
                  "\t\t\t\t\t</Provider>",
                  "\t\t\t\t</AdministrativeMetadata>",
                  "\t\t\t\t<NewsComponent>",
                  "\t\t\t\t\t<Role FormalName=\"Main\"/>",
                  "\t\t\t\t\t<ContentItem Href=\"photos/jour/a b&amp;c.jpg\">",
                  "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>",
                  "\t\t\t\t\t</ContentItem>",
                  "\t\t\t\t</NewsComponent>",
                  "\t\t\t</NewsComponent>",
                  "\t\t\t<NewsComponent Duid=\"photo1\">",
                  "\t\t\t\t<AdministrativeMetadata>",
                  "\t\t\t\t\t<Provider>",
                  "\t\t\t\t\t\t<Party FormalName=\"\"/>",
                  "\t\t\t\t\t</Provider>",
                  "\t\t\t\t\t<Creator>",
                  "\t\t\t\t\t\t<Party FormalName=\"AFP\"/>",
                  "\t\t\t\t\t</Creator>",
                  "\t\t\t\t</AdministrativeMetadata>",
                  "\t\t\t\t<NewsComponent>",
                  "\t\t\t\t\t<Role FormalName=\"Main\"/>",
                  "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>",
                  "\t\t\t\t\t</ContentItem>",
                  "\t\t\t\t</NewsComponent>",
                  "\t\t\t</NewsComponent>",
                  "\t\t</NewsComponent>",
              }));
    // A picture without a name closes a ContentItem it never opened.
    EXPECT_FALSE(IsWellFormed(output));

    setup.configuration.exportFormats.NewsML.RelativePath.clear();
    setup.configuration.exportFormats.NewsML.ImagesDirectory = "C:\\Photos";
    EXPECT_NE(Compose(setup, story).find("<ContentItem Href=\"file:///C:/Photos/a b&amp;c.jpg\">"),
              std::string::npos);
}

// The body of text box 6 as the writer gives it, in Windows-1252.
std::string Body(std::string_view inner) {
    const XmlDocument box = ParseStory("<TextBox6 CharCount=\"1\" Name=\"a&amp;b\">" +
                                       std::string(inner) + "</TextBox6>");
    return NewsMLBodyBytes(box.DocumentElement(), false);
}

TEST(NewsMLBodyText, EscapesTheSerialisedTextOnceMore) {
    EXPECT_EQ(Body("<b>A &amp; B</b>"), "<p><em style=\"bold\">A &amp;amp; B</em></p>");
    EXPECT_EQ(Body("1 &lt; 2 &gt; 0 \"l'\u00e9t\u00e9\""),
              "<p>1 &amp;lt; 2 &amp;gt; 0 &quot;l&apos;\xE9t\xE9&quot;</p>");
    // A tag without a NewsML form shows as text.
    EXPECT_EQ(Body("x<note/>y"), "<p>x&lt;note/&gt;y</p>");
    EXPECT_EQ(Body("<u>u</u><sup>2</sup>"),
              "<p><em style=\"underline\">u</em><em style=\"super\">2</em></p>");
    EXPECT_EQ(NewsMLBodyBytes(ParseStory("<TextBox6/>").DocumentElement(), false), "<p></p>");
}

TEST(NewsMLBodyText, JoinsBreaksInThreePassesAndLiftsIntertitles) {
    auto breaks = [](int count) {
        std::string text;
        for (int n = 0; n < count; ++n)
            text += "<p/>\r\n";
        return text;
    };
    EXPECT_EQ(Body("a" + breaks(5) + "b"), "<p>a</p><p>b</p>");
    // 17 breaks: 4 + 4 + 4 + 4 + 1 leave 5, then 3 + 2 leave 2, then 1 + 1 stay 2.
    EXPECT_EQ(Body("a" + breaks(17) + "b"), "<p>a</p><p></p><p>b</p>");
    EXPECT_EQ(Body("<p/>a"), "<p></p><p>a</p>");
    EXPECT_EQ(Body("<inter2>Titre</inter2><p/>\r\nTexte<p/>\r\n<inter3>Fin</inter3>"),
              "<hl2>Titre</hl2><p>Texte</p><hl2>Fin</hl2>");
    EXPECT_EQ(Body("a<inter1>b</inter1>"), "<p>a<hl2>b</hl2>");
}

TEST(NewsMLBodyText, CutsNotesSearchingOnSixCharactersAfterEachCut) {
    EXPECT_EQ(Body("a<note>n</note>b"), "<p>ab</p>");
    // The next search starts six characters into what followed the cut note.
    EXPECT_EQ(Body("<note>1</note>ab<note>2</note>c"), "<p>ab&lt;note&gt;2&lt;/note&gt;c</p>");
    EXPECT_EQ(Body("<note>1</note>abcdef<note>2</note>c"), "<p>abcdefc</p>");
    EXPECT_EQ(Body("<note><b>x</b></note>y"), "<p>y</p>");
}

// The note search as it reads when the text is cut in place and searched again from the
// opening tag's place: the writer's single pass must give the same text for any sequence.
std::string CutNotesInPlace(std::string text) {
    for (std::size_t open = text.find("<note>"); open != std::string::npos;
         open = text.find("<note>", open + 6)) {
        const std::size_t close = text.find("</note>", open);
        if (close != std::string::npos && close > open + 6) text.erase(open, close + 7 - open);
    }
    return text;
}

TEST(NewsMLBodyText, NoteCuttingMatchesTheSearchInPlace) {
    constexpr std::string_view kPieces[] = {"<note>", "</note>", "a", "bcdef", "<note", ">"};
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        const int pieces = static_cast<int>(random() % 12);
        for (int n = 0; n < pieces; ++n)
            text += kPieces[random() % std::size(kPieces)];
        ASSERT_EQ(CutNotes(text), CutNotesInPlace(text)) << text;
    }
}

TEST(ExportNewsML, WritesTheStoryItsNameInTheUploadDirectory) {
    testing::TempDir folder;
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = "/export/texts";
    const std::string upload = folder.path().string() + "/";
    folder.Write("match.xml", kFullStory);
    ExportState state;
    state.UploadDirectory = upload;
    state.CurrentUploadNode = "match.xml";
    state.SourceStoryPath = upload + "match.xml";
    const ExportContext context = setup.Context(kJustAfterMidnight);

    ExportNewsML(state, ExportMode::Layout, context);

    EXPECT_EQ(state.ExportedFilePath, upload + "match.xml");
    EXPECT_EQ(state.TargetPath, "/export/texts/match.xml");
    EXPECT_EQ(state.OriginalStoryPath, "/home/jo/stories/match.xml");
    const std::string written = testing::ReadBytes(folder / "match.xml");
    EXPECT_EQ(written, ComposeNewsML(ParseStory(kFullStory), context, TimeZoneBaseBiasMinutes()));
}

TEST(ExportNewsML, UnparsableStoryIsToldAndNothingIsWritten) {
    testing::TempDir folder;
    WriterSetup setup;
    const std::string upload = folder.path().string() + "/";
    folder.Write("bad.xml", "<Story><Body></Story>");
    ExportState state;
    state.UploadDirectory = upload;
    state.CurrentUploadNode = "bad.xml";
    state.SourceStoryPath = upload + "bad.xml";

    ExportNewsML(state, ExportMode::Layout, setup.Context(kJustAfterMidnight));

    ASSERT_EQ(setup.user.messages.size(), 1u);
    EXPECT_EQ(setup.user.beeps, 1);
    EXPECT_TRUE(setup.user.messages[0].starts_with("Parsing error:" + upload + "bad.xml, line:1"));
    EXPECT_EQ(testing::ReadBytes(folder / "bad.xml"), "<Story><Body></Story>");
}

}  // namespace
}  // namespace tessarin
