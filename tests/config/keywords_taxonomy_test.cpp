#include "config/keywords_taxonomy_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configuration_document.h"

namespace tessarin {
namespace {

using Document = testing::ConfigurationDocument;
using ::testing::ElementsAre;
using testing::LoadBench;
using testing::NodeLines;

TEST(Keywords, CategoriesGoUnderTheRootByIndex) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(Document().With(&Document::keywords, R"(<Keywords Name="Keywords">
        <KeywordsCategory CategoryIndex="1" Name="People" Mandatory="false"/>
        <KeywordsCategory CategoryIndex="2" Name="Places"/>
        <KeywordsCategory CategoryIndex="3" Name="Firms" Mandatory="False"/>
        <KeywordsCategory CategoryIndex="4" Name="Hidden" Visible="false"/>
        <KeywordsCategory CategoryIndex="x5" Name="Not numeric"/>
        <KeywordsCategory Name="No index"/>
        <KeywordsCategory CategoryIndex="2" Name="Same key"/>
        </Keywords>)")));
    const TreeModel& tree = bench.Tree("treeKeywords");
    EXPECT_THAT(NodeLines(tree),
                ElementsAre("K|Keywords|", "K1|People|1", "K2|Places [*]|2", "K3|Firms [*]|3"));
    EXPECT_TRUE(tree.Find("K")->expanded);
    EXPECT_TRUE(tree.Find("K2")->expanded);
    EXPECT_TRUE(bench.configuration.keywordsOn);

    // Without a visible category the keywords are off; without the section, so is the tree.
    ASSERT_TRUE(bench.Load(Document().With(&Document::keywords, R"(<Keywords Name="Keywords">
        <KeywordsCategory CategoryIndex="1" Name="People" Visible="false"/></Keywords>)")));
    EXPECT_THAT(NodeLines(bench.Tree("treeKeywords")), ElementsAre("K|Keywords|"));
    EXPECT_FALSE(bench.configuration.keywordsOn);
    ASSERT_TRUE(bench.Load(Document()));
    EXPECT_TRUE(bench.Tree("treeKeywords").Empty());
    EXPECT_FALSE(bench.configuration.keywordsOn);
}

TEST(Taxonomy, TopicsAreKeyedByTheirPlaceUnderTheirParent) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(Document().With(&Document::taxonomy,
                                           "<Taxonomy Name=\"Subjects\">"
                                           "<Topic FormalName=\"01\">  Arts \r\n"
                                           "  <Topic FormalName=\"0101\"> Music </Topic>\n"
                                           "  <Topic FormalName=\"0102\">Cinema<Topic "
                                           "FormalName=\"010201\">Festivals</Topic></Topic>\n"
                                           "</Topic><Topic FormalName=\"02\">Sport</Topic>"
                                           "<Other>not a topic</Other></Taxonomy>")));
    const TreeModel& tree = bench.Tree("treeTaxonomy");
    EXPECT_THAT(NodeLines(tree), ElementsAre("T0|Subjects|", "T0/1|Arts|01", "T0/1/1|Music|0101",
                                             "T0/1/2|CinemaFestivals|0102",
                                             "T0/1/2/1|Festivals|010201", "T0/2|Sport|02"));
    EXPECT_TRUE(tree.Find("T0")->expanded);
    // A topic with topics under it has no check box.
    EXPECT_EQ(tree.Find("T0/1")->picture, 7);
    EXPECT_FALSE(tree.Find("T0/1")->hasCheckbox);
    EXPECT_EQ(tree.Find("T0/1/1")->picture, 6);
    EXPECT_TRUE(tree.Find("T0/1/1")->hasCheckbox);
    EXPECT_EQ(tree.Find("T0/2")->picture, 6);
    EXPECT_TRUE(bench.configuration.taxonomyOn);
    EXPECT_EQ(bench.Control("treeTaxonomy").tag, "");
}

TEST(Taxonomy, VisibilityAndMandatoryGoToTheTreesTag) {
    // Each row: the section, the tree's tag, whether the taxonomy is on, the root's text
    // (empty: no root). A plain section is the topics' test, a missing one the reload's.
    const std::tuple<std::string, std::string, bool, std::string> cases[] = {
        {R"(<Taxonomy Name="Subjects" Mandatory="true"/>)", "mandatory", true, "Subjects [*]"},
        {R"(<Taxonomy Name="Subjects" Visible="false" Mandatory="true"/>)", "invisible/mandatory",
         false, "Subjects [*]"},
        {R"(<Taxonomy Visible="False" Mandatory="TRUE"><Topic>Lost</Topic></Taxonomy>)", "", true,
         ""}};
    for (const auto& [section, tag, on, rootText] : cases) {
        SCOPED_TRACE(section);
        LoadBench bench;
        ASSERT_TRUE(bench.Load(Document().With(&Document::taxonomy, section)));
        EXPECT_EQ(bench.Control("treeTaxonomy").tag, tag);
        EXPECT_EQ(bench.configuration.taxonomyOn, on);
        const TreeNode* root = bench.Tree("treeTaxonomy").Find("T0");
        EXPECT_EQ(root ? root->text : "", rootText);
        if (rootText.empty()) {
            EXPECT_TRUE(bench.Tree("treeTaxonomy").Empty());
        }
    }
}

}  // namespace
}  // namespace tessarin
