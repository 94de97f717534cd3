#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "session/editor_session.h"
#include "text/styled_text_case.h"

namespace tessarin {

// Steps that the File menu's commands share (file_operations.h is their interface).

// The directory chosen in a story dialog, after the personal directory rule: it becomes the
// last story directory and is written to DirStories at once.
std::filesystem::path TakeDialogDirectory(EditorSession& session,
                                          const std::filesystem::path& chosen);

// The title shows the program, the client and the story's file name.
void ShowStoryName(EditorSession& session);

// The story at path goes to the top of the recent-files list, which is written and shown.
void RecordRecentFile(EditorSession& session, const std::filesystem::path& path);

}  // namespace tessarin
