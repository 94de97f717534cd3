#pragma once

#include <string>

#include "app/user_interaction.h"
#include "app/window_state.h"
#include "config/configuration.h"
#include "config/preferences.h"

namespace tessarin {

// What reading and writing a story needs of the program around it: the configuration with
// the window state it filled (label captions, control tags, lists and trees), the user's
// preferences, the user to ask and tell, and the program's version.
struct StoryContext {
    const Configuration& configuration;
    WindowState& window;
    const Preferences& preferences;
    UserInteraction& user;
    std::string programVersion = TESSARIN_VERSION;
};

}  // namespace tessarin
