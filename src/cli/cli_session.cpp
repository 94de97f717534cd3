#include "cli/cli_session.h"

#include "config/load_configuration.h"
#include "config/preferences.h"

namespace tessarin::cli {

AppPaths SessionPaths(const CliContext& context) {
    AppPaths paths = context.paths;
    paths.preferencesFile = context.preferencesFile;
    paths.configurationFile = context.configurationFile;
    return paths;
}

AppPaths InstallPaths(const CliContext& context) {
    AppPaths paths = context.paths;
    paths.preferencesFile = context.preferencesFile;
    return paths;
}

bool StartSession(EditorSession& session, const CliContext& context, CliInteraction& user) {
    session.preferences = ReadPreferences(session.profile);
    const bool loaded =
        LoadConfiguration(context.configurationFile, session.profile, session.preferences,
                          session.configuration, session.window);
    user.ShowStatus(session.window.Status().text);
    const Identity& identity = session.configuration.identity;
    session.story.author = identity.author;
    session.story.email = identity.email;
    session.story.group = identity.group;
    session.story.initials = identity.initials;
    session.story.formIndex = session.window.List("lstStoryTypes").selected;
    return loaded;
}

}  // namespace tessarin::cli
