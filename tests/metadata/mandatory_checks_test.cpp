#include "metadata/mandatory_checks.h"

#include <gtest/gtest.h>

#include "common/scoped_environment.h"

namespace tessarin {
namespace {

using testing::ScopedEnvironment;

class MandatoryChecksTest : public ::testing::Test {
  protected:
    MandatoryChecksTest() {
        configuration_.messages.Set("MandatoryField", "Champ obligatoire");
        configuration_.messages.Set("MandatoryTaxonomy", "Taxinomie obligatoire");
        configuration_.messages.Set("InvalidDate", "Date invalide");
        configuration_.messages.Set("InvalidNumber", "Num\u00e9ro invalide");
    }

    void Mandatory(std::string_view label) { AppendTagWord(window_.Control(label), "mandatory"); }

    // Adds the node key/text below parent (a root when null) of the tree named treeName.
    TreeNode& Add(std::string_view treeName, TreeNode* parent, std::string key,
                  std::string text = {}) {
        TreeNode node;
        node.key = std::move(key);
        node.text = std::move(text);
        return window_.Tree(treeName).Add(parent, std::move(node));
    }

    // The message of the first failure, or "" when the story passes.
    std::string FirstFailure() {
        const auto failure = CheckMandatoryFields(story_, window_, configuration_);
        return failure ? failure->message + " @" + failure->field : "";
    }

    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    StoryRecord story_;
    WindowState window_;
    Configuration configuration_;
};

// Every rule fails at once; filling the first failing field shows the next one, in order.
TEST_F(MandatoryChecksTest, RulesRunInOrderAndStopAtTheFirstFailure) {
    for (const char* label :
         {"lblAuthor", "lblEmail", "lblGroup", "lblInitials", "lblPublication", "lblClassification",
          "lblSectionGeneral", "lblSubSectionGeneral", "lblStoryTypes", "lblPublicationDate",
          "lblEventDate", "lblPublicationNumber", "lblSectionLocal", "lblCodeLocal2"}) {
        Mandatory(label);
    }
    window_.Control("lblAuthor").caption = "Auteur";
    configuration_.interface.entries["ImageCaption"].Mandatory = true;
    configuration_.interface.entries["ImageCredit"].Mandatory = true;
    configuration_.interface.entries["ImageCredit"].caption = "Cr\u00e9dit";
    story_.images = {{1, "/photos/stade.jpg", "", "", {}}};
    Add("treeKeywords", &Add("treeKeywords", nullptr, "K"), "K4", "Lieux [*]");
    configuration_.taxonomyOn = true;
    window_.Control("treeTaxonomy").tag = "mandatory";
    Add("treeTaxonomy", nullptr, "T0", "Sujets [*]");

    const std::vector<std::pair<std::string, std::function<void()>>> steps = {
        {"Auteur: Champ obligatoire @lblTxtAuthor", [&] { story_.author = "a"; }},
        {"Email: Champ obligatoire @lblTxtEmail", [&] { story_.email = "e"; }},
        {"Group: Champ obligatoire @lblTxtGroup", [&] { story_.group = "g"; }},
        {"Initials: Champ obligatoire @lblTxtInitials", [&] { story_.initials = "i"; }},
        {"Publication: Champ obligatoire @txtPublication", [&] { story_.publication = "p"; }},
        {"Classification: Champ obligatoire @txtClassification",
         [&] { story_.classification = "c"; }},
        {"General section: Champ obligatoire @txtSectionGeneral",
         [&] { story_.sectionGeneral = "s"; }},
        {"General subsection: Champ obligatoire @txtSubSectionGeneral",
         [&] { story_.subSectionGeneral = "s"; }},
        {"stade.jpg -> Champ obligatoire: Caption @treeImages",
         [&] { story_.images[0].caption = "c"; }},
        {"stade.jpg -> Champ obligatoire: Cr\u00e9dit @treeImages",
         [&] { story_.images[0].credit = "c"; }},
        {"Lieux [*]: Champ obligatoire @treeKeywords",
         [&] {
             story_.keywords = {{"4K", "Lyon"}};
         }},
        {"Sujets: Taxinomie obligatoire @treeTaxonomy",
         [&] {
             story_.taxonomy = {{"Arts", 1}};
         }},
        {"Story type: Champ obligatoire @lstStoryTypes", [&] { story_.formIndex = 0; }},
        {"Publication date: Champ obligatoire @txtPublicationDate",
         [&] { story_.publicationDate = "31/02/2025"; }},
        {"Publication date: Date invalide (dd/MM/yyyy) @txtPublicationDate",
         [&] { story_.publicationDate = "28/02/2025"; }},
        {"Event date: Champ obligatoire @txtEventDate", [&] { story_.eventDate = "demain"; }},
        {"Event date: Date invalide (dd/MM/yyyy) @txtEventDate",
         [&] { story_.eventDate = " 1.3.25 "; }},
        {"Publication number: Champ obligatoire @txtPublicationNumber",
         [&] { story_.publicationNumber = "12b"; }},
        {"Publication number: Num\u00e9ro invalide @txtPublicationNumber",
         [&] { story_.publicationNumber = "12"; }},
    };
    for (const auto& [expected, fill] : steps) {
        EXPECT_EQ(FirstFailure(), expected);
        fill();
    }
    EXPECT_EQ(FirstFailure(), "");

    // The local sections are checked for a story classified locally only.
    story_.usesLocalSections = true;
    EXPECT_EQ(FirstFailure(), "Local section: Champ obligatoire @txtSectionLocal");
    story_.sectionLocal = "Lyon";
    EXPECT_EQ(FirstFailure(), "Local code 2: Champ obligatoire @txtCodeLocal2");
    story_.codeLocal2 = "B";
    EXPECT_EQ(FirstFailure(), "");

    // A cold story has no date and no number; the event date is still its own.
    story_.coldStory = true;
    story_.publicationDate = story_.eventDate = "";
    story_.publicationNumber = "x";
    EXPECT_EQ(FirstFailure(), "Event date: Champ obligatoire @txtEventDate");
    story_.eventDate = "01/03/2025";
    EXPECT_EQ(FirstFailure(), "");
}

TEST_F(MandatoryChecksTest, NothingMandatoryInvisibleOrHiddenIsChecked) {
    EXPECT_EQ(FirstFailure(), "");
    Mandatory("lblPublicationDate");
    PrependTagWord(window_.Control("txtPublicationDate"), "invisible");
    story_.eventDate = "32/01/2025";
    PrependTagWord(window_.Control("txtEventDate"), "invisible");
    window_.Control("treeTaxonomy").tag = "invisible/mandatory";
    EXPECT_EQ(FirstFailure(), "");
    // A category without the mark needs no keyword.
    Add("treeKeywords", &Add("treeKeywords", nullptr, "K"), "K1", "Personnes");
    EXPECT_EQ(FirstFailure(), "");
}

}  // namespace
}  // namespace tessarin
