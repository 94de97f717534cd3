#include "config/publications_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configuration_document.h"

namespace tessarin {
namespace {

using Document = testing::ConfigurationDocument;
using ::testing::ElementsAre;
using testing::LoadBench;
using testing::NodeLines;

constexpr OleColour kGeneral = Rgb(0, 0, 128);
constexpr OleColour kLocal = Rgb(128, 0, 0);

// Publications whose sections share names, a classification of each kind, one of an unknown
// type, elements that only the full view shows, and a "False" that is not "false".
const char* const kPublications = R"(<Publications>
  <Publication Name="Herald">
    <Classification Name="Nation" Type="General"><Section Name="Politics">
      <SubSection Name="Parliament" Code1="11" Code2="A"/>
      <SubSection Name="Old" Code1="19" Preferred="false"/></Section></Classification>
    <Classification Name="Riverside" Type="Local" Preferred="false"><Section Name="Politics">
      <SubSection Name="Council" Code1="21" Preferred="true"/></Section></Classification>
    <Classification Name="Hilltop" Type="Local"><Section Name="Politics" Preferred="False">
      <SubSection Name="Mayor" Code2="7"/></Section></Classification></Publication>
  <Publication Name="Archive" Preferred="false"><Classification Name="Past" Type="General"/>
  </Publication>
  <Publication Name="Weekly"><Classification Name="Magazine" Type="general"/></Publication>
  <Publication Name="Empty"/>
</Publications>)";

struct PublicationsBench : LoadBench {
    PublicationsBench() {
        preferences.ClassificationColorGeneral = kGeneral;
        preferences.ClassificationColorLocal = kLocal;
        text = Document().With(&Document::publications, kPublications).Text();
    }
    bool ShowAll() { return ShowAllPublications(document, preferences, configuration, window); }
    bool ShowPreferred() {
        return ShowPreferredPublications(document, preferences, configuration, window);
    }
    bool Reload() { return ReloadPublications(document, preferences, configuration, window); }
    std::string text;
};

TEST(PublicationsTree, TheLoadBuildsThePreferredView) {
    PublicationsBench bench;
    ASSERT_TRUE(bench.Load(bench.text));
    const TreeModel& tree = bench.Tree("treePublications");
    EXPECT_THAT(NodeLines(tree),
                ElementsAre("P1|Herald|P", "C1|Nation|CG", "S1|Politics|S", "T1|Parliament|T11/A",
                            "C2|Hilltop|CL", "S2|Politics|S", "T2|Mayor|T/7", "P2|Weekly|P",
                            "C3|Magazine|C", "P3|Empty|P"));
    for (const TreeNode* node : tree.AllNodes())
        EXPECT_TRUE(node->expanded) << node->key;
    EXPECT_FALSE(tree.Find("P1")->hasColour);
    EXPECT_TRUE(tree.Find("S2")->hasColour);
    // Only the type letter "L" is local.
    const std::pair<std::string_view, OleColour> colours[] = {{"C1", kGeneral}, {"T1", kGeneral},
                                                              {"C2", kLocal},   {"S2", kLocal},
                                                              {"T2", kLocal},   {"C3", kGeneral}};
    for (const auto& [key, colour] : colours)
        EXPECT_EQ(tree.Find(key)->colour, colour) << key;
    EXPECT_TRUE(bench.configuration.publications.classifiedGeneral);
    EXPECT_FALSE(bench.configuration.publications.allPublications);
}

TEST(PublicationsTree, TheFullViewShowsEverythingAndNumbersItAnew) {
    PublicationsBench bench;
    ASSERT_TRUE(bench.Load(bench.text));
    ASSERT_TRUE(bench.ShowAll());
    EXPECT_TRUE(bench.configuration.publications.allPublications);
    EXPECT_TRUE(bench.Control("mnuDisplayPublicationsFull").checked);
    EXPECT_FALSE(bench.Control("mnuDisplayPublicationsPreferred").checked);
    EXPECT_THAT(NodeLines(bench.Tree("treePublications")),
                ElementsAre("P1|Herald|P", "C1|Nation|CG", "S1|Politics|S", "T1|Parliament|T11/A",
                            "T2|Old|T19", "C2|Riverside|CL", "S2|Politics|S", "T3|Council|T21",
                            "C3|Hilltop|CL", "S3|Politics|S", "T4|Mayor|T/7", "P2|Archive|P",
                            "C4|Past|CG", "P3|Weekly|P", "C5|Magazine|C", "P4|Empty|P"));

    ASSERT_TRUE(bench.ShowPreferred());
    EXPECT_FALSE(bench.configuration.publications.allPublications);
    EXPECT_TRUE(bench.Control("mnuDisplayPublicationsPreferred").checked);
    EXPECT_FALSE(bench.Control("mnuDisplayPublicationsFull").checked);
    EXPECT_EQ(bench.Tree("treePublications").Count(), 10u);
    EXPECT_EQ(bench.Tree("treePublications").Find("C2")->text, "Hilltop");

    // A configuration load returns to the preferred view.
    ASSERT_TRUE(bench.ShowAll());
    ASSERT_TRUE(bench.Load(bench.text));
    EXPECT_FALSE(bench.configuration.publications.allPublications);
    EXPECT_TRUE(bench.Control("mnuDisplayPublicationsPreferred").checked);
    EXPECT_EQ(bench.Tree("treePublications").Count(), 10u);
}

TEST(PublicationsTree, TheFirstClassificationDecidesGeneralOrLocal) {
    LoadBench bench;
    bench.configuration.publications.classifiedGeneral = true;
    ASSERT_TRUE(bench.Load(Document().With(&Document::publications, R"(<Publications>
        <Publication Name="A" Preferred="false"><Classification Name="G" Type="General"/>
        </Publication><Publication Name="B"><Classification Name="L" Type="Local"/></Publication>
        </Publications>)")));
    EXPECT_FALSE(bench.configuration.publications.classifiedGeneral);
}

// What a document lacks is reported as the load reports it (the same tree builder); a reload
// also reports a document that does not parse, and a good one clears the report.
TEST(PublicationsTree, AReloadShowsTheParserMessageUntilAGoodOne) {
    PublicationsBench bench;
    ASSERT_TRUE(bench.Load(bench.text));
    bench.folder.Write("Tessarin.xml",
                       "<Tessarin>\n  <Publications>\n    <Publication Name=\"A\">\n"
                       "  </Publications>\n</Tessarin>\n");
    EXPECT_FALSE(bench.ShowAll());
    EXPECT_TRUE(bench.Tree("treePublications").Empty());
    EXPECT_TRUE(bench.window.Status().errorPicture);
    EXPECT_EQ(bench.window.beeps, 1);
    EXPECT_EQ(bench.window.Status().text,
              "Parsing error: " + bench.document.string() +
                  ", line:4, pos:18 </Publications> Opening and ending tag mismatch: "
                  "Publication line 3 and Publications");

    bench.folder.Write("Tessarin.xml", bench.text);
    EXPECT_TRUE(bench.Reload());
    EXPECT_EQ(bench.window.Status().text, "");
    EXPECT_EQ(bench.Tree("treePublications").Count(), 16u);
}

}  // namespace
}  // namespace tessarin
