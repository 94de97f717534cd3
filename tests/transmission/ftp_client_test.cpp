#include "transmission/ftp_client.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/local_server.h"
#include "support/temp_dir.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

using testing::LocalFtpServer;
using testing::ReadBytes;
using testing::TempDir;

std::string Bytes(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 7919) % 251);
    return bytes;
}

// Passive or active data connections.
class FtpClientTest : public ::testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        if (GetParam()) ftp.SetModePassive();
        ASSERT_TRUE(ftp.OpenConnection(server.Address(), "reporter", "secret"))
            << ftp.GetLastErrorMessage();
    }

    LocalFtpServer server;
    FtpClient ftp;
    TempDir local;
};

// Files go up and come back byte for byte, the progress moves up to the total, and the
// directory operations act on the server's disk.
TEST_P(FtpClientTest, TransfersAndManagesRemoteFiles) {
    const std::string bytes = Bytes(300'000) + "\r\n\n\r";
    const fs::path source = local.Write("my photo.jpg", bytes);
    std::vector<std::int64_t> done;
    ftp.SetProgress([&](std::int64_t now, std::int64_t total) {
        EXPECT_EQ(total, static_cast<std::int64_t>(bytes.size()));
        done.push_back(now);
    });
    ASSERT_TRUE(ftp.CreateFTPDirectory("texts")) << ftp.GetLastErrorMessage();
    ASSERT_TRUE(ftp.FTPUploadFile(source, "texts/my photo.jpg")) << ftp.GetLastErrorMessage();
    EXPECT_TRUE(ReadBytes(server.home / "texts/my photo.jpg") == bytes);
    ASSERT_GE(done.size(), 2u);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_EQ(done.back(), static_cast<std::int64_t>(bytes.size()));

    ASSERT_TRUE(ftp.SetFTPDirectory("texts")) << ftp.GetLastErrorMessage();
    EXPECT_EQ(ftp.GetFTPDirectory(), "/texts");
    EXPECT_EQ(ftp.GetFTPFileSize("my photo.jpg"), static_cast<std::int64_t>(bytes.size()));
    EXPECT_EQ(ftp.GetFTPFileSize("other.jpg"), -1);
    ASSERT_TRUE(ftp.RenameFTPFile("my photo.jpg", "/texts/renamed.jpg"));
    ASSERT_TRUE(ftp.FTPDownloadFile(local / "back.jpg", "renamed.jpg"))
        << ftp.GetLastErrorMessage();
    EXPECT_TRUE(ReadBytes(local / "back.jpg") == bytes);

    // An image already there is overwritten without a question.
    ftp.SetProgress({});
    const fs::path shorter = local.Write("short.jpg", "abc");
    ASSERT_TRUE(ftp.FTPUploadFile(shorter, "renamed.jpg"));
    EXPECT_EQ(ReadBytes(server.home / "texts/renamed.jpg"), "abc");

    ASSERT_TRUE(ftp.DeleteFTPFile("renamed.jpg"));
    ASSERT_TRUE(ftp.SetFTPDirectory("/"));
    ASSERT_TRUE(ftp.RemoveFTPDirectory("texts"));
    EXPECT_FALSE(fs::exists(server.home / "texts"));
}

TEST_P(FtpClientTest, ListsTheRemoteDirectoryWithItsMarks) {
    ASSERT_TRUE(ftp.GetDirectoryListing("*.*"));
    EXPECT_TRUE(ftp.Directory().empty());  // an empty directory is no error

    fs::create_directories(server.home.path() / "Images");
    server.home.Write("story one.xml", "12345");
    server.home.Write("notes.txt", "1");
    ASSERT_TRUE(ftp.GetDirectoryListing("*.*")) << ftp.GetLastErrorMessage();
    std::vector<std::string> rows;
    for (const FtpDirItem& item : ftp.Directory()) {
        const std::string size = item.Directory ? "" : std::to_string(item.FileSize);
        rows.push_back(item.Filename + "|" + size + "|" + FtpAttributeMarks(item));
    }
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows,
              (std::vector<std::string>{"Images|| D ", "notes.txt|1| N ", "story one.xml|5| N "}));
    ASSERT_TRUE(ftp.GetDirectoryListing("*.xml"));
    ASSERT_EQ(ftp.Directory().size(), 1u);
    EXPECT_EQ(ftp.Directory()[0].Filename, "story one.xml");
}

INSTANTIATE_TEST_SUITE_P(Modes, FtpClientTest, ::testing::Bool(), [](const auto& info) {
    return std::string(info.param ? "Passive" : "Active");
});

TEST(FtpClientFailures, RefusalsCarryTheServersSentence) {
    LocalFtpServer server;
    FtpClient ftp;
    EXPECT_FALSE(ftp.OpenConnection(server.Address(), "reporter", "wrong"));
    EXPECT_TRUE(ftp.GetLastErrorMessage().starts_with("530 ")) << ftp.GetLastErrorMessage();
    EXPECT_FALSE(ftp.Connected());
    EXPECT_FALSE(ftp.DeleteFTPFile("x"));  // a closed connection fails and says why
    EXPECT_FALSE(ftp.GetLastErrorMessage().empty());

    ASSERT_TRUE(ftp.OpenConnection(server.Address(), "reporter", "secret"));
    EXPECT_FALSE(ftp.SetFTPDirectory("missing"));
    EXPECT_TRUE(ftp.GetLastErrorMessage().starts_with("550 ")) << ftp.GetLastErrorMessage();
    EXPECT_EQ(ftp.GetFTPDirectory(), "/");
    TempDir local;
    EXPECT_FALSE(ftp.FTPUploadFile(local.Write("a.xml", "x"), "missing/a.xml"));
    EXPECT_FALSE(ftp.FTPDownloadFile(local / "b.xml", "nothing.xml"));
    EXPECT_FALSE(fs::exists(local / "b.xml"));

    FtpClient nowhere;
    server.server.Kill();
    EXPECT_FALSE(nowhere.OpenConnection(server.Address(), "reporter", "secret"));
    EXPECT_TRUE(nowhere.GetLastErrorMessage().starts_with("Connect error code: 7 Message: "))
        << nowhere.GetLastErrorMessage();
}

// The control connection of an "ftps://" server is protected and the server is checked
// against the authorities given.
TEST(FtpClientTls, LogsInOverTlsAndChecksTheServer) {
    LocalFtpServer server(true);
    fs::create_directories(server.home / "texts");
    FtpClient ftp;
    ftp.SetCertificateAuthorities(server.certificate);
    EXPECT_FALSE(ftp.OpenConnection(server.Address(), "reporter", "wrong"));
    EXPECT_TRUE(ftp.GetLastErrorMessage().starts_with("530 ")) << ftp.GetLastErrorMessage();
    ASSERT_TRUE(ftp.OpenConnection(server.Address(), "reporter", "secret"))
        << ftp.GetLastErrorMessage();
    EXPECT_TRUE(ftp.SetFTPDirectory("texts"));
    EXPECT_FALSE(ftp.SetFTPDirectory("missing"));

    FtpClient untrusting;
    untrusting.SetCertificateAuthorities(server.keys / "none.pem");
    EXPECT_FALSE(untrusting.OpenConnection(server.Address(), "reporter", "secret"));
}

}  // namespace
}  // namespace tessarin
