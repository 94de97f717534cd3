#include "search/story_walk.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace tessarin {
namespace {

bool IsExtension(const std::string& extension, char a, char b, char c) {
    const auto lower = [](char ch) { return static_cast<char>(ch | 0x20); };
    return extension.size() == 4 && extension[0] == '.' && lower(extension[1]) == a &&
           lower(extension[2]) == b && lower(extension[3]) == c;
}

void WalkInto(const fs::path& folder, bool storiesOnly, std::vector<fs::path>& files) {
    struct Entry {
        std::string name;
        fs::path path;
        bool isFolder;
    };
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code typeError;
        const bool isFolder = !entry->is_symlink(typeError) && entry->is_directory(typeError);
        if (isFolder || entry->is_regular_file(typeError))
            entries.push_back({entry->path().filename().string(), entry->path(), isFolder});
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& a, const Entry& b) { return a.name < b.name; });
    for (auto& [name, path, isFolder] : entries) {
        if (isFolder) {
            WalkInto(path, storiesOnly, files);
        } else if (!storiesOnly || IsStoryFileName(path)) {
            files.push_back(std::move(path));
        }
    }
}

}  // namespace

bool IsStoryFileName(const fs::path& file) {
    const std::string extension = file.extension().string();
    return IsExtension(extension, 'x', 'm', 'l') || IsExtension(extension, 'b', 'm', 'l');
}

std::vector<fs::path> WalkFolderFiles(const fs::path& folder, bool storiesOnly) {
    std::vector<fs::path> files;
    WalkInto(folder, storiesOnly, files);
    return files;
}

}  // namespace tessarin
