#include "metadata/tree_highlight.h"

namespace tessarin {
namespace {

void Visit(std::list<TreeNode>& nodes, std::vector<TreeNode*>& ancestors,
           const NodeVisitor& visit) {
    for (TreeNode& node : nodes) {
        visit(node, ancestors);
        ancestors.push_back(&node);
        Visit(node.children, ancestors, visit);
        ancestors.pop_back();
    }
}

bool FindPath(std::list<TreeNode>& nodes, std::string_view key, std::vector<TreeNode*>& path) {
    for (TreeNode& node : nodes) {
        path.push_back(&node);
        if (node.key == key || FindPath(node.children, key, path)) return true;
        path.pop_back();
    }
    return false;
}

}  // namespace

void TreeHighlights::Highlight(std::string_view treeName, TreeNode& node) {
    node.bold = true;
    keys_[std::string(treeName)].insert(node.key);
}

void TreeHighlights::Clear(std::string_view treeName, TreeModel& tree) {
    VisitNodes(tree, [](TreeNode& node, const std::vector<TreeNode*>&) { node.bold = false; });
    if (auto found = keys_.find(treeName); found != keys_.end()) found->second.clear();
}

bool TreeHighlights::IsHighlighted(std::string_view treeName, const TreeNode& node) const {
    if (!node.bold) return false;
    const auto found = keys_.find(treeName);
    return found != keys_.end() && found->second.contains(node.key);
}

OleColour TreeHighlights::BackColour(std::string_view treeName, const TreeNode& node,
                                     const Preferences& preferences) const {
    return IsHighlighted(treeName, node) ? preferences.ColorInformations : kOrdinaryBackColour;
}

std::vector<TreeNode*> PathToKey(TreeModel& tree, std::string_view key) {
    std::vector<TreeNode*> path;
    FindPath(tree.Roots(), key, path);
    return path;
}

void VisitNodes(TreeModel& tree, const NodeVisitor& visit) {
    std::vector<TreeNode*> ancestors;
    Visit(tree.Roots(), ancestors, visit);
}

}  // namespace tessarin
