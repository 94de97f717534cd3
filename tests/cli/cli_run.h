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
// The clocks that the command tests run under: a morning in 2024 with the C locale and the
// newsroom's date forms, and one in 2026 with the short date alone.
inline const std::string kNewsroomClock =
    "LC_ALL=C TZ=UTC TESSARIN_NOW=2024-03-05T09:07:30 TESSARIN_SHORT_DATE=dd/MM/yyyy "
    "TESSARIN_LONG_DATE='dddd, MMMM d, yyyy'";
inline const std::string kFrozenClock =
    "TESSARIN_NOW=2026-11-21T08:30:00 TESSARIN_SHORT_DATE=dd/MM/yyyy";

CliRun RunCli(const TempDir& folder, const std::string& arguments,
              const std::string& environment = "");

}  // namespace tessarin::testing
