#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/scoped_environment.h"
#include "search/search_query.h"
#include "search/search_tree.h"
#include "search/story_search.h"
#include "search/story_walk.h"
#include "story/full_story_file.h"
#include "support/temp_dir.h"
#include "text/styled_text_case.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::MakeStoryFile;
using testing::TempDir;

std::vector<std::string> NamesOf(const std::vector<const StoryRow*>& rows) {
    std::vector<std::string> names;
    for (const StoryRow* row : rows)
        names.push_back(row->name);
    return names;
}

std::vector<std::string> Search(const fs::path& folder, std::string_view text,
                                SearchScope scope = SearchScope::WholeStory,
                                SearchOperator op = SearchOperator::ExactExpression,
                                bool matchCase = false) {
    SearchCache cache;
    return NamesOf(
        SearchStories(folder, MakeSearchQuery(text, scope, op, matchCase), cache).Listed(true));
}

struct ScopeCase {
    const char* text;
    SearchScope scope;
    SearchOperator op;
    bool matchCase;
    std::vector<std::string> expected;  // in walk order
};

TEST(StorySearch, ScopesOperatorsAndCase) {
    // One story per scope, so that each case says which scopes a text is seen in.
    TempDir folder;
    folder.Write("meta.xml", MakeStoryFile("Le Quotidien du Soir", "rien"));
    folder.Write("text.xml", MakeStoryFile("X", "Le club a gagné à Lyon, été comme hiver"));
    folder.Write("iptc.xml", MakeStoryFile("X", "rien", "Le stade", "AFP", "foot; Été"));
    using enum SearchScope;
    using enum SearchOperator;
    const std::vector<ScopeCase> cases = {
        {"quotidien", WholeStory, ExactExpression, false, {"meta.xml"}},
        {"quotidien", WholeStory, ExactExpression, true, {}},
        {"Quotidien", Metadata, ExactExpression, true, {"meta.xml"}},
        {"Quotidien", Text, ExactExpression, false, {}},
        {"gagné", Text, ExactExpression, false, {"text.xml"}},
        {"gagné", Metadata, ExactExpression, false, {}},
        {"AFP", ImagesIptc, ExactExpression, true, {"iptc.xml"}},
        {"AFP", Text, ExactExpression, false, {}},
        // Accented letters follow the case option too.
        {"ÉTÉ", WholeStory, ExactExpression, false, {"iptc.xml", "text.xml"}},
        {"été", WholeStory, ExactExpression, true, {"text.xml"}},
        {"Été", ImagesIptc, ExactExpression, true, {"iptc.xml"}},
        {"ete", WholeStory, ExactExpression, false, {}},
        // Two words: adjacent for the expression, anywhere for all words, one for any word.
        {"club gagné", Text, ExactExpression, false, {}},
        {"club gagné", Text, AllWords, false, {"text.xml"}},
        {"club  Lyon ", Text, AllWords, false, {"text.xml"}},
        {"club absent", Text, AllWords, false, {}},
        {"club absent", Text, AnyWord, false, {"text.xml"}},
        {"soir stade", WholeStory, AnyWord, false, {"iptc.xml", "meta.xml"}},
        {"a gagné", Text, ExactExpression, false, {"text.xml"}},
        // An empty text selects every story.
        {"   ", Metadata, AllWords, true, {"iptc.xml", "meta.xml", "text.xml"}},
    };
    for (const ScopeCase& test : cases) {
        SCOPED_TRACE(std::string(test.text) + " scope " + std::to_string(int(test.scope)) +
                     " operator " + std::to_string(int(test.op)) + " case " +
                     std::to_string(test.matchCase));
        EXPECT_EQ(Search(folder.path(), test.text, test.scope, test.op, test.matchCase),
                  test.expected);
    }
}

TEST(StorySearch, WalkOrderBackupsAndFilesThatAreNoStories) {
    TempDir folder;
    folder.Write("b.xml", MakeStoryFile("P", "mot"));
    folder.Write("a/z.xml", MakeStoryFile("P", "mot"));
    folder.Write("a/y.BML", MakeStoryFile("P", "mot"));
    folder.Write("c.bml", MakeStoryFile("P", "mot"));
    folder.Write("broken.xml", "<Story><Body>mot</Story>");
    folder.Write("d.txt", MakeStoryFile("P", "mot"));
    folder.Write("locked/e.xml", MakeStoryFile("P", "mot"));
    folder.Write("unreadable.xml", MakeStoryFile("P", "mot"));
    fs::permissions(folder / "locked", fs::perms::none);
    fs::permissions(folder / "unreadable.xml", fs::perms::none);
    // Under a user that permissions do not stop (root), those two are read like the others.
    const bool permissionsHold = ::access((folder / "unreadable.xml").c_str(), R_OK) != 0;

    SearchCache cache;
    const StorySearchResult result = SearchStories(
        folder.path(), MakeSearchQuery("MOT", SearchScope::Text, SearchOperator::AnyWord, false),
        cache);
    fs::permissions(folder / "locked", fs::perms::owner_all);

    std::vector<std::string> all = {"y.BML", "z.xml", "b.xml", "c.bml"};
    std::vector<std::string> listed = {"z.xml", "b.xml"};
    if (!permissionsHold) {
        all = {"y.BML", "z.xml", "b.xml", "c.bml", "e.xml", "unreadable.xml"};
        listed = {"z.xml", "b.xml", "e.xml", "unreadable.xml"};
    }
    EXPECT_EQ(NamesOf(result.Listed(true)), all);
    EXPECT_EQ(NamesOf(result.Listed(false)), listed);
    EXPECT_EQ(result.CountsText(false),
              std::to_string(all.size()) + "/" + std::to_string(listed.size()));
    EXPECT_TRUE(result.Listed(true).front()->backup);
    EXPECT_EQ(result.Listed(true).front()->directory, (folder / "a").string());
}

TEST(StorySearch, RowHoldsTheListColumns) {
    testing::ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", "dd/MM/yyyy");
    TempDir folder;
    const fs::path file = folder.Write("match.xml", testing::kFullStoryFileIso);
    std::string cold = testing::kFullStoryFileIso;
    cold.replace(cold.find("20/02/2025</PublicationDate>"), 10, "0");
    const fs::path coldFile = folder.Write("cold.xml", cold);

    const std::optional<StoryExtract> story = ExtractStory(file);
    ASSERT_TRUE(story);
    const StoryRow expected{.name = "match.xml",
                            .directory = folder.path().string(),
                            .creationDate = "01/02/2025",
                            .creationTime = "08:15",
                            .lastSaveDate = "20/02/2025",
                            .lastSaveTime = "09:30",
                            .lastSaveAuthor = "Jean Dupont",
                            .characters = 24,
                            .publication = "Le Quotidien",
                            .classification = "Sports",
                            .section = "Football",
                            .subSection = "Ligue 1",
                            .publicationDate = "20250220",
                            .form = "Brève",
                            .images = 1};
    EXPECT_EQ(story->row, expected);
    EXPECT_EQ(story->upperTexts.text, UpperCaseText(story->texts.text));
    EXPECT_NE(story->texts.text.find("Le club a gagné."), std::string::npos);
    EXPECT_EQ(ExtractStory(coldFile)->row.publicationDate, "Publication date");
}

}  // namespace
}  // namespace tessarin
