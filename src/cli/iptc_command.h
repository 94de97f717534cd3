#pragma once

#include "cli/cli_context.h"

namespace tessarin::cli {

// iptc PICTURE... [--mac]: prints each picture's IPTC data as the picture's metadata window
// shows it, one "label: value" line per named dataset in the table's order, then one
// "Segment <number>: <text>" line per dataset the table does not name. With several
// pictures, each picture's lines follow a line "== <path as given>"; a missing picture is
// reported on standard error and the others are still printed (exit status 1 at the end).
int RunIptcCommand(CliContext& context, const Arguments& arguments);

}  // namespace tessarin::cli
