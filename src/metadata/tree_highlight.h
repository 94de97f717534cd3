#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/window_state.h"
#include "config/preferences.h"

namespace tessarin {

// The highlight of the selection trees (treePublications, treeTaxonomy): a highlighted node
// is bold and has the back colour ColorInformations; an ordinary node is not bold and has a
// white back colour. Tree nodes carry no back colour of their own, so the highlighted keys are
// kept here, one set per tree. A key shows the highlight only while its node is bold: a tree
// rebuilt from the configuration has no bold node, so a reload drops the highlight without
// anyone telling this store.
inline constexpr OleColour kOrdinaryBackColour = ClassicColour(15);

class TreeHighlights {
  public:
    // Highlights one node of the named tree: bold, and the highlight back colour.
    void Highlight(std::string_view treeName, TreeNode& node);

    // Clears the highlight of the whole tree: every bold node is made normal, every node
    // gets the white back colour.
    void Clear(std::string_view treeName, TreeModel& tree);

    bool IsHighlighted(std::string_view treeName, const TreeNode& node) const;

    // The back colour a node shows: ColorInformations when highlighted, else white.
    OleColour BackColour(std::string_view treeName, const TreeNode& node,
                         const Preferences& preferences) const;

  private:
    std::map<std::string, std::set<std::string, std::less<>>, std::less<>> keys_;
};

// The nodes from a root of the tree down to the node whose key is key, in that order; empty
// when no node has that key.
std::vector<TreeNode*> PathToKey(TreeModel& tree, std::string_view key);

// Visits every node depth first in tree order, with its ancestors from the root down.
using NodeVisitor = std::function<void(TreeNode& node, const std::vector<TreeNode*>& ancestors)>;
void VisitNodes(TreeModel& tree, const NodeVisitor& visit);

}  // namespace tessarin
