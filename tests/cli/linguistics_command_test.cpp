#include <gtest/gtest.h>

#include <string>

#include "cli/cli_run.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CliRun;
using testing::Quoted;
using testing::RunCli;
using testing::TempDir;

std::string Configuration(const std::string& language) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1" Language=")" +
           language + R"(">
<FTPTransmission><FTPServer IPNumber="ftp.one.example"/></FTPTransmission>
<Metadata><Author Name="By">Ann Lee</Author></Metadata><Story/>
<Publications><Publication Name="Herald"/></Publications>
<Interface><ToolsSynonyms File="syn.txt"/></Interface></Tessarin>
)";
}

// A French story with a misspelling in its title, an unknown word twice in its text and a
// note's anchor that no check may read.
const std::string kStory =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- ete.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n</Metadata>\r\n<Body>\r\n"
    "<TextBox0 Name=\"Title\">Une f\xF4te</TextBox0>\r\n"
    "<TextBox6 Name=\"Text\">L'\xE9t\xE9 aujourd'hui, zorglub<note>zqxnote</note> "
    "porte-avions.<p/>\r\nEncore zorglub</TextBox6>\r\n</Body>\r\n"
    "<Notes>\r\n<Note Name=\"zqxnote\" Bookmark=\"true\">Check</Note>\r\n</Notes>\r\n</Story>\r\n";

class LinguisticsCommand : public ::testing::Test {
  protected:
    CliRun Run(const std::string& language, const std::string& command) {
        const auto config = folder_.Write("desk.xml", Configuration(language));
        const auto story = folder_.Write("ete.xml", kStory);
        return RunCli(
            folder_,
            "--config " + Quoted(config.string()) + " " + command + " " + Quoted(story.string()),
            "LC_ALL=C");
    }

    TempDir folder_;
};

TEST_F(LinguisticsCommand, SpellListsTheUnknownWordsWithTheirBoxAndSuggestions) {
    const CliRun run = Run("fr", "spell");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out,
              "f\xC3\xB4te\t0\tc\xC3\xB4te\t\xC3\xB4te\th\xC3\xB4te\tf\xC3\xAAte\tf \xC3\xB4te\n"
              "zorglub\t6\tzouglou\n"
              "zorglub\t6\tzouglou\n");

    const CliRun missing = Run("xx", "spell");
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_NE(missing.err.find("No spelling dictionary for the language \"xx\""), std::string::npos)
        << missing.err;
}

TEST_F(LinguisticsCommand, StatsListsTheFiguresThenEachWordByFirstLetter) {
    const CliRun run = Run("fr", "stats");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out,
              "Occurrences\t9\nDistinct words\t8\naujourd'hui\t1\navions\t1\nEncore\t1\n"
              "f\xC3\xB4te\t1\nporte\t1\nUne\t1\nzorglub\t2\n\xC3\xA9t\xC3\xA9\t1\n");

    // --unknown reaches the count (which words a dictionary knows is the speller's part).
    const std::string unknown = Run("fr", "stats --unknown").out;
    EXPECT_NE(unknown.find("\nf\xC3\xB4te\t1\tunknown\nporte\t1\n"), std::string::npos) << unknown;
}

TEST_F(LinguisticsCommand, SynonymsPrintsTheListedLinesOrTellsTheFileIsMissing) {
    const auto config = folder_.Write("desk.xml", Configuration("fr"));
    const std::string synonyms = "--config " + Quoted(config.string()) + " synonyms chats";
    const CliRun missing = RunCli(folder_, synonyms);
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_NE(
        missing.err.find("Unknown synonyms dictionnary:\r\n" + (folder_ / "app/syn.txt").string()),
        std::string::npos)
        << missing.err;

    folder_.Write("app/syn.txt", "chat\\N:matou\\N\\minet\\N\n");
    const CliRun run = RunCli(folder_, synonyms);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "matou (n.)\nminet (n.)\n");
}

}  // namespace
}  // namespace tessarin
