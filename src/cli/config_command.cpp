#include <ostream>

#include "cli/cli_context.h"

namespace tessarin::cli {

int RunConfigCommand(CliContext& context, const Arguments& arguments) {
    if (arguments.size() != 1 || arguments[0] != "check") {
        context.err << "tessarin-cli: usage: config check\n";
        return kExitUsage;
    }
    context.err << "config check: not built yet\n";
    return kExitRefused;
}

}  // namespace tessarin::cli
