#include "tracking/tracking_message.h"

#include <system_error>

#include "common/file_copy.h"
#include "common/file_io.h"
#include "common/windows1252.h"
#include "logs/add_log_to_story.h"
#include "story/file_operations.h"
#include "text/styled_text_case.h"
#include "transmission/workflow_inbox.h"
#include "transmission/workflow_message.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

std::string Caption(const EditorSession& session, std::string_view key, std::string_view design) {
    return session.configuration.interface.CaptionOr(key, design);
}

void SetLabels(EditorSession& session, MessageWindow& window) {
    for (const auto& [label, key, design] :
         {std::tuple{"lblFrom", "TrackingMessageFrom", "From"},
          std::tuple{"lblTo", "TrackingMessageTo", "To"},
          std::tuple{"lblDate", "TrackingMessageDateTime", "Date"},
          std::tuple{"lblMessage", "ToolsSMTPLabelMessage", "Message"},
          std::tuple{"cmdCancel", "Cancel", "Cancel"}}) {
        window.state.Control(label).caption = Caption(session, key, design);
    }
    // The story line takes the word that the messages use for a story.
    const std::string story = session.Message("StoryLabel");
    window.state.Control("lblStory").caption = story.empty() ? "Story" : story;
}

std::optional<fs::path> MessageFileOf(const EditorSession& session, const std::string& user) {
    const std::optional<fs::path> inbox = InboxPath(session.configuration.workflow, user);
    if (!inbox) return std::nullopt;
    return *inbox / kMessageFileName;
}

// Depth first, the folder's own files before its subfolders.
fs::path FindStory(const fs::path& folder, const std::string& upperName, int depth = 0) {
    std::error_code error;
    std::vector<fs::path> folders;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::error_code ignored;
        if (it->is_directory(ignored)) {
            folders.push_back(it->path());
        } else if (UpperCaseText(it->path().filename().string()) == upperName) {
            return it->path();
        }
    }
    std::sort(folders.begin(), folders.end());
    for (const fs::path& sub : folders) {
        if (depth > 32) break;
        if (fs::path found = FindStory(sub, upperName, depth + 1); !found.empty()) return found;
    }
    return {};
}

void RemoveMessageFile(const EditorSession& session) {
    if (const std::optional<fs::path> file =
            MessageFileOf(session, session.configuration.identity.author)) {
        std::error_code ignored;
        fs::remove(*file, ignored);
    }
}

}  // namespace

std::optional<MessageLines> ReadMessageFile(const fs::path& file) {
    const std::optional<std::string> bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    const std::string text = Windows1252ToUtf8(*bytes);
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (lines.size() < 5 && start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }
    lines.resize(5);
    return MessageLines{lines[0], lines[1], lines[2], lines[3], lines[4]};
}

bool StartTrackingMessage(EditorSession& session, const TrackingWindow& tracking,
                          const TreeNode& storyNode, MessageWindow& window) {
    if (storyNode.picture == kLayoutPicture &&
        session.user.Ask(session.Message("TrackingMessageLayout"), false, MessageIcon::Question) !=
            Answer::Yes) {
        return false;
    }
    window = {};
    window.mode = MessageMode::Sending;
    SetLabels(session, window);
    window.state.title = Caption(session, "TrackingMessage", "Message");
    window.state.Control("cmdOK").caption = Caption(session, "Upload", "Send to...");
    window.state.Control("cmdOpen").visible = false;
    window.from = session.configuration.identity.author;
    window.to = tracking.lastAuthor;
    window.date = LogDateAndTime(Now());
    window.story = storyNode.tag.substr(0, storyNode.tag.size() - 1);
    SetTrackingMessageText(window, session.profile.Read(kTrackingSection, "Message").value_or(""));
    return true;
}

bool OpenReadingMessage(EditorSession& session, MessageWindow& window) {
    const std::optional<fs::path> file =
        MessageFileOf(session, session.configuration.identity.author);
    const std::optional<MessageLines> lines = file ? ReadMessageFile(*file) : std::nullopt;
    if (!lines) return false;
    window = {};
    window.mode = MessageMode::Reading;
    SetLabels(session, window);
    window.state.title = Caption(session, "TrackingMessage", "Message");
    window.state.Control("cmdOK").caption = Caption(session, "RemoveLabel", "Remove");
    window.state.Control("txtMessage").enabled = false;
    window.from = lines->from;
    window.to = lines->to;
    window.date = lines->date;
    window.story = lines->story;
    window.message = lines->text;
    const bool withStory = !window.story.empty();
    for (const char* control : {"lblStory", "lblTxtStory", "cmdOpen"})
        window.state.Control(control).visible = withStory;
    session.user.Beep();
    return true;
}

void SetTrackingMessageText(MessageWindow& window, std::string text) {
    window.message = std::move(text);
    window.state.Control("cmdOK").enabled = !window.message.empty();
}

bool ConfirmMessage(EditorSession& session, MessageWindow& window) {
    if (window.mode == MessageMode::Reading) {
        RemoveMessageFile(session);
        return true;
    }
    const std::optional<fs::path> inbox = InboxPath(session.configuration.workflow, window.to);
    std::error_code error;
    if (!inbox || !fs::is_directory(*inbox, error)) return false;
    const std::string bytes =
        WorkflowMessageBytes(window.from, window.to, Now(), window.story, window.message);
    if (!WriteFileWhole(*inbox / kMessageFileName, bytes).empty()) return false;
    session.profile.Write(kTrackingSection, "Message", window.message);
    return true;
}

bool OpenMessageStory(EditorSession& session, MessageWindow& window) {
    if (!NewStory(session)) return false;
    const fs::path personal =
        ConfiguredFolder(session.configuration.workflow.PersonalTextsDirectory);
    const fs::path found =
        personal.empty() ? fs::path() : FindStory(personal, UpperCaseText(window.story));
    const bool opened = !found.empty() && OpenStoryFile(session, found);
    RemoveMessageFile(session);
    if (!opened) {
        session.user.Tell(session.Message("UnknownStory") + ": " + window.story,
                          MessageIcon::Exclamation);
    }
    return opened;
}

}  // namespace tessarin
