#include "cli/cli_run.h"

#include <sys/wait.h>

#include <cstdlib>

namespace tessarin::testing {

CliRun RunCli(const TempDir& folder, const std::string& arguments, const std::string& environment) {
    const std::string command = environment + " " + Quoted(TESSARIN_CLI_PATH) + " --app-dir " +
                                Quoted((folder / "app").string()) + " " + arguments + " >" +
                                Quoted((folder / "out.txt").string()) + " 2>" +
                                Quoted((folder / "err.txt").string());
    const int status = std::system(command.c_str());
    CliRun run;
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = ReadBytes(folder / "out.txt");
    run.err = ReadBytes(folder / "err.txt");
    return run;
}

}  // namespace tessarin::testing
