#pragma once

#include "app/window_state.h"
#include "config/configuration.h"
#include "config/load_configuration.h"
#include "config/preferences.h"
#include "fuzz_input.h"

namespace tessarin::fuzz {

// The configuration of a small newsroom (forms, keywords, taxonomy, notes, logs), loaded once,
// with the default preferences; its stories in the given encoding.
struct Newsroom {
    explicit Newsroom(const char* storiesEncoding) {
        const ProfileFile profile(Folder() / "none.ini");
        preferences = ReadPreferences(profile);
        LoadConfiguration(TESSARIN_FUZZ_CONFIGURATION, profile, preferences, configuration, window);
        configuration.general.storiesEncoding = storiesEncoding;
    }

    Configuration configuration;
    WindowState window;
    Preferences preferences;
};

}  // namespace tessarin::fuzz
