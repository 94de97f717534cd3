#include "transmission/ftp_send.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "ftp_desk.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

using testing::FtpDesk;
using testing::ReadBytes;

// Two stories listed, each with a picture, and a connection open on the desk's server.
struct ConnectedDesk : FtpDesk {
    explicit ConnectedDesk(std::size_t pictureSize = 64 * 1024) {
        for (const char* name : {"alpha", "beta"})
            EXPECT_TRUE(Stage(name, pictureSize));
        EXPECT_TRUE(ftp.OpenConnection(server.Address(), "reporter", "secret"));
    }
    FtpClient ftp;
};

TEST(FtpSend, SendsEveryItemAndEmptiesTheList) {
    ConnectedDesk desk;
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
    ConnectedDesk desk(8 << 20);
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
