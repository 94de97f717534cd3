#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// The names of the regular files in a folder whose extension is the one given (".xml",
// ".nc", ".htm"), in any case, as a wildcard search finds them, sorted by name; empty when
// the folder cannot be read.
std::vector<std::string> NamesWithExtension(const std::filesystem::path& folder,
                                            std::string_view extension);

}  // namespace tessarin
