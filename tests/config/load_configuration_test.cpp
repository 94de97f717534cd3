#include "config/load_configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>

#include "config/configuration_document.h"
#include "config/section_reading.h"
#include "support/file_watch.h"

namespace tessarin {
namespace {

using Document = testing::ConfigurationDocument;
using ::testing::ElementsAre;
using testing::Joined;
using testing::LoadBench;

TEST(LoadConfiguration, ReadsTheGeneralAttributesOrTheirDefaults) {
    // Each row: the document element's attributes, and version, encoding, description,
    // language and client as read. Only "UTF-8", exactly, is taken as encoding.
    const std::pair<std::string, std::string> cases[] = {
        {R"(Version="4.0.1" StoriesEncoding="UTF-8" Description="Desk of the north" )"
         R"(Language="fr" Client="Gazette du Nord" Unknown="ignored")",
         "4.0.1|UTF-8|Desk of the north|fr|Gazette du Nord"},
        {R"(StoriesEncoding="utf-8")", "???|ISO-8859-1|||"},
        {R"(Version="" StoriesEncoding="UTF-16")", "???|ISO-8859-1|||"}};
    for (const auto& [attributes, expected] : cases) {
        SCOPED_TRACE(attributes);
        LoadBench bench;
        ASSERT_TRUE(bench.Load(Document().With(&Document::rootAttributes, attributes)));
        const GeneralSettings& general = bench.configuration.general;
        EXPECT_EQ(Joined({general.version, general.storiesEncoding, general.description,
                          general.language, general.client}),
                  expected);
        EXPECT_EQ(bench.window.Status().text, "");
        EXPECT_EQ(bench.window.beeps, 0);
    }
}

TEST(LoadConfiguration, MissingPartsAreReportedWithTheirExactText) {
    // Each row: a section replaced, the report, and whether the load goes on to the end. A
    // missing FTP server is reported, but the load goes on.
    const std::tuple<std::string Document::*, std::string, std::string, bool> cases[] = {
        {&Document::ftpTransmission, "", "- missing section 'FTPTransmission'", false},
        {&Document::metadata, "", " - missing section 'Metadata'", false},
        {&Document::story, "", " - missing section 'Story'", false},
        {&Document::publications, "", " - missing section 'Publications'", false},
        {&Document::publications, "<Publications><Other/></Publications>",
         " - missing tag 'Publication'", false},
        {&Document::ftpTransmission, "<FTPTransmission/>", " - missing tag 'FTPServer'", true}};
    for (const auto& [section, replacement, missing, loads] : cases) {
        SCOPED_TRACE(missing);
        LoadBench bench;
        EXPECT_EQ(bench.Load(Document().With(section, replacement)), loads);
        EXPECT_EQ(bench.window.Status().text, "Error: " + bench.document.string() + missing);
        EXPECT_TRUE(bench.window.Status().errorPicture);
        EXPECT_EQ(bench.window.beeps, 1);
        EXPECT_EQ(bench.Tree("treePublications").Empty(), !loads);
    }
}

TEST(LoadConfiguration, WhatWasReadBeforeAFailureStaysInForce) {
    LoadBench bench;
    EXPECT_FALSE(bench.Load(
        Document()
            .With(
                &Document::metadata,
                R"(<Metadata><Author Name="Byline"/><Forms><Form Name="Brief"/></Forms></Metadata>)")
            .With(&Document::story, "")
            .With(&Document::interface, R"(<Interface MetadataVisible="false"/>)")));
    EXPECT_EQ(bench.Control("lblAuthor").caption, "Byline");
    EXPECT_EQ(bench.configuration.forms.size(), 1u);
    // Nothing after the failure was read: Interface is untouched and no title is set (the
    // empty publications tree is the missing parts' test).
    EXPECT_TRUE(bench.configuration.interface.MetadataVisible);
    EXPECT_EQ(bench.window.title, "");
}

TEST(LoadConfiguration, ADocumentThatDoesNotParseGivesFalseAndAClearedStatus) {
    const std::string complete = Document().Text();
    const std::string broken[] = {
        complete.substr(0, complete.size() / 2), std::string("\x00\xff\xfe\x01<Tess\x00arin>", 14),
        "", "<Tessarin><FTPTransmission></Tessarin>", "<Tessarin Version=\"1\" Version=\"2\"/>"};
    for (const std::string& bytes : broken) {
        LoadBench bench;
        bench.window.ShowStatusError("earlier message");
        EXPECT_FALSE(bench.Load(bytes));
        EXPECT_EQ(bench.window.Status().text, "");
        EXPECT_FALSE(bench.window.Status().errorPicture);
        EXPECT_EQ(bench.window.beeps, 1);  // the earlier message's beep only
    }
    LoadBench bench;
    EXPECT_FALSE(LoadConfiguration(bench.folder / "absent.xml", bench.profile, bench.preferences,
                                   bench.configuration, bench.window));
    EXPECT_EQ(bench.window.Status().text, "");
}

TEST(LoadConfiguration, ALoadStartsFromTheStateItOwns) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(
        Document()
            .With(&Document::metadata, R"(<Metadata><Email Visible="false" Mandatory="true"/>)"
                                       R"(<Forms Visible="false" Width="300"/></Metadata>)")
            .With(&Document::taxonomy, R"(<Taxonomy Name="Subjects" Mandatory="true"/>)")
            .With(&Document::interface, R"(<Interface MetadataVisible="false"/>)")));
    EXPECT_EQ(bench.Control("lblTxtEmail").tag, "invisible");
    EXPECT_EQ(bench.Control("treeTaxonomy").tag, "mandatory");
    EXPECT_FALSE(bench.Control("mnuDisplayMetadata").checked);  // the story tab shows

    // With the metadata visible, the tab stays as the user chose it.
    bench.window.Control("mnuDisplayMetadata").checked = true;
    ASSERT_TRUE(bench.Load(Document()));
    EXPECT_EQ(Joined({bench.Control("lblTxtEmail").tag, bench.Control("lblEmail").tag,
                      bench.Control("treeTaxonomy").tag}),
              "||invisible");
    EXPECT_EQ(testing::Shown(bench.window, {"lblTxtEmail", "lstStoryTypes"}), "11");
    EXPECT_EQ(bench.Control("lstStoryTypes").width, -1);
    EXPECT_TRUE(bench.Tree("treeTaxonomy").Empty());
    EXPECT_FALSE(bench.configuration.taxonomyOn);
    EXPECT_TRUE(bench.Control("mnuDisplayMetadata").checked);
}

TEST(LoadConfiguration, IdentityAndMailRecipientComeFromThePreferencesFirst) {
    LoadBench bench;
    bench.WritePreferences(
        "[Identification]\r\nAuthor=Ana Lima\r\nInitials=\r\nSMTPRecipient=me@example.org\r\n");
    ASSERT_TRUE(bench.Load(
        Document()
            .With(&Document::ftpTransmission,
                  Document().ftpTransmission +
                      R"(<SMTPTransmission Visible="true"><SMTPRecipient Name="Desk">)"
                      R"(desk@example.org</SMTPRecipient></SMTPTransmission>)")
            .With(&Document::metadata,
                  R"(<Metadata><Author>Default Author</Author><Email>desk@example.org</Email>)"
                  R"(<Group>Sports</Group><Initials>DA</Initials></Metadata>)")));
    const Identity& identity = bench.configuration.identity;
    // An empty preference counts as absent.
    EXPECT_EQ(Joined({identity.author, identity.email, identity.group, identity.initials}),
              "Ana Lima|desk@example.org|Sports|DA");
    EXPECT_EQ(Joined({bench.Control("lblTxtAuthor").caption, bench.Control("lblTxtGroup").caption,
                      bench.configuration.ftpTransmission.UserEntry(0),
                      bench.configuration.ftpTransmission.UserEntry(1)}),
              "Ana Lima|Sports|Ana Lima|desk");
    // The section's reading puts the preferences' recipient before its own.
    EXPECT_EQ(bench.configuration.smtpTransmission.recipients.at(0).address, "me@example.org");
}

// Every key is looked up in what one reading of the file gave, so that reading the
// preferences grows with the file's size, not with its size times the number of keys.
TEST(LoadConfiguration, ThePreferencesFileIsReadOnceForAllItsKeys) {
    LoadBench bench;
    bench.folder.Write("Tessarin.ini", "[Identification]\r\nAuthor=Ana Lima\r\n");
    // Closes are watched too: the kernel merges identical events that follow each other.
    testing::FileWatch opens(bench.profile.Path(), IN_OPEN | IN_CLOSE);
    bench.preferences = ReadPreferences(bench.profile);
    EXPECT_EQ(opens.Take(IN_OPEN), 1);
    ASSERT_TRUE(bench.Load(Document().With(
        &Document::metadata,
        "<Metadata><Author>A</Author><Email>e</Email><Group>G</Group><Initials>I</Initials>"
        "</Metadata>")));
    EXPECT_EQ(opens.Take(IN_OPEN), 1);
    EXPECT_EQ(bench.configuration.identity.author, "Ana Lima");
}

TEST(LoadConfiguration, ComposesTheWindowTitle) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(Document().With(&Document::messages, "<Messages/>")));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - New story");

    const Document client =
        Document()
            .With(&Document::rootAttributes, R"(Client="Gazette")")
            .With(&Document::messages, "<Messages><NewStory>Nouvel article</NewStory></Messages>");
    ASSERT_TRUE(bench.Load(client));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - Gazette - Nouvel article");
    LoadOptions openStory;
    openStory.storyName = "fire.xml";
    ASSERT_TRUE(bench.Load(client, openStory));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - Gazette - fire.xml");
}

TEST(LoadConfiguration, SingleInstanceRuleEndsASecondInstance) {
    std::vector<std::string> shown;
    LoadOptions options;
    options.anotherInstanceRunning = [] { return true; };
    options.endSecondInstance = [&](const std::string& message) { shown.push_back(message); };
    const Document document =
        Document()
            .With(&Document::interface, R"(<Interface MultipleInstances="false"/>)")
            .With(&Document::messages, "<Messages/>");
    LoadBench refused;
    EXPECT_FALSE(refused.Load(document, options));
    EXPECT_THAT(shown, ElementsAre("Program already running"));
    EXPECT_EQ(refused.window.beeps, 1);
    // The headless default: no other instance is running.
    EXPECT_TRUE(refused.Load(document));

    // Several instances are allowed by default, and without Messages the rule does not run.
    shown.clear();
    LoadBench allowed;
    EXPECT_TRUE(allowed.Load(document.With(&Document::interface, "<Interface/>"), options));
    EXPECT_TRUE(allowed.Load(document.With(&Document::messages, ""), options));
    EXPECT_TRUE(shown.empty());
}

TEST(LoadConfiguration, SynonymsAreLoadedOnlyAtTheEndOfACompleteLoad) {
    int loads = 0;
    LoadOptions options;
    options.loadSynonyms = [&](const Configuration& configuration, WindowState&) {
        EXPECT_EQ(configuration.general.version, "3.2");
        ++loads;
    };
    LoadBench bench;
    ASSERT_TRUE(bench.Load(Document(), options));
    EXPECT_FALSE(bench.Load(Document().With(&Document::publications, ""), options));
    EXPECT_EQ(loads, 1);
}

// The sample newsroom's document, loaded twice: the second load replaces what the first
// read, and the lists, trees and their numbering start anew.
TEST(LoadConfiguration, ReadsTheSampleConfigurationTwiceWithoutDoubling) {
    LoadBench bench;
    bench.WritePreferences("[Preferences]\r\nClassificationColorLocal=255\r\n");
    const std::string sample = testing::ReadBytes(std::filesystem::path(TESSARIN_SOURCE_DIR) /
                                                  "tests/config/fixtures/sample_configuration.xml");
    ASSERT_TRUE(bench.Load(sample));
    ASSERT_TRUE(bench.Load(sample));
    EXPECT_EQ(bench.window.Status().text, "");
    const Configuration& configuration = bench.configuration;
    EXPECT_THAT(testing::ItemTexts(bench.List("lstStoryTypes")),
                ElementsAre("Brief", "News story", "Feature"));
    EXPECT_EQ(testing::Bits({configuration.keywordsOn, configuration.taxonomyOn,
                             configuration.publications.classifiedGeneral,
                             configuration.workflow.Visible}),
              "1111");
    // Servers, wire services, image sizes, statuses and genres; their lists; then the trees.
    const std::size_t counts[] = {configuration.ftpTransmission.servers.size(),
                                  configuration.newsServices.services.size(),
                                  configuration.imageSizes.size(),
                                  configuration.status.entries.size(),
                                  configuration.genre.entries.size(),
                                  bench.List("lstStatus").items.size(),
                                  bench.List("lstGenre").items.size(),
                                  bench.Tree("treeKeywords").Count(),
                                  bench.Tree("treeTaxonomy").Count(),
                                  bench.Tree("treePublications").Count(),
                                  bench.Tree("treeNotes").Count(),
                                  bench.Tree("mnuNewsService").Count()};
    EXPECT_THAT(counts, ElementsAre(2, 2, 4, 3, 3, 3, 3, 3, 8, 12, 1, 2));
    EXPECT_EQ(
        Joined({bench.Tree("treeTaxonomy").Find("T0/2/1")->tag,
                bench.Tree("treePublications").Find("T3")->tag,
                configuration.story.textBoxes[6].label, configuration.messages.Message("AskSave"),
                configuration.exportFormats.NewsML.Provider}),
        "15054000|T54/Centre|Body|Save the story?|Valley Courier");
    EXPECT_EQ(bench.Tree("treePublications").Find("C2")->colour, 255u);
}

}  // namespace
}  // namespace tessarin
