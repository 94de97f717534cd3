#include "metadata/taxonomy.h"

#include <algorithm>
#include <vector>

#include "common/number_parse.h"
#include "config/text_trim.h"
#include "metadata/metadata_changed.h"
#include "metadata/tree_search.h"

namespace tessarin {
namespace {

// Bold checked nodes, and the highlighted paths up to the root of each when the preference
// asks for it; every other node normal.
void MarkCheckedTopics(EditorSession& session, TreeHighlights& highlights) {
    TreeModel& tree = session.window.Tree(kTaxonomyTree);
    highlights.Clear(kTaxonomyTree, tree);
    const bool highlightPaths = session.preferences.HighlightInformations;
    VisitNodes(tree, [&](TreeNode& node, const std::vector<TreeNode*>& ancestors) {
        if (!node.checked) return;
        node.bold = true;
        if (!highlightPaths) return;
        for (TreeNode* ancestor : ancestors)
            highlights.Highlight(kTaxonomyTree, *ancestor);
        highlights.Highlight(kTaxonomyTree, node);
    });
}

std::vector<TaxonomyTopic> CheckedTopics(const TreeModel& tree) {
    std::vector<TaxonomyTopic> topics;
    for (const TreeNode* node : tree.AllNodes()) {
        if (node->checked && IsNumeric(node->tag)) {
            topics.push_back({node->text, ParseLeadingInteger(node->tag)});
        }
    }
    return topics;
}

bool IsStoryTopic(const StoryRecord& story, const TreeNode& node) {
    if (!node.hasCheckbox || !IsNumeric(node.tag)) return false;
    const std::int64_t number = ParseLeadingInteger(node.tag);
    return std::any_of(story.taxonomy.begin(), story.taxonomy.end(),
                       [&](const TaxonomyTopic& topic) { return topic.formalNumber == number; });
}

}  // namespace

bool CheckTaxonomyTopic(EditorSession& session, TreeHighlights& highlights, std::string_view key,
                        bool checked) {
    TreeModel& tree = session.window.Tree(kTaxonomyTree);
    TreeNode* node = tree.Find(key);
    if (!node || !node->hasCheckbox) return false;
    node->checked = checked;
    MarkCheckedTopics(session, highlights);
    session.story.taxonomy = CheckedTopics(tree);
    MetadataValueChanged(session);
    return true;
}

void ShowStoryTaxonomy(EditorSession& session, TreeHighlights& highlights) {
    VisitNodes(session.window.Tree(kTaxonomyTree),
               [&](TreeNode& node, const std::vector<TreeNode*>&) {
                   node.checked = IsStoryTopic(session.story, node);
               });
    MarkCheckedTopics(session, highlights);
}

std::string TaxonomyNodeTip(const TreeNode& node) {
    return node.tag + " - " + node.text;
}

bool PointTaxonomyNode(EditorSession& session, std::string_view key) {
    if (!session.preferences.TaxonomyTooltips) return false;
    const TreeNode* node = session.window.Tree(kTaxonomyTree).Find(key);
    if (!node) return false;
    return ShowTreeTip(session.window, kTaxonomyTree, TaxonomyNodeTip(*node));
}

std::string TaxonomySearchPrompt(std::string_view prompt, const WindowState& window) {
    const TreeModel* tree = window.FindTree(kTaxonomyTree);
    const std::string count = std::to_string(tree ? tree->Count() : 0);
    return std::string(prompt) + "\n[" + count + " items]";
}

std::optional<std::string> SearchTaxonomy(WindowState& window, TreeHighlights& highlights,
                                          std::string_view answer) {
    const std::string wanted = UpperCaseText(TrimWhitespace(answer));
    if (wanted.empty()) return std::nullopt;
    TreeModel& tree = window.Tree(kTaxonomyTree);
    highlights.Clear(kTaxonomyTree, tree);
    return HighlightMatches(tree, kTaxonomyTree, highlights, [&](const TreeNode& node) {
        return UpperCaseText(node.text).find(wanted) != std::string::npos;
    });
}

}  // namespace tessarin
