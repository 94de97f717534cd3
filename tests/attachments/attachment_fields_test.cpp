#include "attachments/attachment_fields.h"

#include <gtest/gtest.h>

#include "attachments/attachments.h"
#include "attachments/jpeg_bytes.h"
#include "editing/panel_session.h"

namespace tessarin {
namespace {

using namespace testing;
namespace fs = std::filesystem;

class AttachmentFieldsTest : public ::testing::Test, public PanelSession {
  protected:
    AttachmentFieldsTest() {
        session.preferences.IPTCCaption = false;
        session.preferences.IPTCCredit = false;
        session.preferences.IPTCKeywords = false;
        first = folder.Write("harbour.jpg",
                             Jpeg({App13(IptcResource(IptcRecord(120, "Harbour at dawn")))}));
        second = folder.Write("market.jpg", Jpeg({App13(IptcResource(IptcRecord(120, "Market")))}));
        AddImage(session, first);
        AddImage(session, second);
        AddOtherFile(session, folder.Write("notes.txt", "x"));
        session.storyModified = false;
    }

    fs::path first;
    fs::path second;
};

// The root, a key of the other kind or of no attachment keeps nothing.
TEST_F(AttachmentFieldsTest, TypedFieldsGoToTheSelectedAttachmentAndModifyTheStory) {
    EXPECT_FALSE(TypeImageCaption(session, kAttachmentRootKey, "x"));
    EXPECT_FALSE(TypeImageCredit(session, "1F", "x"));
    EXPECT_FALSE(TypeOtherFileDescription(session, "1I", "x"));
    EXPECT_FALSE(TypeImageCaption(session, "3I", "x"));
    EXPECT_FALSE(session.storyModified);

    EXPECT_TRUE(TypeImageCaption(session, "2I", "Stalls at noon"));
    EXPECT_TRUE(TypeImageCredit(session, "2I", "Desk"));
    EXPECT_TRUE(TypeOtherFileDescription(session, "1F", "Interview notes"));
    EXPECT_EQ(session.story.images[1].caption, "Stalls at noon");
    EXPECT_EQ(session.story.images[1].credit, "Desk");
    EXPECT_EQ(session.story.images[0].caption, "");
    EXPECT_EQ(session.story.files[0].description, "Interview notes");
    EXPECT_TRUE(session.storyModified);
}

TEST_F(AttachmentFieldsTest, TheIptcWindowShowsTheSelectedPictureOrTheFirstForTheRoot) {
    EXPECT_EQ(IptcPictureIndex(session, "9I"), std::nullopt);

    EXPECT_EQ(ReadSelectedPictureIptc(session, "2I")->Value(kIptcCaptionAbstract), "Market");
    EXPECT_EQ(ReadSelectedPictureIptc(session, kAttachmentRootKey)->Value(kIptcCaptionAbstract),
              "Harbour at dawn");
    EXPECT_TRUE(user.messages.empty());

    ClearAttachments(session);
    EXPECT_EQ(IptcPictureIndex(session, kAttachmentRootKey), std::nullopt);
    EXPECT_EQ(ReadSelectedPictureIptc(session, kAttachmentRootKey), std::nullopt);
}

TEST_F(AttachmentFieldsTest, TipsComeFromTheConfigurationAndEachFilesFullPath) {
    EXPECT_EQ(AttachmentTreeTip(session, AttachmentKind::Image),
              "Enter key to add / Del key to delete");
    session.configuration.interface.entries["OtherFilesToolTipText"].caption = "Entrée / Suppr";
    EXPECT_EQ(AttachmentTreeTip(session, AttachmentKind::OtherFile), "Entrée / Suppr");

    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::Image, "1I"), first.string());
    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::Image, kAttachmentRootKey), "");
    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::OtherFile, "1F"),
              (folder / "notes.txt").string());
    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::OtherFile, kAttachmentRootKey), "");
    session.preferences.ImagesTooltips = false;
    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::Image, "1I"), "");
    EXPECT_EQ(AttachmentNodeTip(session, AttachmentKind::OtherFile, "1F"),
              (folder / "notes.txt").string());
}

}  // namespace
}  // namespace tessarin
