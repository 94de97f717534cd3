#include "common/folder_listing.h"

#include <algorithm>
#include <cctype>
#include <system_error>

namespace fs = std::filesystem;

namespace tessarin {
namespace {

bool EndsWithNoCase(std::string_view text, std::string_view end) {
    if (text.size() < end.size()) return false;
    return std::equal(end.begin(), end.end(), text.end() - static_cast<std::ptrdiff_t>(end.size()),
                      [](char a, char b) {
                          return std::tolower(static_cast<unsigned char>(a)) ==
                                 std::tolower(static_cast<unsigned char>(b));
                      });
}

}  // namespace

std::vector<std::string> NamesWithExtension(const fs::path& folder, std::string_view extension) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code typeError;
        if (EndsWithNoCase(name, extension) && entry->is_regular_file(typeError))
            names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<StampedFile> ListStampedFiles(const fs::path& folder) {
    std::vector<StampedFile> files;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code statError;
        if (!it->is_regular_file(statError)) continue;
        StampedFile file{it->path().filename().string(), it->file_size(statError),
                         it->last_write_time(statError)};
        if (!statError) files.push_back(std::move(file));
    }
    std::sort(files.begin(), files.end(),
              [](const StampedFile& a, const StampedFile& b) { return a.name < b.name; });
    return files;
}

}  // namespace tessarin
