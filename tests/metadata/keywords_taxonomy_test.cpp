#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "metadata/keywords.h"
#include "metadata/metadata_session.h"
#include "metadata/taxonomy.h"

namespace tessarin {
namespace {

using ::testing::ElementsAre;

// "key|text|tag" of the nodes below the root, in tree order, bold ones marked "*".
std::vector<std::string> Nodes(const TreeModel& tree) {
    std::vector<std::string> lines;
    for (const TreeNode* node : tree.AllNodes())
        lines.push_back(node->key + "|" + node->text + "|" + node->tag + (node->bold ? "*" : ""));
    lines.erase(lines.begin());
    return lines;
}

TEST(Keywords, AddAndRemoveWithinTheirCategory) {
    testing::MetadataSession bench;
    testing::ConfigurationDocument document;
    document.keywords = R"(<Keywords Name="Mots"><KeywordsCategory CategoryIndex="1" Name="Lieux"/>
        <KeywordsCategory CategoryIndex="2" Name="Gens" Mandatory="false"/></Keywords>)";
    bench.Load(document);
    bench.session.configuration.messages.Set("KeywordAlreadyPresent", "D\u00e9j\u00e0 l\u00e0");
    bench.session.story.keywords = {{"K2", "Zidane"}, {"K1", "Lyon"}};
    ShowStoryKeywords(bench.session);
    auto add = [&](std::string_view key, std::string_view text) {
        bench.session.window.ClearStatus();
        const KeywordEdit edit = AddKeyword(bench.session, key, text);
        return (edit.changed ? "+" : "-") + edit.selectKey + " " + bench.Status();
    };
    EXPECT_EQ(add("K1/new", " Paris "), "+K1/new ");
    EXPECT_TRUE(bench.session.storyModified);
    EXPECT_EQ(add("K1/new", "Paris"), "-K1/new Paris: D\u00e9j\u00e0 l\u00e0");
    EXPECT_EQ(add("K1/1", "paris"), "+K1/new ");  // another case, another keyword
    EXPECT_EQ(add("K2", "Paris"), "+K2/new ");    // the category itself takes it
    EXPECT_EQ(add("K2/new", "  "), "-K2/new Invalid keyword");
    EXPECT_EQ(add("K2/new", "New keyword"), "-K2/new ");
    EXPECT_EQ(add("K", "Paris"), "- ");  // the root holds categories only
    EXPECT_EQ(bench.session.window.beeps, 2);

    EXPECT_FALSE(RemoveKeyword(bench.session, "K1/new").changed);
    EXPECT_FALSE(RemoveKeyword(bench.session, "K1").changed);
    EXPECT_TRUE(RemoveKeyword(bench.session, "K1/2").changed);
    EXPECT_THAT(
        Nodes(bench.Tree(kKeywordsTree)),
        ElementsAre("K1|Lieux [*]|1", "K1/1|Lyon|1*", "K1/2|paris|1*", "K1/new|New keyword|*",
                    "K2|Gens|2", "K2/1|Zidane|2*", "K2/2|Paris|2*", "K2/new|New keyword|*"));
    EXPECT_THAT(bench.Control("cmdMetadataTooltip").toolTip,
                ::testing::EndsWith("Mots:\n   Lyon\n   paris\n   Zidane\n   Paris"));
}

// "Arts" (01000000) holds "Cinéma" (01020000) and "Danse" (no number); "Sport" is a leaf.
class TaxonomyTest : public ::testing::Test {
  protected:
    TaxonomyTest() {
        testing::ConfigurationDocument document;
        document.taxonomy = R"(<Taxonomy Name="Sujets"><Topic FormalName="01000000">Arts
            <Topic FormalName="01020000">Cin&#233;ma</Topic><Topic FormalName="d">Danse</Topic>
            </Topic><Topic FormalName="15000000">Sport</Topic></Taxonomy>)";
        bench_.Load(document);
    }

    // Keys of the bold nodes, marked "+" when highlighted.
    std::vector<std::string> Marked() {
        std::vector<std::string> keys;
        for (const TreeNode* node : bench_.Tree(kTaxonomyTree).AllNodes()) {
            const bool highlighted = bench_.highlights.IsHighlighted(kTaxonomyTree, *node);
            if (node->bold) keys.push_back(node->key + (highlighted ? "+" : ""));
        }
        return keys;
    }

    testing::MetadataSession bench_;
};

TEST_F(TaxonomyTest, ChecksKeepTheStoryTopicsInStepWithTheTree) {
    for (const char* key : {"T0/2", "T0/1/1", "T0/1/2"})
        CheckTaxonomyTopic(bench_.session, bench_.highlights, key, true);
    EXPECT_EQ(bench_.session.story.taxonomy,
              (std::vector<TaxonomyTopic>{{"Cin\u00e9ma", 1020000}, {"Sport", 15000000}}));
    EXPECT_THAT(Marked(), ElementsAre("T0+", "T0/1+", "T0/1/1+", "T0/1/2+", "T0/2+"));
    EXPECT_TRUE(bench_.session.storyModified);

    bench_.session.preferences.HighlightInformations = false;
    CheckTaxonomyTopic(bench_.session, bench_.highlights, "T0/2", false);
    EXPECT_EQ(bench_.session.story.taxonomy.size(), 1u);
    EXPECT_THAT(Marked(), ElementsAre("T0/1/1", "T0/1/2"));
    EXPECT_FALSE(CheckTaxonomyTopic(bench_.session, bench_.highlights, "T0/1", true));

    bench_.session.preferences.HighlightInformations = true;
    bench_.session.story.taxonomy = {{"Sport", 15000000}, {"Unknown", 99}};
    ShowStoryTaxonomy(bench_.session, bench_.highlights);  // after a story is read
    EXPECT_THAT(Marked(), ElementsAre("T0+", "T0/2+"));
    EXPECT_EQ(bench_.session.story.taxonomy.size(), 2u);
}

TEST_F(TaxonomyTest, SearchAndTips) {
    WindowState& window = bench_.session.window;
    EXPECT_EQ(TaxonomySearchPrompt("Chercher", window), "Chercher\n[5 items]");
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "a"), "T0/1");
    EXPECT_THAT(Marked(), ElementsAre("T0/1+", "T0/1/1+", "T0/1/2+"));
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "cin\u00e9"), "T0/1/1");
    EXPECT_EQ(SearchTaxonomy(window, bench_.highlights, "CINE"), std::nullopt);

    EXPECT_TRUE(PointTaxonomyNode(bench_.session, "T0/2"));
    EXPECT_EQ(bench_.Control(kTaxonomyTree).toolTip, "15000000 - Sport");
    bench_.session.preferences.TaxonomyTooltips = false;
    EXPECT_FALSE(PointTaxonomyNode(bench_.session, "T0/1"));
}

}  // namespace
}  // namespace tessarin
