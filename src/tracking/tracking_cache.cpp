#include "tracking/tracking_cache.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>

#include "common/file_io.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

struct Listed {
    std::string name;
    std::uintmax_t size = 0;
    fs::file_time_type modified;
};

std::vector<Listed> ListFiles(const fs::path& folder) {
    std::vector<Listed> files;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code statError;
        if (!it->is_regular_file(statError)) continue;
        Listed file{it->path().filename().string(), it->file_size(statError),
                    it->last_write_time(statError)};
        if (!statError) files.push_back(std::move(file));
    }
    std::sort(files.begin(), files.end(),
              [](const Listed& a, const Listed& b) { return a.name < b.name; });
    return files;
}

// Runs work(i) for every i below count on the machine's cores.
template <typename Work>
void ForEachInParallel(std::size_t count, Work work) {
    const std::size_t threads =
        std::min<std::size_t>(count, std::max(1u, std::thread::hardware_concurrency()));
    std::atomic<std::size_t> next{0};
    const auto run = [&] {
        for (std::size_t i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::jthread> pool;
    for (std::size_t t = 1; t < threads; ++t)
        pool.emplace_back(run);
    run();
}

}  // namespace

std::vector<TrackingCache::Entry> TrackingCache::Refresh(const fs::path& folder, int titleBox,
                                                         bool withText) {
    const std::vector<Listed> files = ListFiles(folder);
    std::map<std::string, Known, std::less<>> current;
    std::vector<std::pair<const Listed*, Known*>> toRead;
    for (const Listed& file : files) {
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
    for (const Listed& file : files)
        entries.push_back({file.name, known_.find(file.name)->second.story});
    return entries;
}

}  // namespace tessarin
