#include "transmission/receive_take.h"

#include <optional>
#include <system_error>
#include <vector>

#include "common/date_format.h"
#include "common/file_copy.h"
#include "common/plain_file_name.h"
#include "common/xml_document.h"
#include "logs/add_log_to_story.h"
#include "story/file_operations.h"
#include "transmission/send_list.h"
#include "transmission/workflow_inbox.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

// A story node of the tree and where its story waits.
struct WaitingStory {
    fs::path story;
    fs::path inbox;
    bool fromGroup = false;
};

// An image or other file that travels with the story: its element and its bare name.
struct Companion {
    XmlNode element;
    std::string name;
    bool image = true;
};

std::string ReceiveParseErrorText(const fs::path& path, const XmlParseError& error) {
    return "Parsing error:" + path.string() + "\nline:" + std::to_string(error.line) +
           ", pos:" + std::to_string(error.linePosition) + " " + error.sourceText + " " +
           error.reason;
}

class StoryTaker {
  public:
    StoryTaker(EditorSession& session, ReceiveWindow& window)
        : session_(session),
          window_(window),
          workflow_(session.configuration.workflow),
          now_(Now()) {}

    const ReceiveCounts& Counts() const { return counts_; }

    // The take of one story; false when it stopped before the story was taken.
    bool Take(const WaitingStory& waiting) {
        const bool intercept = window_.kind == ReceiveKind::Intercept;
        if (!intercept && !InboxThere(waiting.inbox)) return false;
        const fs::path personalTexts = ConfiguredFolder(workflow_.PersonalTextsDirectory);
        if (personalTexts.empty()) {
            session_.user.Tell(
                "No personal directory is set (PersonalTextsDirectory): "
                "nothing is taken",
                MessageIcon::Exclamation);
            return false;
        }
        const std::string name = waiting.story.filename().string();
        const fs::path personal = personalTexts / name;
        if (Exists(personal) && !ReplaceAnswered(personal)) return false;

        XmlDocument document;
        if (!document.LoadFile(waiting.story)) {
            session_.user.Beep();
            session_.user.Tell(ReceiveParseErrorText(
                                   waiting.story, document.ParseError().value_or(XmlParseError{})),
                               MessageIcon::Critical);
            RefreshReceiveWindow(session_, window_);
            return false;
        }
        XmlNode root = document.DocumentElement();
        const std::optional<std::vector<Companion>> companions = CompanionsOf(root, name);
        if (!companions || !CopyCompanions(*companions, waiting.inbox)) return false;
        const std::string& author = session_.configuration.identity.author;
        if (intercept) {
            XmlNode log = root.FindOrAppendElement("Logs").AppendElement("Log");
            log.SetAttribute("Type", "I");
            log.SetText(LogDateAndTime(now_) + " - " +
                        session_.configuration.messages.Message("InterceptedBy") + " " + author);
            SetLastSaveAuthor(root, author);
        }
        if ((intercept || !companions->empty()) && !SaveOrTell(document, waiting.story))
            return false;
        if (intercept) TrackingCopy(waiting.story, workflow_.TrackingTextsDirectory, name);
        if (!CopyOrTell(waiting.story, personal)) return false;
        Remove(waiting.story);
        for (const Companion& companion : *companions)
            Remove(waiting.inbox / companion.name);
        if (!intercept && waiting.fromGroup) {
            SetLastSaveAuthor(root, author);
            SaveOrTell(document, personal);
        }
        if (!intercept) TrackingCopy(personal, workflow_.TrackingTextsDirectory, name);
        window_.takenStory = personal;
        ++counts_.stories;
        return true;
    }

    // The report in the main window's status panel, its waiting sign cleared.
    void Report() { session_.window.Status() = {ReceivedReport(session_, counts_, now_), false}; }

  private:
    static bool Exists(const fs::path& file) {
        std::error_code error;
        return fs::exists(file, error);
    }

    static void Remove(const fs::path& file) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }

    static void SetLastSaveAuthor(XmlNode root, const std::string& author) {
        root.FindOrAppendElement("Metadata").FindOrAppendElement("LastSaveAuthor").SetText(author);
    }

    bool InboxThere(const fs::path& inbox) {
        std::error_code error;
        if (fs::is_directory(inbox, error)) return true;
        session_.user.Beep();
        session_.user.Tell(inbox.string() + "\n" + session_.Message("InvalidDirectory") + "\n\n" +
                               session_.Message("WarningAdministrator"),
                           MessageIcon::Exclamation);
        return false;
    }

    bool ReplaceAnswered(const fs::path& personal) {
        const std::string question = session_.Message("StoryAlreadyPresent") + ":\n" +
                                     personal.string() + "\n" +
                                     session_.Message("StoryBackupReplace");
        return session_.user.Ask(question, false, MessageIcon::Exclamation) == Answer::Yes;
    }

    // The images and other files of the story, by their bare names; nothing, told, when a
    // name would reach outside the inbox.
    std::optional<std::vector<Companion>> CompanionsOf(const XmlNode& root,
                                                       const std::string& story) {
        std::vector<Companion> companions;
        for (const auto& [path, image] :
             {std::pair{"Images/ImageBag/Image", true}, std::pair{"Files/FileBag/File", false}}) {
            for (const XmlNode& element : root.SelectNodes(path)) {
                const std::string name = ListedFileName(element.Attribute("href"));
                if (name.empty()) continue;
                if (!IsPlainFileName(name)) {
                    session_.user.Tell("The story " + story + " names the file \"" + name +
                                           "\" by a path, not by a file name: it is not taken",
                                       MessageIcon::Exclamation);
                    return std::nullopt;
                }
                companions.push_back({element, name, image});
            }
        }
        return companions;
    }

    // Each file into the personal directory, and the tracking copy; the hrefs point at the
    // personal copies.
    bool CopyCompanions(const std::vector<Companion>& companions, const fs::path& inbox) {
        if (companions.empty()) return true;
        const fs::path personalImages = ConfiguredFolder(workflow_.PersonalImagesDirectory);
        if (personalImages.empty()) {
            session_.user.Tell(
                "No personal directory is set (PersonalImagesDirectory): "
                "nothing is taken",
                MessageIcon::Exclamation);
            return false;
        }
        for (const Companion& companion : companions) {
            const fs::path target = personalImages / companion.name;
            if (!CopyOrTell(inbox / companion.name, target)) return false;
            TrackingCopy(inbox / companion.name, workflow_.TrackingImagesDirectory, companion.name);
        }
        for (const Companion& companion : companions) {
            XmlNode element = companion.element;
            element.SetAttribute("href", "file://" + (personalImages / companion.name).string());
            ++(companion.image ? counts_.images : counts_.otherFiles);
        }
        return true;
    }

    bool CopyOrTell(const fs::path& from, const fs::path& to) {
        const std::string reason = CopyFileWhole(from, to);
        if (reason.empty()) return true;
        session_.user.Tell(
            from.string() + " -> " + to.string() + ": " + reason + "\nIt stays in the inbox.",
            MessageIcon::Exclamation);
        return false;
    }

    bool SaveOrTell(const XmlDocument& document, const fs::path& file) {
        if (document.SaveFile(file)) return true;
        session_.user.Tell(session_.Message("NotSavedStory") + ": " + file.string(),
                           MessageIcon::Critical);
        return false;
    }

    // The copies of the tracking directories are for others to look at: a failure there is
    // passed over.
    void TrackingCopy(const fs::path& from, const std::string& folder, const std::string& name) {
        if (!workflow_.TrackingEnabled) return;
        const fs::path tracking = ConfiguredFolder(folder);
        if (!tracking.empty()) CopyFileWhole(from, tracking / name);
    }

    EditorSession& session_;
    ReceiveWindow& window_;
    const WorkflowSettings& workflow_;
    LocalDateTime now_;
    ReceiveCounts counts_;
};

// Where the story of a node waits; nothing for a root or an unknown key.
std::optional<WaitingStory> WaitingStoryOf(const EditorSession& session,
                                           const ReceiveWindow& window, const TreeNode& root,
                                           const TreeNode& node) {
    if (node.tag.empty()) return std::nullopt;
    WaitingStory waiting;
    waiting.story = node.tag;
    if (window.kind == ReceiveKind::Intercept) {
        waiting.inbox = waiting.story.parent_path();
        return waiting;
    }
    const Identity& identity = session.configuration.identity;
    waiting.fromGroup = root.key == "G";
    const std::optional<fs::path> inbox = InboxPath(
        session.configuration.workflow, waiting.fromGroup ? identity.group : identity.author);
    if (!inbox) return std::nullopt;
    waiting.inbox = *inbox;
    return waiting;
}

std::vector<WaitingStory> AllWaitingStories(const EditorSession& session,
                                            const ReceiveWindow& window) {
    std::vector<WaitingStory> stories;
    for (const TreeNode& root : window.state.FindTree("treeReceive")->Roots()) {
        for (const TreeNode& node : root.children) {
            if (std::optional<WaitingStory> waiting = WaitingStoryOf(session, window, root, node))
                stories.push_back(*waiting);
        }
    }
    return stories;
}

}  // namespace

bool TakeSelectedStory(EditorSession& session, ReceiveWindow& window) {
    window.takenStory.clear();
    TreeModel& tree = window.state.Tree("treeReceive");
    if (window.selected.empty() || tree.Find(window.selected) == nullptr) {
        session.user.Beep();
        session.user.Tell(session.Message("SelectStory"), MessageIcon::Exclamation);
        return false;
    }
    for (const TreeNode& root : tree.Roots()) {
        if (root.key == window.selected) {
            window.selected.clear();
            session.user.Beep();
            return false;
        }
        for (const TreeNode& node : root.children) {
            if (node.key != window.selected) continue;
            const std::optional<WaitingStory> waiting = WaitingStoryOf(session, window, root, node);
            window.storyText.clear();
            window.lastLogText.clear();
            StoryTaker taker(session, window);
            if (!waiting || !taker.Take(*waiting)) return false;
            RefreshReceiveWindow(session, window);
            taker.Report();
            return true;
        }
    }
    return false;
}

ReceiveCounts TakeAllStories(EditorSession& session, ReceiveWindow& window) {
    window.storyText.clear();
    window.lastLogText.clear();
    StoryTaker taker(session, window);
    for (const WaitingStory& waiting : AllWaitingStories(session, window))
        taker.Take(waiting);
    RefreshReceiveWindow(session, window);
    taker.Report();
    return taker.Counts();
}

bool TakeAndOpenStory(EditorSession& session, ReceiveWindow& window) {
    if (!TakeSelectedStory(session, window) || window.takenStory.empty()) return false;
    if (!NewStory(session)) return false;
    return OpenStoryFile(session, window.takenStory);
}

std::string ReceivedReport(const EditorSession& session, const ReceiveCounts& counts,
                           const LocalDateTime& now) {
    const InterfaceSettings& interface = session.configuration.interface;
    return FormatTimeHourMinute(now) + " - " +
           interface.CaptionOr("ToolsReceivedStories", "Received stories") + ": " +
           std::to_string(counts.stories) + ", " +
           interface.CaptionOr("ToolsReceivedImages", "Received photos") + ": " +
           std::to_string(counts.images) + ", " +
           interface.CaptionOr("ToolsReceivedOtherFiles", "Received other files") + ": " +
           std::to_string(counts.otherFiles);
}

}  // namespace tessarin
