#include "metadata/publication_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/publications_tree.h"
#include "config/section_reading.h"
#include "metadata/metadata_choices.h"
#include "metadata/metadata_session.h"

namespace tessarin {
namespace {

using ::testing::ElementsAre;

// Preferred view: P1 Le Matin, C1 Nation (general), S1 Sports, T1 Football, C2 Région (local),
// S2 Lyon, T2 Vieux Lyon, T3 Croix-Rousse, P2 Le Soir, C3 Culture, S3 Théâtre.
constexpr const char* kPublications = R"(<Publications><Publication Name="Le Matin">
  <Classification Name="Archives" Type="General" Preferred="false"/>
  <Classification Name="Nation" Type="General">
    <Section Name="Sports"><SubSection Name="Football" Code1="75" Code2="01"/></Section>
  </Classification>
  <Classification Name="R&#233;gion" Type="Local"><Section Name="Lyon">
    <SubSection Name="Vieux Lyon" Code1="69" Code2="12"/><SubSection Name="Croix-Rousse" Code1="69"/>
  </Section></Classification></Publication>
  <Publication Name="Le Soir"><Classification Name="Culture" Type="General">
    <Section Name="Th&#233;&#226;tre"/></Classification></Publication></Publications>)";

class PublicationSelectionTest : public ::testing::Test {
  protected:
    PublicationSelectionTest() {
        testing::ConfigurationDocument document;
        document.publications = kPublications;
        bench_.Load(document);
    }

    // The eight classification fields joined by "|", then "G" or "L" for the flag.
    std::string Fields() const {
        const StoryRecord& s = bench_.session.story;
        const bool general = bench_.session.configuration.publications.classifiedGeneral;
        EXPECT_EQ(general, !s.usesLocalSections);
        return testing::Joined(ReadClassification(s)) + (general ? " G" : " L");
    }

    bool Click(std::string_view key) {
        return ClickPublicationNode(bench_.session, bench_.highlights, key);
    }

    std::optional<std::string> Search(std::string_view text, PublicationSearchMode mode) {
        return SearchPublications(bench_.session.window, bench_.highlights, text, mode);
    }

    // Keys of the nodes that are bold (marked "+" when they also have the highlight colour) or
    // expanded (when expanded is set).
    std::vector<std::string> Keys(bool expanded = false) {
        std::vector<std::string> keys;
        for (const TreeNode* node : bench_.Tree(kPublicationsTree).AllNodes()) {
            const bool back = bench_.highlights.BackColour(kPublicationsTree, *node,
                                                           bench_.session.preferences) ==
                              bench_.session.preferences.ColorInformations;
            if (expanded ? node->expanded : node->bold)
                keys.push_back(node->key + (back ? "+" : ""));
        }
        return keys;
    }

    testing::MetadataSession bench_;
};

// Each kind of node, clicked on a story whose fields all hold "o" and that is local.
TEST_F(PublicationSelectionTest, ClickFillsTheFieldsByTheKindOfNode) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"T1", "Le Matin|Nation|Sports|Football|||| G"},
        {"T2", "Le Matin|R\u00e9gion|||Lyon|Vieux Lyon|69|12 L"},
        {"T3", "Le Matin|R\u00e9gion|||Lyon|Croix-Rousse|69| L"},
        {"S1", "Le Matin|Nation|Sports||||| G"},
        {"S2", "Le Matin|R\u00e9gion|||Lyon||| L"},
        {"C3", "Le Soir|Culture|||||| G"},
        {"P2", "Le Soir|o|||||| L"},
    };
    for (const auto& [key, expected] : cases) {
        StoryRecord& s = bench_.session.story;
        s.publication = s.classification = s.sectionGeneral = s.subSectionGeneral = s.sectionLocal =
            s.subSectionLocal = s.codeLocal1 = s.codeLocal2 = "o";
        bench_.session.configuration.publications.classifiedGeneral = !(s.usesLocalSections = true);
        EXPECT_TRUE(Click(key));
        EXPECT_EQ(Fields(), expected) << key;
    }
}

TEST_F(PublicationSelectionTest, ClickHighlightsTheChainUntilTheNextClickOrReload) {
    Click("T2");
    EXPECT_THAT(Keys(), ElementsAre("P1+", "C2+", "S2+", "T2+"));
    EXPECT_TRUE(bench_.session.storyModified);
    EXPECT_THAT(bench_.Control("cmdMetadataTooltip").toolTip, ::testing::HasSubstr("   Lyon"));
    bench_.session.storyModified = false;
    Click("T2");
    EXPECT_FALSE(bench_.session.storyModified);
    Click("C3");
    EXPECT_THAT(Keys(), ElementsAre("P2+", "C3+"));
    ShowAllPublications(bench_.session.paths.configurationFile, bench_.session.preferences,
                        bench_.session.configuration, bench_.session.window);
    EXPECT_THAT(Keys(), ElementsAre());  // a reload drops the highlight and keeps the fields
    EXPECT_EQ(Fields(), "Le Soir|Culture|||||| G");
    EXPECT_EQ(PublicationsCountText(bench_.session.window), " [12 items]");
    EXPECT_FALSE(Click("nowhere"));
}

TEST_F(PublicationSelectionTest, SearchMatchesInsideWordsIgnoringCaseButNotAccents) {
    EXPECT_EQ(Search("  lyon ", PublicationSearchMode::Name), "S2");
    EXPECT_THAT(Keys(), ElementsAre("S2+", "T2+"));
    EXPECT_THAT(Keys(true), ElementsAre("P1", "C2", "S2+"));  // all else collapsed
    EXPECT_EQ(Search(" ", PublicationSearchMode::Name), std::nullopt);
    EXPECT_THAT(Keys(), ElementsAre("S2+", "T2+"));  // an empty search changes nothing
    EXPECT_EQ(Search("TH\u00c9\u00c2", PublicationSearchMode::Name), "S3");
    EXPECT_EQ(Search("theatre", PublicationSearchMode::Name), std::nullopt);
    EXPECT_THAT(Keys(), ElementsAre());

    EXPECT_EQ(Search("69", PublicationSearchMode::FirstCode), "T2");
    EXPECT_THAT(Keys(), ElementsAre("T2+", "T3+"));
    EXPECT_EQ(Search("12", PublicationSearchMode::SecondCode), "T2");
    EXPECT_EQ(Search("69", PublicationSearchMode::SecondCode), std::nullopt);
}

TEST_F(PublicationSelectionTest, ToolTipsChangeOnlyWhenDifferent) {
    const std::string& tip = bench_.Control(kPublicationsTree).toolTip;
    EXPECT_TRUE(PointPublicationNode(bench_.session, "T1"));
    EXPECT_EQ(tip, "75/01 - Football");
    EXPECT_FALSE(PointPublicationNode(bench_.session, "T1"));
    EXPECT_TRUE(PointPublicationNode(bench_.session, "S1"));
    EXPECT_EQ(tip, "Sports");
    bench_.session.preferences.ClassificationTooltips = false;
    EXPECT_FALSE(PointPublicationNode(bench_.session, "T3"));
}

}  // namespace
}  // namespace tessarin
