#include "config/story_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configuration_document.h"

namespace tessarin {
namespace {

using testing::ConfigurationDocument;
using ::testing::ElementsAre;
using testing::LoadBench;
using testing::NodeLines;

TEST(StorySection, SignatureAndNotesTakeTheirDefaults) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(ConfigurationDocument{}));
    const StorySettings& story = bench.configuration.story;
    EXPECT_EQ(story.signature.toolTip, "");
    EXPECT_TRUE(story.signature.visible);
    EXPECT_EQ(story.notes.name, "Notes");
    EXPECT_EQ(story.notes.addHere, "Add note here");
    EXPECT_EQ(story.notes.toolTipText, "Enter key to add / Del key to delete");
    EXPECT_TRUE(story.notes.visible);
    EXPECT_TRUE(story.notes.manageAllNotes);
    EXPECT_THAT(NodeLines(bench.Tree("treeNotes")), ElementsAre("N1|Notes [0]|"));
    EXPECT_EQ(bench.Control("treeNotes").toolTip, "Enter key to add / Del key to delete");
}

TEST(StorySection, SignatureAndNotesAsConfigured) {
    LoadBench bench;
    ConfigurationDocument document;
    document.story = R"(<Story><Signature Name="Sign" Visible="false"/>
        <Notes Name="Memos" AddHere="New memo" ToolTipText="Memos" Visible="false"
               ManageAllNotes="false"/></Story>)";
    ASSERT_TRUE(bench.Load(document));
    const StorySettings& story = bench.configuration.story;
    EXPECT_EQ(bench.Control("cmdSignature").toolTip, "Sign");
    EXPECT_FALSE(bench.Control("cmdSignature").visible);
    EXPECT_FALSE(bench.Control("txtSignature").visible);
    EXPECT_EQ(bench.Control("txtSignature").tag, "invisible");
    EXPECT_FALSE(story.signature.visible);
    EXPECT_EQ(story.notes.addHere, "New memo");
    EXPECT_FALSE(story.notes.manageAllNotes);
    EXPECT_FALSE(bench.Control("treeNotes").visible);
    EXPECT_THAT(NodeLines(bench.Tree("treeNotes")), ElementsAre("N1|Memos [0]|"));
}

TEST(StorySection, TextBoxesTakeLabelHeightAndVisibility) {
    LoadBench bench;
    ConfigurationDocument document;
    document.story = R"(<Story><TextBox1 Name="  Kicker " Height="450"/>
        <TextBox3 Name="Lead" Height="tall"/>
        <TextBox5 Name="Box" Height="300" Visible="false"/></Story>)";
    ASSERT_TRUE(bench.Load(document));
    const auto& boxes = bench.configuration.story.textBoxes;
    EXPECT_EQ(boxes[0].label, "Kicker");
    EXPECT_EQ(bench.Control("lblTextBox0").caption, "Kicker");
    EXPECT_EQ(bench.Control("TextBox0").height, 450);
    EXPECT_EQ(boxes[0].height, 450);
    EXPECT_EQ(bench.Control("TextBox2").height, -1);
    EXPECT_EQ(boxes[2].height, std::nullopt);
    EXPECT_FALSE(bench.Control("TextBox4").visible);
    EXPECT_FALSE(bench.Control("lblTextBox4").visible);
    EXPECT_EQ(bench.Control("TextBox4").height, 0);
    EXPECT_EQ(bench.Control("TextBox4").tag, "invisible");
    EXPECT_TRUE(bench.Control("TextBox1").visible);
    EXPECT_EQ(boxes[1].label, "");
}

TEST(StorySection, TheFirstNameOfATextBoxIsKeptForGood) {
    LoadBench bench;
    ConfigurationDocument document;
    document.story = R"(<Story><TextBox2 Name="Headline"/></Story>)";
    ASSERT_TRUE(bench.Load(document));
    document.story = R"(<Story><TextBox1 Name="Kicker"/><TextBox2 Name="Title"/></Story>)";
    ASSERT_TRUE(bench.Load(document));
    const auto& boxes = bench.configuration.story.textBoxes;
    EXPECT_EQ(boxes[1].label, "Title");
    EXPECT_EQ(bench.Control("lblTextBox1").caption, "Title");
    EXPECT_EQ(boxes[1].storedName, "Headline");
    EXPECT_EQ(boxes[0].storedName, "Kicker");
    EXPECT_EQ(boxes[2].storedName, std::nullopt);
}

TEST(NewsServices, MissingSectionHidesTheButton) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(ConfigurationDocument{}));
    const NewsServicesSettings& news = bench.configuration.newsServices;
    EXPECT_FALSE(news.visible);
    EXPECT_FALSE(bench.Control("NewsService").visible);
    EXPECT_EQ(news.headLineRecipient, 3);
    EXPECT_EQ(news.textRecipient, 6);
    EXPECT_TRUE(bench.Tree("mnuNewsService").Empty());
}

TEST(NewsServices, ReadsAtMostFiveServicesAndTheCategories) {
    LoadBench bench;
    ConfigurationDocument document;
    document.newsServices = R"(<NewsServices Name="Wires" HeadLineRecipient="2" TextRecipient="7">
        <NewsService Name="One" Repository="C:\Wires\One" ArchivesRepository="C:\Wires\Old\"/>
        <NewsService Name="Two" Repository="/srv/two" ArchivesRepository="/srv/two-old/"/>
        <NewsService Name="Three" Repository="wires"/>
        <NewsService Name="Four" Repository="" ArchivesRepository="D:/mixed\dir"/>
        <NewsService Name="Five" Repository="/srv/five/"/>
        <NewsService Name="Six" Repository="/srv/six"/>
        <Categories Name="Category" AllCategories="All">
            <Category FormalName="POL">Politics</Category>
            <Category FormalName="">Unnamed</Category>
            <Category FormalName="ECO"></Category>
            <Category FormalName="SPO">Sport</Category>
        </Categories></NewsServices>)";
    ASSERT_TRUE(bench.Load(document));
    const NewsServicesSettings& news = bench.configuration.newsServices;
    EXPECT_TRUE(news.visible);
    EXPECT_TRUE(bench.Control("NewsService").visible);
    EXPECT_EQ(bench.Control("NewsService").toolTip, "Wires");
    EXPECT_EQ(news.headLineRecipient, 2);
    EXPECT_EQ(news.textRecipient, 7);
    EXPECT_THAT(
        NodeLines(bench.Tree("mnuNewsService")),
        ElementsAre(R"(k1|One|C:\Wires\One\|C:\Wires\Old\)", "k2|Two|/srv/two/|/srv/two-old/",
                    "k3|Three|wires/|", R"(k4|Four||D:/mixed\dir/)", "k5|Five|/srv/five/|"));
    ASSERT_EQ(news.services.size(), 5u);
    EXPECT_EQ(news.services[1], (NewsServiceEntry{"Two", "/srv/two/|/srv/two-old/"}));
    EXPECT_EQ(news.categoriesName, "Category");
    EXPECT_EQ(news.allCategoriesName, "All");
    EXPECT_THAT(news.categories,
                ElementsAre(NewsCategory{"Politics", "POL"}, NewsCategory{"Sport", "SPO"}));
}

TEST(NewsServices, VisibleFalseHidesTheButton) {
    LoadBench bench;
    ConfigurationDocument document;
    document.newsServices = R"(<NewsServices Visible="false"/>)";
    ASSERT_TRUE(bench.Load(document));
    EXPECT_FALSE(bench.Control("NewsService").visible);
    EXPECT_FALSE(bench.configuration.newsServices.visible);
}

}  // namespace
}  // namespace tessarin
