#pragma once

#include <string>

#include "app/app_paths.h"

namespace tessarin {

// What the desktop editor tells a user who starts it without a configuration document: the
// full path where the document is expected, how to install one, and how to try the program
// on the demo newsroom in the same application directory.
std::string MissingConfigurationMessage(const AppPaths& paths);

}  // namespace tessarin
