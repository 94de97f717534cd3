#include "export/export_beside_story.h"

#include <string>

namespace tessarin {

std::filesystem::path PathBesideStory(const EditorSession& session, std::string_view extension) {
    const std::string& name = session.storyFileName;
    const std::size_t point = name.rfind('.');
    const std::string base = point == std::string::npos ? name : name.substr(0, point);
    return session.storyDirectory / (base + "." + std::string(extension));
}

bool StoryHasPlace(EditorSession& session) {
    session.window.ClearStatus();
    if (!session.storyFileName.empty() && !session.storyDirectory.empty()) return true;
    session.window.Status().text = session.Message("SaveExportedStory");
    session.user.Beep();
    return false;
}

BesideStoryExport ExportedBesideStory(EditorSession& session, const std::filesystem::path& path) {
    session.window.Status().text = session.Message("ExportedStory") + ": " + path.string();
    return {path, session.preferences.StartAutoExport};
}

}  // namespace tessarin
