#include <ostream>

#include "app/window_state.h"
#include "cli/cli_context.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "config/profile_file.h"

namespace tessarin::cli {
namespace {

// Runs the configuration load of start-up over the chosen document and preferences, and
// prints what the status panel would show.
int CheckConfiguration(CliContext& context) {
    const ProfileFile profile(context.preferencesFile);
    const Preferences preferences = ReadPreferences(profile);
    Configuration configuration;
    WindowState window;
    const bool loaded =
        LoadConfiguration(context.configurationFile, profile, preferences, configuration, window);
    if (!window.Status().text.empty()) context.err << window.Status().text << "\n";
    return loaded ? kExitDone : kExitRefused;
}

}  // namespace

int RunConfigCommand(CliContext& context, const Arguments& arguments) {
    if (arguments.size() != 1 || arguments[0] != "check") {
        context.err << "tessarin-cli: usage: config check\n";
        return kExitUsage;
    }
    return CheckConfiguration(context);
}

}  // namespace tessarin::cli
