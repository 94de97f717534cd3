#include "metadata/keyword_categories.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "common/number_parse.h"

namespace tessarin {
namespace {

bool AllDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return std::isdigit(static_cast<unsigned char>(character)) != 0;
    });
}

}  // namespace

std::optional<std::int32_t> KeywordCategoryNumber(std::string_view key) {
    if (key.size() < 2) return std::nullopt;
    std::string_view digits;
    if (key.front() == 'K') {
        digits = key.substr(1);
    } else if (key.back() == 'K') {
        digits = key.substr(0, key.size() - 1);
    }
    if (!AllDigits(digits)) return std::nullopt;
    return ParseLeadingInteger(digits);
}

std::vector<const TreeNode*> KeywordCategories(const WindowState& window) {
    std::vector<const TreeNode*> categories;
    const TreeModel* tree = window.FindTree("treeKeywords");
    if (!tree || tree->Empty()) return categories;
    for (const TreeNode& category : tree->Roots().front().children) {
        categories.push_back(&category);
    }
    return categories;
}

std::vector<const StoryKeyword*> KeywordsOfCategory(const StoryRecord& story,
                                                    const TreeNode& category) {
    std::vector<const StoryKeyword*> keywords;
    const std::optional<std::int32_t> number = KeywordCategoryNumber(category.key);
    if (!number) return keywords;
    for (const StoryKeyword& keyword : story.keywords) {
        if (KeywordCategoryNumber(keyword.categoryKey) == number) keywords.push_back(&keyword);
    }
    return keywords;
}

}  // namespace tessarin
