#include "search/search_query.h"

#include <algorithm>

#include "text/styled_text_case.h"

namespace tessarin {
namespace {

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view ScopeSlice(const ScopeTexts& texts, SearchScope scope) {
    const std::string_view all = texts.text;
    switch (scope) {
        case SearchScope::Metadata:
            return all.substr(0, texts.metadataEnd);
        case SearchScope::Text:
            return all.substr(texts.metadataEnd, texts.bodyEnd - texts.metadataEnd);
        case SearchScope::ImagesIptc:
            return all.substr(texts.bodyEnd);
        case SearchScope::WholeStory:
            break;
    }
    return all;
}

}  // namespace

SearchQuery MakeSearchQuery(std::string_view typed, SearchScope scope, SearchOperator op,
                            bool matchCase) {
    SearchQuery query;
    query.scope = scope;
    query.op = op;
    query.matchCase = matchCase;
    query.text = std::string(Trimmed(typed));
    if (!matchCase) query.text = UpperCaseText(query.text);
    std::string_view rest = query.text;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(' '), rest.size());
        if (end > 0) query.words.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return query;
}

bool StoryMatches(const StoryExtract& story, const SearchQuery& query) {
    if (query.text.empty()) return true;
    const std::string_view text =
        ScopeSlice(query.matchCase ? story.texts : story.upperTexts, query.scope);
    const auto contains = [&](const std::string& word) {
        return text.find(word) != std::string_view::npos;
    };
    switch (query.op) {
        case SearchOperator::AllWords:
            return std::all_of(query.words.begin(), query.words.end(), contains);
        case SearchOperator::AnyWord:
            return std::any_of(query.words.begin(), query.words.end(), contains);
        case SearchOperator::ExactExpression:
            break;
    }
    return contains(query.text);
}

}  // namespace tessarin
