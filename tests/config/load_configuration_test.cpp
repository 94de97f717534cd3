#include "config/load_configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>

#include "config/configuration_document.h"
#include "support/file_watch.h"

namespace tessarin {
namespace {

using testing::ConfigurationDocument;
using ::testing::ElementsAre;
using testing::LoadBench;

std::string Path(const LoadBench& bench) {
    return bench.document.string();
}

TEST(LoadConfiguration, ReadsTheGeneralAttributes) {
    LoadBench bench;
    ConfigurationDocument document;
    document.rootAttributes =
        R"(Version="4.0.1" StoriesEncoding="UTF-8" Description="Desk of the north" )"
        R"(Language="fr" Client="Gazette du Nord" Unknown="ignored")";
    ASSERT_TRUE(bench.Load(document));
    const GeneralSettings& general = bench.configuration.general;
    EXPECT_EQ(general.version, "4.0.1");
    EXPECT_EQ(general.storiesEncoding, "UTF-8");
    EXPECT_EQ(general.description, "Desk of the north");
    EXPECT_EQ(general.language, "fr");
    EXPECT_EQ(general.client, "Gazette du Nord");
    EXPECT_TRUE(bench.window.Status().text.empty());
    EXPECT_EQ(bench.window.beeps, 0);
}

TEST(LoadConfiguration, GeneralAttributesFallBackOnTheirDefaults) {
    LoadBench bench;
    ConfigurationDocument document;
    document.rootAttributes = R"(StoriesEncoding="utf-8")";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_EQ(bench.configuration.general.version, "???");
    EXPECT_EQ(bench.configuration.general.storiesEncoding, "ISO-8859-1");
    EXPECT_EQ(bench.configuration.general.client, "");

    document.rootAttributes = R"(Version="" StoriesEncoding="UTF-16")";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_EQ(bench.configuration.general.version, "???");
    EXPECT_EQ(bench.configuration.general.storiesEncoding, "ISO-8859-1");
}

TEST(LoadConfiguration, MissingRequiredSectionsAreReportedWithTheirExactText) {
    struct Case {
        std::string ConfigurationDocument::*section;
        std::string replacement;
        std::string missing;
    };
    const std::vector<Case> cases = {
        {&ConfigurationDocument::ftpTransmission, "", "- missing section 'FTPTransmission'"},
        {&ConfigurationDocument::metadata, "", " - missing section 'Metadata'"},
        {&ConfigurationDocument::story, "", " - missing section 'Story'"},
        {&ConfigurationDocument::publications, "", " - missing section 'Publications'"},
        {&ConfigurationDocument::publications, "<Publications><Other/></Publications>",
         " - missing tag 'Publication'"},
    };
    for (const Case& test : cases) {
        LoadBench bench;
        ConfigurationDocument document;
        document.*test.section = test.replacement;
        EXPECT_FALSE(bench.Load(document)) << test.missing;
        EXPECT_EQ(bench.window.Status().text, "Error: " + Path(bench) + test.missing);
        EXPECT_TRUE(bench.window.Status().errorPicture);
        EXPECT_EQ(bench.window.beeps, 1) << test.missing;
    }
}

TEST(LoadConfiguration, WhatWasReadBeforeAFailureStaysInForce) {
    LoadBench bench;
    ConfigurationDocument document;
    document.metadata =
        R"(<Metadata><Author Name="Byline"/><Forms><Form Name="Brief" TextBoxes="17"/></Forms>)"
        R"(</Metadata>)";
    document.story = "";
    document.interface = R"(<Interface MetadataVisible="false"/>)";
    EXPECT_FALSE(bench.Load(document));
    EXPECT_EQ(bench.Control("lblAuthor").caption, "Byline");
    ASSERT_EQ(bench.configuration.forms.size(), 1u);
    // Nothing after the failure was read: the publications tree stays empty, Interface is
    // untouched and no title is set.
    EXPECT_TRUE(bench.Tree("treePublications").Empty());
    EXPECT_TRUE(bench.configuration.interface.MetadataVisible);
    EXPECT_EQ(bench.window.title, "");
}

TEST(LoadConfiguration, MissingFtpServerIsReportedAndTheLoadGoesOn) {
    LoadBench bench;
    ConfigurationDocument document;
    document.ftpTransmission = R"(<FTPTransmission Visible="false"/>)";
    document.metadata = R"(<Metadata><Group Name="Desk"/></Metadata>)";
    EXPECT_TRUE(bench.Load(document));
    EXPECT_EQ(bench.window.Status().text, "Error: " + Path(bench) + " - missing tag 'FTPServer'");
    EXPECT_TRUE(bench.window.Status().errorPicture);
    EXPECT_EQ(bench.window.beeps, 1);
    EXPECT_FALSE(bench.Control("SendFTP").visible);
    EXPECT_EQ(bench.Control("lblGroup").caption, "Desk");
    EXPECT_EQ(bench.Tree("treePublications").Count(), 1u);
}

TEST(LoadConfiguration, ADocumentThatDoesNotParseGivesFalseAndAClearedStatus) {
    const std::string complete = ConfigurationDocument{}.Text();
    const std::vector<std::string> broken = {
        complete.substr(0, complete.size() / 2),
        std::string("\x00\xff\xfe\x01<Tess\x00arin>", 14),
        "",
        "<Tessarin><FTPTransmission></Tessarin>",
        "<Tessarin Version=\"1\" Version=\"2\"/>",
    };
    for (const std::string& bytes : broken) {
        LoadBench bench;
        bench.window.ShowStatusError("earlier message");
        EXPECT_FALSE(bench.Load(bytes));
        EXPECT_EQ(bench.window.Status().text, "");
        EXPECT_FALSE(bench.window.Status().errorPicture);
        EXPECT_EQ(bench.window.beeps, 1);  // the earlier message's beep only
    }
}

TEST(LoadConfiguration, AMissingDocumentIsAParseFailure) {
    LoadBench bench;
    EXPECT_FALSE(LoadConfiguration(bench.folder / "absent.xml", bench.profile, bench.preferences,
                                   bench.configuration, bench.window));
    EXPECT_EQ(bench.window.Status().text, "");
}

TEST(LoadConfiguration, ASecondLoadDoublesNothing) {
    LoadBench bench;
    ConfigurationDocument document;
    document.ftpTransmission =
        R"(<FTPTransmission><FTPServer IPNumber="a"/><FTPServer IPNumber="b"/></FTPTransmission>)";
    document.metadata = R"(<Metadata>
        <Forms><Form Name="Brief" MaxImages="2" ImageSize1="300" ImageSize2="600"/>
               <Form Name="Feature"/></Forms>
        <Status><StatusItem Name="Draft" FormalName="Draft"/>
                <StatusItem Name="Ready" FormalName="Usable"/></Status>
        <Genre><GenreItem Name="News" FormalName="Current"/></Genre></Metadata>)";
    document.keywords =
        R"(<Keywords Name="Keywords"><KeywordsCategory CategoryIndex="1" Name="People"/></Keywords>)";
    document.taxonomy =
        R"(<Taxonomy Name="Subjects"><Topic FormalName="01">Arts</Topic></Taxonomy>)";
    document.newsServices =
        R"(<NewsServices><NewsService Name="Wire" Repository="/srv/wire"/></NewsServices>)";
    document.publications = R"(<Publications><Publication Name="Herald">
        <Classification Name="News" Type="General"><Section Name="City">
        <SubSection Name="Courts" Code1="12"/></Section></Classification></Publication>
        </Publications>)";

    ASSERT_TRUE(bench.Load(document));
    ASSERT_TRUE(bench.Load(document));
    const Configuration& configuration = bench.configuration;
    EXPECT_EQ(configuration.ftpTransmission.servers.size(), 2u);
    EXPECT_EQ(configuration.forms.size(), 2u);
    EXPECT_EQ(configuration.imageSizes.size(), 2u);
    EXPECT_EQ(configuration.status.entries.size(), 2u);
    EXPECT_EQ(configuration.genre.entries.size(), 1u);
    EXPECT_EQ(bench.List("lstStoryTypes").items.size(), 2u);
    EXPECT_EQ(bench.List("lstStatus").items.size(), 2u);
    EXPECT_EQ(bench.List("lstGenre").items.size(), 1u);
    EXPECT_EQ(bench.Tree("treeKeywords").Count(), 2u);
    EXPECT_EQ(bench.Tree("treeTaxonomy").Count(), 2u);
    EXPECT_EQ(bench.Tree("treePublications").Count(), 4u);
    EXPECT_EQ(bench.Tree("treeNotes").Count(), 1u);
    EXPECT_EQ(bench.Tree("mnuNewsService").Count(), 1u);
    EXPECT_EQ(bench.Tree("treePublications").Find("T1")->tag, "T12");
    EXPECT_EQ(bench.Control("treeTaxonomy").tag, "");
}

TEST(LoadConfiguration, ALoadStartsFromTheStateItOwns) {
    LoadBench bench;
    ConfigurationDocument first;
    first.metadata = R"(<Metadata><Email Visible="false" Mandatory="true"/>
        <Forms Visible="false" Width="300"/></Metadata>)";
    first.taxonomy = R"(<Taxonomy Name="Subjects" Mandatory="true"/>)";
    ASSERT_TRUE(bench.Load(first));
    EXPECT_EQ(bench.Control("lblTxtEmail").tag, "invisible");
    EXPECT_EQ(bench.Control("treeTaxonomy").tag, "mandatory");

    ASSERT_TRUE(bench.Load(ConfigurationDocument{}));
    EXPECT_EQ(bench.Control("lblTxtEmail").tag, "");
    EXPECT_TRUE(bench.Control("lblTxtEmail").visible);
    EXPECT_EQ(bench.Control("lblEmail").tag, "");
    EXPECT_TRUE(bench.Control("lstStoryTypes").visible);
    EXPECT_EQ(bench.Control("lstStoryTypes").width, -1);
    EXPECT_EQ(bench.Control("treeTaxonomy").tag, "invisible");
    EXPECT_TRUE(bench.Tree("treeTaxonomy").Empty());
    EXPECT_FALSE(bench.configuration.taxonomyOn);
}

TEST(LoadConfiguration, IdentityComesFromThePreferencesFirst) {
    LoadBench bench;
    bench.WritePreferences("[Identification]\r\nAuthor=Ana Lima\r\nInitials=\r\n");
    ConfigurationDocument document;
    document.metadata = R"(<Metadata><Author>Default Author</Author><Email>desk@example.org</Email>
        <Group>Sports</Group><Initials>DA</Initials></Metadata>)";
    ASSERT_TRUE(bench.Load(document));
    const Identity& identity = bench.configuration.identity;
    EXPECT_EQ(identity.author, "Ana Lima");
    EXPECT_EQ(identity.email, "desk@example.org");
    EXPECT_EQ(identity.group, "Sports");
    EXPECT_EQ(identity.initials, "DA");  // an empty preference counts as absent
    EXPECT_EQ(bench.Control("lblTxtAuthor").caption, "Ana Lima");
    EXPECT_EQ(bench.Control("lblTxtGroup").caption, "Sports");
    EXPECT_EQ(bench.configuration.ftpTransmission.UserEntry(0), "Ana Lima");
    EXPECT_EQ(bench.configuration.ftpTransmission.UserEntry(1), "desk");
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
    ConfigurationDocument document;
    document.metadata = R"(<Metadata><Author>A</Author><Email>e</Email><Group>G</Group>
        <Initials>I</Initials></Metadata>)";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_EQ(opens.Take(IN_OPEN), 1);
    EXPECT_EQ(bench.configuration.identity.author, "Ana Lima");
}

TEST(LoadConfiguration, PreferencesRecipientComesFirstInTheMailList) {
    LoadBench bench;
    bench.WritePreferences("[Identification]\nSMTPRecipient=me@example.org\n");
    ConfigurationDocument document;
    document.ftpTransmission += R"(<SMTPTransmission Visible="true">)"
                                R"(<SMTPRecipient Name="Desk">desk@example.org</SMTPRecipient>)"
                                R"(</SMTPTransmission>)";
    ASSERT_TRUE(bench.Load(document));
    const auto& recipients = bench.configuration.smtpTransmission.recipients;
    ASSERT_EQ(recipients.size(), 2u);
    EXPECT_EQ(recipients[0].address, "me@example.org");
    EXPECT_EQ(recipients[1].address, "desk@example.org");
    EXPECT_TRUE(bench.Control("SendMail").visible);
}

TEST(LoadConfiguration, ComposesTheWindowTitle) {
    EXPECT_EQ(WindowTitle("1.2.3", "", "New story"), "Tessarin 1.2.3 - New story");
    EXPECT_EQ(WindowTitle("1.2.3", "Gazette", "match.xml"), "Tessarin 1.2.3 - Gazette - match.xml");

    LoadBench bench;
    ConfigurationDocument document;
    document.messages = "<Messages/>";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - New story");

    document.rootAttributes = R"(Client="Gazette")";
    document.messages = "<Messages><NewStory>Nouvel article</NewStory></Messages>";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - Gazette - Nouvel article");

    LoadOptions openStory;
    openStory.storyName = "fire.xml";
    ASSERT_TRUE(bench.Load(document, openStory));
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - Gazette - fire.xml");
}

TEST(LoadConfiguration, MetadataVisibleFalseShowsTheStoryTab) {
    LoadBench bench;
    bench.window.Control("mnuDisplayMetadata").checked = true;
    ConfigurationDocument document;
    document.interface = R"(<Interface MetadataVisible="true"/>)";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_TRUE(bench.Control("mnuDisplayMetadata").checked);
    document.interface = R"(<Interface MetadataVisible="false"/>)";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_FALSE(bench.Control("mnuDisplayMetadata").checked);
}

TEST(LoadConfiguration, SingleInstanceRuleEndsASecondInstance) {
    std::vector<std::string> shown;
    LoadOptions options;
    options.anotherInstanceRunning = [] { return true; };
    options.endSecondInstance = [&](const std::string& message) { shown.push_back(message); };

    ConfigurationDocument document;
    document.interface = R"(<Interface MultipleInstances="false"/>)";
    document.messages = "<Messages/>";
    LoadBench refused;
    EXPECT_FALSE(refused.Load(document, options));
    EXPECT_THAT(shown, ElementsAre("Program already running"));
    EXPECT_EQ(refused.window.beeps, 1);

    // Several instances are allowed by default, and without Messages the rule does not run.
    shown.clear();
    LoadBench allowed;
    document.interface = "<Interface/>";
    EXPECT_TRUE(allowed.Load(document, options));
    document.interface = R"(<Interface MultipleInstances="false"/>)";
    document.messages = "";
    EXPECT_TRUE(allowed.Load(document, options));
    EXPECT_TRUE(shown.empty());

    // The headless default: no other instance is running.
    LoadBench headless;
    document.messages = "<Messages/>";
    EXPECT_TRUE(headless.Load(document));
}

TEST(LoadConfiguration, SynonymsAreLoadedOnlyAtTheEndOfACompleteLoad) {
    int loads = 0;
    LoadOptions options;
    options.loadSynonyms = [&](const Configuration& configuration, WindowState&) {
        EXPECT_EQ(configuration.general.version, "3.2");
        ++loads;
    };
    LoadBench bench;
    ASSERT_TRUE(bench.Load(ConfigurationDocument{}, options));
    EXPECT_EQ(loads, 1);
    ConfigurationDocument broken;
    broken.publications = "";
    EXPECT_FALSE(bench.Load(broken, options));
    EXPECT_EQ(loads, 1);
}

TEST(LoadConfiguration, ReadsTheSampleConfiguration) {
    LoadBench bench;
    const std::filesystem::path sample =
        std::filesystem::path(__FILE__).parent_path() / "fixtures" / "sample_configuration.xml";
    bench.WritePreferences("[Preferences]\r\nClassificationColorLocal=255\r\n");
    ASSERT_TRUE(bench.Load(testing::ReadBytes(sample)));
    EXPECT_EQ(bench.window.Status().text, "");
    const Configuration& configuration = bench.configuration;
    EXPECT_EQ(configuration.general.client, "Valley Courier");
    EXPECT_EQ(bench.window.title, "Tessarin " TESSARIN_VERSION " - Valley Courier - New story");
    EXPECT_THAT(testing::ItemTexts(bench.List("lstStoryTypes")),
                ElementsAre("Brief", "News story", "Feature"));
    EXPECT_EQ(bench.List("lstStatus").selected, 1);
    EXPECT_EQ(bench.List("lstGenre").selected, 0);
    EXPECT_TRUE(configuration.keywordsOn);
    EXPECT_TRUE(configuration.taxonomyOn);
    EXPECT_EQ(bench.Tree("treeTaxonomy").Find("T0/2/1")->tag, "15054000");
    EXPECT_EQ(bench.Tree("treePublications").Find("T3")->tag, "T54/Centre");
    EXPECT_EQ(bench.Tree("treePublications").Find("C2")->colour, 255u);
    EXPECT_TRUE(configuration.publications.classifiedGeneral);
    EXPECT_EQ(configuration.story.textBoxes[6].label, "Body");
    EXPECT_EQ(configuration.newsServices.services.size(), 2u);
    EXPECT_EQ(configuration.messages.Message("AskSave"), "Save the story?");
    EXPECT_TRUE(configuration.workflow.Visible);
}

}  // namespace
}  // namespace tessarin
