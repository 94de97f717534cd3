#include <ostream>

#include "app/configuration_update.h"
#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"

namespace tessarin::cli {

int RunUpdateCommand(CliContext& context, const Arguments& arguments) {
    if (!arguments.empty()) {
        context.err << "tessarin-cli: usage: update\n";
        return kExitUsage;
    }
    CliInteraction user(context.answer, context.err);
    EditorSession session(SessionPaths(context), user);
    if (!StartSession(session, context, user)) return kExitRefused;
    const UpdateResult result = UpdateConfigurationAtStart(session);
    if (!result.status.empty()) user.ShowStatus(result.status);
    return result.outcome == UpdateOutcome::Invalid ? kExitRefused : kExitDone;
}

}  // namespace tessarin::cli
