#include "app/display_view.h"

#include <array>
#include <string_view>

namespace tessarin {
namespace {

struct ViewControls {
    DisplayView view;
    std::string_view menuEntry;
    std::string_view button;
};

constexpr std::array<ViewControls, 3> kViews = {{
    {DisplayView::Informations, "mnuDisplayMetadata", "Informations"},
    {DisplayView::Story, "mnuDisplayStory", "Story"},
    {DisplayView::Images, "mnuDisplayImages", "Images"},
}};

const ViewControls& ControlsOf(DisplayView view) {
    return kViews[static_cast<std::size_t>(view)];
}

bool Checked(const WindowState& window, std::string_view name) {
    const ControlState* control = window.FindControl(name);
    return control != nullptr && control->checked;
}

}  // namespace

bool ViewAvailable(const WindowState& window, DisplayView view) {
    if (view == DisplayView::Story) return true;
    const ControlState* button = window.FindControl(ControlsOf(view).button);
    return button == nullptr || button->visible;
}

DisplayView SelectedView(const WindowState& window) {
    for (DisplayView view : {DisplayView::Images, DisplayView::Informations}) {
        if (Checked(window, ControlsOf(view).menuEntry) && ViewAvailable(window, view)) {
            return view;
        }
    }
    return DisplayView::Story;
}

bool SelectView(WindowState& window, DisplayView view) {
    if (!ViewAvailable(window, view)) return false;
    for (const ViewControls& controls : kViews) {
        const bool shown = controls.view == view;
        window.Control(controls.menuEntry).checked = shown;
        window.Control(controls.button).checked = shown;
    }
    return true;
}

}  // namespace tessarin
