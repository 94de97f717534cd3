#include "support/demo_launch.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "support/shell_quote.h"

namespace tessarin::testing {
namespace {

namespace fs = std::filesystem;

const fs::path kRepository = TESSARIN_SOURCE_DIR;

}  // namespace

DemoLaunch LaunchDemo(const TempDir& folder, const fs::path& appDir) {
    const fs::path environmentFile = folder / "launched-editor.env";
    const fs::path editor = folder.Write(
        "stand-in/tessarin", "#!/bin/sh\nenv > " + Quoted(environmentFile.string()) + "\n");
    fs::permissions(editor, fs::perms::owner_exec, fs::perm_options::add);
    const std::string command =
        "LC_ALL=C TESSARIN_BUILD_DIR=" + Quoted(editor.parent_path().string()) + " " +
        Quoted((kRepository / "scripts/demo").string()) + " --app-dir " + Quoted(appDir.string()) +
        " >/dev/null";
    const int status = std::system(command.c_str());
    DemoLaunch launch;
    launch.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ifstream lines(environmentFile);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos)
            launch.environment[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return launch;
}

}  // namespace tessarin::testing
