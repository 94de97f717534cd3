#include "attachments/attachments.h"

#include <gtest/gtest.h>

#include "attachments/file_size_text.h"
#include "attachments/image_allowance.h"
#include "attachments/jpeg_bytes.h"
#include "attachments/short_label.h"
#include "attachments/story_attachment_trees.h"
#include "editing/panel_session.h"

namespace tessarin {
namespace {

using namespace testing;
namespace fs = std::filesystem;

const std::string kTagged = Jpeg({App13(
    IptcResource(IptcRecord(120, "Harbour at dawn") + IptcRecord(110, "Agency") +
                 IptcRecord(80, "J. Doe") + IptcRecord(25, "sea") + IptcRecord(25, "boats")))});

class AttachmentsTest : public ::testing::Test, public PanelSession {
  protected:
    AttachmentsTest() {
        session.configuration.forms.emplace_back().name = "Brief";
        session.configuration.imageSizes = {{"Brief", 300}, {"Long", 900}, {"Brief", 500}};
        session.panel.formInForce = 0;
    }

    // "text|tag" of each node of a tree, depth first.
    std::vector<std::string> Nodes(std::string_view tree) {
        std::vector<std::string> lines;
        for (const TreeNode* node : session.window.Tree(tree).AllNodes())
            lines.push_back(node->text + "|" + node->tag);
        return lines;
    }

    // Runs a refused add and checks that the story and the tree are as they were.
    void ExpectRefusedAdd(const fs::path& path) {
        const auto images = session.story.images;
        const auto nodes = Nodes(kImagesTree);
        EXPECT_EQ(AddImage(session, path), std::nullopt);
        EXPECT_EQ(session.story.images, images);
        EXPECT_EQ(Nodes(kImagesTree), nodes);
    }
};

TEST_F(AttachmentsTest, AddImageFillsThePictureFromItsIptcDataAndShowsIt) {
    session.window.ShowStatusError("old");
    const fs::path picture = folder.Write("pics/harbour.jpg", kTagged);
    EXPECT_EQ(AddImage(session, picture), "1I");

    const StoryImage& image = session.story.images.at(0);
    EXPECT_EQ(image,
              (StoryImage{1, picture.string(), "Harbour at dawn", "Agency", {"sea; boats"}}));
    EXPECT_EQ(Nodes(kImagesTree),
              (std::vector<std::string>{"Photos [1]|", "harbour.jpg|" + picture.string(),
                                        "sea; boats|"}));
    EXPECT_EQ(session.window.Control(kImageInfoLabel).caption,
              picture.string() + "   Size: " + std::to_string(kTagged.size()) + " bytes");
    EXPECT_EQ(session.window.Status().text, "");
    EXPECT_EQ(session.profile.Read("Configuration", "DirImages"), picture.parent_path().string());
    EXPECT_TRUE(user.questions.empty() && user.messages.empty());

    session.preferences.IPTCByline = true;
    session.preferences.IPTCCollapseKeywords = false;
    EXPECT_EQ(AddImage(session, folder.Write("pics/second.jpg", kTagged)), "2I");
    EXPECT_EQ(session.story.images.at(1).credit, "J. Doe");
    EXPECT_EQ(session.story.images.at(1).iptcKeywords, (std::vector<std::string>{"sea", "boats"}));
    EXPECT_EQ(session.window.Control(kImagesCopyfitLabel).caption,
              "Total number of chars for photos = 800");
}

TEST_F(AttachmentsTest, RefusedPicturesLeaveNoTrace) {
    ShowStoryAttachmentTrees(session);
    ExpectRefusedAdd({});  // the dialog was cancelled
    const fs::path missing = folder / "gone.jpg";
    ExpectRefusedAdd(missing);
    EXPECT_EQ(user.messages.back(), "Unknown photo: " + missing.string());

    const fs::path picture = folder.Write("p.jpg", std::string(1500, 'x'));
    user.QueuePath(picture);
    ASSERT_EQ(AddImage(session), "1I");
    ExpectRefusedAdd(picture);
    EXPECT_EQ(user.messages.back(), "Image already selected");

    session.configuration.ftpTransmission.MinSizeImage = 2;
    user.QueueAnswer(Answer::No);
    ExpectRefusedAdd(folder.Write("small.jpg", std::string(1500, 'x')));
    EXPECT_EQ(user.questions.back(), "Photo: " + (folder / "small.jpg").string() +
                                         "\nSize: 1.46 KBMin Size: 2 KB\n\nAdd photo however ?");
    EXPECT_EQ(AddImage(session, folder.Write("yes.jpg", std::string(1500, 'x'))), "2I");

    session.configuration.ftpTransmission.MaxSizeImage = 1;
    user.QueueAnswer(Answer::No);
    ExpectRefusedAdd(folder.Write("big.jpg", std::string(2048, 'x')));
    EXPECT_TRUE(user.questions.back().find("Max Size: 1 KB") != std::string::npos);
    EXPECT_EQ(user.beeps, 5);

    session.panel.maxImages = 0;
    ExpectRefusedAdd(folder.Write("none.jpg", "x"));
    EXPECT_EQ(user.messages.back(), "Photo not allowed");
}

TEST_F(AttachmentsTest, PicturesOutsideThePersonalDirectoryAreWarnedAbout) {
    WorkflowSettings& workflow = session.configuration.workflow;
    workflow.Visible = true;
    workflow.PersonalImagesDirectory = (folder / "mine").string();
    EXPECT_TRUE(AddImage(session, folder.Write("mine/day/in.jpg", "x")));
    EXPECT_TRUE(user.messages.empty());

    // A path that climbs out of the personal directory is outside it.
    folder.Write("other/out.jpg", "x");
    EXPECT_TRUE(AddImage(session, folder / "mine" / ".." / "other" / "out.jpg"));
    ASSERT_EQ(user.messages.size(), 1u);
    EXPECT_EQ(user.messages.front(),
              "Invalid directory\nAllowed personal directory is:\n" + (folder / "mine").string());
    EXPECT_EQ(session.lastImageDirectory, folder / "mine");
}

TEST_F(AttachmentsTest, MissingMandatoryIptcValuesAreWarnedAboutAndTheAuthorMayBeTheCredit) {
    InterfaceSettings& interface = session.configuration.interface;
    interface.entries["IPTCCaptionAbstract"].Mandatory = true;
    interface.entries["IPTCKeywords"].Mandatory = true;
    interface.entries["AuthorByDefault"].caption = "Author by default";
    session.configuration.identity.author = "Ann Editor";
    session.preferences.IPTCCaption = false;
    session.preferences.IPTCCredit = false;
    session.preferences.IPTCByline = true;
    session.preferences.IPTCKeywords = false;

    EXPECT_EQ(AddImage(session, folder.Write("archive.zip", "PK\3\4")), "1I");
    EXPECT_EQ(user.messages, (std::vector<std::string>{"IPTC - Mandatory field\nCaption/Abstract",
                                                       "IPTC - Mandatory field\nByline",
                                                       "IPTC - Mandatory field\nKeywords"}));
    EXPECT_EQ(session.story.images.at(0).credit, "Ann Editor");
}

TEST_F(AttachmentsTest, RemovingAndReplacingPicturesKeepsTheNumbering) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
        AddImage(session, folder.Write(name, "x"));
    EXPECT_EQ(RemoveImage(session, kAttachmentRootKey), std::nullopt);
    user.QueueAnswer(Answer::No);
    EXPECT_EQ(RemoveImage(session, "2I"), std::nullopt);
    EXPECT_EQ(session.story.images.size(), 3u);

    EXPECT_EQ(RemoveImage(session, "2I"), "2I");
    EXPECT_EQ(user.questions,
              (std::vector<std::string>{"Remove image b.jpg", "Remove image b.jpg"}));
    EXPECT_TRUE(session.window.Tree(kImagesTree).Find("2I") &&
                !session.window.Tree(kImagesTree).Find("3I"));
    EXPECT_EQ(session.story.images.at(1).path, (folder / "c.jpg").string());
    EXPECT_EQ(session.panel.imageAllowance, 800);

    EXPECT_FALSE(ModifyImage(session, kAttachmentRootKey));
    EXPECT_TRUE(session.window.Tree(kImagesTree).Roots().front().expanded);
    EXPECT_FALSE(ModifyImage(session, "1I", folder / "gone.jpg"));
    EXPECT_EQ(session.story.images.at(0).path, (folder / "a.jpg").string());
    EXPECT_TRUE(ModifyImage(session, "1I", folder.Write("new.jpg", kTagged)));
    EXPECT_EQ(session.story.images.at(0).caption, "Harbour at dawn");

    EXPECT_EQ(RemoveImage(session, "2I"), "1I");
    EXPECT_EQ(RemoveImage(session, "1I"), kAttachmentRootKey);
    EXPECT_EQ(session.window.Tree(kImagesTree).Roots().front().text, "Photos [0]");
}

TEST_F(AttachmentsTest, OtherFilesRefusePicturesAndClearingEmptiesBothTrees) {
    EXPECT_EQ(AddOtherFile(session, folder.Write("photo.JPG", "x")), std::nullopt);
    EXPECT_EQ(user.messages.back(), "photo.JPG: Photo not allowed");
    EXPECT_EQ(AddOtherFile(session, folder.Write("notes.txt", "x")), "1F");
    EXPECT_EQ(session.window.Tree(kOtherFilesTree).Roots().front().text, "Other files [1]");
    AddImage(session, folder.Write("a.jpg", "x"));

    ClearAttachments(session);
    EXPECT_TRUE(session.story.images.empty() && session.story.files.empty());
    EXPECT_EQ(session.window.Tree(kImagesTree).Roots().front().text, "Photos [0]");
    EXPECT_TRUE(session.window.Tree(kOtherFilesTree).Roots().front().children.empty());
}

// The roots are made on the first showing; the story's attachments are numbered anew, and the
// allowance follows them.
TEST_F(AttachmentsTest, TheTreesGetTheirRootsAndTheStorysAttachments) {
    session.story.images.push_back({7, "/pics/harbour.jpg", "", "", {"sea"}});
    session.story.files.push_back({9, "/docs/notes.txt", ""});
    ShowStoryAttachmentTrees(session);
    EXPECT_EQ(session.panel.imageAllowance, 300);
    EXPECT_EQ(Nodes(kImagesTree),
              (std::vector<std::string>{"Photos [1]|", "harbour.jpg|/pics/harbour.jpg", "sea|"}));
    EXPECT_EQ(Nodes(kOtherFilesTree),
              (std::vector<std::string>{"Other files [1]|", "notes.txt|/docs/notes.txt"}));

    // A tree that already shows the story keeps its open nodes.
    session.window.Tree(kImagesTree).Find("1I")->expanded = true;
    ShowStoryAttachmentTrees(session);
    EXPECT_TRUE(session.window.Tree(kImagesTree).Find("1I")->expanded);

    session.story.images.front().path = "/pics/market.jpg";
    session.story.files.clear();
    ShowStoryAttachmentTrees(session);
    EXPECT_EQ(Nodes(kImagesTree)[1], "market.jpg|/pics/market.jpg");
    EXPECT_EQ(Nodes(kOtherFilesTree), (std::vector<std::string>{"Other files [0]|"}));
}

TEST(ShortLabel, BreaksLongTextsAtABlankAndPutsShortOnesOnOneLine) {
    const std::string hundred =
        "The harbour at dawn, seen from the old lighthouse above the "
        "bay, with fishing boats heading out to sea";
    EXPECT_EQ(ShortLabel(hundred, 40), "The harbour at dawn, seen from the old [...]");
    EXPECT_EQ(ShortLabel(std::string(50, 'x'), 40), std::string(40, 'x') + " [...]");
    EXPECT_EQ(ShortLabel("  one\\ntwo\r\nthree\tfour ", 40), "one two three four");
}

TEST(FileSize, ShowsThreeOrFourDigitsInTheFittingUnit) {
    const std::pair<std::uintmax_t, const char*> cases[] = {
        {0, "0 bytes"},       {1023, "1,023 bytes"},
        {1024, "1.00 KB"},    {10240, "10.0 KB"},
        {102400, "100 KB"},   {1024000, "0.98 MB"},
        {1572864, "1.50 MB"}, {1048576000ull * 1000, "976.56 GB"}};
    for (const auto& [length, text] : cases)
        EXPECT_EQ(FormatFileSize(length), text) << length;
}

}  // namespace
}  // namespace tessarin
