#pragma once

#include <filesystem>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The export menu's RTF, XSL and PDF commands write a file beside the open story's own file,
// named as the story up to its last point, with another extension.

// What such a command did: the file it wrote, and whether the shell should open it now
// (StartAutoExport). Nothing written leaves path empty.
struct BesideStoryExport {
    std::filesystem::path path;
    bool openWithShell = false;

    bool Written() const { return !path.empty(); }
};

// The story's name up to its last point (all of it without a point), a point and the
// extension, in the story's directory.
std::filesystem::path PathBesideStory(const EditorSession& session, std::string_view extension);

// A story without name or directory cannot have a file beside it: the status panel says the
// story must be saved first, with a beep, and false is returned.
bool StoryHasPlace(EditorSession& session);

// Tells that the file was written (ExportedStory ": " path) and returns the result.
BesideStoryExport ExportedBesideStory(EditorSession& session, const std::filesystem::path& path);

}  // namespace tessarin
