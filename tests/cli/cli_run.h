#pragma once

#include <string>

#include "support/shell_quote.h"
#include "support/temp_dir.h"

namespace tessarin::testing {

struct CliRun {
    int exitStatus = -1;
    std::string out;
    std::string err;
};

// Runs tessarin-cli with the given arguments (already quoted for the shell) and an
// application directory "app" in the folder. environment is put before the command
// ("TESSARIN_NOW=... "); standard output and error are caught whole.
CliRun RunCli(const TempDir& folder, const std::string& arguments,
              const std::string& environment = "");

}  // namespace tessarin::testing
