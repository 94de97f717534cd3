#include "metadata/metadata_choices.h"

#include <gtest/gtest.h>

#include "metadata/metadata_session.h"

namespace tessarin {
namespace {

using namespace testing;

constexpr const char* kVocabularies =
    R"(<Metadata><Status Name="State"><StatusItem Name="Draft" FormalName="Draft"/>)"
    R"(<StatusItem Name="Ready" FormalName="Usable"/></Status>)"
    R"(<Genre Name="Kind"><GenreItem Name="News" FormalName="Current"/>)"
    R"(<GenreItem Name="Review" FormalName="Review"/></Genre></Metadata>)";

class MetadataChoicesTest : public ::testing::Test {
  protected:
    MetadataChoicesTest() {
        ConfigurationDocument document;
        document.metadata = kVocabularies;
        bench.Load(document);
        bench.session.story.statusIndex = 1;
        bench.session.story.genreIndex = 0;
    }

    EditorSession& Session() { return bench.session; }
    const std::string& Tip() { return bench.Control("cmdMetadataTooltip").toolTip; }

    MetadataSession bench;
};

TEST_F(MetadataChoicesTest, ANewStatusOrGenreIsKeptShownAndModifiesTheStory) {
    EXPECT_TRUE(ChooseStatus(Session(), 0));
    EXPECT_EQ(Session().story.statusIndex, Session().window.List("lstStatus").selected);
    EXPECT_EQ(Session().story.statusIndex, 0);
    EXPECT_TRUE(Session().storyModified);
    EXPECT_NE(Tip().find("State:\n   Draft"), std::string::npos) << Tip();

    EXPECT_TRUE(ChooseGenre(Session(), 1));
    EXPECT_EQ(Session().story.genreIndex, 1);
    EXPECT_NE(Tip().find("Kind:\n   Review"), std::string::npos) << Tip();

    EXPECT_TRUE(ChooseGenre(Session(), -1));
    EXPECT_EQ(Session().window.List("lstGenre").selected, -1);
    EXPECT_EQ(Tip().find("Kind:"), std::string::npos) << Tip();
}

TEST_F(MetadataChoicesTest, TheSameChoiceOrOneOutsideTheVocabularyChangesNothing) {
    EXPECT_FALSE(ChooseStatus(Session(), 1));
    EXPECT_FALSE(ChooseStatus(Session(), 2));
    EXPECT_FALSE(ChooseGenre(Session(), -2));
    EXPECT_EQ(Session().story.statusIndex, 1);
    EXPECT_EQ(Session().story.genreIndex, 0);
    EXPECT_FALSE(Session().storyModified);
}

TEST_F(MetadataChoicesTest, ACalendarOpensOnTheFieldsDateElseOnToday) {
    EXPECT_EQ(CalendarStartDay("14/07/2025"), (LocalDateTime{2025, 7, 14}));
    const LocalDateTime today = CalendarStartDay("not a date");
    EXPECT_EQ((std::array{today.year, today.month, today.day}), (std::array{2025, 3, 10}));
}

TEST_F(MetadataChoicesTest, APickedDayIsStoredAsTypedAndJudgedAsOnLeaving) {
    EXPECT_EQ(PickCalendarDay(Session(), DateField::Publication, {2025, 3, 10}), DateCheck::Valid);
    EXPECT_EQ(Session().story.publicationDate, "10/03/2025");
    EXPECT_TRUE(Session().storyModified);
    EXPECT_EQ(bench.Status(), "");

    EXPECT_EQ(PickCalendarDay(Session(), DateField::Publication, {2025, 3, 9}), DateCheck::Expired);
    EXPECT_EQ(Session().story.publicationDate, "09/03/2025");
    EXPECT_EQ(bench.Status(), "Expired publication date");

    Session().window.ClearStatus();
    EXPECT_EQ(PickCalendarDay(Session(), DateField::Event, {2024, 1, 2}), DateCheck::Valid);
    EXPECT_EQ(Session().story.eventDate, "02/01/2024");
    EXPECT_EQ(bench.Status(), "");
}

TEST_F(MetadataChoicesTest, TheDialogsClassificationIsAppliedOnlyWhenItDiffers) {
    ClassificationValues values = ReadClassification(Session().story);
    EXPECT_FALSE(ApplyClassification(Session(), values));
    EXPECT_FALSE(Session().storyModified);

    values[0] = "Evening Post";
    values[7] = "B2";
    EXPECT_TRUE(ApplyClassification(Session(), values));
    EXPECT_EQ(Session().story.publication, "Evening Post");
    EXPECT_EQ(Session().story.codeLocal2, "B2");
    EXPECT_EQ(ReadClassification(Session().story), values);
    EXPECT_TRUE(Session().storyModified);
    EXPECT_NE(Tip().find("Publication:\n   Evening Post"), std::string::npos) << Tip();
}

}  // namespace
}  // namespace tessarin
