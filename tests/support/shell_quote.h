#pragma once

#include <string>

namespace tessarin::testing {

// The text quoted for the shell.
std::string Quoted(const std::string& text);

}  // namespace tessarin::testing
