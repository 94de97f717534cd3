#pragma once

#include <cstdint>
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

// A regular file of a folder with what tells whether it changed since it was last read.
struct StampedFile {
    std::string name;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type modified;
};

// The regular files of a folder (links followed) sorted by name, each with its size and
// modification time; a file that cannot be looked at is left out, and a folder that cannot
// be read gives none.
std::vector<StampedFile> ListStampedFiles(const std::filesystem::path& folder);

}  // namespace tessarin
