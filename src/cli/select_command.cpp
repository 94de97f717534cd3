#include <optional>
#include <ostream>

#include "app/configuration_selection.h"
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "config/preferences.h"

namespace tessarin::cli {
namespace {

constexpr const char* kSelectUsage =
    "tessarin-cli: usage: select NAME [--tip TIP] | select --tip TIP | select --list\n";

struct SelectRequest {
    bool list = false;
    std::optional<std::string> configuration, tip;
};

std::optional<SelectRequest> ParseSelect(const Arguments& arguments) {
    SelectRequest request;
    if (arguments.size() == 1 && arguments[0] == "--list") {
        request.list = true;
        return request;
    }
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--tip" && index + 1 < arguments.size() && !request.tip) {
            request.tip = arguments[++index];
        } else if (!argument.starts_with("--") && !request.configuration) {
            request.configuration = argument;
        } else {
            return std::nullopt;
        }
    }
    if (!request.configuration && !request.tip) return std::nullopt;
    return request;
}

}  // namespace

int RunSelectCommand(CliContext& context, const Arguments& arguments) {
    const std::optional<SelectRequest> request = ParseSelect(arguments);
    if (!request) {
        context.err << kSelectUsage;
        return kExitUsage;
    }
    if (request->list) {
        const NamedDocuments documents = ListNamedDocuments(context.paths.appDir);
        for (const std::string& name : documents.configurations)
            context.out << "Tessarin\t" << name << '\n';
        for (const std::string& name : documents.tips)
            context.out << "TipOfTheDay\t" << name << '\n';
        return kExitDone;
    }
    if (request->tip) {
        const std::string problem = SelectTipOfTheDay(context.paths, *request->tip);
        if (!problem.empty()) {
            context.err << problem << '\n';
            return kExitRefused;
        }
    }
    if (!request->configuration) return kExitDone;
    CliInteraction user(context.answer, context.err);
    EditorSession session(InstallPaths(context), user);
    session.preferences = ReadPreferences(session.profile);
    std::string problem;
    const bool loaded = SelectConfiguration(session, *request->configuration, problem);
    if (!problem.empty()) user.Tell(problem, MessageIcon::Critical);
    user.ShowStatus(session.window.Status().text);
    return loaded ? kExitDone : kExitRefused;
}

}  // namespace tessarin::cli
