#pragma once

#include "app/window_state.h"

namespace tessarin {

// The story view's display aids. Each is a menu entry that stays pressed until it is chosen
// again, and a new story shows both released.

// mnuDisplayParagraphs: the text boxes show their paragraph marks.
void ShowParagraphMarks(WindowState& window, bool shown);
bool ParagraphMarksShown(const WindowState& window);

// mnuDisplayTextZoom with its button Zoom: the text boxes show their text enlarged.
// Pressing it brings the Story view to the front.
void ZoomStoryText(WindowState& window, bool zoomed);
bool StoryTextZoomed(const WindowState& window);

}  // namespace tessarin
