#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli_run.h"
#include "config/configuration_document.h"
#include "support/local_server.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"

namespace tessarin::testing {
namespace {

// A newsroom whose FTP server 1 and mail server are the local ones.
void WriteNewsroom(const TempDir& folder, const std::string& ftpAddress,
                   const std::string& smtpAddress) {
    ConfigurationDocument document;
    document.ftpTransmission =
        R"(<FTPTransmission><FTPServer IPNumber=")" + ftpAddress +
        R"(" User="reporter" Password="secret" FTPDirectory="/"/></FTPTransmission>)"
        R"(<SMTPTransmission Visible="true" SMTPServerName=")" +
        smtpAddress + R"("><SMTPRecipient>desk@example.org</SMTPRecipient></SMTPTransmission>)";
    document.metadata =
        "<Metadata><Author>Ann Lee</Author><Email>ann@example.org</Email></Metadata>";
    folder.Write("app/Tessarin.xml", document.Text());
}

std::vector<std::string> SortedLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(FtpListCommand, PrintsTheRemoteListingOrWhyItCouldNot) {
    LocalFtpServer ftp;
    std::filesystem::create_directories(ftp.home / "Images/2024");
    ftp.home.Write("Images/fire.jpg", "12345");
    ftp.home.Write("top.xml", "1");
    TempDir folder;
    WriteNewsroom(folder, ftp.Address(), "127.0.0.1:1");

    CliRun run = RunCli(folder, "ftp list 1 Images");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(SortedLines(run.out),
              (std::vector<std::string>{"2024\tDirectory\t D ", "fire.jpg\t5\t N "}));

    run = RunCli(folder, "ftp list 1 --password wrong");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("530 ")) << run.err;
    EXPECT_EQ(RunCli(folder, "ftp list 1 Nowhere").exitStatus, 1);
    EXPECT_EQ(RunCli(folder, "ftp list 2").exitStatus, 1);
    EXPECT_EQ(RunCli(folder, "ftp list").exitStatus, 2);
}

TEST(MailSendCommand, SendsToTheConfiguredRecipientAndReportsRefusals) {
    LocalSmtpServer smtp;
    TempDir folder;
    WriteNewsroom(folder, "127.0.0.1:1", smtp.server.address());
    const std::string env = "TESSARIN_NOW=2024-03-05T09:07:30 TESSARIN_LONG_DATE='d MMMM yyyy' ";
    CliRun run = RunCli(folder, "mail send --subject Fire " + Quoted("Flames\r\n.at dawn"), env);
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.err, "5 March 2024 \xC3\xA0 09:07 - Sent to desk@example.org\n");
    const std::string received = smtp.Message(1);
    EXPECT_NE(received.find("Subject:Fire\r\n"), std::string::npos) << received;
    EXPECT_NE(received.find("\r\n\r\nFlames\r\n.at dawn\r\n"), std::string::npos) << received;

    // A server that cannot be reached (its status texts are the mail dialogue's tests).
    run = RunCli(folder, "mail send --port 1 --server 127.0.0.1 Hello", env);
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("Winsock Error number 111:")) << run.err;
}

}  // namespace
}  // namespace tessarin::testing
