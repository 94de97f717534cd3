#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "config/configuration.h"

namespace tessarin {

// The empty words that the word statistics may leave out: a text file, one word a line.
// The configuration names it (Interface ToolsWordStatisticsEmptyWordsList File, else
// "EmptyWords.txt"), relative to the application directory unless absolute.
std::filesystem::path EmptyWordsFile(const Configuration& configuration,
                                     const std::filesystem::path& appDir);

// The file's words as they stand, each line trimmed, blank lines left out; a missing file
// has none. Bytes that are not UTF-8 are read as Windows-1252.
std::vector<std::string> ReadEmptyWordsList(const std::filesystem::path& file);

// Writes the words one a line; false when the file cannot be written.
bool WriteEmptyWordsList(const std::filesystem::path& file, const std::vector<std::string>& words);

// The words upper-cased, for the statistics to look their upper-case forms up.
class EmptyWords {
  public:
    EmptyWords() = default;
    explicit EmptyWords(const std::vector<std::string>& words);

    bool Empty() const { return upper_.empty(); }
    bool Contains(std::u16string_view upper) const {
        return upper_.contains(std::u16string(upper));
    }

  private:
    std::unordered_set<std::u16string> upper_;
};

}  // namespace tessarin
