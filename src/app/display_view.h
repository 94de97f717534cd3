#pragma once

#include "app/window_state.h"

namespace tessarin {

// The three views of the main window's tab strip. The window state records the view shown
// by the check marks of the Display menu and of the tools bar's buttons: mnuDisplayMetadata
// with Informations, mnuDisplayStory with Story, mnuDisplayImages with Images.
enum class DisplayView { Informations, Story, Images };

// A view can be shown while its tool-bar button is: the Interface section withdraws the
// Informations and Images views with their buttons, a form without pictures the Images view.
// The Story view is always there.
bool ViewAvailable(const WindowState& window, DisplayView view);

// The view shown: Images while mnuDisplayImages is checked, else Informations while
// mnuDisplayMetadata is checked, else Story; a view that is not available gives way to Story.
DisplayView SelectedView(const WindowState& window);

// Shows a view at the user's request: its menu entry and button are checked, the other two
// views' released. A view that is not available changes nothing and gives false.
bool SelectView(WindowState& window, DisplayView view);

}  // namespace tessarin
