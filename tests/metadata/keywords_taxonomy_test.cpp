#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "metadata/keywords.h"
#include "metadata/metadata_session.h"
#include "metadata/story_metadata_trees.h"
#include "metadata/taxonomy.h"

namespace tessarin {
namespace {

using ::testing::ElementsAre;

// Keywords "Mots": "Lieux" (1, mandatory) and "Gens" (2). Taxonomy "Sujets": "Arts"
// (01000000) holds "Cinéma" (01020000) and "Danse" (no number); "Sport" is a leaf.
class KeywordsTaxonomyTest : public ::testing::Test {
  protected:
    KeywordsTaxonomyTest() {
        testing::ConfigurationDocument document;
        document.keywords =
            R"(<Keywords Name="Mots"><KeywordsCategory CategoryIndex="1" Name="Lieux"/>
            <KeywordsCategory CategoryIndex="2" Name="Gens" Mandatory="false"/></Keywords>)";
        document.taxonomy = R"(<Taxonomy Name="Sujets"><Topic FormalName="01000000">Arts
            <Topic FormalName="01020000">Cin&#233;ma</Topic><Topic FormalName="d">Danse</Topic>
            </Topic><Topic FormalName="15000000">Sport</Topic></Taxonomy>)";
        bench_.Load(document);
    }

    // "key|text|tag" of the nodes below the root, in tree order; "[x]" before the text of a
    // checked one, "*" after a bold one.
    std::vector<std::string> Nodes(std::string_view treeName) {
        std::vector<std::string> lines;
        for (const TreeNode* node : bench_.Tree(treeName).AllNodes()) {
            lines.push_back(node->key + "|" + (node->checked ? "[x]" : "") + node->text + "|" +
                            node->tag + (node->bold ? "*" : ""));
        }
        lines.erase(lines.begin());
        return lines;
    }

    // Keys of the bold taxonomy nodes, marked "+" when highlighted.
    std::vector<std::string> Marked() {
        std::vector<std::string> keys;
        for (const TreeNode* node : bench_.Tree(kTaxonomyTree).AllNodes()) {
            const bool highlighted = bench_.highlights.IsHighlighted(kTaxonomyTree, *node);
            if (node->bold) keys.push_back(node->key + (highlighted ? "+" : ""));
        }
        return keys;
    }

    testing::MetadataSession bench_;
    EditorSession& session_ = bench_.session;
};

TEST_F(KeywordsTaxonomyTest, KeywordsAreAddedAndRemovedWithinTheirCategory) {
    session_.configuration.messages.Set("KeywordAlreadyPresent", "D\u00e9j\u00e0 l\u00e0");
    session_.story.keywords = {{"K2", "Zidane"}, {"K1", "Lyon"}};
    ShowStoryKeywords(session_);
    auto add = [&](std::string_view key, std::string_view text) {
        session_.window.ClearStatus();
        const KeywordEdit edit = AddKeyword(session_, key, text);
        return (edit.changed ? "+" : "-") + edit.selectKey + " " + bench_.Status();
    };
    EXPECT_EQ(add("K1/new", " Paris "), "+K1/new ");
    EXPECT_TRUE(session_.storyModified);
    EXPECT_EQ(add("K1/new", "Paris"), "-K1/new Paris: D\u00e9j\u00e0 l\u00e0");
    EXPECT_EQ(add("K1/1", "paris"), "+K1/new ");  // another case, another keyword
    EXPECT_EQ(add("K2", "Paris"), "+K2/new ");    // the category itself takes it
    EXPECT_EQ(add("K2/new", "  "), "-K2/new Invalid keyword");
    EXPECT_EQ(add("K2/new", "New keyword"), "-K2/new ");
    EXPECT_EQ(add("K", "Paris"), "- ");  // the root holds categories only
    EXPECT_EQ(session_.window.beeps, 2);

    EXPECT_FALSE(RemoveKeyword(session_, "K1/new").changed);
    EXPECT_FALSE(RemoveKeyword(session_, "K1").changed);
    EXPECT_TRUE(RemoveKeyword(session_, "K1/2").changed);
    EXPECT_THAT(
        Nodes(kKeywordsTree),
        ElementsAre("K1|Lieux [*]|1", "K1/1|Lyon|1*", "K1/2|paris|1*", "K1/new|New keyword|*",
                    "K2|Gens|2", "K2/1|Zidane|2*", "K2/2|Paris|2*", "K2/new|New keyword|*"));
    EXPECT_THAT(bench_.Control("cmdMetadataTooltip").toolTip,
                ::testing::EndsWith("Mots:\n   Lyon\n   paris\n   Zidane\n   Paris"));
}

TEST_F(KeywordsTaxonomyTest, ChecksKeepTheStoryTopicsInStepWithTheTree) {
    for (const char* key : {"T0/2", "T0/1/1", "T0/1/2"})
        CheckTaxonomyTopic(session_, bench_.highlights, key, true);
    EXPECT_EQ(session_.story.taxonomy,
              (std::vector<TaxonomyTopic>{{"Cin\u00e9ma", 1020000}, {"Sport", 15000000}}));
    EXPECT_THAT(Marked(), ElementsAre("T0+", "T0/1+", "T0/1/1+", "T0/1/2+", "T0/2+"));
    EXPECT_TRUE(session_.storyModified);

    session_.preferences.HighlightInformations = false;
    CheckTaxonomyTopic(session_, bench_.highlights, "T0/2", false);
    EXPECT_EQ(session_.story.taxonomy.size(), 1u);
    EXPECT_THAT(Marked(), ElementsAre("T0/1/1", "T0/1/2"));
    EXPECT_FALSE(CheckTaxonomyTopic(session_, bench_.highlights, "T0/1", true));

    session_.preferences.HighlightInformations = true;
    session_.story.taxonomy = {{"Sport", 15000000}, {"Unknown", 99}};
    ShowStoryTaxonomy(session_, bench_.highlights);  // after a story is read
    EXPECT_THAT(Marked(), ElementsAre("T0+", "T0/2+"));
    EXPECT_EQ(session_.story.taxonomy.size(), 2u);
}

TEST_F(KeywordsTaxonomyTest, TaxonomySearchAndTips) {
    WindowState& window = session_.window;
    EXPECT_EQ(TaxonomySearchPrompt("Chercher", window), "Chercher\n[5 items]");
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "a"), "T0/1");
    EXPECT_THAT(Marked(), ElementsAre("T0/1+", "T0/1/1+", "T0/1/2+"));
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "cin\u00e9"), "T0/1/1");
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "CINE"), std::nullopt);

    EXPECT_TRUE(PointTaxonomyNode(session_, "T0/2"));
    EXPECT_EQ(bench_.Control(kTaxonomyTree).toolTip, "15000000 - Sport");
    session_.preferences.TaxonomyTooltips = false;
    EXPECT_FALSE(PointTaxonomyNode(session_, "T0/1"));
}

TEST_F(KeywordsTaxonomyTest, TheTreesFollowTheStoryThatWasPutThere) {
    session_.story.keywords = {{"1K", "Lyon"}, {"K1", "Paris"}};
    session_.story.taxonomy = {{"Sport", 15000000}};
    ShowStoryMetadataTrees(session_);
    EXPECT_THAT(Nodes(kKeywordsTree),
                ElementsAre("K1|Lieux [*]|1", "K1/1|Lyon|1*", "K1/2|Paris|1*",
                            "K1/new|New keyword|*", "K2|Gens|2", "K2/new|New keyword|*"));
    EXPECT_THAT(Nodes(kTaxonomyTree),
                ElementsAre("T0/1|Arts|01000000", "T0/1/1|Cin\u00e9ma|01020000", "T0/1/2|Danse|d",
                            "T0/2|[x]Sport|15000000*"));
    EXPECT_FALSE(session_.storyModified);

    session_.story.keywords.clear();
    session_.story.taxonomy.clear();
    ShowStoryMetadataTrees(session_);
    EXPECT_THAT(Nodes(kKeywordsTree), ElementsAre("K1|Lieux [*]|1", "K1/new|New keyword|*",
                                                  "K2|Gens|2", "K2/new|New keyword|*"));
    EXPECT_EQ(Nodes(kTaxonomyTree).back(), "T0/2|Sport|15000000");  // neither checked nor bold

    // A tree that shows the story again keeps its highlight and its open nodes.
    SearchTaxonomy(session_.window, session_.highlights, "cin");
    TreeNode* category = bench_.Tree(kKeywordsTree).Find("K1");
    category->expanded = false;
    ShowStoryMetadataTrees(session_);
    const TreeNode* cinema = bench_.Tree(kTaxonomyTree).Find("T0/1/1");
    EXPECT_TRUE(session_.highlights.IsHighlighted(kTaxonomyTree, *cinema));
    EXPECT_FALSE(category->expanded);
}

}  // namespace
}  // namespace tessarin
