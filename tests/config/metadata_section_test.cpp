#include "config/metadata_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configuration_document.h"
#include "config/section_reading.h"

namespace tessarin {
namespace {

using ::testing::ElementsAre;
using testing::ItemTexts;
using testing::Joined;
using testing::LoadBench;
using testing::Shown;

// Loads a document whose Metadata section has the given content.
void LoadMetadata(LoadBench& bench, const std::string& content) {
    ASSERT_TRUE(bench.Load(testing::ConfigurationDocument().With(
        &testing::ConfigurationDocument::metadata, "<Metadata>" + content + "</Metadata>")));
}

TEST(MetadataItems, NameVisibleMandatoryAndEnabledGovernTheirControls) {
    LoadBench bench;
    LoadMetadata(bench, R"(<CreationDate Name="Created on" Visible="false"/>
        <Author Name="Byline" Mandatory="true"/><Email Name="Mail" Visible="false" Mandatory="true"/>
        <PublicationDate Name="Date" ButtonName="Calendar" Visible="false"/>
        <PublicationNumber Mandatory="True"/><ColdStory Name="Timeless" Visible="false"/>
        <Publication Name="Title" Enabled="false" Mandatory="true" Visible="false"/>
        <CodeLocal2 Enabled="true"/><Forms Visible="false" Mandatory="true"/>)");
    // Visible and Mandatory are independent: one marks the control, the other its label.
    // "True" is not "true". Classification items read Enabled and Mandatory, not Visible.
    const auto tag = [&](std::string_view control) { return bench.Control(control).tag; };
    EXPECT_EQ(
        Joined({tag("lblTxtCreationDate"), tag("lblAuthor"), tag("lblEmail"), tag("lblTxtEmail"),
                tag("txtPublicationDate"), tag("lblPublicationNumber"), tag("lblPublication")}),
        "invisible|mandatory|mandatory|invisible|invisible||mandatory");
    // An empty list of forms has no selection.
    EXPECT_EQ(Joined({tag("lstStoryTypes"), tag("lblStoryTypes")}), "invisible|mandatory");
    EXPECT_EQ(bench.List("lstStoryTypes").selected, -1);
    EXPECT_EQ(Joined({bench.Control("lblCreationDate").caption, bench.Control("lblAuthor").caption,
                      bench.Control("cmdDate").toolTip, bench.Control("chkColdStory").caption,
                      bench.configuration.metadata.coldStoryLabel}),
              "Created on|Byline|Calendar|Timeless|Timeless");
    EXPECT_EQ(
        Shown(bench.window, {"lblCreationDate", "lblTxtCreationDate", "lblTxtAuthor", "lblEmail",
                             "lblPublicationDate", "txtPublicationDate", "udDate", "cmdDate",
                             "chkColdStory", "txtPublication", "lstStoryTypes", "lblStoryTypes"}),
        "001000000100");
    EXPECT_FALSE(bench.configuration.metadata.creationDateVisible);
    EXPECT_TRUE(bench.configuration.metadata.lastSaveDateVisible);
    EXPECT_FALSE(bench.Control("txtPublication").enabled);
    EXPECT_TRUE(bench.Control("txtCodeLocal2").enabled);
}

TEST(MetadataItems, MissingItemsKeepTheControlsAsDesigned) {
    LoadBench bench;
    bench.window.Control("lblAuthor").caption = "Author";
    bench.window.Control("cmdDate").toolTip = "Date";
    LoadMetadata(bench, R"(<Author Name=""/><PublicationDate ButtonName=""/>)");
    EXPECT_EQ(bench.Control("lblAuthor").caption, "Author");
    EXPECT_EQ(bench.Control("cmdDate").toolTip, "Date");
    EXPECT_TRUE(bench.Control("lblTxtEventDate").visible);
    EXPECT_EQ(bench.Control("lblEventDate").tag, "");
}

TEST(Forms, ReadsEveryFieldOfAForm) {
    LoadBench bench;
    LoadMetadata(bench, R"(<Forms Name="Type">
        <Form Name="News" TextBoxes="01237" AllCaps="12" MinImages="1" MaxImages="2"
              NumberOfChars1="500" NumberOfChars3="10-500" NumberOfChars7="-80"
              ImageSize1="300" ImageSize2="450x" ImageSize3="900"/>
        <Form TextBoxes="7"/>
        <Form Name="Wire" MaxImages="-1" ImageSize1="100"/>
        </Forms>)");
    const std::vector<StoryForm>& forms = bench.configuration.forms;
    ASSERT_EQ(forms.size(), 3u);
    const StoryForm& news = forms[0];
    EXPECT_EQ(Joined({news.name, news.textBoxDigits, news.allCapsDigits}), "News|01237|12");
    EXPECT_EQ(news.minImages, 1);
    EXPECT_EQ(news.maxImages, 2);
    EXPECT_EQ(news.characterLimits[0], std::nullopt);  // "500" without a dash: no limit
    EXPECT_EQ(news.characterLimits[1], std::nullopt);
    EXPECT_EQ(news.characterLimits[2], (CharacterLimit{"10", 500}));
    EXPECT_EQ(news.characterLimits[6], (CharacterLimit{"", 80}));

    // A form without Name keeps its row; MinImages and MaxImages default to 0 and -1.
    EXPECT_EQ(forms[1].name, "");
    EXPECT_EQ(forms[1].minImages, 0);
    EXPECT_EQ(forms[1].maxImages, -1);

    // Sizes are read for as many images as the form allows, and no further.
    EXPECT_THAT(bench.configuration.imageSizes,
                ElementsAre(ImageSizeRow{"News", 300}, ImageSizeRow{"News", 450}));

    const ListModel& list = bench.List("lstStoryTypes");
    EXPECT_THAT(ItemTexts(list), ElementsAre("News", "", "Wire"));
    EXPECT_EQ(
        Joined({list.items[0].data, list.items[1].data, bench.Control("lblStoryTypes").caption}),
        "01237|7|Type");
    EXPECT_EQ(list.selected, 0);
}

TEST(Forms, OnlyANumericWidthAboveOneHundredIsApplied) {
    const std::pair<std::string, int> cases[] = {{"100", -1},   {"101", 101}, {"250", 250},
                                                 {"150px", -1}, {"abc", -1},  {"", -1}};
    for (const auto& [width, expected] : cases) {
        SCOPED_TRACE(width);
        LoadBench bench;
        LoadMetadata(bench, "<Forms Width=\"" + width + "\"/><Status Width=\"" + width +
                                "\"/><Genre Width=\"" + width + "\"/>");
        for (const char* list : {"lstStoryTypes", "lstStatus", "lstGenre"})
            EXPECT_EQ(bench.Control(list).width, expected) << list;
    }
}

TEST(StatusAndGenre, DefaultChoiceIsByFormalName) {
    LoadBench bench;
    LoadMetadata(bench, R"(
        <Status Name="State" Visible="false">
            <StatusItem Name="Draft" FormalName="Draft"/>
            <StatusItem Name="usable" FormalName="usable"/>
            <StatusItem Name="Ready" FormalName="Usable"/>
        </Status>
        <Genre Name="Kind">
            <GenreItem Name="Opinion" FormalName="Opinion"/>
            <GenreItem Name="News" FormalName="Current"/>
        </Genre>)");
    const Configuration& configuration = bench.configuration;
    EXPECT_THAT(ItemTexts(bench.List("lstStatus")), ElementsAre("Draft", "usable", "Ready"));
    EXPECT_EQ(bench.List("lstStatus").selected, 2);
    EXPECT_EQ(configuration.status.defaultIndex, 2);
    EXPECT_FALSE(bench.Control("lstStatus").visible);
    EXPECT_THAT(ItemTexts(bench.List("lstGenre")), ElementsAre("Opinion", "News"));
    EXPECT_EQ(bench.List("lstGenre").selected, 1);
    EXPECT_EQ(
        Joined({configuration.status.entries[0].formalName, bench.Control("lblStatus").caption,
                bench.Control("lstStatus").tag, configuration.genre.entries[1].formalName,
                bench.Control("lblGenre").caption}),
        "Draft|State|invisible|Current|Kind");

    // Without the default FormalName (compared as it stands) nothing is selected.
    LoadMetadata(bench, R"(<Status><StatusItem Name="Draft" FormalName="Draft"/></Status>
        <Genre><GenreItem Name="News" FormalName="current"/></Genre>)");
    EXPECT_EQ(bench.List("lstStatus").selected, -1);
    EXPECT_EQ(bench.List("lstGenre").selected, -1);
    EXPECT_EQ(bench.configuration.status.defaultIndex, -1);
}

}  // namespace
}  // namespace tessarin
