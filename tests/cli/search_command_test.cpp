#include <gtest/gtest.h>

#include <string>

#include "cli/cli_run.h"
#include "search/search_tree.h"

namespace tessarin {
namespace {

using namespace testing;

TEST(SearchCommand, PrintsListedRowsThenCountsWithPreferencesAsDefaults) {
    TempDir folder;
    folder.Write("desk/a.xml", MakeStoryFile("Le Soir", "Victoire à Lyon"));
    folder.Write("desk/sub/b.bml", MakeStoryFile("Le Soir", "victoire"));
    folder.Write("desk/c.xml", MakeStoryFile("Le Matin", "défaite"));
    const std::string desk = (folder / "desk").string();
    const std::string row = "\t01/02/2025 08:15\t20/02/2025 09:30\tJean Dupont\t";

    CliRun run = RunCli(folder, "search --in " + Quoted(desk) + " --text VICTOIRE --scope text");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "a.xml\t" + desk + row + "16\tLe Soir\t\t\t\t\t\t0\n2/1\n");

    // The preferences give the folder, the backups and the case; the command line wins.
    folder.Write("app/Tessarin.ini",
                 "[Configuration]\r\nSearchStoriesInto=" + desk +
                     "\r\nIncludeBackupStories=1\r\nMatchCase=1\r\nSearchOperator=2\r\n");
    run = RunCli(folder, "search --text 'victoire Matin'");
    EXPECT_EQ(run.out, "c.xml\t" + desk + row + "8\tLe Matin\t\t\t\t\t\t0\n" + "b.bml\t" + desk +
                           "/sub" + row + "8\tLe Soir\t\t\t\t\t\t0\n2/2\n");
    EXPECT_EQ(RunCli(folder, "search --text victoire --scope metadata").out, "0/0\n");
    // A second run answers from the cache the first one left, with the same rows.
    EXPECT_EQ(RunCli(folder, "search --text 'victoire Matin'").out, run.out);

    EXPECT_EQ(RunCli(folder, "search --scope everything").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
