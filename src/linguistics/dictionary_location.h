#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

// Where spelling dictionaries (a .aff and a .dic file of one name) are looked for, in order:
// each folder of $DICPATH (separated by ":"), then the system's folders.
std::vector<std::filesystem::path> DictionaryFolders();

// The dictionary of a language code, as a path without extension: the first folder that
// holds the code itself ("fr", "en_US"; "en-US" is read as "en_US"), else the code with its
// own upper case as region ("fr_FR"), else any region of the language, the first by name.
// Nothing when no folder holds one.
std::optional<std::filesystem::path> FindDictionary(
    std::string_view language, const std::vector<std::filesystem::path>& folders);

// The language of the locale: LC_ALL, else LC_MESSAGES, else LANG, without its encoding
// ("fr_FR.UTF-8" gives "fr_FR"); empty for "C", "POSIX" or nothing set.
std::string LocaleLanguage();

}  // namespace tessarin
