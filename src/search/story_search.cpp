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

std::size_t WorkerCount(std::size_t items) {
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    return std::max<std::size_t>(1, std::min(cores, items / 64 + 1));
}

// Runs work(index) for every index below count, on as many threads as the machine has cores;
// this thread takes its share.
template <typename Work>
void ForEachInParallel(std::size_t count, const Work& work) {
    std::atomic<std::size_t> next{0};
    const auto worker = [&] {
        for (std::size_t index = next++; index < count; index = next++)
            work(index);
    };
    std::vector<std::jthread> workers;
    for (std::size_t extra = 1; extra < WorkerCount(count); ++extra)
        workers.emplace_back(worker);
    worker();
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
    std::atomic<std::size_t> done{0};
    ForEachInParallel(files.size(), [&](std::size_t index) {
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
        if (progress && (count % 64 == 0 || count == files.size())) progress(count, files.size());
    });

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

    std::vector<char> answers(extracts.size());
    ForEachInParallel(extracts.size(), [&](std::size_t index) {
        answers[index] = extracts[index] && StoryMatches(*extracts[index], query);
    });
    StorySearchResult result;
    for (std::size_t index = 0; index < extracts.size(); ++index) {
        if (answers[index]) result.hits.push_back(std::move(extracts[index]));
    }
    return result;
}

}  // namespace tessarin
