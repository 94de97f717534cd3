#include "export/export_newsml.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "export/export_test_support.h"
#include "export/newsml_body_text.h"
#include "export/newsml_box_markup.h"

namespace tessarin {
namespace {

using testing::Changed;
using testing::CrLf;
using testing::IsWellFormed;
using testing::ParseStory;
using testing::WriterSetup;

constexpr LocalDateTime kJustAfterMidnight{2024, 3, 12, 0, 30, 5};
constexpr int kParisBias = -60;

// A story with every part the writer reads, in the story file's own bytes (Windows-1252).
const std::string kFullStory = CrLf(
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\n<Metadata>\n"
    "<Author Name=\"Author\">Jo Dupr\xE9</Author>\n"
    "<Publication Name=\"Publication\">Le Matin</Publication>\n"
    "<Classification Name=\"Classification\">Sports &amp; loisirs</Classification>\n"
    "<SectionGeneral Name=\"General section\">Football</SectionGeneral>\n"
    "<SubSectionGeneral Name=\"General subsection\"></SubSectionGeneral>\n"
    "<PublicationDate Name=\"Publication date\">12/03/2024</PublicationDate>\n"
    "<PublicationDateFull>Tuesday, March 12, 2024</PublicationDateFull>\n<Taxonomy>\n"
    "<Topic FormalItem=\"04000000\">Economy</Topic>\n"
    "<Topic FormalItem=\"04001000\">Agriculture</Topic>\n"
    "<Topic FormalItem=\"04001001\">Arable farming</Topic>\n</Taxonomy>\n<Keywords>\n"
    "<Keyword CategoryName=\"Places\" CategoryIndex=\"1\">a</Keyword>\n"
    "<Keyword CategoryName=\"People\" CategoryIndex=\"2\">b</Keyword>\n</Keywords>\n"
    "<Form Name=\"Story type\" Index=\"0\">Article</Form>\n"
    "<Status Name=\"Status\" FormalItem=\"Embargoed\">Embargo</Status>\n"
    "<Genre Name=\"Genre\" FormalItem=\"Analysis\">Analyse</Genre>\n"
    "<OriginalPath Name=\"/home/jo/stories/match.xml\"/>\n</Metadata>\n<Body>\n"
    "<TextBox0 CharCount=\"16\" WordCount=\"2\" Name=\"Title\">Victoire &lt;nette&gt;</TextBox0>\n"
    "<TextBox6 CharCount=\"70\" WordCount=\"14\" Name=\"Text\"><inter1>Le match</inter1><p/>\n"
    "<b>A &amp; B</b> ont gagn\xE9 <i>2-0</i><note>revoir</note>.<p/>\n<p/>\n"
    "<tab/>Prix : 5 <euro/>, <oe/>uvre<sup>2</sup>&#160;!</TextBox6>\n"
    "<Signature Type=\"I\">J.D.</Signature></Body>\n<Images>\n<ImageBag>\n"
    "<Image href=\"match%20du%20jour.jpg\"/>\n<Caption>Le but</Caption>\n"
    "<Credit>Photo X</Credit>\n</ImageBag>\n<ImageBag>\n<Image href=\"file:///tribune.jpg\"/>\n"
    "</ImageBag>\n</Images>\n</Story>\n");

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
    const std::string expected = CrLf(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<NewsML>\n"
        "\t<Catalog Href=\"http://www.example.org/dtd/AFPCatalog.xml\"/>\n\t<NewsEnvelope>\n"
        "\t\t<DateAndTime>20240312T233005Z</DateAndTime>\n\t</NewsEnvelope>\n\t<NewsItem>\n"
        "\t\t<Identification>\n\t\t\t<NewsIdentifier>\n"
        "\t\t\t\t<ProviderId>example.org</ProviderId>\n\t\t\t\t<DateId>20240312</DateId>\n"
        "\t\t\t\t<NewsItemId>JD-003005</NewsItemId>\n"
        "\t\t\t\t<RevisionId PreviousRevision=\"0\" Update=\"N\">1</RevisionId>\n"
        "\t\t\t\t<PublicIdentifier>urn:newsml:example.org:20240312:JD-003005:1</PublicIdentifier>\n"
        "\t\t\t</NewsIdentifier>\n\t\t\t<NameLabel>Football</NameLabel>\n\t\t</Identification>\n"
        "\t\t<NewsManagement>\n\t\t\t<NewsItemType FormalName=\"News\"/>\n"
        "\t\t\t<FirstCreated>20240312T233005Z</FirstCreated>\n"
        "\t\t\t<ThisRevisionCreated>20240312T233005Z</ThisRevisionCreated>\n"
        "\t\t\t<Status FormalName=\"Embargoed\"/>\n\t\t</NewsManagement>\n\t\t<NewsComponent>\n"
        "\t\t\t<TopicSet Duid=\"LocalTopicSet\" FormalName=\"Mots-cl\xE9s\">\n"
        "\t\t\t\t<Topic Duid=\"topic1\">\n\t\t\t\t\t<TopicType FormalName=\"Places\"/>\n"
        "\t\t\t\t\t<FormalName>a</FormalName>\n\t\t\t\t</Topic>\n\t\t\t\t<Topic Duid=\"topic2\">\n"
        "\t\t\t\t\t<TopicType FormalName=\"People\"/>\n\t\t\t\t\t<FormalName>b</FormalName>\n"
        "\t\t\t\t</Topic>\n\t\t\t</TopicSet>\n\t\t\t<NewsLines>\n"
        "\t\t\t\t<HeadLine>Victoire &lt;nette&gt;</HeadLine>\n\t\t\t\t<ByLine>J.D.</ByLine>\n"
        "\t\t\t\t<CopyrightLine>\xA9 2024 Velmora</CopyrightLine>\n"
        "\t\t\t\t<SlugLine>a-b</SlugLine>\n\t\t\t</NewsLines>\n\t\t\t<AdministrativeMetadata>\n"
        "\t\t\t\t<Provider>\n\t\t\t\t\t<Party FormalName=\"Velmora\"/>\n\t\t\t\t</Provider>\n"
        "\t\t\t\t<Creator>\n\t\t\t\t\t<Party FormalName=\"Jo Dupr\xE9\"/>\n\t\t\t\t</Creator>\n"
        "\t\t\t</AdministrativeMetadata>\n\t\t\t<DescriptiveMetadata>\n"
        "\t\t\t\t<Language FormalName=\"fr\"/>\n\t\t\t\t<Genre FormalName=\"Analysis\"/>\n"
        "\t\t\t\t<SubjectCode>\n"
        "\t\t\t\t\t<Subject Scheme=\"IptcSubjectCodes\" FormalName=\"04000000\"/>\n"
        "\t\t\t\t\t<SubjectMatter Scheme=\"IptcSubjectCodes\" FormalName=\"04001000\"/>\n"
        "\t\t\t\t\t<SubjectDetail Scheme=\"IptcSubjectCodes\" FormalName=\"04001001\"/>\n"
        "\t\t\t\t</SubjectCode>\n"
        "\t\t\t\t<OfInterestTo FormalName=\"--Sports &amp; loisirs--Football--\"/>\n"
        "\t\t\t\t<TopicOccurrence Topic=\"#topic1\"/>\n"
        "\t\t\t\t<TopicOccurrence Topic=\"#topic2\"/>\n\t\t\t</DescriptiveMetadata>\n"
        "\t\t\t<Metadata>\n\t\t\t\t<MetadataType FormalName =\"PublishingMetadata\"/>\n"
        "\t\t\t\t<Property FormalName =\"Titre\" Value=\"Le Matin\"/>\n"
        "\t\t\t\t<Property FormalName =\"Classification\" Value=\"Sports &amp; loisirs\"/>\n"
        "\t\t\t\t<Property FormalName =\"General section\" Value=\"Football\"/>\n"
        "\t\t\t\t<Property FormalName =\"General subsection\" Value=\"\"/>\n"
        "\t\t\t\t<Property FormalName =\"Publication date\" Value=\"12/03/2024\"/>\n"
        "\t\t\t\t<Property FormalName =\"Story type\" Value=\"Article\"/>\n\t\t\t</Metadata>\n"
        "\t\t\t<NewsComponent>\n\t\t\t\t<Role FormalName=\"Main text\"/>\n\t\t\t\t<ContentItem>\n"
        "\t\t\t\t\t<MediaType FormalName=\"Text\"/>\n\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>\n"
        "\t\t\t\t\t<DataContent><hl2>Le match</hl2><p><em style=\"bold\">A &amp;amp; B</em> ont "
        "gagn\xE9 <em style=\"italics\">2-0</em>.</p><p>\tPrix : 5 euro, oeuvre<em "
        "style=\"super\">2</em>\xA0!</p></DataContent>\n"
        "\t\t\t\t</ContentItem>\n\t\t\t</NewsComponent>\n\t\t\t<NewsComponent Duid=\"photo0\">\n"
        "\t\t\t\t<NewsLines>\n\t\t\t\t\t<HeadLine>Le but</HeadLine>\n\t\t\t\t</NewsLines>\n"
        "\t\t\t\t<AdministrativeMetadata>\n\t\t\t\t\t<Provider>\n"
        "\t\t\t\t\t\t<Party FormalName=\"Velmora\"/>\n\t\t\t\t\t</Provider>\n\t\t\t\t\t<Creator>\n"
        "\t\t\t\t\t\t<Party FormalName=\"Photo X\"/>\n\t\t\t\t\t</Creator>\n"
        "\t\t\t\t</AdministrativeMetadata>\n\t\t\t\t<NewsComponent>\n"
        "\t\t\t\t\t<Role FormalName=\"Caption\"/>\n\t\t\t\t\t<ContentItem>\n"
        "\t\t\t\t\t\t<MediaType FormalName=\"Text\"/>\n"
        "\t\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>\n\t\t\t\t\t\t<DataContent>\n<p>Le but</p>\n"
        "\t\t\t\t\t\t</DataContent>\n\t\t\t\t\t</ContentItem>\n\t\t\t\t</NewsComponent>\n"
        "\t\t\t\t<NewsComponent>\n\t\t\t\t\t<Role FormalName=\"Main\"/>\n"
        "\t\t\t\t\t<ContentItem Href=\"file:///srv/photos/match du jour.jpg\">\n"
        "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>\n\t\t\t\t\t</ContentItem>\n"
        "\t\t\t\t</NewsComponent>\n\t\t\t</NewsComponent>\n\t\t\t<NewsComponent Duid=\"photo1\">\n"
        "\t\t\t\t<AdministrativeMetadata>\n\t\t\t\t\t<Provider>\n"
        "\t\t\t\t\t\t<Party FormalName=\"Velmora\"/>\n\t\t\t\t\t</Provider>\n"
        "\t\t\t\t</AdministrativeMetadata>\n\t\t\t\t<NewsComponent>\n"
        "\t\t\t\t\t<Role FormalName=\"Main\"/>\n"
        "\t\t\t\t\t<ContentItem Href=\"file:///srv/photos/tribune.jpg\">\n"
        "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>\n\t\t\t\t\t</ContentItem>\n"
        "\t\t\t\t</NewsComponent>\n\t\t\t</NewsComponent>\n\t\t</NewsComponent>\n\t</NewsItem>\n"
        "</NewsML>\n");
    EXPECT_EQ(Compose(setup, kFullStory), expected);
}

// The frame that a story without Metadata or Body keeps, at noon on 1 January 2024, UTC.
const std::string kBareDocument = CrLf(
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<NewsML>\n\t<Catalog Href=\"\"/>\n"
    "\t<NewsEnvelope>\n\t\t<DateAndTime>20240101T120000Z</DateAndTime>\n\t</NewsEnvelope>\n"
    "\t<NewsItem>\n\t\t<Identification>\n\t\t\t<NewsIdentifier>\n"
    "\t\t\t\t<ProviderId></ProviderId>\n\t\t\t\t<DateId>20240101</DateId>\n"
    "\t\t\t\t<NewsItemId>-120000</NewsItemId>\n"
    "\t\t\t\t<RevisionId PreviousRevision=\"0\" Update=\"N\">1</RevisionId>\n"
    "\t\t\t\t<PublicIdentifier>urn:newsml::20240101:-120000:1</PublicIdentifier>\n"
    "\t\t\t</NewsIdentifier>\n\t\t</Identification>\n\t\t<NewsManagement>\n"
    "\t\t\t<NewsItemType FormalName=\"News\"/>\n"
    "\t\t\t<FirstCreated>20240101T120000Z</FirstCreated>\n"
    "\t\t\t<ThisRevisionCreated>20240101T120000Z</ThisRevisionCreated>\n"
    "\t\t\t<Status FormalName=\"Usable\"/>\n\t\t</NewsManagement>\n\t\t<NewsComponent>\n"
    "\t\t\t<NewsLines>\n\t\t\t\t<ByLine></ByLine>\n"
    "\t\t\t\t<CopyrightLine>\xA9 2024 Velmora</CopyrightLine>\n\t\t\t</NewsLines>\n"
    "\t\t\t<AdministrativeMetadata>\n\t\t\t\t<Creator>\n\t\t\t\t\t<Party FormalName=\"\"/>\n"
    "\t\t\t\t</Creator>\n\t\t\t</AdministrativeMetadata>\n\t\t</NewsComponent>\n\t</NewsItem>\n"
    "</NewsML>\n");

TEST(ExportNewsML, StoryWithoutMetadataOrBodyKeepsTheFrame) {
    WriterSetup setup;
    setup.configuration.exportFormats.NewsML.Provider = "Velmora";
    EXPECT_EQ(
        Compose(setup, R"(<Story AppName="Tessarin"/>)", LocalDateTime{2024, 1, 1, 12, 0, 0}, 0),
        kBareDocument);
}

// In UTF-8 mode only what is escaped is UTF-8: the copyright sign, Language and the subject
// codes stay single Windows-1252 bytes, and a character beyond the Basic Multilingual Plane
// is written as two three-byte groups.
TEST(ExportNewsML, Utf8ModeEncodesOnlyTheEscapedValues) {
    WriterSetup setup;
    setup.configuration.general.storiesEncoding = "UTF-8";
    NewsMLExportSettings& newsML = setup.configuration.exportFormats.NewsML;
    newsML.Provider = "Velmora";
    newsML.Language = "fr-\u00e9";
    const std::string story = CrLf(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<Story AppName=\"Tessarin\">\n<Metadata>\n"
        "<Author Name=\"Author\">Zo\xC3\xA9</Author>\n<Taxonomy>\n"
        "<Topic FormalItem=\"15000000\xC3\xA9\">Sport</Topic>\n</Taxonomy>\n</Metadata>\n<Body>\n"
        "<TextBox6 CharCount=\"9\" WordCount=\"3\" Name=\"Text\">Caf\xC3\xA9 <euro/> <oe/><OE/> "
        "\xED\xA0\xBD\xED\xB8\x80</TextBox6>\n</Body>\n</Story>\n");
    const std::string metadataAndBody = CrLf(
        "\t\t\t</AdministrativeMetadata>\n\t\t\t<DescriptiveMetadata>\n"
        "\t\t\t\t<Language FormalName=\"fr-\xE9\"/>\n\t\t\t\t<Genre FormalName=\"Current\"/>\n"
        "\t\t\t\t<SubjectCode>\n"
        "\t\t\t\t\t<SubjectDetail Scheme=\"IptcSubjectCodes\" FormalName=\"15000000\xE9\"/>\n"
        "\t\t\t\t</SubjectCode>\n\t\t\t\t<OfInterestTo FormalName=\"\"/>\n"
        "\t\t\t</DescriptiveMetadata>\n\t\t\t<Metadata>\n"
        "\t\t\t\t<MetadataType FormalName =\"PublishingMetadata\"/>\n"
        "\t\t\t\t<Property FormalName =\"Publication\" Value=\"\"/>\n\t\t\t</Metadata>\n"
        "\t\t\t<NewsComponent>\n\t\t\t\t<Role FormalName=\"\"/>\n\t\t\t\t<ContentItem>\n"
        "\t\t\t\t\t<MediaType FormalName=\"Text\"/>\n\t\t\t\t\t<Format FormalName=\"bcNITF2.5\"/>\n"
        "\t\t\t\t\t<DataContent><p>Caf\xC3\xA9 \xE2\x82\xAC \xC5\x93\xC5\x92 "
        "\xED\xA0\xBD\xED\xB8\x80</p></DataContent>\n"
        "\t\t\t\t</ContentItem>\n\t\t\t</NewsComponent>\n");
    EXPECT_EQ(
        Compose(setup, story, LocalDateTime{2024, 1, 1, 12, 0, 0}, 0),
        Changed(kBareDocument, {{"ISO-8859-1", "UTF-8"},
                                {"<ByLine></ByLine>", "<ByLine>Zo\xC3\xA9</ByLine>"},
                                {"<Party FormalName=\"\"/>", "<Party FormalName=\"Zo\xC3\xA9\"/>"},
                                {"\t\t\t</AdministrativeMetadata>\r\n", metadataAndBody}}));
}

// The author as byline without a signature is the UTF-8 test's. An empty signature still
// wins over the author; the first of boxes 0 to 5 that exists is the headline even when
// another follows; box 6 alone makes the body component.
TEST(ExportNewsML, ByLineAndHeadLineComeFromWhatTheStoryHas) {
    WriterSetup setup;
    const std::string emptySignature =
        R"(<Story><Metadata><Author>Ana</Author></Metadata>)"
        R"(<Body><TextBox2>Deux</TextBox2><TextBox4>Quatre</TextBox4>)"
        R"(<Signature></Signature></Body></Story>)";
    const std::string output = Compose(setup, emptySignature);
    EXPECT_NE(output.find(CrLf("\t\t\t<NewsLines>\n\t\t\t\t<HeadLine>Deux</HeadLine>\n"
                               "\t\t\t\t<ByLine></ByLine>\n")),
              std::string::npos)
        << output;
    EXPECT_EQ(output.find("<ContentItem>"), std::string::npos);
}

// Wrapping back past midnight is the whole document's (its date stays), no bias the bare one's.
TEST(ExportNewsML, UtcTimeWrapsForwardPastMidnight) {
    EXPECT_EQ(UtcTimeText(LocalDateTime{2024, 7, 1, 22, 15, 0}, 300), "031500");
}

TEST(ExportNewsML, PicturesNameTheirFolderAndKeepAnEmptyContentItem) {
    WriterSetup setup;
    setup.configuration.exportFormats.NewsML.RelativePath = "photos\\jour";
    setup.configuration.exportFormats.NewsML.ImagesDirectory = "/srv/photos";
    const std::string story = R"(<Story><Images><ImageBag><Image href="a%20b&amp;c.jpg"/>)"
                              R"(</ImageBag><ImageBag><Image href=""/><Credit>AFP</Credit>)"
                              R"(</ImageBag></Images></Story>)";
    // The picture components' frame is the whole document's test; here the relative path
    // names the picture, and a picture without a name has no ContentItem opening.
    const std::string output = Compose(setup, story);
    EXPECT_NE(output.find(CrLf("<Role FormalName=\"Main\"/>\n"
                               "\t\t\t\t\t<ContentItem Href=\"photos/jour/a b&amp;c.jpg\">\n")),
              std::string::npos)
        << output;
    EXPECT_NE(output.find(CrLf("<Party FormalName=\"AFP\"/>\n\t\t\t\t\t</Creator>\n"
                               "\t\t\t\t</AdministrativeMetadata>\n\t\t\t\t<NewsComponent>\n"
                               "\t\t\t\t\t<Role FormalName=\"Main\"/>\n"
                               "\t\t\t\t\t\t<MediaType FormalName=\"Photo\"/>\n"
                               "\t\t\t\t\t</ContentItem>\n")),
              std::string::npos);
    // A picture without a name closes a ContentItem it never opened.
    EXPECT_FALSE(IsWellFormed(output));

    setup.configuration.exportFormats.NewsML.RelativePath.clear();
    setup.configuration.exportFormats.NewsML.ImagesDirectory = "C:\\Photos";
    EXPECT_NE(Compose(setup, story).find("<ContentItem Href=\"file:///C:/Photos/a b&amp;c.jpg\">"),
              std::string::npos);
}

TEST(NewsMLBodyText, TagsBreaksIntertitlesAndNotes) {
    const auto breaks = [](int count) {
        std::string text;
        for (int n = 0; n < count; ++n)
            text += "<p/>\r\n";
        return text;
    };
    const std::pair<std::string, std::string_view> rows[] = {
        // Bold text and a note between words are the whole document's. The serialised text is
        // escaped once more; a tag without a NewsML form shows as text.
        {"1 &lt; 2 &gt; 0 \"l'\u00e9t\u00e9\"",
         "<p>1 &amp;lt; 2 &amp;gt; 0 &quot;l&apos;\xE9t\xE9&quot;</p>"},
        {"x<note/>y", "<p>x&lt;note/&gt;y</p>"},
        {"<u>u</u><sup>2</sup>", "<p><em style=\"underline\">u</em><em style=\"super\">2</em></p>"},
        // Breaks are joined in three passes: 17 breaks are 4 + 4 + 4 + 4 + 1, leaving 5, then
        // 3 + 2, leaving 2, which stay.
        {"a" + breaks(5) + "b", "<p>a</p><p>b</p>"},
        {"a" + breaks(17) + "b", "<p>a</p><p></p><p>b</p>"},
        {"<p/>a", "<p></p><p>a</p>"},
        {"<inter2>Titre</inter2><p/>\r\nTexte<p/>\r\n<inter3>Fin</inter3>",
         "<hl2>Titre</hl2><p>Texte</p><hl2>Fin</hl2>"},
        {"a<inter1>b</inter1>", "<p>a<hl2>b</hl2>"},
        // After a cut note the next search starts six characters into what followed it (the
        // search model below tries every sequence).
        {"<note>1</note>ab<note>2</note>c", "<p>ab&lt;note&gt;2&lt;/note&gt;c</p>"},
        {"<note><b>x</b></note>y", "<p>y</p>"}};
    for (const auto& [inner, expected] : rows) {
        SCOPED_TRACE(inner);
        const XmlDocument box =
            ParseStory("<TextBox6 CharCount=\"1\" Name=\"a&amp;b\">" + inner + "</TextBox6>");
        EXPECT_EQ(NewsMLBodyBytes(box.DocumentElement(), false), expected);
    }
    EXPECT_EQ(NewsMLBodyBytes(ParseStory("<TextBox6/>").DocumentElement(), false), "<p></p>");
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

}  // namespace
}  // namespace tessarin
