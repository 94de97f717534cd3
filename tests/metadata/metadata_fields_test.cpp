#include "metadata/metadata_fields.h"

#include <gtest/gtest.h>

#include "metadata/metadata_changed.h"
#include "metadata/metadata_choices.h"
#include "metadata/metadata_session.h"

namespace tessarin {
namespace {

// Today is 10/03/2025, at one minute past midnight. Status "State": Draft, Ready (the default,
// "Usable"); genre "Kind": News, Review.
class MetadataFieldsTest : public ::testing::Test {
  protected:
    MetadataFieldsTest() {
        testing::ConfigurationDocument document;
        document.metadata =
            R"(<Metadata><Status Name="State"><StatusItem Name="Draft" FormalName="Draft"/>)"
            R"(<StatusItem Name="Ready" FormalName="Usable"/></Status>)"
            R"(<Genre Name="Kind"><GenreItem Name="News" FormalName="Current"/>)"
            R"(<GenreItem Name="Review" FormalName="Review"/></Genre></Metadata>)";
        bench_.Load(document);
    }

    EditorSession& Session() { return bench_.session; }
    const std::string& Tip() { return bench_.Control("cmdMetadataTooltip").toolTip; }
    StoryRecord& Story() { return bench_.session.story; }

    // The check of a date field holding text: "Expired", "Invalid" or "" and the status text,
    // marked "!" when it came with the error picture.
    std::string Leave(DateField field, std::string text) {
        Session().window.ClearStatus();
        (field == DateField::Publication ? Story().publicationDate : Story().eventDate) = text;
        const DateCheck check = LeaveDateField(Session(), field);
        const char* names[] = {"", "", "Expired", "Invalid"};
        return names[static_cast<int>(check)] +
               std::string(Session().window.Status().errorPicture ? "!" : "") + bench_.Status();
    }

    testing::MetadataSession bench_;
};

TEST_F(MetadataFieldsTest, ANewStoryIsDatedTomorrow) {
    PrepareNewStoryMetadata(Session());
    EXPECT_EQ(Story().publicationDate, "11/03/2025");
    EXPECT_EQ(Tip(), "0 Photos\nPublication date:\n   11/03/2025");
    EXPECT_FALSE(Session().storyModified);
}

TEST_F(MetadataFieldsTest, LeavingADateJudgesItInWholeDays) {
    EXPECT_EQ(Leave(DateField::Publication, "10/03/2025"), "");
    EXPECT_EQ(Leave(DateField::Publication, "09/03/2025"), "Expired!Expired publication date");
    EXPECT_EQ(Leave(DateField::Event, "09/03/2025"), "");
    EXPECT_EQ(Leave(DateField::Event, "31/02/2025"), "Invalid!Invalid date (dd/MM/yyyy)");
    EXPECT_EQ(Leave(DateField::Publication, " "), "");
    EXPECT_EQ(Session().window.beeps, 2);
}

TEST_F(MetadataFieldsTest, UpDownStepsByTheDailyInterval) {
    Session().preferences.DailyInterval = 7;
    Story().publicationDate = "10/03/2025";
    EXPECT_EQ(StepDate(Session(), DateField::Publication, +1), DateCheck::Valid);
    EXPECT_EQ(Story().publicationDate, "17/03/2025");
    EXPECT_TRUE(Session().storyModified);
    EXPECT_EQ(StepDate(Session(), DateField::Publication, -1), DateCheck::Valid);  // today
    EXPECT_EQ(StepDate(Session(), DateField::Publication, -1), DateCheck::Expired);
    EXPECT_EQ(Story().publicationDate, "03/03/2025");  // kept all the same
    EXPECT_EQ(bench_.Status(), "Expired publication date");
    EXPECT_EQ(StepDate(Session(), DateField::Event, +1), DateCheck::Invalid);  // blank

    Session().preferences.DailyInterval = 5;  // anything but 7 is one day
    Story().eventDate = "01/01/2020";
    EXPECT_EQ(StepDate(Session(), DateField::Event, -1), DateCheck::Valid);
    EXPECT_EQ(Story().eventDate, "31/12/2019");
    EXPECT_EQ(CalendarMonth(Story().eventDate), 12);
}

TEST_F(MetadataFieldsTest, PublicationNumberStepsByOneAndReportsText) {
    Story().publicationNumber = "2.5";
    EXPECT_TRUE(StepPublicationNumber(Session(), +1));
    EXPECT_EQ(Story().publicationNumber, "3.5");
    Story().publicationNumber = "";
    EXPECT_TRUE(LeavePublicationNumber(Session()));
    EXPECT_FALSE(StepPublicationNumber(Session(), -1));
    Story().publicationNumber = "12b";
    EXPECT_FALSE(LeavePublicationNumber(Session()));
    EXPECT_EQ(bench_.Status(), "Invalid number");
}

TEST_F(MetadataFieldsTest, ColdStoryAndLockHoldTheirControls) {
    testing::ConfigurationDocument document;
    document.metadata = R"(<Metadata><PublicationNumber Visible="false"/></Metadata>)";
    bench_.Load(document);
    Story().publicationNumber = "7";
    SetColdStory(Session(), true);
    EXPECT_EQ(Story().publicationDate, "");
    EXPECT_EQ(Story().publicationNumber, "7");  // an invisible number is left alone
    EXPECT_FALSE(bench_.Control("MonthViewPublicationDate").enabled);
    EXPECT_TRUE(Session().storyModified);

    SetMetadataLock(Session(), true);
    EXPECT_FALSE(bench_.Control("treePublications").enabled);
    EXPECT_TRUE(bench_.Control("lblMetadataLocked").visible);
    EXPECT_TRUE(ReadPreferences(Session().profile).LockMetadata);
    SetColdStory(Session(), false);
    EXPECT_EQ(Story().publicationDate, "11/03/2025");
    EXPECT_TRUE(bench_.Control("lblPublicationDate").enabled);
    EXPECT_FALSE(bench_.Control("udDate").enabled);  // the lock holds it

    SetColdStory(Session(), true);
    SetMetadataLock(Session(), false);
    EXPECT_TRUE(bench_.Control("treePublications").enabled);
    EXPECT_FALSE(bench_.Control("treeTaxonomy").enabled);          // no taxonomy: "invisible"
    EXPECT_FALSE(bench_.Control("udDate").enabled);                // the cold story holds it
    EXPECT_FALSE(bench_.Control("txtPublicationNumber").enabled);  // "invisible"
}

// Visible, filled fields in the order of the metadata tab, then topics and keywords.
TEST_F(MetadataFieldsTest, ToolTextSummarisesTheMetadata) {
    testing::ConfigurationDocument document;
    document.metadata = R"(<Metadata><Email Visible="false"/>
        <Classification Name="Rubrique"/></Metadata>)";
    document.keywords = R"(<Keywords Name="Mots"><KeywordsCategory CategoryIndex="1" Name="A"/>
        <KeywordsCategory CategoryIndex="2" Name="B"/></Keywords>)";
    document.taxonomy = R"(<Taxonomy Name="Sujets" Mandatory="true"/>)";
    bench_.Load(document);
    Story().author = "Jean";
    Story().email = "jean@example.org";
    Story().classification = "Sports";
    Story().images.resize(2);
    Story().taxonomy = {{"Arts", 1}, {"Cin\u00e9ma", 2}};
    Story().keywords = {{"K2", "Zidane"}, {"K1", "Lyon"}, {"K9", "no category"}};
    MetadataChanged(Session());
    EXPECT_EQ(Tip(),
              "2 Photos\nAuthor:\n   Jean\nRubrique:\n   Sports\n"
              "Sujets:\n   Arts\n   Cin\u00e9ma\nMots:\n   Lyon\n   Zidane");
}

TEST_F(MetadataFieldsTest, ANewStatusOrGenreIsKeptShownAndModifiesTheStory) {
    Session().story.statusIndex = 1;
    EXPECT_TRUE(ChooseStatus(Session(), 0));
    EXPECT_EQ(Session().story.statusIndex, Session().window.List("lstStatus").selected);
    EXPECT_EQ(Session().story.statusIndex, 0);
    EXPECT_TRUE(Session().storyModified);
    EXPECT_NE(Tip().find("State:\n   Draft"), std::string::npos) << Tip();

    EXPECT_TRUE(ChooseGenre(Session(), 1));
    EXPECT_EQ(Session().story.genreIndex, 1);
    EXPECT_NE(Tip().find("Kind:\n   Review"), std::string::npos) << Tip();

    // The same choice or one outside the vocabulary changes nothing.
    Session().storyModified = false;
    EXPECT_FALSE(ChooseStatus(Session(), 0));
    EXPECT_FALSE(ChooseStatus(Session(), 2));
    EXPECT_FALSE(ChooseGenre(Session(), -2));
    EXPECT_EQ(Session().story.statusIndex, 0);
    EXPECT_EQ(Session().story.genreIndex, 1);
    EXPECT_FALSE(Session().storyModified);

    EXPECT_TRUE(ChooseGenre(Session(), -1));
    EXPECT_EQ(Session().window.List("lstGenre").selected, -1);
    EXPECT_EQ(Tip().find("Kind:"), std::string::npos) << Tip();
}

// A calendar opens on the field's date, else on today. A picked day is judged as a typed date
// is on leaving the field, whose checks cover the rest.
TEST_F(MetadataFieldsTest, ACalendarOpensOnTheFieldsDateAndItsDayIsStoredAsTyped) {
    EXPECT_EQ(CalendarStartDay("14/07/2025"), (LocalDateTime{2025, 7, 14}));
    const LocalDateTime today = CalendarStartDay("not a date");
    EXPECT_EQ((std::array{today.year, today.month, today.day}), (std::array{2025, 3, 10}));

    EXPECT_EQ(PickCalendarDay(Session(), DateField::Publication, {2025, 3, 10}), DateCheck::Valid);
    EXPECT_EQ(Session().story.publicationDate, "10/03/2025");
    EXPECT_TRUE(Session().storyModified);
    EXPECT_EQ(bench_.Status(), "");

    EXPECT_EQ(PickCalendarDay(Session(), DateField::Event, {2024, 1, 2}), DateCheck::Valid);
    EXPECT_EQ(Session().story.eventDate, "02/01/2024");
}

TEST_F(MetadataFieldsTest, TheDialogsClassificationIsAppliedOnlyWhenItDiffers) {
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
