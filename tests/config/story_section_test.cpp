#include "config/story_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/configuration_document.h"
#include "config/section_reading.h"

namespace tessarin {
namespace {

using Document = testing::ConfigurationDocument;
using testing::Bits;
using ::testing::ElementsAre;
using testing::Joined;
using testing::LoadBench;
using testing::NodeLines;
using testing::Shown;

TEST(StorySection, SignatureAndNotesAsConfiguredOrTheirDefaults) {
    // Each row: the section; tool tips of cmdSignature and treeNotes, the notes' AddHere and
    // txtSignature's tag; which of cmdSignature, txtSignature and treeNotes show and whether
    // the notes are all managed; the notes tree.
    const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
        {"<Story/>", "|Enter key to add / Del key to delete|Add note here|", "1111",
         "N1|Notes [0]|"},
        {R"(<Story><Signature Name="Sign" Visible="false"/><Notes Name="Memos" AddHere="New memo"
            ToolTipText="Memos" Visible="false" ManageAllNotes="false"/></Story>)",
         "Sign|Memos|New memo|invisible", "0000", "N1|Memos [0]|"}};
    for (const auto& [section, texts, shown, notes] : cases) {
        SCOPED_TRACE(section);
        LoadBench bench;
        ASSERT_TRUE(bench.Load(Document().With(&Document::story, section)));
        const StorySettings& story = bench.configuration.story;
        EXPECT_EQ(Joined({bench.Control("cmdSignature").toolTip, bench.Control("treeNotes").toolTip,
                          story.notes.addHere, bench.Control("txtSignature").tag}),
                  texts);
        EXPECT_EQ(Shown(bench.window, {"cmdSignature", "txtSignature", "treeNotes"}) +
                      Bits({story.notes.manageAllNotes}),
                  shown);
        EXPECT_THAT(NodeLines(bench.Tree("treeNotes")), ElementsAre(notes));
    }
}

// A second load renames the boxes but keeps the first name each box was given.
TEST(StorySection, TextBoxesTakeLabelHeightAndVisibilityAndKeepTheirFirstName) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(
        Document().With(&Document::story, R"(<Story><TextBox2 Name="Headline"/></Story>)")));
    ASSERT_TRUE(bench.Load(
        Document().With(&Document::story, R"(<Story><TextBox1 Name="  Kicker " Height="450"/>
        <TextBox2 Name="Title"/><TextBox3 Name="Lead" Height="tall"/>
        <TextBox5 Name="Box" Height="300" Visible="false"/></Story>)")));
    const auto& boxes = bench.configuration.story.textBoxes;
    EXPECT_EQ(Joined({boxes[0].label, bench.Control("lblTextBox0").caption, boxes[1].label,
                      bench.Control("lblTextBox1").caption, boxes[3].label,
                      bench.Control("TextBox4").tag}),
              "Kicker|Kicker|Title|Title||invisible");
    EXPECT_EQ(boxes[1].storedName, "Headline");
    EXPECT_EQ(boxes[0].storedName, "Kicker");
    EXPECT_EQ(boxes[3].storedName, std::nullopt);
    EXPECT_EQ(boxes[0].height, 450);
    EXPECT_EQ(boxes[2].height, std::nullopt);
    // Heights of the controls: as read, as designed (-1) for a height that is no number, 0
    // for a hidden box.
    EXPECT_EQ(Joined({std::to_string(bench.Control("TextBox0").height),
                      std::to_string(bench.Control("TextBox2").height),
                      std::to_string(bench.Control("TextBox4").height)}),
              "450|-1|0");
    EXPECT_EQ(Shown(bench.window, {"TextBox4", "lblTextBox4", "TextBox1"}), "001");
}

TEST(NewsServices, MissingOrHiddenSectionHidesTheButton) {
    for (const std::string section : {"", R"(<NewsServices Visible="false"/>)"}) {
        SCOPED_TRACE(section);
        LoadBench bench;
        ASSERT_TRUE(bench.Load(Document().With(&Document::newsServices, section)));
        const NewsServicesSettings& news = bench.configuration.newsServices;
        EXPECT_FALSE(news.visible);
        EXPECT_FALSE(bench.Control("NewsService").visible);
        EXPECT_EQ(news.headLineRecipient, 3);
        EXPECT_EQ(news.textRecipient, 6);
        EXPECT_EQ(news.copiedColour, 0x0000FFu);           // red
        EXPECT_EQ(news.partiallyCopiedColour, 0xFF0000u);  // blue
        EXPECT_TRUE(bench.Tree("mnuNewsService").Empty());
    }
}

TEST(NewsServices, ReadsAtMostFiveServicesAndTheCategories) {
    LoadBench bench;
    ASSERT_TRUE(bench.Load(
        Document().With(&Document::newsServices,
                        R"(<NewsServices Name="Wires" HeadLineRecipient="2" TextRecipient="7"
                            CopiedColor="32768" PartiallyCopiedColor="8388736">
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
        </Categories></NewsServices>)")));
    const NewsServicesSettings& news = bench.configuration.newsServices;
    EXPECT_TRUE(news.visible);
    EXPECT_TRUE(bench.Control("NewsService").visible);
    EXPECT_EQ(
        Joined({bench.Control("NewsService").toolTip, std::to_string(news.headLineRecipient),
                std::to_string(news.textRecipient), news.categoriesName, news.allCategoriesName,
                std::to_string(news.copiedColour), std::to_string(news.partiallyCopiedColour)}),
        "Wires|2|7|Category|All|32768|8388736");
    EXPECT_THAT(
        NodeLines(bench.Tree("mnuNewsService")),
        ElementsAre(R"(k1|One|C:\Wires\One\|C:\Wires\Old\)", "k2|Two|/srv/two/|/srv/two-old/",
                    "k3|Three|wires/|", R"(k4|Four||D:/mixed\dir/)", "k5|Five|/srv/five/|"));
    ASSERT_EQ(news.services.size(), 5u);
    EXPECT_EQ(news.services[1], (NewsServiceEntry{"Two", "/srv/two/|/srv/two-old/"}));
    EXPECT_THAT(news.categories,
                ElementsAre(NewsCategory{"Politics", "POL"}, NewsCategory{"Sport", "SPO"}));
}

}  // namespace
}  // namespace tessarin
