#include "metadata/story_metadata_trees.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "metadata/keywords.h"
#include "metadata/metadata_session.h"
#include "metadata/taxonomy.h"

namespace tessarin {
namespace {

using ::testing::ElementsAre;

class StoryMetadataTreesTest : public ::testing::Test {
  protected:
    StoryMetadataTreesTest() {
        testing::ConfigurationDocument document;
        document.keywords = R"(<Keywords Name="Mots"><KeywordsCategory CategoryIndex="1" )"
                            R"(Name="Lieux" Mandatory="false"/></Keywords>)";
        document.taxonomy = R"(<Taxonomy Name="Sujets"><Topic FormalName="01000000">Arts)"
                            "\n"
                            R"(<Topic FormalName="01020000">Cinema</Topic></Topic>)"
                            R"(<Topic FormalName="15000000">Sport</Topic></Taxonomy>)";
        bench.Load(document);
    }

    // "text" of each node below the root, "[x]" before a checked one, "*" after a bold one.
    std::vector<std::string> Shown(std::string_view treeName) {
        std::vector<std::string> lines;
        for (const TreeNode* node : bench.Tree(treeName).AllNodes()) {
            lines.push_back((node->checked ? "[x]" : "") + node->text + (node->bold ? "*" : ""));
        }
        lines.erase(lines.begin());
        return lines;
    }

    testing::MetadataSession bench;
    StoryRecord& story = bench.session.story;
};

TEST_F(StoryMetadataTreesTest, TheTreesFollowTheStoryThatWasPutThere) {
    ShowStoryMetadataTrees(bench.session);
    EXPECT_THAT(Shown(kKeywordsTree), ElementsAre("Lieux", "New keyword*"));

    story.keywords = {{"1K", "Lyon"}, {"K1", "Paris"}};
    story.taxonomy = {{"Sport", 15000000}};
    ShowStoryMetadataTrees(bench.session);
    EXPECT_THAT(Shown(kKeywordsTree), ElementsAre("Lieux", "Lyon*", "Paris*", "New keyword*"));
    EXPECT_THAT(Shown(kTaxonomyTree), ElementsAre("Arts", "Cinema", "[x]Sport*"));
    EXPECT_FALSE(bench.session.storyModified);

    story.keywords.clear();
    story.taxonomy.clear();
    ShowStoryMetadataTrees(bench.session);
    EXPECT_THAT(Shown(kKeywordsTree), ElementsAre("Lieux", "New keyword*"));
    EXPECT_THAT(Shown(kTaxonomyTree), ElementsAre("Arts", "Cinema", "Sport"));

    // A tree that shows the story again keeps its highlight and its open nodes.
    SearchTaxonomy(bench.session.window, bench.session.highlights, "cine");
    TreeNode* category = bench.Tree(kKeywordsTree).Find("K1");
    category->expanded = false;
    ShowStoryMetadataTrees(bench.session);
    const TreeNode* cinema = bench.Tree(kTaxonomyTree).Find("T0/1/1");
    EXPECT_TRUE(bench.session.highlights.IsHighlighted(kTaxonomyTree, *cinema));
    EXPECT_FALSE(category->expanded);
}

}  // namespace
}  // namespace tessarin
