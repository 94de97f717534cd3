#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "app/window_state.h"
#include "story/story_record.h"

namespace tessarin {

// The keyword categories of treeKeywords and the story's keywords under them. The configured
// tree keys a category "K" followed by its index ("K3"), while a story read back names it by
// the index followed by "K" ("3K"): both name the same category, so keywords are matched to
// their category by the number alone.

// The category number that a key names: "K3" and "3K" both give 3; nothing for a key that
// is neither form ("K", "3", "KK").
std::optional<std::int32_t> KeywordCategoryNumber(std::string_view key);

// The categories under the root of treeKeywords, in tree order; empty when there is no tree.
std::vector<const TreeNode*> KeywordCategories(const WindowState& window);

// The story's keywords under one category node, in the story's order.
std::vector<const StoryKeyword*> KeywordsOfCategory(const StoryRecord& story,
                                                    const TreeNode& category);

}  // namespace tessarin
