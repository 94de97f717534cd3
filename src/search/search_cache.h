#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>

#include "search/story_row.h"

namespace tessarin {

// What a file looked like when it was read: a file whose size or modification time differs
// is read again.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t modified = 0;  // nanoseconds of the file's modification time

    bool operator==(const FileStamp&) const = default;
};

// The stamp of a file now; nothing when it cannot be examined.
std::optional<FileStamp> StampOf(const std::filesystem::path& file);

// The rows and texts of story files already read, by path, with the stamp each had then, so
// that a search reads again only the files that changed. A file that did not parse is
// remembered as such (a null extract). The cache is kept in a file beside the preferences; a
// cache file that is missing, of another version or damaged in any byte loads as empty and
// is rebuilt by the next search.
class SearchCache {
  public:
    using Extract = std::shared_ptr<const StoryExtract>;
    struct Entry {
        FileStamp stamp;
        Extract extract;  // null for a file that is no story
    };

    // The entry of the path when its stamp is the one given; null otherwise.
    const Entry* Find(const std::string& path, const FileStamp& stamp) const;
    void Put(const std::string& path, Entry entry);

    // Forgets the entries below the folder whose path is not in keep (files that are gone).
    template <typename Keep>
    void ForgetBelow(const std::filesystem::path& folder, const Keep& keep);

    std::size_t Size() const { return entries_.size(); }

    // False when the file is missing or cannot be trusted; the cache is then empty.
    bool Load(const std::filesystem::path& file);
    bool Save(const std::filesystem::path& file) const;

  private:
    std::unordered_map<std::string, Entry> entries_;
};

template <typename Keep>
void SearchCache::ForgetBelow(const std::filesystem::path& folder, const Keep& keep) {
    std::string prefix = folder.string();
    if (!prefix.empty() && prefix.back() != '/') prefix += '/';
    std::erase_if(entries_, [&](const auto& item) {
        return item.first.starts_with(prefix) && !keep(item.first);
    });
}

// Where the program keeps the cache: beside the preferences file.
std::filesystem::path SearchCacheFileBeside(const std::filesystem::path& preferencesFile);

}  // namespace tessarin
