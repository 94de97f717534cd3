#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/local_server.h"
#include "transmission/story_staging.h"
#include "workflow_desk.h"

namespace tessarin::testing {

// A desk whose FTP server 1 is a local one, user "reporter" / "secret": TessarinML stories to
// texts/, pictures to the folder given, daily logs to logs/. Stage() lists a story with one
// picture of the size given.
struct FtpDesk : WorkflowDesk {
    explicit FtpDesk(const std::string& imagesDirectory = "photos") {
        FtpServer& record = session.configuration.ftpTransmission.servers.at(0);
        record.IPNumber = server.Address();
        record.User = "reporter";
        record.Password = "secret";
        record.TextsDirectory = "texts";
        record.ImagesDirectory = imagesDirectory;
        record.LogsDirectory = "logs";
        for (const char* folderName : {"texts", "photos", "logs"})
            std::filesystem::create_directories(server.home / folderName);
    }

    // Lists name.xml with its picture name.jpg, whose bytes are pictureSize times the name's
    // first letter; true when the story was staged.
    bool Stage(const std::string& name, std::size_t pictureSize) {
        pictures.push_back(std::string(pictureSize, name[0]));
        const auto picture = folder.Write("stories/" + name + ".jpg", pictures.back());
        sources.push_back(Story(name + ".xml", "<Form>Brief</Form>",
                                R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
                                Images({picture})));
        window.preparedStory = sources.back();
        return AddStory(session, window).outcome == AddOutcome::Staged;
    }

    LocalFtpServer server;
    std::vector<std::filesystem::path> sources;
    std::vector<std::string> pictures;
};

}  // namespace tessarin::testing
