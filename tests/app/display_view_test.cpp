#include "app/display_view.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

bool Checked(WindowState& window, std::string_view name) {
    return window.Control(name).checked;
}

TEST(DisplayViewTest, CheckMarksChooseTheViewAndImagesComeFirst) {
    WindowState window;
    EXPECT_EQ(SelectedView(window), DisplayView::Story);
    window.Control("mnuDisplayMetadata").checked = true;
    EXPECT_EQ(SelectedView(window), DisplayView::Informations);
    window.Control("mnuDisplayImages").checked = true;
    EXPECT_EQ(SelectedView(window), DisplayView::Images);
}

TEST(DisplayViewTest, AWithdrawnViewGivesWayToTheStory) {
    WindowState window;
    window.Control("mnuDisplayMetadata").checked = true;
    window.Control("Informations").visible = false;
    EXPECT_EQ(SelectedView(window), DisplayView::Story);

    window.Control("mnuDisplayImages").checked = true;
    window.Control("Images").visible = false;
    EXPECT_EQ(SelectedView(window), DisplayView::Story);
    EXPECT_TRUE(ViewAvailable(window, DisplayView::Story));
}

TEST(DisplayViewTest, SelectingAViewChecksItsEntryAndButtonAndReleasesTheOthers) {
    WindowState window;
    ASSERT_TRUE(SelectView(window, DisplayView::Images));
    EXPECT_TRUE(Checked(window, "mnuDisplayImages"));
    EXPECT_TRUE(Checked(window, "Images"));

    ASSERT_TRUE(SelectView(window, DisplayView::Story));
    EXPECT_TRUE(Checked(window, "mnuDisplayStory"));
    EXPECT_TRUE(Checked(window, "Story"));
    EXPECT_FALSE(Checked(window, "mnuDisplayImages"));
    EXPECT_FALSE(Checked(window, "Images"));
    EXPECT_FALSE(Checked(window, "mnuDisplayMetadata"));
    EXPECT_EQ(SelectedView(window), DisplayView::Story);
}

TEST(DisplayViewTest, AnUnavailableViewCannotBeSelected) {
    WindowState window;
    ASSERT_TRUE(SelectView(window, DisplayView::Informations));
    window.Control("Images").visible = false;
    EXPECT_FALSE(SelectView(window, DisplayView::Images));
    EXPECT_TRUE(Checked(window, "mnuDisplayMetadata"));
    EXPECT_FALSE(Checked(window, "mnuDisplayImages"));
}

}  // namespace
}  // namespace tessarin
