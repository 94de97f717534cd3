#include "metadata/story_metadata_trees.h"

#include <algorithm>
#include <set>
#include <vector>

#include "common/number_parse.h"
#include "metadata/keyword_categories.h"
#include "metadata/keywords.h"
#include "metadata/taxonomy.h"

namespace tessarin {
namespace {

// Each category holds its keywords, in the story's order, then the entry line.
bool KeywordTreeShowsStory(const EditorSession& session) {
    const std::string entryText = session.Message("NewKeyword");
    for (const TreeNode* category : KeywordCategories(session.window)) {
        const std::vector<const StoryKeyword*> keywords =
            KeywordsOfCategory(session.story, *category);
        if (category->children.size() != keywords.size() + 1) return false;
        auto node = category->children.begin();
        for (const StoryKeyword* keyword : keywords) {
            if ((node++)->text != keyword->text) return false;
        }
        if (node->key != KeywordEntryKey(category->key) || node->text != entryText) return false;
    }
    return true;
}

// A leaf is checked exactly when its formal number is one of the story's topics.
bool TaxonomyShowsStory(const EditorSession& session) {
    const TreeModel* tree = session.window.FindTree(kTaxonomyTree);
    if (!tree) return true;
    std::set<std::int64_t> topics;
    for (const TaxonomyTopic& topic : session.story.taxonomy)
        topics.insert(topic.formalNumber);
    const std::vector<const TreeNode*> nodes = tree->AllNodes();
    return std::all_of(nodes.begin(), nodes.end(), [&](const TreeNode* node) {
        if (!node->hasCheckbox) return true;
        const bool storyTopic =
            IsNumeric(node->tag) && topics.contains(ParseLeadingInteger(node->tag));
        return node->checked == storyTopic;
    });
}

}  // namespace

void ShowStoryMetadataTrees(EditorSession& session) {
    if (!KeywordTreeShowsStory(session)) ShowStoryKeywords(session);
    if (!TaxonomyShowsStory(session)) ShowStoryTaxonomy(session, session.highlights);
}

}  // namespace tessarin
