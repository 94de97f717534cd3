#include "editing/story_display_aids.h"

#include "app/display_view.h"

namespace tessarin {
namespace {

constexpr std::string_view kParagraphMarks = "mnuDisplayParagraphs";
constexpr std::string_view kZoomEntry = "mnuDisplayTextZoom";
constexpr std::string_view kZoomButton = "Zoom";

bool Checked(const WindowState& window, std::string_view name) {
    const ControlState* control = window.FindControl(name);
    return control != nullptr && control->checked;
}

}  // namespace

void ShowParagraphMarks(WindowState& window, bool shown) {
    window.Control(kParagraphMarks).checked = shown;
}

bool ParagraphMarksShown(const WindowState& window) {
    return Checked(window, kParagraphMarks);
}

void ZoomStoryText(WindowState& window, bool zoomed) {
    window.Control(kZoomEntry).checked = zoomed;
    window.Control(kZoomButton).checked = zoomed;
    if (zoomed) SelectView(window, DisplayView::Story);
}

bool StoryTextZoomed(const WindowState& window) {
    return Checked(window, kZoomButton);
}

}  // namespace tessarin
