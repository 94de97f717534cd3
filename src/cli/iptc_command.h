#pragma once

#include "cli/cli_context.h"

namespace tessarin::cli {

// iptc PICTURE [--mac]: prints the picture's IPTC data as the picture's metadata window shows
// it, one "label: value" line per named dataset in the table's order, then one
// "Segment <number>: <text>" line per dataset the table does not name.
int RunIptcCommand(CliContext& context, const Arguments& arguments);

}  // namespace tessarin::cli
