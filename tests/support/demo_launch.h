#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "support/temp_dir.h"

namespace tessarin::testing {

// The demo newsroom as scripts/demo writes it into appDir and starts it, on a machine whose
// locale is C: a stand-in editor takes the place of the real one and writes down the
// environment that the launcher gives it.
struct DemoLaunch {
    int exitStatus = -1;
    std::map<std::string, std::string> environment;  // as the editor would have started
};
DemoLaunch LaunchDemo(const TempDir& folder, const std::filesystem::path& appDir);

}  // namespace tessarin::testing
