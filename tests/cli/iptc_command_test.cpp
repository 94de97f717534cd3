#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "attachments/jpeg_bytes.h"
#include "cli/cli_run.h"

namespace tessarin {
namespace {

using namespace testing;

// A caption, keywords and a headline with the Macintosh byte of "ç" (0x8D).
const std::string kPicture = Jpeg({App13(IptcResource(
    IptcRecord(120, "Quay") + IptcRecord(25, "port") + IptcRecord(105, "Gar\x8Don")))});

// --mac and the configured labels reach the display (its order, labels and accents are the
// IPTC display's tests).
TEST(IptcCommand, MacAndTheConfiguredLabelsReachTheDisplay) {
    TempDir folder;
    const std::string picture = Quoted(folder.Write("cafe.jpg", kPicture).string());
    EXPECT_NE(RunCli(folder, "iptc " + picture).out.find("Headline: Gar\u008Don\n"),
              std::string::npos);
    EXPECT_NE(RunCli(folder, "iptc " + picture + " --mac").out.find("Headline: Gar\u00E7on\n"),
              std::string::npos);
    folder.Write("app/Tessarin.xml",
                 R"(<Tessarin><FTPTransmission><FTPServer IPNumber="ftp.example.org"/>)"
                 R"(</FTPTransmission><Metadata/><Story/><Publications><Publication Name="H"/>)"
                 R"(</Publications><Interface><IPTCHeadline>Titre</IPTCHeadline></Interface>)"
                 R"(</Tessarin>)");
    EXPECT_NE(RunCli(folder, "iptc " + picture).out.find("\nTitre: Gar"), std::string::npos);
}

// A picture written by exiftool, an IPTC writer of its own, in one envelope.
struct ExiftoolPicture {
    const char* envelope;
    std::string options;  // what makes exiftool write that envelope
    std::string caption;
    std::string byline;
    std::string city;
    std::vector<std::string> keywords;
};

TEST(IptcCommand, PrintsWhatExiftoolWritesInBothEnvelopes) {
    const ExiftoolPicture pictures[] = {
        {"Windows-1252",
         "",
         "Caf\u00E9 \u00E0 l\u2019eau, 5 \u20AC",
         "Zo\u00E9 M\u00FCller",
         "Z\u00FCrich",
         {"p\u00EAche", "port", "p\u00EAche"}},
        {"UTF-8",
         "-charset iptc=UTF8 -IPTC:CodedCharacterSet=UTF8",
         "Caf\u00E9 \u00E0 \u0141\u00F3d\u017A, \u6771\u4EAC \u2013 5 \u20AC",
         "Zo\u00E9 \u0141",
         "\u0141\u00F3d\u017A",
         {"\u6E2F", "port", "\u6E2F"}},
    };
    TempDir folder;
    for (const ExiftoolPicture& written : pictures) {
        const std::string picture =
            Quoted(folder.Write("picture.jpg", Jpeg({ImageData()})).string());
        std::string command = "exiftool -q -overwrite_original " + written.options +
                              " -IPTC:Caption-Abstract=" + Quoted(written.caption) +
                              " -IPTC:By-line=" + Quoted(written.byline) +
                              " -IPTC:City=" + Quoted(written.city);
        std::string keywords;
        for (const std::string& keyword : written.keywords) {
            command += " -IPTC:Keywords=" + Quoted(keyword);
            keywords += (keywords.empty() ? "" : "; ") + keyword;
        }
        ASSERT_EQ(std::system((command + " " + picture).c_str()), 0)
            << "exiftool must be installed";
        const CliRun run = RunCli(folder, "iptc " + picture);
        EXPECT_EQ(run.out, "Keywords: " + keywords + "\nByline: " + written.byline + "\nCity: " +
                               written.city + "\nCaption/Abstract: " + written.caption + "\n")
            << written.envelope;
    }
}

TEST(IptcCommand, PrintsEachOfSeveralPicturesAfterItsPathAndGoesOnPastAMissingOne) {
    TempDir folder;
    const std::string first = folder.Write("first.jpg", kPicture).string();
    const std::string missing = (folder / "missing.jpg").string();
    const std::string zip = folder.Write("a.zip", "PK" + kPicture).string();
    const CliRun run = RunCli(folder, "iptc " + Quoted(first) + " " + Quoted(missing) + " " +
                                          Quoted(zip) + " " + Quoted(first));
    const std::string lines = RunCli(folder, "iptc " + Quoted(first)).out;
    EXPECT_EQ(run.out, "== " + first + "\n" + lines + "== " + zip + "\n== " + first + "\n" + lines);
    EXPECT_EQ(run.err, "Cannot read the file " + missing + "\n");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(RunCli(folder, "iptc").exitStatus, 2);
}

TEST(IptcCommand, PrintsNoMoreThanThePictureHolds) {
    // Tiny APP13 segments, each with one record that claims 8 KB of text and so runs over
    // the segments that follow. Each byte of the picture is printed once at most (a byte
    // above 0x7F as two in UTF-8).
    std::string picture = "\xFF\xD8";
    for (int segment = 0; segment < 10'000; ++segment)
        picture += App13(IptcResource(std::string("\x1C\x02\xC8\x20\x00", 5)));
    TempDir folder;
    const CliRun run = RunCli(folder, "iptc " + Quoted(folder.Write("many.jpg", picture).string()));
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_LE(run.out.size(), 2 * picture.size());
}

}  // namespace
}  // namespace tessarin
