#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessarin {

// The lines of a word list (personal dictionary, empty words, synonyms), each trimmed, blank
// lines left out, as UTF-8; bytes that are not UTF-8 are read as Windows-1252. Nothing when
// the file cannot be read.
std::optional<std::vector<std::string>> ReadWordListLines(const std::filesystem::path& file);

}  // namespace tessarin
