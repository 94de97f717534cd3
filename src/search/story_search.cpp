#include "search/story_search.h"

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <unordered_set>

#include "search/story_walk.h"

namespace tessarin {
namespace {

struct FileOutcome {
    SearchCache::Extract extract;
    std::optional<FileStamp> stamp;
    bool read = false;  // not found in the cache: the cache must take it
};

std::size_t WorkerCount(std::size_t files) {
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    return std::max<std::size_t>(1, std::min(cores, files / 64 + 1));
}

}  // namespace

std::vector<const StoryRow*> StorySearchResult::Listed(bool includeBackups) const {
    std::vector<const StoryRow*> rows;
    for (const SearchCache::Extract& hit : hits) {
        if (includeBackups || !hit->row.backup) rows.push_back(&hit->row);
    }
    return rows;
}

std::string StorySearchResult::CountsText(bool includeBackups) const {
    return std::to_string(Found()) + "/" + std::to_string(Listed(includeBackups).size());
}

std::vector<SearchCache::Extract> ExtractFiles(const std::vector<std::filesystem::path>& files,
                                               SearchCache& cache, const SearchProgress& progress) {
    std::vector<FileOutcome> outcomes(files.size());
    std::atomic<std::size_t> next{0};
    std::atomic<std::size_t> done{0};
    const auto work = [&] {
        for (std::size_t index = next++; index < files.size(); index = next++) {
            FileOutcome& outcome = outcomes[index];
            outcome.stamp = StampOf(files[index]);
            if (outcome.stamp) {
                if (const SearchCache::Entry* entry = cache.Find(files[index], *outcome.stamp)) {
                    outcome.extract = entry->extract;
                } else {
                    outcome.read = true;
                    if (std::optional<StoryExtract> extract = ExtractStory(files[index]))
                        outcome.extract = std::make_shared<const StoryExtract>(std::move(*extract));
                }
            }
            const std::size_t count = ++done;
            if (progress && (count % 64 == 0 || count == files.size()))
                progress(count, files.size());
        }
    };
    std::vector<std::jthread> workers;
    for (std::size_t worker = 1; worker < WorkerCount(files.size()); ++worker)
        workers.emplace_back(work);
    work();
    workers.clear();

    std::vector<SearchCache::Extract> extracts;
    extracts.reserve(files.size());
    for (std::size_t index = 0; index < files.size(); ++index) {
        FileOutcome& outcome = outcomes[index];
        if (outcome.read) cache.Put(files[index], {*outcome.stamp, outcome.extract});
        extracts.push_back(std::move(outcome.extract));
    }
    return extracts;
}

StorySearchResult SearchStories(const std::filesystem::path& folder, const SearchQuery& query,
                                SearchCache& cache, const SearchProgress& progress) {
    const std::vector<std::filesystem::path> files = WalkFolderFiles(folder, true);
    std::vector<SearchCache::Extract> extracts = ExtractFiles(files, cache, progress);

    std::unordered_set<std::string> present(files.begin(), files.end());
    cache.ForgetBelow(folder, [&](const std::string& path) { return present.contains(path); });

    StorySearchResult result;
    for (SearchCache::Extract& extract : extracts) {
        if (extract && StoryMatches(*extract, query)) result.hits.push_back(std::move(extract));
    }
    return result;
}

}  // namespace tessarin
