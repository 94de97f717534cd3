#include "editing/story_forms.h"

#include <gtest/gtest.h>

#include "attachments/attachment_trees.h"
#include "editing/copy_fit.h"
#include "editing/panel_session.h"

namespace tessarin {
namespace {

TreeNode Node(std::string key, std::string text = {}) {
    TreeNode node;
    node.key = std::move(key);
    node.text = std::move(text);
    return node;
}

class StoryFormsTest : public ::testing::Test, public testing::PanelSession {
  protected:
    StoryFormsTest() {
        auto& forms = session.configuration.forms;
        forms = {{"Full", "12345670", "", 0, -1, {}},
                 {"Short", "1237", "3", 0, -1, {}},
                 {"NoPhoto", "17", "", 0, 0, {}},
                 {"Pair", "12345670", "", 1, 2, {}}};
        forms[0].characterLimits[3] = CharacterLimit{"100", 200};
        forms[0].characterLimits[6] = CharacterLimit{"1000", 2000};
        session.configuration.imageSizes = {{"Pair", 100}, {"Pair", 200}};
        session.window.Control("cmdSignature").caption = "Sign";
        EXPECT_TRUE(ChooseForm(session, 0));
    }

    // A click in lstStoryTypes, answered in turn by answers.
    bool Click(int index, std::initializer_list<Answer> answers = {}) {
        for (Answer answer : answers)
            user.QueueAnswer(answer);
        user.questions.clear();
        session.window.List("lstStoryTypes").selected = index;
        return ChooseForm(session, index);
    }

    void ExpectFormInForce(int index) {
        EXPECT_EQ(session.panel.formInForce, index);
        EXPECT_EQ(session.story.formIndex, index);
        EXPECT_EQ(session.window.List("lstStoryTypes").selected, index);
    }
};

TEST_F(StoryFormsTest, AFormDecidesBoxesLimitsPicturesAndSignature) {
    for (bool active : session.panel.activeBoxes)
        EXPECT_TRUE(active);
    EXPECT_TRUE(session.panel.signatureAvailable && session.story.signatureEnabled);
    EXPECT_EQ(Control(CountLabelName(3)).caption, "0  [0%]");
    EXPECT_EQ(Control("lblImageMetadata").caption,
              "\nNumber of required photos:\nMin.=0\nMax. Not defined");
    EXPECT_FALSE(Click(0));
    EXPECT_TRUE(user.questions.empty());

    session.storyFileName = "story.xml";
    session.configuration.ftpTransmission.MaxSizeImage = 500;
    EXPECT_TRUE(Click(1));
    EXPECT_TRUE(session.storyModified);
    EXPECT_FALSE(session.panel.activeBoxes[3] || Control("TextBox3").visible ||
                 Control(CountLabelName(3)).visible || session.panel.signatureAvailable);
    EXPECT_EQ(session.panel.limits[3].minimum, 0);  // no NumberOfChars4: no warning
    EXPECT_FALSE(Control(WriteMoreIconName(3)).visible);
    EXPECT_TRUE(session.panel.allCaps[2] && Control("ImageAllCaps2").visible);
    EXPECT_TRUE(Click(3));
    EXPECT_EQ(Control("fraImages").toolTip, "Photos: Min.=1; Max.=2; Max Size=500 KB");
}

TEST_F(StoryFormsTest, TextThatWouldBeLostIsAskedFor) {
    session.story.boxes[3] = StyledText(u"Title");
    session.story.boxes[4] = StyledText(u"   ");
    session.story.signature = "J. Doe";
    EXPECT_FALSE(Click(1, {Answer::No}));
    EXPECT_EQ(user.questions, std::vector<std::string>{"Following text will be deleted:\nBox3"});
    ExpectFormInForce(0);
    EXPECT_FALSE(Click(1, {Answer::Yes, Answer::No}));
    EXPECT_EQ(user.questions.back(), "Following text will be deleted:\nSign");
    EXPECT_EQ(session.story.boxes[3].Text(), u"Title");

    EXPECT_TRUE(Click(1, {Answer::Yes, Answer::Yes}));
    ExpectFormInForce(1);
    EXPECT_TRUE(session.story.boxes[3].Empty() && session.story.boxes[4].Empty());
    EXPECT_EQ(session.story.counters[3].count, 0);
    EXPECT_EQ(session.story.signature, "");
    EXPECT_FALSE(session.story.signatureEnabled || Control("cmdSignature").enabled);
}

TEST_F(StoryFormsTest, PicturesAreUnlinkedOnlyWhenEveryAnswerAgrees) {
    EXPECT_TRUE(Click(2));
    EXPECT_TRUE(user.questions.empty());
    EXPECT_FALSE(Control("Images").visible || Control("mnuDisplayImages").visible);
    EXPECT_EQ(Control("lblImageMetadata").caption, "No photo for this form");
    EXPECT_TRUE(Click(0));

    session.story.images.resize(3);
    session.story.files.resize(1);
    session.window.Control("mnuDisplayImages").checked = true;
    EXPECT_FALSE(Click(2, {Answer::No}));
    EXPECT_EQ(user.questions.back(), "Photo not allowed\nPhotos will be unlinked");
    EXPECT_FALSE(Click(2, {Answer::Yes, Answer::No}));
    EXPECT_EQ(user.questions.back(), "Other files will be unlinked");
    EXPECT_EQ(session.story.images.size(), 3u);
    ExpectFormInForce(0);

    EXPECT_FALSE(Click(3, {Answer::No}));
    EXPECT_EQ(user.questions.back(), "Max photos for this type of story: 2\nEdit story ?");
    EXPECT_TRUE(Click(3, {Answer::Yes}));
    EXPECT_EQ(session.panel.imageAllowance, 300);

    EXPECT_TRUE(Click(2, {Answer::Yes, Answer::Yes}));
    EXPECT_TRUE(session.story.images.empty() && session.story.files.empty());
    EXPECT_EQ(session.window.Tree(kImagesTree).Roots().front().text, "Photos [0]");
    EXPECT_FALSE(Control("mnuDisplayImages").checked);
    EXPECT_TRUE(Control("mnuDisplayMetadata").checked);
}

TEST_F(StoryFormsTest, AllCapsUpperCasesOnYesAndAlwaysForTyping) {
    CharFormat bold;
    bold.bold = true;
    CharFormat anchor;
    anchor.isProtected = true;
    StyledText& box = session.story.boxes[2];
    box.Insert(0, u"Mixed", bold);
    box.Insert(5, u" é ", {});
    box.Insert(8, u"jd", anchor);
    EXPECT_TRUE(Click(1, {Answer::No}));
    EXPECT_EQ(user.questions.back(), "Following text will be uppercased:\nBox2");
    EXPECT_EQ(TypeText(session, 2, 5, u"ñ"), 6u);
    EXPECT_EQ(box.Text(), u"MixedÑ é jd");

    EXPECT_TRUE(Click(0));
    EXPECT_FALSE(session.panel.allCaps[2] || Control("ImageAllCaps2").visible);
    EXPECT_TRUE(Click(1, {Answer::Yes}));
    EXPECT_EQ(box.Text(), u"MIXEDÑ É jd");
    EXPECT_TRUE(box.FormatAt(0).bold && box.FormatAt(10).isProtected);
    EXPECT_EQ(TypedInAllCaps(u"aéÿœšßµƒ€α1"), u"AÉŸŒŠßµƒ€α1");
}

TEST_F(StoryFormsTest, RefreshStoryPanelStartsANewStoryInTheFormInForce) {
    WindowState& window = session.window;
    session.configuration.status.defaultIndex = 1;
    TypeText(session, 6, 0, u"text");
    session.story.publication = "Daily";
    session.story.images.resize(1);  // unlinked: the tree shows none
    window.Control("txtPublication").toolTip = "tip";
    for (std::string_view name : {"Bold", "Zoom", "cmdSignature", "mnuDisplayLogs"})
        window.Control(name).checked = true;
    TreeNode& notes = window.Tree("treeNotes").Add(nullptr, Node("N1"));
    notes.expanded = true;
    notes.children.push_back(Node("", "JD 10:00"));
    TreeNode& root = window.Tree("treeKeywords").Add(nullptr, Node("K"));
    root.children.emplace_back(Node("K1")).children.push_back(Node("", "sport"));
    window.Tree("treeTaxonomy")
        .Add(nullptr, Node("T0"))
        .children.emplace_back(Node("T0/1"))
        .checked = true;
    window.List("lstLogs").items.push_back({"sent", ""});

    RefreshStoryPanel(session);
    EXPECT_EQ(window.title, std::string("Tessarin ") + TESSARIN_VERSION + " - New story");
    ExpectFormInForce(0);
    EXPECT_TRUE(session.story.boxes[6].Empty() && session.story.publication.empty());
    EXPECT_EQ(Control(CountLabelName(6)).caption, "0");
    EXPECT_FALSE(Control(LimitsLabelName(6)).visible || Control(WriteMoreIconName(6)).visible);
    EXPECT_EQ(Control(kTotalCountLabel).caption, "Total chars=0");
    EXPECT_FALSE(Control("mnuSearchText").enabled);
    EXPECT_EQ(window.List("lstStatus").selected, 1);
    EXPECT_EQ(Control("txtPublication").toolTip, "");
    for (std::string_view name : {"Bold", "Zoom", "cmdSignature", "mnuDisplayLogs"})
        EXPECT_FALSE(Control(name).checked) << name;
    EXPECT_EQ(notes.text, "Notes [0]");
    EXPECT_TRUE(notes.children.empty() && !notes.expanded);
    EXPECT_TRUE(root.children.front().children.empty());
    EXPECT_FALSE(window.Tree("treeTaxonomy").Roots().front().children.front().checked);
    EXPECT_TRUE(window.List("lstLogs").items.empty());
    EXPECT_EQ(window.Tree(kImagesTree).Roots().front().text, "Photos [0]");
}

}  // namespace
}  // namespace tessarin
