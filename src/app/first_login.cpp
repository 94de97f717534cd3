#include "app/first_login.h"

#include <filesystem>
#include <system_error>

#include "app/configuration_update.h"
#include "common/file_copy.h"
#include "config/text_trim.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

LoginResult Refused(std::string message) {
    return {false, false, std::move(message)};
}

LoginResult Loaded(EditorSession& session, std::string message = {}) {
    const bool loaded = ReloadConfiguration(session);
    return {true, loaded, std::move(message)};
}

LoginResult FromFtpServer(EditorSession& session, FtpClient& ftp, const LoginRequest& request) {
    const std::string& login = request.login.empty() ? request.user : request.login;
    if (!ftp.OpenConnection(request.server, login, request.password)) {
        return Refused(
            "Not connected. Please verify the following:\n- FTP server name or number\n- user "
            "name\n- password");
    }
    ftp.SetFTPDirectory("/");
    const std::string path = FtpUpdatePath("", request.user, false);
    const auto failure = [&](const std::string& what) {
        return what + request.server + ":\n" + path + "\n" + ftp.GetLastErrorMessage();
    };
    if (ftp.GetFTPFileSize(path) < 0) {
        LoginResult result = Refused(failure("Unknown parameters file on FTP Server "));
        ftp.CloseConnection();
        return result;
    }
    if (!ftp.FTPDownloadFile(session.paths.configurationFile, path)) {
        LoginResult result =
            Refused(failure("Download problem\nConfiguration file not copied from FTP Server "));
        ftp.CloseConnection();
        return result;
    }
    std::string notDeleted;
    if (!ftp.DeleteFTPFile(path))
        notDeleted = failure("Unable to delete configuration file on FTP Server ");
    ftp.CloseConnection();
    return Loaded(session, notDeleted);
}

LoginResult FromFileServer(EditorSession& session, const LoginRequest& request) {
    const std::string folder(TrimWhitespace(request.server));
    const std::string user(TrimWhitespace(request.user));
    if (folder.empty() || user.empty())
        return Refused("Please verify the following:\n- File Server UPDATES folder\n- user name");
    const fs::path path = FolderUpdatePath(folder, user);
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return Refused("Unknown configuration file on File Server:\n" + path.string());
    const std::string copyError = CopyFileWhole(path, session.paths.configurationFile);
    if (!copyError.empty()) {
        return Refused("Configuration file not copied from File Server:\n" + path.string() + "\n" +
                       copyError);
    }
    if (!request.forced) {
        fs::remove(path, error);
        if (fs::exists(path, error))
            return Refused("Unable to delete configuration file on File Server:\n" + path.string());
    }
    return Loaded(session);
}

}  // namespace

LoginResult RunFirstLogin(EditorSession& session, FtpClient& ftp, const LoginRequest& request) {
    return request.source == LoginSource::FtpServer ? FromFtpServer(session, ftp, request)
                                                    : FromFileServer(session, request);
}

}  // namespace tessarin
