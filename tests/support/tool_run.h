#pragma once

#include <string>

namespace tessarin::testing {

// What a command line of the shell gave: its exit status (-1 when it did not exit) and its
// standard output and error together.
struct ToolRun {
    int exitStatus = -1;
    std::string output;
};
ToolRun RunTool(const std::string& commandLine);

}  // namespace tessarin::testing
