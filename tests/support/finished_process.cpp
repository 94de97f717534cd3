#include "support/finished_process.h"

#include <sys/wait.h>
#include <unistd.h>

namespace tessarin::testing {

int FinishedProcessId() {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}

std::string TemporaryNameOf(const std::string& name, int pid, int number) {
    return name + ".tmp" + std::to_string(pid) + "-" + std::to_string(number);
}

}  // namespace tessarin::testing
