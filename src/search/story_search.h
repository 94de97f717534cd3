#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

#include "search/search_cache.h"
#include "search/search_query.h"

namespace tessarin {

// The stories that answered a search, in the order of the folder walk, backup stories
// included.
struct StorySearchResult {
    std::vector<SearchCache::Extract> hits;

    std::size_t Found() const { return hits.size(); }
    // The hits the list shows: backup stories only when they are included.
    std::vector<const StoryRow*> Listed(bool includeBackups) const;
    // "<found>/<listed>".
    std::string CountsText(bool includeBackups) const;
};

// Told from the worker threads as files are done: how many, of how many.
using SearchProgress = std::function<void(std::size_t done, std::size_t total)>;

// Reads the story files of a folder tree as they stand (the texts of a file whose path, size
// and modification time are those the cache holds are taken from the cache; the others are
// read, several files at a time, and the cache takes them) and keeps those that answer the
// query. A file that cannot be read or does not parse, and a folder that cannot be read, are
// passed over.
StorySearchResult SearchStories(const std::filesystem::path& folder, const SearchQuery& query,
                                SearchCache& cache, const SearchProgress& progress = {});

// The extracts of the given files in their order, each read once: from the cache when its
// stamp still holds, otherwise from the file, in parallel. A null extract for a file that
// cannot be read or is no story. The cache takes what was read.
std::vector<SearchCache::Extract> ExtractFiles(const std::vector<std::filesystem::path>& files,
                                               SearchCache& cache,
                                               const SearchProgress& progress = {});

}  // namespace tessarin
