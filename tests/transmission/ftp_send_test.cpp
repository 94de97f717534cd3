#include "transmission/ftp_send.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/local_server.h"
#include "transmission/story_staging.h"
#include "workflow_desk.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

using testing::LocalFtpServer;
using testing::ReadBytes;
using testing::WorkflowDesk;

// A desk whose FTP server 1 is the local one (TessarinML stories to texts/, pictures to
// photos/, daily logs to logs/), with two stories listed, each with a picture.
struct FtpDesk : WorkflowDesk {
    explicit FtpDesk(std::size_t pictureSize = 64 * 1024) {
        FtpServer& record = session.configuration.ftpTransmission.servers.at(0);
        record.IPNumber = server.Address();
        record.User = "reporter";
        record.Password = "secret";
        record.TextsDirectory = "texts";
        record.ImagesDirectory = "photos";
        record.LogsDirectory = "logs";
        for (const char* folderName : {"texts", "photos", "logs"})
            fs::create_directories(server.home / folderName);
        for (const char* name : {"alpha", "beta"}) {
            pictures.push_back(std::string(pictureSize, name[0]));
            const fs::path picture =
                folder.Write(std::string("stories/") + name + ".jpg", pictures.back());
            sources.push_back(Story(std::string(name) + ".xml", "<Form>Brief</Form>",
                                    R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
                                    Images({picture})));
            window.preparedStory = sources.back();
            EXPECT_EQ(AddStory(session, window).outcome, AddOutcome::Staged);
        }
        EXPECT_TRUE(ftp.OpenConnection(record.IPNumber, record.User, record.Password));
    }

    LocalFtpServer server;
    FtpClient ftp;
    std::vector<fs::path> sources;
    std::vector<std::string> pictures;
};

TEST(FtpSend, SendsEveryItemAndEmptiesTheList) {
    FtpDesk desk;
    ASSERT_EQ(SendFtp(desk.session, desk.window, desk.ftp, 1), FtpSendOutcome::Sent)
        << desk.window.state.Status().text;
    EXPECT_TRUE(desk.window.stories.empty());
    EXPECT_FALSE(desk.ftp.Connected());
    for (int index : {0, 1}) {
        const std::string base = index == 0 ? "alpha" : "beta";
        EXPECT_TRUE(ReadBytes(desk.server.home / ("photos/" + base + ".jpg")) ==
                    desk.pictures[index]);
        const std::string story = ReadBytes(desk.server.home / ("texts/" + base + ".xml"));
        EXPECT_NE(story.find("ftp://" + desk.server.Address() + ",Format:TessarinML"),
                  std::string::npos);
        fs::path archived = desk.sources[index];
        EXPECT_TRUE(fs::exists(archived.replace_extension(".bml")));
    }
    const std::string log =
        ReadBytes(desk.server.home / "logs/Log Tessarin 2024-03-05 [Ann Lee].htm");
    EXPECT_NE(log.find("<b>alpha.xml</b></a> - Duration: "), std::string::npos) << log;
    EXPECT_NE(log.find("<ul><li>09:07 - <i>Photo</i> beta.jpg - Duration: "), std::string::npos);
}

// An upload that fails stops the walk; the item that failed and those after it stay listed
// as they were staged, and their sources keep their names.
TEST(FtpSend, AFailedUploadLeavesItsItemListed) {
    FtpDesk desk(8 << 20);
    const std::string stagedBeta = ReadBytes(desk.session.paths.uploadDir / "beta.xml");
    bool killed = false;
    desk.ftp.SetProgress([&](std::int64_t done, std::int64_t total) {
        if (!killed && total == (8 << 20) && done > (1 << 20) &&
            fs::exists(desk.server.home / "photos/alpha.jpg") &&
            desk.window.state.Control("lblSentFile").caption == "beta.jpg") {
            killed = true;
            desk.server.server.Kill();
        }
    });
    EXPECT_EQ(SendFtp(desk.session, desk.window, desk.ftp, 1), FtpSendOutcome::Failed);
    EXPECT_TRUE(killed);
    ASSERT_EQ(desk.window.stories.size(), 1u);
    EXPECT_EQ(desk.window.stories[0].name, "beta.xml");
    EXPECT_EQ(desk.window.stories[0].images, std::vector<std::string>{"beta.jpg"});
    EXPECT_TRUE(ReadBytes(desk.session.paths.uploadDir / "beta.xml") == stagedBeta);
    EXPECT_TRUE(fs::exists(desk.sources[1]));
    EXPECT_FALSE(fs::exists(desk.sources[0]));
    EXPECT_NE(desk.user.messages.back().find("It stays in the send list."), std::string::npos);
}

}  // namespace
}  // namespace tessarin
