#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "metadata/tree_highlight.h"
#include "session/editor_session.h"

namespace tessarin {

// The taxonomy tree treeTaxonomy: its leaves have check boxes, and the checked topics are the
// story's taxonomy (the story record's list, lstTaxonomy), each kept by its text and its formal
// number, the leaf's tag. The list follows the tree's checks, in tree order; a leaf whose tag
// is not numeric cannot be stored in a story and stays out of the list.

inline constexpr std::string_view kTaxonomyTree = "treeTaxonomy";

// A click on the check box of the leaf of key. The tree is walked: each checked node is bold,
// every other node normal, and with HighlightInformations on the path from each checked node
// up to the root is highlighted. The story's list is rebuilt from the checks, the story is
// modified and the metadata tool tip refreshed. False, and nothing done, for a key without a
// node that has a check box.
bool CheckTaxonomyTopic(EditorSession& session, TreeHighlights& highlights, std::string_view key,
                        bool checked);

// Shows the story's taxonomy in the tree, after a story is read or reset: a leaf is checked
// when its tag is the formal number of a topic of the story, and the tree is made bold and
// highlighted as a click makes it. The story's list and its modified flag stay as they are.
void ShowStoryTaxonomy(EditorSession& session, TreeHighlights& highlights);

// The tip of a node: its tag, " - " and its text.
std::string TaxonomyNodeTip(const TreeNode& node);

// The mouse over the node of key: with TaxonomyTooltips on, the tree's tool tip becomes the
// node's tip. Returns true when the tip changed.
bool PointTaxonomyNode(EditorSession& session, std::string_view key);

// The prompt of the taxonomy search's input box: prompt, a line break, "[", the number of
// nodes, " items]".
std::string TaxonomySearchPrompt(std::string_view prompt, const WindowState& window);

// The taxonomy search with the input box's answer, trimmed and upper-cased; an empty answer
// does nothing. Otherwise the highlight is cleared, and each node whose upper-cased text holds
// the answer is highlighted with its ancestors expanded. Returns the key of the first match,
// to be scrolled into view.
std::optional<std::string> SearchTaxonomy(WindowState& window, TreeHighlights& highlights,
                                          std::string_view answer);

}  // namespace tessarin
