#include <optional>
#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "export/uuencode.h"

namespace tessarin::cli {

int RunUuencodeCommand(CliContext& context, const Arguments& arguments) {
    if (arguments.size() != 1 || arguments[0].empty()) {
        context.err << "tessarin-cli: usage: uuencode FILE\n";
        return kExitUsage;
    }
    const std::optional<std::string> encoded = UUEncodeFile(arguments[0]);
    if (!encoded) {
        context.err << "Cannot read the file " << arguments[0] << '\n';
        return kExitRefused;
    }
    context.out << *encoded;
    return kExitDone;
}

}  // namespace tessarin::cli
