#include <filesystem>
#include <optional>
#include <ostream>

#include "app/first_login.h"
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "config/load_configuration.h"
#include "config/preferences.h"

namespace tessarin::cli {
namespace {

constexpr const char* kLoginUsage =
    "tessarin-cli: usage: login --user NAME (--ftp SERVER [--ftp-user U --ftp-password P] | "
    "--folder DIR)\n";

std::optional<LoginRequest> ParseLogin(const Arguments& arguments) {
    LoginRequest request;
    std::optional<std::string> user, ftp, folder, ftpUser, ftpPassword;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (index + 1 >= arguments.size()) return std::nullopt;
        const std::string& option = arguments[index];
        const std::string& value = arguments[++index];
        std::optional<std::string>* field = option == "--user"           ? &user
                                            : option == "--ftp"          ? &ftp
                                            : option == "--folder"       ? &folder
                                            : option == "--ftp-user"     ? &ftpUser
                                            : option == "--ftp-password" ? &ftpPassword
                                                                         : nullptr;
        if (field == nullptr || field->has_value()) return std::nullopt;
        *field = value;
    }
    if (!user || ftp.has_value() == folder.has_value()) return std::nullopt;
    if (folder && (ftpUser || ftpPassword)) return std::nullopt;
    request.source = ftp ? LoginSource::FtpServer : LoginSource::FileServer;
    request.server = ftp ? *ftp : *folder;
    request.user = *user;
    request.login = ftpUser.value_or("");
    request.password = ftpPassword.value_or("");
    return request;
}

}  // namespace

int RunLoginCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<LoginRequest> parsed = ParseLogin(arguments);
    if (!parsed) {
        context.err << kLoginUsage;
        return kExitUsage;
    }
    LoginRequest request = *parsed;
    CliInteraction user(context.answer, context.err);
    EditorSession session(InstallPaths(context), user);
    session.preferences = ReadPreferences(session.profile);
    std::error_code error;
    if (std::filesystem::exists(session.paths.configurationFile, error)) {
        Configuration inPlace;
        WindowState window;
        LoadConfiguration(session.paths.configurationFile, session.profile, session.preferences,
                          inPlace, window);
        request.forced = inPlace.workflow.ForceLogin;
    }
    FtpClient ftp;
    const LoginResult result = RunFirstLogin(session, ftp, request);
    if (!result.message.empty()) user.Tell(result.message, MessageIcon::Critical);
    if (!result.done) return kExitRefused;
    user.ShowStatus(session.window.Status().text);
    return result.loaded ? kExitDone : kExitRefused;
}

}  // namespace tessarin::cli
