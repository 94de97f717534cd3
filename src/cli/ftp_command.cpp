#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "transmission/ftp_server_connection.h"

namespace tessarin::cli {
namespace {

constexpr const char* kFtpUsage =
    "tessarin-cli: usage: ftp list N [DIR] [--user U] [--password P]\n";

struct FtpListRequest {
    std::size_t server = 0;
    std::string directory;
    std::optional<std::string> user, password;
};

std::optional<FtpListRequest> ParseList(const Arguments& arguments) {
    if (arguments.size() < 2 || arguments[0] != "list") return std::nullopt;
    FtpListRequest request;
    try {
        request.server = std::stoul(arguments[1]);
    } catch (const std::exception&) {
        return std::nullopt;
    }
    for (std::size_t index = 2; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if ((argument == "--user" || argument == "--password") && index + 1 < arguments.size()) {
            (argument == "--user" ? request.user : request.password) = arguments[++index];
        } else if (!argument.starts_with("--") && request.directory.empty()) {
            request.directory = argument;
        } else {
            return std::nullopt;
        }
    }
    return request;
}

}  // namespace

int RunFtpCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<FtpListRequest> request = ParseList(arguments);
    if (!request) {
        context.err << kFtpUsage;
        return kExitUsage;
    }
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    const std::vector<FtpServer>& servers = session.configuration.ftpTransmission.servers;
    if (request->server < 1 || request->server > servers.size()) {
        context.err << "No FTP server " << request->server << " in the configuration\n";
        return kExitRefused;
    }
    const FtpServer& server = servers[request->server - 1];
    FtpClient ftp;
    if (!ConnectToFtpServer(ftp, server, request->user.value_or(server.User),
                            request->password.value_or(server.Password)) ||
        (!request->directory.empty() && !ftp.SetFTPDirectory(request->directory)) ||
        !ftp.GetDirectoryListing("*.*")) {
        context.err << ftp.GetLastErrorMessage() << ":\n"
                    << session.Message("FTPNotConnected") << '\n';
        return kExitRefused;
    }
    for (const FtpDirItem& item : ftp.Directory())
        context.out << FtpListingRow(item) << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
