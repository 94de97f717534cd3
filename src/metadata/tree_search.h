#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "metadata/tree_highlight.h"

namespace tessarin {

// What the publications and taxonomy trees share: the searches and the tool tips.

// The text in upper case, as both sides of a tree search are compared: the letters of ASCII,
// Latin-1, Latin Extended-A, Greek and Cyrillic take their capital, and keep their accent
// ("é" gives "É", never "E"). The search is thus blind to case but not to accents.
std::string UpperCaseText(std::string_view text);

// The count of a tree's nodes as the search dialogs show it: " [", count, " items]".
std::string ItemsCountText(std::size_t count);

// Highlights each node of the tree that matches and expands every ancestor of it, so that it
// can be seen; the nodes themselves keep their expanded state. Returns the key of the first
// match in tree order, which the caller scrolls into view; nothing when none matched.
std::optional<std::string> HighlightMatches(TreeModel& tree, std::string_view treeName,
                                            TreeHighlights& highlights,
                                            const std::function<bool(const TreeNode&)>& matches);

// Sets the tool tip of the named tree to tip, only when it differs from the tip it holds.
// Returns true when it changed, so that the tip is shown again only then.
bool ShowTreeTip(WindowState& window, std::string_view treeName, std::string tip);

}  // namespace tessarin
