#include <ostream>
#include <string>

#include <unistd.h>
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"

#include "app/configuration_update.h"
#include "transmission/ftp_send.h"
#include "transmission/ftp_server_connection.h"
#include "transmission/workflow_send.h"

namespace tessarin::cli {
namespace {

constexpr const char* kFtpUsage =
    "tessarin-cli: usage: ftp list N [DIR] [--user U] [--password P] | ftp send N\n";

struct FtpRequest {
    bool send = false;
    std::size_t server = 0;
    std::string directory;
    std::optional<std::string> user, password;
};

std::optional<FtpRequest> ParseList(const Arguments& arguments) {
    if (arguments.size() < 2 || (arguments[0] != "list" && arguments[0] != "send"))
        return std::nullopt;
    FtpRequest request;
    request.send = arguments[0] == "send";
    if (request.send && arguments.size() != 2) return std::nullopt;
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
    const std::optional<FtpRequest> request = ParseList(arguments);
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
    // A copy: the configuration update of the connection may load another document.
    const FtpServer server = servers[request->server - 1];
    FtpClient ftp;
    if (!ConnectToFtpServer(ftp, server, request->user.value_or(server.User),
                            request->password.value_or(server.Password)) ||
        (!request->directory.empty() && !ftp.SetFTPDirectory(request->directory)) ||
        (!request->send && !ftp.GetDirectoryListing("*.*"))) {
        context.err << ftp.GetLastErrorMessage() << ":\n"
                    << session.Message("FTPNotConnected") << '\n';
        return kExitRefused;
    }
    const UpdateResult update = UpdateConfigurationFromFtp(session, ftp, server.FTPDirectory);
    if (!update.status.empty()) user.ShowStatus(update.status);
    if (request->send) {
        WorkflowWindow window;
        OpenWorkflowWindow(session, window);
        if (isatty(STDERR_FILENO)) {
            ftp.SetProgress([&](std::int64_t done, std::int64_t total) {
                context.err << window.state.Control("lblSentFile").caption << ' ' << done << '/'
                            << total << '\n';
            });
        }
        const FtpSendOutcome outcome = SendFtp(session, window, ftp, request->server);
        for (const SendReportLine& line : window.report)
            context.out << ReportLineText(session, line) << '\n';
        user.ShowStatus(window.state.Status().text);
        return outcome == FtpSendOutcome::Sent ? kExitDone : kExitRefused;
    }
    for (const FtpDirItem& item : ftp.Directory())
        context.out << FtpListingRow(item) << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
