#include <gtest/gtest.h>

#include "attachments/jpeg_bytes.h"
#include "cli/cli_run.h"

namespace tessarin {
namespace {

using namespace testing;

// Datasets out of the table's order, a repeat, a line break, an unnamed dataset and the
// Macintosh bytes of "é" (0x8E) and "ç" (0x8D).
const std::string kPicture = Jpeg({App13(
    IptcResource(IptcRecord(120, "Caf\x8E on the\r\nquay") + IptcRecord(200, "extra\tdata") +
                 IptcRecord(25, "port") + IptcRecord(105, "Gar\x8Don") + IptcRecord(25, "cafe")))});

TEST(IptcCommand, PrintsTheDatasetsInTheTablesOrderThenTheUnnamedOnes) {
    TempDir folder;
    const std::string picture = Quoted(folder.Write("cafe.jpg", kPicture).string());
    CliRun run = RunCli(folder, "iptc " + picture);
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out,
              "Keywords: port; cafe\n"
              "Headline: Gar\u008Don\n"
              "Caption/Abstract: Caf\u017D on the/quay\n"
              "Segment 200: extra/data\n");

    run = RunCli(folder, "iptc " + picture + " --mac");
    EXPECT_EQ(run.out,
              "Keywords: port; cafe\n"
              "Headline: Gar\u00E7on\n"
              "Caption/Abstract: Caf\u00E9 on the/quay\n"
              "Segment 200: extra/data\n");
}

TEST(IptcCommand, TakesTheConfiguredLabels) {
    TempDir folder;
    folder.Write("app/Tessarin.xml",
                 R"(<Tessarin><FTPTransmission><FTPServer IPNumber="ftp.example.org"/>)"
                 R"(</FTPTransmission><Metadata/><Story/><Publications><Publication Name="H"/>)"
                 R"(</Publications><Interface><IPTCHeadline>Titre</IPTCHeadline></Interface>)"
                 R"(</Tessarin>)");
    const CliRun run = RunCli(folder, "iptc " + Quoted(folder.Write("c.jpg", kPicture).string()));
    EXPECT_NE(run.out.find("\nTitre: Gar"), std::string::npos);
}

TEST(IptcCommand, PrintsNothingForAFileThatIsNoJpegAndRefusesAMissingOne) {
    TempDir folder;
    const CliRun zip =
        RunCli(folder, "iptc " + Quoted(folder.Write("a.zip", "PK" + kPicture).string()));
    EXPECT_EQ(zip.exitStatus, 0);
    EXPECT_EQ(zip.out, "");
    EXPECT_EQ(zip.err, "");

    const CliRun missing = RunCli(folder, "iptc " + Quoted((folder / "none.jpg").string()));
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_EQ(missing.err, "Cannot read the file " + (folder / "none.jpg").string() + "\n");
    EXPECT_EQ(RunCli(folder, "iptc").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
