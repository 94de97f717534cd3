#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/story_row.h"

namespace tessarin {

// Where a search looks: the values of optSearch.
enum class SearchScope { WholeStory = 0, Metadata = 1, Text = 2, ImagesIptc = 3 };

// How the words must stand: the values of optOperator.
enum class SearchOperator { ExactExpression = 0, AllWords = 1, AnyWord = 2 };

struct SearchQuery {
    std::string text;  // trimmed; empty selects every story
    std::vector<std::string> words;
    SearchScope scope = SearchScope::WholeStory;
    SearchOperator op = SearchOperator::ExactExpression;
    bool matchCase = false;
};

// The query of a search text as typed: trimmed of blanks, split at blanks into words (runs of
// blanks make no empty words), and upper-cased when case does not matter.
SearchQuery MakeSearchQuery(std::string_view typed, SearchScope scope, SearchOperator op,
                            bool matchCase);

// True when the story answers the query: every story for an empty text; otherwise, in the
// scope's text (upper-cased unless case matters), the whole text for the exact expression,
// every word for all words, one word at least for any word.
bool StoryMatches(const StoryExtract& story, const SearchQuery& query);

}  // namespace tessarin
