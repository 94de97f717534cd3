#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "search/search_cache.h"
#include "search/search_tree.h"
#include "search/story_search.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::MakeStoryFile;
using testing::TempDir;

std::size_t Hits(const fs::path& folder, std::string_view text, SearchCache& cache) {
    return SearchStories(folder,
                         MakeSearchQuery(text, SearchScope::Text, SearchOperator::AllWords, false),
                         cache)
        .Found();
}

TEST(SearchCache, StoryChangedBetweenTwoSearchesIsReadAgain) {
    TempDir folder;
    const fs::path story = folder.Write("a/story.xml", MakeStoryFile("P", "alpha"));
    folder.Write("other.xml", MakeStoryFile("P", "alpha"));
    SearchCache cache;
    EXPECT_EQ(Hits(folder.path(), "alpha", cache), 2u);

    // Same size, later modification time: only the stamp tells the change.
    folder.Write("a/story.xml", MakeStoryFile("P", "gamma"));
    fs::last_write_time(story, fs::last_write_time(story) + std::chrono::seconds(2));
    EXPECT_EQ(Hits(folder.path(), "alpha", cache), 1u);
    EXPECT_EQ(Hits(folder.path(), "gamma", cache), 1u);

    // A story that stops parsing drops out; a removed one leaves the cache.
    folder.Write("a/story.xml", "<Story><Body>gamma</Story>");
    EXPECT_EQ(Hits(folder.path(), "gamma", cache), 0u);
    fs::remove(story);
    EXPECT_EQ(Hits(folder.path(), "", cache), 1u);
    EXPECT_EQ(cache.Size(), 1u);
}

TEST(SearchCache, SavedCacheLoadsBackAndDamageIsNeverTrusted) {
    TempDir folder;
    folder.Write("s/one.xml", MakeStoryFile("Pub", "alpha beta", "Cap", "AFP", "k"));
    folder.Write("s/two.bml", MakeStoryFile("Pub", "beta"));
    folder.Write("s/bad.xml", "not a story");
    SearchCache cache;
    Hits(folder / "s", "", cache);
    const fs::path file = folder / "cache";
    ASSERT_TRUE(cache.Save(file));

    SearchCache loaded;
    ASSERT_TRUE(loaded.Load(file));
    EXPECT_EQ(loaded.Size(), 3u);
    for (const char* name : {"s/one.xml", "s/two.bml"}) {
        const fs::path path = folder / name;
        const SearchCache::Entry* saved = cache.Find(path, *StampOf(path));
        const SearchCache::Entry* back = loaded.Find(path, *StampOf(path));
        ASSERT_TRUE(saved && back && back->extract);
        EXPECT_EQ(*back->extract, *saved->extract);
    }
    const fs::path bad = folder / "s/bad.xml";
    ASSERT_TRUE(loaded.Find(bad, *StampOf(bad)));
    EXPECT_FALSE(loaded.Find(bad, *StampOf(bad))->extract);

    // Any changed byte, a cut, or another file: nothing is kept, and the search rebuilds.
    const std::string bytes = testing::ReadBytes(file);
    for (const std::size_t at : {std::size_t{3}, bytes.size() / 2, bytes.size() - 1}) {
        std::string damaged = bytes;
        damaged[at] ^= 0x20;
        folder.Write("damaged", damaged);
        EXPECT_FALSE(loaded.Load(folder / "damaged")) << at;
        EXPECT_EQ(loaded.Size(), 0u);
    }
    folder.Write("damaged", bytes.substr(0, bytes.size() - 9));
    EXPECT_FALSE(loaded.Load(folder / "damaged"));
    EXPECT_FALSE(loaded.Load(folder / "missing"));
    EXPECT_EQ(Hits(folder / "s", "beta", loaded), 2u);
}

}  // namespace
}  // namespace tessarin
