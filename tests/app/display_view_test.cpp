#include "app/display_view.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarin {
namespace {

// Each row checks one more menu entry or withdraws one more button; the view shown follows:
// Images before Informations, a withdrawn view gives way, Story when nothing else is left.
TEST(DisplayViewTest, TheCheckedViewThatIsAvailableIsShownImagesFirst) {
    const struct {
        const char* control;
        bool withdraw;
        DisplayView shown;
    } steps[] = {{"", false, DisplayView::Story},
                 {"mnuDisplayMetadata", false, DisplayView::Informations},
                 {"mnuDisplayImages", false, DisplayView::Images},
                 {"Images", true, DisplayView::Informations},
                 {"Informations", true, DisplayView::Story}};
    WindowState window;
    for (const auto& [control, withdraw, shown] : steps) {
        SCOPED_TRACE(control);
        if (withdraw) window.Control(control).visible = false;
        if (!withdraw && *control != '\0') window.Control(control).checked = true;
        EXPECT_EQ(SelectedView(window), shown);
    }
}

TEST(DisplayViewTest, SelectingAViewChecksOnlyItsEntryAndButtonUnlessItIsWithdrawn) {
    const struct {
        DisplayView view;
        const char* entry;
        const char* button;
    } views[] = {{DisplayView::Images, "mnuDisplayImages", "Images"},
                 {DisplayView::Story, "mnuDisplayStory", "Story"},
                 {DisplayView::Informations, "mnuDisplayMetadata", "Informations"}};
    WindowState window;
    for (const auto& selected : views) {
        ASSERT_TRUE(SelectView(window, selected.view));
        for (const auto& other : views) {
            SCOPED_TRACE(std::string(selected.button) + " selected, " + other.button);
            EXPECT_EQ(window.Control(other.entry).checked, other.view == selected.view);
            EXPECT_EQ(window.Control(other.button).checked, other.view == selected.view);
        }
    }
    window.Control("Images").visible = false;
    EXPECT_FALSE(SelectView(window, DisplayView::Images));
    EXPECT_TRUE(window.Control("mnuDisplayMetadata").checked);
    EXPECT_FALSE(window.Control("mnuDisplayImages").checked);
}

}  // namespace
}  // namespace tessarin
