#pragma once

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "session/editor_session.h"

namespace tessarin::cli {

// The program's paths as the command line chose them (--config and --prefs included).
AppPaths SessionPaths(const CliContext& context);

// The application directory's own paths with the chosen preferences file, for the commands
// that replace the application directory's configuration document (--config does not apply).
AppPaths InstallPaths(const CliContext& context);

// The editor as it stands after start-up, without a window: preferences and configuration
// read (the status text of the load printed), a new story with the user's identity in the
// form selected first. False when the configuration did not load.
bool StartSession(EditorSession& session, const CliContext& context, CliInteraction& user);

}  // namespace tessarin::cli
