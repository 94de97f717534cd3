#include "repository/repository_store.h"

#include <gtest/gtest.h>

#include "support/local_basex.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::LocalBaseXServer;

std::string Story(std::string_view author, std::string_view text,
                  std::string_view encoding = "UTF-8") {
    std::string story = "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?>\r\n";
    story += "<Story><Metadata>";
    if (!author.empty()) story += "<Author>" + std::string(author) + "</Author>";
    return story + "</Metadata><Body><TextBox0>" + std::string(text) +
           "</TextBox0></Body></Story>\r\n";
}

// Each test stores into bases of its own, made on the shared server.
class RepositoryStoreTest : public ::testing::Test {
  protected:
    void SetUp() override {
        LocalBaseXServer& server = LocalBaseXServer::Shared();
        ASSERT_TRUE(server.running());
        const std::string suffix = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        settings.ServerName = server.address();
        settings.TrackingDocBaseName = "Tracking" + suffix;
        settings.ExportDocBaseName = "Export" + suffix;
        ASSERT_TRUE(
            server.CreateDatabases({settings.TrackingDocBaseName, settings.ExportDocBaseName}));
        messages.Set("SavedStoryTextML", "Saved on TextML");
    }

    // Every document of the base: its path, "=", its TextBox0, one a line, in store order.
    std::string Documents(const std::string& base) const {
        return LocalBaseXServer::Shared().ClientQuery(
            "string-join(for $d in db:open('" + base +
            "') return db:path($d) || '=' || $d//TextBox0, '&#10;')");
    }

    RepositoryResult Track(const std::string& name, const std::string& bytes) {
        folder.Write(name, bytes);
        return StoreTrackingDocument(name, folder.path(), context);
    }

    TextMLSettings settings;
    MessageTexts messages;
    ScriptedInteraction user;
    WindowState window;
    RepositoryContext context{settings, messages, user, window};
    testing::TempDir folder;
};

TEST_F(RepositoryStoreTest, TrackingKeepsVersionsInTheAuthorsCollection) {
    for (const char* text : {"first", "second"})
        EXPECT_EQ(Track("brief.xml", Story("Ana Lopes", text)).outcome, RepositoryOutcome::Stored);
    EXPECT_EQ(Track("other.xml", Story("Ana Lopes", "other")).outcome, RepositoryOutcome::Stored);
    EXPECT_EQ(Documents(settings.TrackingDocBaseName),
              "Ana Lopes/brief.xml=first\nAna Lopes/brief.xml=second\nAna Lopes/other.xml=other");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(window.secondStatus, "Saved on TextML");
}

TEST_F(RepositoryStoreTest, ExportGoesToTheCollectionOfItsLevels) {
    const std::pair<ExportCollectionLevels, std::string> cases[] = {
        {{"Daily", "News", "Sport", "Football"}, "Daily/News/Sport/Football/a.xml"},
        {{"Daily", "", "", "Local"}, "Daily/Local/b.xml"},
        {{"", "News", "Sport", ""}, "c.xml"},  // no publication: the root collection
    };
    std::string expected;
    for (const auto& [levels, path] : cases) {
        const std::string name = path.substr(path.rfind('/') + 1);
        folder.Write(name, Story("", name));
        EXPECT_EQ(StoreExportDocument(folder.path(), name, levels, context).outcome,
                  RepositoryOutcome::Stored);
        expected += (expected.empty() ? "" : "\n") + path + "=" + name;
    }
    EXPECT_EQ(Documents(settings.ExportDocBaseName), expected);

    settings.ExportKeepVersions = false;  // the earlier documents of the path go first
    folder.Write("a.xml", Story("", "again"));
    EXPECT_EQ(StoreExportDocument(folder.path(), "a.xml", cases[0].first, context).outcome,
              RepositoryOutcome::Stored);
    EXPECT_EQ(Documents(settings.ExportDocBaseName),
              "Daily/Local/b.xml=b.xml\nc.xml=c.xml\nDaily/News/Sport/Football/a.xml=again");
}

TEST_F(RepositoryStoreTest, StoresTheCharactersOfEveryEncodingAStoryUses) {
    const std::pair<std::string, std::string> cases[] = {
        // 0xFF travels escaped on the wire
        {Story("A", "caf\xE9 \xFF", "ISO-8859-1"), "caf\xC3\xA9 \xC3\xBF"},
        // a stray Windows-1252 byte in a story declared UTF-8, as stories hold them
        {Story("A", "caf\xE9 \xC3\xA9"), "caf\xC3\xA9 \xC3\xA9"},
        {Story("A", " two  spaces "), " two  spaces "},  // white space is kept
    };
    settings.TrackingKeepVersions = false;
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(Track("s.xml", bytes).outcome, RepositoryOutcome::Stored)
            << ::testing::PrintToString(user.messages);
        EXPECT_EQ(Documents(settings.TrackingDocBaseName), "A/s.xml=" + text);
    }
}

TEST_F(RepositoryStoreTest, TellsWhatIsMissingAndStoresNothing) {
    const std::string down = "127.0.0.1:" + std::to_string(testing::FreePort());
    const std::string up = settings.ServerName;
    const std::string base = settings.TrackingDocBaseName;
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {down, "admin", base, "TextML Server not defined or not running:\n" + down},
        {up, "wrong", base,
         "TextML Server not defined or not running:\n" + up + "\nAccess denied."},
        {up, "admin", "NoSuchBase", "TextML document base not defined:\nNoSuchBase"},
    };
    for (const auto& [server, password, docBase, box] : cases) {
        settings.ServerName = server;
        settings.Password = password;
        settings.TrackingDocBaseName = docBase;
        user.messages.clear();
        EXPECT_NE(Track("s.xml", Story("A", "x")).outcome, RepositoryOutcome::Stored);
        EXPECT_EQ(user.messages, std::vector<std::string>{box});
    }
    EXPECT_EQ(Documents(base), "");
    EXPECT_EQ(window.secondStatus, "");

    // Before any connection: a story without author is passed over without a word, one that
    // does not parse is told.
    user.messages.clear();
    EXPECT_EQ(Track("s.xml", Story("", "x")).outcome, RepositoryOutcome::NoAuthor);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(Track("bad.xml", "<Story>\n<Metadata></Story>").outcome,
              RepositoryOutcome::Unreadable);
    EXPECT_EQ(user.beeps, 1);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_TRUE(user.messages[0].starts_with("Parsing error: \n" + (folder / "bad.xml").string() +
                                             "\nline: 2, pos: "))
        << user.messages[0];
}

}  // namespace
}  // namespace tessarin
