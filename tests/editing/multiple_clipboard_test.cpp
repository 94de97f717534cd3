#include "editing/multiple_clipboard.h"

#include <gtest/gtest.h>

#include <fstream>

#include "common/file_io.h"
#include "editing/copy_fit.h"
#include "editing/panel_session.h"
#include "editing/styled_sample.h"

namespace tessarin {
namespace {

using testing::Bracketed;
using testing::Sample;

constexpr std::size_t kLimit = 12;

class MultipleClipboardTest : public ::testing::Test, public testing::PanelSession {
  protected:
    MultipleClipboardTest() {
        session.configuration.interface.entries["EditionMultipleClipboard"].File = "clips.txt";
    }
    std::filesystem::path File() { return session.paths.appDir / "clips.txt"; }
    const TreeNode& Root() { return session.window.Tree("treeClipboard").Roots().front(); }
};

TEST(ClipboardShortForm, BlanksForBreaksAndCutsAtAWord) {
    EXPECT_EQ(ClipboardShortForm("  un\\ndeux\ttrois  ", 40, 1), "un deux trois [Ctrl+F1]");
    EXPECT_EQ(ClipboardShortForm("le conseil municipal", 12, 7), "le conseil [...]");
    EXPECT_EQ(ClipboardShortForm("anticonstitutionnel", 6, 6), "antico [...] [Ctrl+F6]");
}

TEST_F(MultipleClipboardTest, AddedSelectionsComeBackWithTheirLineBreaks) {
    ShowMultipleClipboard(session, kLimit);  // no file yet: an empty list, no error
    EXPECT_EQ(Root().text, "Multiple clipboard [0]");
    EXPECT_EQ(session.window.Status().text, "");

    session.story.boxes[6] = Sample(u"a\r\nb c:\\nd");
    RecountAllBoxes(session);
    EXPECT_TRUE(CopyToMultipleClipboard(session, {6, 0, 4}, kLimit));
    EXPECT_TRUE(CopyToMultipleClipboard(session, {6, 5, 5}, kLimit));
    EXPECT_EQ(ReadFileBytes(File()), "a\\nb\r\nc:\\nd\r\n");
    ASSERT_EQ(Root().children.size(), 2u);
    EXPECT_EQ(Root().children.back().text, "c: d [Ctrl+F2]");

    TextSelection selection{6, 0, 0};
    EXPECT_TRUE(InsertClipboardEntry(session, selection, 2));
    EXPECT_EQ(session.story.boxes[6].Text(), u"c:\r\nda\r\nb c:\\nd");
    EXPECT_EQ(selection, (TextSelection{6, 5, 0}));
    EXPECT_FALSE(InsertClipboardEntry(session, selection, 3));
}

TEST_F(MultipleClipboardTest, AnchorsRefuseInsertionAndRemovalAsks) {
    std::ofstream(File(), std::ios::binary) << "\r\n  one  \r\n\r\ntwo\nthree";
    session.story.boxes[6] = Sample(u"x[N 1]");
    TextSelection anchor{6, 2, 1};
    EXPECT_FALSE(InsertClipboardEntry(session, anchor, 1));
    user.QueueAnswer(Answer::No);
    EXPECT_FALSE(RemoveClipboardEntry(session, 2, kLimit));
    EXPECT_TRUE(RemoveClipboardEntry(session, 2, kLimit));
    EXPECT_EQ(user.questions.back(), "Remove text\ntwo");
    EXPECT_EQ(ReadFileBytes(File()), "one\r\nthree\r\n");
    EXPECT_TRUE(RemoveClipboardEntry(session, std::nullopt, kLimit));
    EXPECT_EQ(ReadFileBytes(File()), "");
}

TEST_F(MultipleClipboardTest, ForeignFilesAreReportedAndLeftAlone) {
    const std::string foreign("PK\x03\x04\0\0binary", 12);
    std::ofstream(File(), std::ios::binary) << foreign;
    ShowMultipleClipboard(session, kLimit);
    EXPECT_NE(session.window.Status().text.find("not a list of text lines"), std::string::npos);
    session.story.boxes[6] = Sample(u"abc");
    EXPECT_FALSE(CopyToMultipleClipboard(session, {6, 0, 3}, kLimit));
    EXPECT_FALSE(RemoveClipboardEntry(session, std::nullopt, kLimit));
    EXPECT_EQ(ReadFileBytes(File()), foreign);

    session.configuration.interface.entries["EditionMultipleClipboard"].File.clear();
    EXPECT_FALSE(CopyToMultipleClipboard(session, {6, 0, 3}, kLimit));
}

}  // namespace
}  // namespace tessarin
