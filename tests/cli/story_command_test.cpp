#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "cli/cli_run.h"
#include "support/file_watch.h"
#include "support/finished_process.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CliRun;
using testing::Quoted;
using testing::ReadBytes;
using testing::RunCli;
using testing::TempDir;

// A desk whose stories carry a save stamp, a title and a main text.
const char* const kConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission><FTPServer IPNumber="ftp.example.org"/></FTPTransmission>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">Ann Lee</Author></Metadata>
<Story><TextBox1 Name="Title"/><TextBox7 Name="Text"/></Story>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";

// A story as this configuration writes it, with a picture at photo (every part of a story
// file and its bytes are the story file writer's tests).
std::string Story(const std::string& fileName, const std::string& lastSave,
                  const std::string& lastSaveAuthor, const std::filesystem::path& photo) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- " + fileName +
           " -->\r\n<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Author Name=\"By\">Jos\xE9 Martin</Author>\r\n<CreationDate Name=\"Creation date\">"
           "03/02/2025</CreationDate><CreationTime>09:05</CreationTime>\r\n" +
           lastSave + "\r\n<LastSaveAuthor>" + lastSaveAuthor +
           "</LastSaveAuthor>\r\n</Metadata>\r\n<Body>\r\n"
           "<TextBox0 CharCount=\"8\" WordCount=\"2\" Name=\"Title\">Big <b>news</b></TextBox0>\r\n"
           "<TextBox6 CharCount=\"20\" WordCount=\"4\" Name=\"Text\">Caf\xE9 more<p/>\r\n"
           "<inter1>Second</inter1> line</TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n"
           "<Image href=\"file://" +
           photo.string() + "\"/>\r\n</ImageBag>\r\n</Images>\r\n</Story>\r\n";
}

const std::string kOldSave =
    "<LastSaveDate Name=\"Saved\">04/02/2025</LastSaveDate><LastSaveTime>18:40</LastSaveTime>";
const std::string kNewSave =
    "<LastSaveDate Name=\"Saved\">21/11/2026</LastSaveDate><LastSaveTime>08:30</LastSaveTime>";

// A folder with the configuration, a picture and a stored story.
struct StoryFolder {
    TempDir folder;
    std::filesystem::path config = folder.Write("desk.xml", kConfiguration);
    std::filesystem::path photo = folder.Write("photo.jpg", "jpeg");
    std::filesystem::path story =
        folder.Write("stored.xml", Story("stored.xml", kOldSave, "Jos\xE9 Martin", photo));

    std::string Expected(const std::string& fileName) const {
        return Story(fileName, kNewSave, "Ann Lee", photo);
    }
    CliRun Resave(const std::filesystem::path& out, const std::string& options = "",
                  const std::string& global = "") const {
        return RunCli(folder,
                      "--config " + Quoted(config.string()) + " " + global + " story resave " +
                          Quoted(story.string()) + " -o " + Quoted(out.string()) + " " + options,
                      testing::kFrozenClock);
    }
};

// ---- story text --------------------------------------------------------------------------

TEST(StoryTextCommand, PrintsThePreviewTextOrTheParseMessage) {
    StoryFolder stored;
    const CliRun run = RunCli(stored.folder, "story text " + Quoted(stored.story.string()));
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out, "Big news\r\nCaf\xC3\xA9 more\r\nSecond line\r\n");
    EXPECT_EQ(run.err, "");

    const auto broken = stored.folder.Write("broken.xml", "<Story><Body>\n<TextBox6>x</Body>");
    const CliRun refused = RunCli(stored.folder, "story text " + Quoted(broken.string()));
    EXPECT_EQ(refused.exitStatus, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_TRUE(refused.err.starts_with("Parsing error: " + broken.string() + ", line:2, pos:"))
        << refused.err;
}

TEST(StoryCommand, AWrongCommandLineIsAUsageErrorAndWritesNothing) {
    StoryFolder stored;
    const std::string story = " " + Quoted(stored.story.string()) + " ";
    const std::string out = " -o " + Quoted((stored.folder / "out.xml").string());
    for (const std::string& arguments : std::vector<std::string>{
             "story", "story text", "story text a b", "story print a", "story resave a.xml",
             "story resave -o out.xml", "story resave a.xml -o",
             "story resave a.xml b.xml -o c.xml", "story resave a.xml -o c.xml --quiet",
             "story replace" + story + "chat" + out, "story replace" + story + "a b c" + out,
             "story replace" + story + "'' x" + out,
             "story typography" + story + "--unattended" + out}) {
        const CliRun run = RunCli(stored.folder, arguments);
        EXPECT_EQ(run.exitStatus, 2) << arguments;
        EXPECT_NE(run.err, "") << arguments;
    }
    EXPECT_FALSE(std::filesystem::exists(stored.folder / "out.xml"));
}

// ---- story resave ------------------------------------------------------------------------

TEST(StoryResaveCommand, WritesTheStoryBackWithTheNewSaveStampAndName) {
    StoryFolder stored;
    const auto out = stored.folder / "copy.xml";
    const CliRun run = stored.Resave(out);
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "08:30 - Saved story: " + out.string() + "\n");
    EXPECT_EQ(ReadBytes(out), stored.Expected("copy.xml"));
    // The story can be saved over itself.
    EXPECT_EQ(stored.Resave(stored.story).exitStatus, 0);
    EXPECT_EQ(ReadBytes(stored.story), stored.Expected("stored.xml"));
}

// A story that does not parse is rescued as text only when the answer is yes.
TEST(StoryResaveCommand, ADamagedStoryIsRescuedOnlyWhenTheAnswerIsYes) {
    StoryFolder stored;
    const auto broken = stored.folder.Write(
        "stored.xml",
        "<Story AppName=\"Tessarin\"><Body>\r\n<TextBox6 CharCount=\"7\">Res<b>cued"
        "</b></TextBox6>\r\n</Body>");
    const auto out = stored.folder / "o.xml";
    const CliRun declined = stored.Resave(out, "", "--answer no");
    EXPECT_EQ(declined.exitStatus, 1);
    EXPECT_TRUE(declined.err.starts_with("Parsing error: \n" + broken.string() + "\nline: "))
        << declined.err;
    EXPECT_TRUE(declined.err.ends_with("\nWould you try to read story as text only ?\n"));
    EXPECT_FALSE(std::filesystem::exists(out));

    EXPECT_EQ(stored.Resave(out, "--unattended").exitStatus, 0);
    EXPECT_NE(ReadBytes(out).find("<TextBox6 CharCount=\"7\" WordCount=\"1\" Name=\"Text\">"
                                  "Res<b>cued</b></TextBox6>\r\n</Body>"),
              std::string::npos)
        << ReadBytes(out);
}

TEST(StoryResaveCommand, ImportsADocument) {
    StoryFolder stored;
    stored.story = stored.folder.Write("call.rtf", R"({\rtf1 First {\b bold} words\par})");
    const CliRun run = stored.Resave(stored.folder / "call.xml", "--unattended");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_NE(ReadBytes(stored.folder / "call.xml").find(">First <b>bold</b> words</TextBox6>"),
              std::string::npos);
}

// ---- story typography and replace ------------------------------------------------------

// A desk with initials, for the commands that edit a story.
const char* const kEditConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission><FTPServer IPNumber="ftp.example.org" User="desk"/></FTPTransmission>
<Metadata><Author Name="By">Ann Lee</Author><Initials Name="Initials">AL</Initials></Metadata>
<Story><TextBox1 Name="Title"/><TextBox7 Name="Text"/></Story>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";

// A story as the writer puts it, with these two boxes.
std::string EditedStory(const std::string& title, const std::string& text) {
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
    std::filesystem::path config = folder.Write("desk.xml", kEditConfiguration);
    std::filesystem::path story = folder.Write(
        "in.xml",
        EditedStory("CharCount=\"14\" WordCount=\"3\" Name=\"Title\">Le  chat : \"oui\"",
                    "CharCount=\"16\" WordCount=\"3\" Name=\"Text\">Chat <note>AL 1 : 2</note>"
                    "chats chat!"));
    std::filesystem::path out = folder / "out.xml";

    CliRun Run(const std::string& command, const std::string& options = "") const {
        return RunCli(folder,
                      "--config " + Quoted(config.string()) + " story " + command + " " +
                          Quoted(story.string()) + " " + options + " -o " + Quoted(out.string()),
                      testing::kFrozenClock);
    }
};

TEST(StoryEditCommands, TypographyRunsOverEveryBoxAndLeavesAnchorsAlone) {
    EditFolder stored;
    stored.folder.Write("app/Tessarin.ini", "[Preferences]\r\nFrenchQuotationMarks=1\r\n");
    const CliRun run = stored.Run("typography");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(
        ReadBytes(stored.out),
        EditedStory("CharCount=\"17\" WordCount=\"3\" Name=\"Title\">Le chat&#160;: "
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

// ---- story resave killed ----------------------------------------------------------------

// The stored story with a long main text: 170 kilobytes, twenty times a usual story.
std::string LongStory(std::string story) {
    std::string paragraphs;
    for (int line = 0; line < 2500; ++line) {
        paragraphs += "Line " + std::to_string(line) +
                      " of a long story, with <b>bold</b> and <i>italic</i> words.<p/>\r\n";
    }
    story.insert(story.find("more<p/>\r\n") + 10, paragraphs);
    return story;
}

// tessarin-cli saving the folder's story over itself, as a process of its own whose output
// goes nowhere; its id.
pid_t StartResave(const StoryFolder& stored) {
    const std::string app = (stored.folder / "app").string();
    const std::string config = stored.config.string(), story = stored.story.string();
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv("TESSARIN_NOW", "2026-11-21T08:30:00", 1);
        ::setenv("TESSARIN_SHORT_DATE", "dd/MM/yyyy", 1);
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        ::execl(TESSARIN_CLI_PATH, "tessarin-cli", "--app-dir", app.c_str(), "--config",
                config.c_str(), "story", "resave", story.c_str(), "-o", story.c_str(), nullptr);
        ::_exit(127);
    }
    return child;
}

int WaitFor(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

std::set<std::string> NamesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

// Each save is killed at a random moment of the time that a whole save spends from its first
// change in the folder to its end, where files are written and renamed.
TEST(StoryResaveCommand, AKilledSaveLeavesTheCompleteOldOrNewStoryUnderItsName) {
    using Clock = std::chrono::steady_clock;
    using std::chrono::microseconds;
    StoryFolder stored;
    const std::string old = LongStory(ReadBytes(stored.story));
    const auto backup = stored.folder / "stored.bml";
    // When a save starts touching the files: a name made, renamed or removed.
    testing::FileWatch watch(stored.folder.path(), IN_CREATE | IN_MOVED_FROM | IN_DELETE);
    std::mt19937 random(20261121);
    for (const bool keepBackup : {false, true}) {
        SCOPED_TRACE(keepBackup ? "with the backup" : "without the backup");
        stored.folder.Write("app/Tessarin.ini",
                            keepBackup ? "[Preferences]\r\nBackupStories=1\r\n" : "");
        // Whole saves give the new version, and the shortest time of their file work.
        auto fileWork = microseconds::max();
        for (int run = 0; run < 3; ++run) {
            stored.folder.Write("stored.xml", old);
            watch.Take(0);
            const pid_t child = StartResave(stored);
            ASSERT_TRUE(watch.WaitWhileRunning(child));
            const auto firstChange = Clock::now();
            ASSERT_EQ(WaitFor(child), 0);
            fileWork = std::min(
                fileWork, std::chrono::duration_cast<microseconds>(Clock::now() - firstChange));
        }
        const std::string saved = ReadBytes(stored.story);
        ASSERT_NE(saved, old);

        std::uniform_int_distribution<long> delay(0, fileWork.count());
        // Kills go on until 30 have landed inside a save, so that a busy machine, where more
        // saves end before their kill, still puts the invariant to the test as often.
        int killed = 0;
        for (int run = 0; run < 300 && killed < 30; ++run) {
            stored.folder.Write("stored.xml", old);
            std::filesystem::remove(backup);
            watch.Take(0);
            const pid_t child = StartResave(stored);
            if (watch.WaitWhileRunning(child)) {
                std::this_thread::sleep_for(microseconds(delay(random)));
            }
            ::kill(child, SIGKILL);
            killed += WIFSIGNALED(WaitFor(child)) ? 1 : 0;
            const std::string story = ReadBytes(stored.story);
            ASSERT_TRUE(story == old || story == saved)
                << "run " << run << ": " << story.size() << " bytes under the story's name";
            if (std::filesystem::exists(backup)) {
                ASSERT_EQ(ReadBytes(backup), old) << run;
            }
        }
        EXPECT_EQ(killed, 30);

        // The next save removes the temporary files that the killed ones left.
        ASSERT_EQ(WaitFor(StartResave(stored)), 0);
        std::set<std::string> expected = {"app", "desk.xml", "photo.jpg", "stored.xml"};
        if (keepBackup) expected.insert("stored.bml");
        EXPECT_EQ(NamesIn(stored.folder.path()), expected);
    }
}

TEST(StoryResaveCommand, TheStartRemovesTemporaryFilesLeftInTheProgramsFolders) {
    StoryFolder stored;
    const int ended = testing::FinishedProcessId();
    const auto stalePreferences =
        stored.folder.Write("app/" + testing::TemporaryNameOf("Tessarin.ini", ended), "half");
    const auto staleUpload =
        stored.folder.Write("app/Upload/" + testing::TemporaryNameOf("a.xml", ended, 4), "half");
    const auto running = stored.folder.Write(
        "app/Upload/" + testing::TemporaryNameOf("b.xml", static_cast<int>(::getpid())), "busy");
    EXPECT_EQ(RunCli(stored.folder, "story text " + Quoted(stored.story.string())).exitStatus, 0);
    EXPECT_FALSE(std::filesystem::exists(stalePreferences));
    EXPECT_FALSE(std::filesystem::exists(staleUpload));
    EXPECT_TRUE(std::filesystem::exists(running));
}

}  // namespace
}  // namespace tessarin
