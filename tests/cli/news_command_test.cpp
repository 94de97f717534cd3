#include <gtest/gtest.h>

#include <string>

#include "cli/cli_run.h"
#include "news/news_samples.h"

namespace tessarin {
namespace {

using namespace testing;

TEST(NewsCommand, ListsNewestFirstAndShowsTheTextWithItsCopyState) {
    TempDir folder;
    SampleItem older;
    older.date = "20260306T071000";
    older.headline = "Older";
    older.priority = "2";
    folder.Write("wires/older.xml", NitfItem(older));
    folder.Write("wires/newer.xml", NitfItem({}));
    folder.Write("wires/newer.log", "Ann Lee 07/03/2026 09:40\\0 5\r\n");
    const std::string store = Quoted((folder / "wires").string());
    const std::string dayFirst = "TESSARIN_SHORT_DATE=dd/MM/yyyy ";

    CliRun run = RunCli(folder, "news list --store " + store, dayFirst);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out,
              "07/03/2026 09:15\t!!Harbour reopens\tharbour\t04000000\t4\t2\t0057\t"
              "20260307T091500+0100\n"
              "06/03/2026 07:10\tOlder\tharbour\t04000000\t2\t2\t0057\t20260306T071000\n");

    run = RunCli(folder, "news show " + Quoted((folder / "wires/newer.xml").string()));
    EXPECT_EQ(run.out, "First paragraph.\r\nSecond paragraph.\ncopied in part\n");
    EXPECT_EQ(RunCli(folder, "news show " + Quoted((folder / "wires/older.xml").string())).out,
              "First paragraph.\r\nSecond paragraph.\nnot copied\n");

    folder.Write("wires/broken.xml", "<NewsML>");
    run = RunCli(folder, "news list --store " + store, dayFirst);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("Parsing error:broken.xml, Ligne: 1")) << run.err;
    EXPECT_EQ(RunCli(folder, "news list --store " + Quoted((folder / "none").string())).exitStatus,
              1);
    EXPECT_EQ(RunCli(folder, "news show").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
