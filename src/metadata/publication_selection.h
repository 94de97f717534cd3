#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "metadata/tree_highlight.h"
#include "session/editor_session.h"

namespace tessarin {

// Filing a story by a click in treePublications, and the search in that tree. The nodes' tags
// say what they are (see publications_tree.h): the first letter is the kind, "P" publication,
// "C" classification ("CG" general, "CL" local), "S" section, "T" sub-section followed by its
// code, which holds the first and second codes apart at its first "/".

inline constexpr std::string_view kPublicationsTree = "treePublications";

// A click on the node of key. The highlight of the whole tree is cleared first; then, by the
// kind of the node, the classification fields of the story are set and the chain from the
// node up to its publication is highlighted:
//   "T": publication, classification, section and sub-section from the chain; under a local
//        classification the local section and sub-section and both codes (the second code is
//        empty when the code has no "/"), the general ones cleared; under any other the
//        general section and sub-section, the local ones and the codes cleared.
//   "S": publication and classification from the chain, the node's text as the general or
//        local section, every other section field and the codes cleared.
//   "C": publication from the parent, classification the node's text, the rest cleared.
//   "P": publication the node's text, classification as it was, the rest cleared.
// For "T", "S" and "C" the general-or-local flag follows the classification: local for "CL",
// general otherwise. When a field changed, the story is marked modified and the metadata tool
// tip refreshed; a click that changes nothing marks nothing. False for a key without node, or
// a node of no known kind (the highlight is cleared all the same).
bool ClickPublicationNode(EditorSession& session, TreeHighlights& highlights, std::string_view key);

// The tip of a node: for a sub-section its code, " - " and its text; for the others the text.
std::string PublicationNodeTip(const TreeNode& node);

// The mouse over the node of key: with ClassificationTooltips on, the tree's tool tip becomes
// the node's tip. Returns true when the tip changed, so that it is shown again only then.
bool PointPublicationNode(EditorSession& session, std::string_view key);

enum class PublicationSearchMode { Name, FirstCode, SecondCode };

// The search of frmSearchPublications. The text is trimmed and upper-cased; an empty one does
// nothing. Otherwise the highlight is cleared, every node collapsed, and each node that
// matches is highlighted with its ancestors expanded: by name when the text occurs in the
// node's upper-cased text, by first code when it occurs in its upper-cased tag, by second code
// when "/" and the text occur in its upper-cased tag. A match may lie inside a word. Returns
// the key of the first match, to be scrolled into view.
std::optional<std::string> SearchPublications(WindowState& window, TreeHighlights& highlights,
                                              std::string_view text, PublicationSearchMode mode);

// The node count that the search dialog adds to its label: " [", count, " items]".
std::string PublicationsCountText(const WindowState& window);

}  // namespace tessarin
