#include "linguistics/dictionary_location.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace tessarin {
namespace {

namespace fs = std::filesystem;

bool HoldsDictionary(const fs::path& base) {
    std::error_code error;
    return fs::is_regular_file(fs::path(base).concat(".aff"), error) &&
           fs::is_regular_file(fs::path(base).concat(".dic"), error);
}

std::string AsDictionaryName(std::string_view language) {
    std::string name(language);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

std::string UpperAscii(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

// The dictionaries of a folder named language_REGION, sorted by name.
std::vector<fs::path> RegionsOf(const fs::path& folder, const std::string& language) {
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path file = entry->path();
        if (file.extension() != ".dic") continue;
        const std::string stem = file.stem().string();
        if (stem.starts_with(language + "_") && HoldsDictionary(folder / stem))
            found.push_back(folder / stem);
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace

std::vector<fs::path> DictionaryFolders() {
    std::vector<fs::path> folders;
    if (const char* dicpath = std::getenv("DICPATH")) {
        std::string_view rest = dicpath;
        while (!rest.empty()) {
            const std::size_t colon = rest.find(':');
            if (colon != 0) folders.emplace_back(rest.substr(0, colon));
            if (colon == std::string_view::npos) break;
            rest.remove_prefix(colon + 1);
        }
    }
    folders.emplace_back("/usr/share/hunspell");
    folders.emplace_back("/usr/share/myspell/dicts");
    folders.emplace_back("/usr/share/myspell");
    return folders;
}

std::optional<fs::path> FindDictionary(std::string_view language,
                                       const std::vector<fs::path>& folders) {
    const std::string name = AsDictionaryName(language);
    if (name.empty() || name.find('/') != std::string::npos || name.find("..") != std::string::npos)
        return std::nullopt;
    const std::string region =
        name.find('_') == std::string::npos ? name + "_" + UpperAscii(name) : name;
    for (const std::string& candidate : {name, region}) {
        for (const fs::path& folder : folders) {
            if (HoldsDictionary(folder / candidate)) return folder / candidate;
        }
    }
    const std::string base = name.substr(0, name.find('_'));
    for (const fs::path& folder : folders) {
        const std::vector<fs::path> regions = RegionsOf(folder, base);
        if (!regions.empty()) return regions.front();
    }
    return std::nullopt;
}

std::string LocaleLanguage() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value == nullptr || *value == '\0') continue;
        std::string language(value);
        language = language.substr(0, language.find_first_of(".@"));
        if (language == "C" || language == "POSIX") return {};
        return language;
    }
    return {};
}

}  // namespace tessarin
