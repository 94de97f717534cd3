#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_run.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CliRun;
using testing::Quoted;
using testing::ReadBytes;
using testing::RunCli;
using testing::TempDir;

const std::string kFrozenClock = "TESSARIN_NOW=2026-11-21T08:30:00 TESSARIN_SHORT_DATE=dd/MM/yyyy";

const char* const kConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission><FTPServer IPNumber="ftp.example.org" User="desk"/></FTPTransmission>
<Metadata><Author Name="By">Ann Lee</Author><Initials Name="Initials">AL</Initials></Metadata>
<Story><TextBox1 Name="Title"/><TextBox7 Name="Text"/></Story>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";

// A story as the writer puts it, with these two boxes.
std::string Story(const std::string& title, const std::string& text) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- out.xml -->\r\n"
           "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Author Name=\"By\">Ann Lee</Author>\r\n<Initials Name=\"Initials\">AL</Initials>\r\n"
           "<CreationDate Name=\"Creation date\">21/11/2026</CreationDate><CreationTime>08:30"
           "</CreationTime>\r\n<LastSaveDate Name=\"Last save date\">21/11/2026</LastSaveDate>"
           "<LastSaveTime>08:30</LastSaveTime>\r\n<LastSaveAuthor>Ann Lee</LastSaveAuthor>\r\n"
           "</Metadata>\r\n<Body>\r\n<TextBox0 " +
           title + "</TextBox0>\r\n<TextBox6 " + text +
           "</TextBox6>\r\n</Body>\r\n<Notes>\r\n<Note Name=\"AL 1 : 2\" Bookmark=\"true\">n</Note>"
           "\r\n</Notes>\r\n</Story>\r\n";
}

struct EditFolder {
    TempDir folder;
    std::filesystem::path config = folder.Write("desk.xml", kConfiguration);
    std::filesystem::path story = folder.Write(
        "in.xml", Story("CharCount=\"14\" WordCount=\"3\" Name=\"Title\">Le  chat : \"oui\"",
                        "CharCount=\"16\" WordCount=\"3\" Name=\"Text\">Chat <note>AL 1 : 2</note>"
                        "chats chat!"));
    std::filesystem::path out = folder / "out.xml";

    CliRun Run(const std::string& command, const std::string& options = "") const {
        return RunCli(folder,
                      "--config " + Quoted(config.string()) + " story " + command + " " +
                          Quoted(story.string()) + " " + options + " -o " + Quoted(out.string()),
                      kFrozenClock);
    }
};

TEST(StoryEditCommands, TypographyRunsOverEveryBoxAndLeavesAnchorsAlone) {
    EditFolder stored;
    stored.folder.Write("app/Tessarin.ini", "[Preferences]\r\nFrenchQuotationMarks=1\r\n");
    const CliRun run = stored.Run("typography");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(ReadBytes(stored.out),
              Story("CharCount=\"17\" WordCount=\"3\" Name=\"Title\">Le chat&#160;: "
                    "\xAB&#160;oui&#160;\xBB",
                    "CharCount=\"17\" WordCount=\"3\" Name=\"Text\">Chat <note>AL 1 : 2</note>"
                    "chats chat&#160;!"));
}

// Each option reaches the replacement: without it the count would be 4 (what a match is, and
// that anchors are skipped, are the search and replace tests' part).
TEST(StoryEditCommands, ReplacePrintsTheCountWithItsOptions) {
    for (const auto& [options, count] :
         {std::pair{"chat chien --whole-word", "3\n"}, std::pair{"--match-case chat cat", "3\n"},
          std::pair{"chat cat", "4\n"}, std::pair{"AL X", "0\n"}}) {
        EditFolder stored;
        const CliRun run = stored.Run("replace", options);
        EXPECT_EQ(run.exitStatus, 0) << run.err;
        EXPECT_EQ(run.out, count) << options;
        EXPECT_TRUE(std::filesystem::exists(stored.out)) << options;
    }
}

TEST(StoryEditCommands, BadCommandLinesAreUsageErrors) {
    EditFolder stored;
    for (const std::string& options :
         {std::string("chat"), std::string("a b c"), std::string("'' x")}) {
        const CliRun run = stored.Run("replace", options);
        EXPECT_EQ(run.exitStatus, 2) << options;
        EXPECT_NE(run.err, "");
    }
    EXPECT_EQ(stored.Run("typography", "--unattended").exitStatus, 2);
    EXPECT_FALSE(std::filesystem::exists(stored.out));
}

}  // namespace
}  // namespace tessarin
