#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "metadata/tree_highlight.h"
#include "text/styled_text_case.h"

namespace tessarin {

// What the publications and taxonomy trees share: the searches and the tool tips.

// Both sides of a tree search are compared in upper case (UpperCaseText): letters take their
// capital and keep their accent, so the search is blind to case but not to accents.

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
