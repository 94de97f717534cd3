#include "metadata/keywords.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "config/text_trim.h"
#include "metadata/keyword_categories.h"
#include "metadata/metadata_changed.h"
#include "metadata/tree_highlight.h"

namespace tessarin {
namespace {

constexpr std::size_t kCategoryLevel = 1;  // the categories hang under the root, level 0
constexpr std::size_t kKeywordLevel = 2;

TreeNode MakeNode(std::string key, std::string text, std::string tag) {
    TreeNode node;
    node.key = std::move(key);
    node.text = std::move(text);
    node.tag = std::move(tag);
    node.bold = true;
    node.expanded = true;
    return node;
}

void ShowCategoryKeywords(EditorSession& session, TreeModel& tree, TreeNode& category) {
    const std::vector<const StoryKeyword*> keywords = KeywordsOfCategory(session.story, category);
    category.children.clear();
    int running = 0;
    for (const StoryKeyword* keyword : keywords) {
        tree.Add(&category, MakeNode(category.key + "/" + std::to_string(++running), keyword->text,
                                     category.tag));
    }
    tree.Add(&category, MakeNode(KeywordEntryKey(category.key), session.Message("NewKeyword"), ""));
}

bool CategoryHolds(const StoryRecord& story, const TreeNode& category, std::string_view text) {
    const std::vector<const StoryKeyword*> keywords = KeywordsOfCategory(story, category);
    return std::any_of(keywords.begin(), keywords.end(),
                       [&](const StoryKeyword* keyword) { return keyword->text == text; });
}

KeywordEdit Changed(EditorSession& session, const std::string& categoryKey) {
    ShowStoryKeywords(session);
    MetadataValueChanged(session);
    return {true, KeywordEntryKey(categoryKey)};
}

}  // namespace

std::string KeywordEntryKey(std::string_view categoryKey) {
    return std::string(categoryKey) + "/new";
}

void ShowStoryKeywords(EditorSession& session) {
    TreeModel& tree = session.window.Tree(kKeywordsTree);
    if (tree.Empty()) return;
    for (TreeNode& category : tree.Roots().front().children)
        ShowCategoryKeywords(session, tree, category);
}

KeywordEdit AddKeyword(EditorSession& session, std::string_view key, std::string_view text) {
    const std::vector<TreeNode*> path = PathToKey(session.window.Tree(kKeywordsTree), key);
    if (path.size() <= kCategoryLevel) return {};
    const TreeNode& category = *path[kCategoryLevel];
    const KeywordEdit refused{false, KeywordEntryKey(category.key)};
    const std::string keyword(TrimWhitespace(text));
    if (keyword == session.Message("NewKeyword")) return refused;
    if (keyword.empty()) {
        session.window.ShowStatusError(session.Message("InvalidKeyword"));
        return refused;
    }
    if (CategoryHolds(session.story, category, keyword)) {
        session.window.ShowStatusError(keyword + ": " + session.Message("KeywordAlreadyPresent"));
        return refused;
    }
    session.story.keywords.push_back({category.key, keyword});
    return Changed(session, category.key);
}

KeywordEdit RemoveKeyword(EditorSession& session, std::string_view key) {
    const std::vector<TreeNode*> path = PathToKey(session.window.Tree(kKeywordsTree), key);
    if (path.size() != kKeywordLevel + 1) return {};
    const TreeNode& category = *path[kCategoryLevel];
    const auto& siblings = category.children;
    const auto position = std::find_if(siblings.begin(), siblings.end(),
                                       [&](const TreeNode& node) { return node.key == key; });
    const auto index = static_cast<std::size_t>(std::distance(siblings.begin(), position));
    const std::vector<const StoryKeyword*> keywords = KeywordsOfCategory(session.story, category);
    if (index >= keywords.size()) return {false, KeywordEntryKey(category.key)};
    auto& stored = session.story.keywords;
    stored.erase(stored.begin() + (keywords[index] - stored.data()));
    return Changed(session, category.key);
}

}  // namespace tessarin
