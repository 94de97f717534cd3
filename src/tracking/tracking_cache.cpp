#include "tracking/tracking_cache.h"

#include "common/file_io.h"
#include "common/folder_listing.h"
#include "common/parallel_work.h"

namespace fs = std::filesystem;

namespace tessarin {

std::vector<TrackingCache::Entry> TrackingCache::Refresh(const fs::path& folder, int titleBox,
                                                         bool withText) {
    const std::vector<StampedFile> files = ListStampedFiles(folder);
    std::map<std::string, Known, std::less<>> current;
    std::vector<std::pair<const StampedFile*, Known*>> toRead;
    for (const StampedFile& file : files) {
        Known& known = current[file.name];
        const auto earlier = known_.find(file.name);
        if (earlier != known_.end() && earlier->second.size == file.size &&
            earlier->second.modified == file.modified && earlier->second.titleBox == titleBox &&
            (earlier->second.withText || !withText)) {
            known = std::move(earlier->second);
            continue;
        }
        known = {file.size, file.modified, titleBox, withText, nullptr};
        toRead.emplace_back(&file, &known);
    }
    ForEachInParallel(toRead.size(), [&](std::size_t index) {
        const auto& [file, known] = toRead[index];
        const std::optional<std::string> bytes = ReadFileBytes(folder / file->name);
        if (!bytes) return;
        if (std::optional<TrackedStory> story = ReadTrackedStory(*bytes, titleBox, withText))
            known->story = std::make_shared<const TrackedStory>(std::move(*story));
    });
    known_ = std::move(current);
    std::vector<Entry> entries;
    entries.reserve(files.size());
    for (const StampedFile& file : files)
        entries.push_back({file.name, known_.find(file.name)->second.story});
    return entries;
}

}  // namespace tessarin
