#include "metadata/tree_search.h"

#include "common/utf8.h"
#include "text/styled_text_case.h"

namespace tessarin {

std::string ItemsCountText(std::size_t count) {
    return " [" + std::to_string(count) + " items]";
}

std::optional<std::string> HighlightMatches(TreeModel& tree, std::string_view treeName,
                                            TreeHighlights& highlights,
                                            const std::function<bool(const TreeNode&)>& matches) {
    std::optional<std::string> firstMatch;
    VisitNodes(tree, [&](TreeNode& node, const std::vector<TreeNode*>& ancestors) {
        if (!matches(node)) return;
        if (!firstMatch) firstMatch = node.key;
        highlights.Highlight(treeName, node);
        for (TreeNode* ancestor : ancestors)
            ancestor->expanded = true;
    });
    return firstMatch;
}

bool ShowTreeTip(WindowState& window, std::string_view treeName, std::string tip) {
    std::string& shown = window.Control(treeName).toolTip;
    if (shown == tip) return false;
    shown = std::move(tip);
    return true;
}

}  // namespace tessarin
