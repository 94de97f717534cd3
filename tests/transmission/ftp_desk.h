#pragma once

#include <filesystem>
#include <string>

#include "support/local_server.h"
#include "workflow_desk.h"

namespace tessarin::testing {

// A desk whose FTP server 1 is a local one, user "reporter" / "secret": TessarinML stories to
// texts/, pictures to the folder given, daily logs to logs/.
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

    LocalFtpServer server;
};

}  // namespace tessarin::testing
