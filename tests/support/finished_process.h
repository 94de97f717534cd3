#pragma once

#include <string>

namespace tessarin::testing {

// The id of a process that ran and has ended: a child that exits at once, reaped.
int FinishedProcessId();

// The name of a temporary file that the process left beside name ("story.xml.tmp<pid>-<n>").
std::string TemporaryNameOf(const std::string& name, int pid, int number = 0);

}  // namespace tessarin::testing
