#include "support/tool_run.h"

#include <sys/wait.h>

#include <cstdio>

namespace tessarin::testing {

ToolRun RunTool(const std::string& commandLine) {
    ToolRun run;
    FILE* pipe = popen((commandLine + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return run;
    char buffer[4096];
    for (std::size_t read; (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        run.output.append(buffer, read);
    const int status = pclose(pipe);
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

}  // namespace tessarin::testing
