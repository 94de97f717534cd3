#include "tracking/tracking_actions.h"

#include <system_error>
#include <vector>

#include "common/xml_document.h"
#include "transmission/receive_window.h"
#include "transmission/workflow_inbox.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

TreeNode* FindNode(TrackingWindow& window, std::string_view key) {
    return window.state.Tree("treeTracking").Find(key);
}

// The inbox under WorkflowDirectory that holds a story of that name; empty when none.
std::string InboxHolding(const EditorSession& session, const std::string& name) {
    const fs::path root = ConfiguredFolder(session.configuration.workflow.WorkflowDirectory);
    std::error_code error;
    if (root.empty()) return {};
    for (fs::directory_iterator it(root, error), end; !error && it != end; it.increment(error)) {
        std::error_code ignored;
        if (it->is_directory(ignored) && fs::exists(it->path() / name, ignored))
            return it->path().filename().string();
    }
    return {};
}

void ShowStory(EditorSession& session, TrackingWindow& window, const fs::path& file) {
    XmlDocument document;
    if (!document.LoadFile(file)) return;
    const XmlNode root = document.DocumentElement();
    const XmlNode metadata = root.SelectSingleNode("Metadata");
    const auto text = [&](const char* name) { return metadata.SelectSingleNode(name).Text(); };
    window.state.Control("lblTxtCreation").caption = text("CreationDate") + " - " + text("Author");
    window.state.Control("lblTxtLastSave").caption = text("LastSaveDate");
    window.lastAuthor = text("LastSaveAuthor");
    window.state.Control("lblTxtLastAuthor").caption = window.lastAuthor;
    window.waitingIn = InboxHolding(session, file.filename().string());
    for (const XmlNode& log : root.SelectNodes("Logs/Log")) {
        window.logs.push_back({log.Text(), log.Attribute("Type")});
        window.state.List("lstLogs").items.push_back({log.Text(), log.Attribute("Type")});
        window.state.List("lstLogsTypes").items.push_back({log.Attribute("Type"), ""});
    }
    window.state.Control("TabStripLogs").visible = true;
    const StoryPreview preview = MakeStoryPreview(session, root);
    window.storyText = preview.text + preview.totals;
}

bool ClearAllowed(EditorSession& session) {
    if (session.configuration.workflow.TrackingClearAllowed) return true;
    session.user.Tell("Deleting tracking copies is not allowed (TrackingClearAllowed)",
                      MessageIcon::Exclamation);
    return false;
}

bool Confirmed(EditorSession& session, std::string_view captionKey, std::string_view design,
               std::string_view nodeText) {
    const std::string question = session.configuration.interface.CaptionOr(captionKey, design) +
                                 "\n" + std::string(nodeText);
    return session.user.Ask(question, false, MessageIcon::Question) == Answer::Yes;
}

// The files of the node and of its descendants, down to ten levels below it.
void GatherFiles(const EditorSession& session, const TreeNode& node, int depth,
                 std::vector<fs::path>& files) {
    const fs::path file = TrackedFileOf(session, node);
    if (!file.empty()) files.push_back(file);
    if (depth == 10) return;
    for (const TreeNode& child : node.children)
        GatherFiles(session, child, depth + 1, files);
}

void RemoveFiles(const std::vector<fs::path>& files) {
    for (const fs::path& file : files) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
}

}  // namespace

void SelectTrackingNode(EditorSession& session, TrackingWindow& window, std::string_view key) {
    ClearTrackingDisplay(window);
    window.selected = std::string(key);
    const TreeNode* node = FindNode(window, key);
    if (node == nullptr) return;
    const fs::path file = TrackedFileOf(session, *node);
    if (file.empty()) return;
    switch (node->tag.back()) {
        case 'S':
            ShowStory(session, window, file);
            break;
        case 'I':
            window.picture = file;
            break;
        default:
            window.storyText = file.filename().string();
    }
}

TrackingPopup PopupEntriesOf(const EditorSession& session, const TreeNode& node) {
    const bool date = node.tag == "R";
    const bool story = node.tag.size() > 1 && node.tag.ends_with('S');
    const bool clear = session.configuration.workflow.TrackingClearAllowed;
    return {(date || story) && clear, (date || story) && clear, story};
}

bool DeleteTrackingNode(EditorSession& session, TrackingWindow& window, std::string_view key) {
    const TreeNode* node = FindNode(window, key);
    if (node == nullptr || !ClearAllowed(session) ||
        !Confirmed(session, "TrackingClearInsideItem", "Delete", node->text)) {
        return false;
    }
    std::vector<fs::path> files;
    GatherFiles(session, *node, 0, files);
    RemoveFiles(files);
    UpdateTracking(session, window);
    return true;
}

bool DeleteAllTracking(EditorSession& session, TrackingWindow& window, std::string_view nodeText) {
    if (!ClearAllowed(session) || !Confirmed(session, "TrackingClearAll", "Delete all", nodeText))
        return false;
    const WorkflowSettings& workflow = session.configuration.workflow;
    std::vector<fs::path> files;
    for (const std::string& text :
         {workflow.TrackingTextsDirectory, workflow.TrackingImagesDirectory}) {
        const fs::path folder = ConfiguredFolder(text);
        std::error_code error;
        if (folder.empty()) continue;
        for (fs::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error)) {
            std::error_code ignored;
            if (it->is_regular_file(ignored)) files.push_back(it->path());
        }
    }
    RemoveFiles(files);
    UpdateTracking(session, window);
    return true;
}

}  // namespace tessarin
