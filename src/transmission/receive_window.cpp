#include "transmission/receive_window.h"

#include <system_error>

#include "common/folder_listing.h"
#include "common/number_parse.h"
#include "story/story_plain_text.h"
#include "transmission/workflow_inbox.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

std::string Caption(const EditorSession& session, std::string_view key, std::string_view design) {
    return session.configuration.interface.CaptionOr(key, design);
}

TreeNode Node(std::string key, std::string text, std::string tag, bool expanded) {
    TreeNode node;
    node.key = std::move(key);
    node.text = std::move(text);
    node.tag = std::move(tag);
    node.expanded = expanded;
    return node;
}

// The stories of an inbox under a root, keyed by the running number and the key's ending.
int AddWaitingStories(TreeModel& tree, TreeNode& root, const fs::path& inbox,
                      const std::string& keyEnd, int& number) {
    int added = 0;
    for (const std::string& name : NamesWithExtension(inbox, ".xml")) {
        tree.Add(&root,
                 Node(std::to_string(++number) + keyEnd, name, (inbox / name).string(), false));
        ++added;
    }
    return added;
}

// The panel's count and the buttons that need a story.
void ShowWaiting(const EditorSession& session, ReceiveWindow& window, int waiting) {
    window.waiting = waiting;
    window.state.Status() = {
        Caption(session, "ToolsWaitingStories", "Waiting stories") + ": " + std::to_string(waiting),
        false};
    for (const char* button : {"cmdGet", "cmdGetAndOpen", "cmdGetAll"})
        window.state.Control(button).enabled = waiting != 0;
}

void ClearPreview(ReceiveWindow& window) {
    window.selected.clear();
    window.storyText.clear();
    window.lastLogText.clear();
}

}  // namespace

void OpenReceiveWindow(EditorSession& session, ReceiveWindow& window) {
    window.kind = ReceiveKind::Receive;
    window.state.Control("cmdGet").caption = Caption(session, "ToolsReceiveLabel", "Receive");
    window.state.Control("cmdGetAndOpen").caption =
        Caption(session, "ToolsReceiveAndOpenLabel", "Receive and open");
    window.state.Control("cmdGetAll").caption =
        Caption(session, "ToolsReceiveAllLabel", "Receive all");
    window.state.Control("cmdCancel").caption = Caption(session, "Cancel", "Cancel");
    UpdateReceive(session, window);
}

void UpdateReceive(EditorSession& session, ReceiveWindow& window) {
    TreeModel& tree = window.state.Tree("treeReceive");
    tree.Clear();
    ClearPreview(window);
    const Identity& identity = session.configuration.identity;
    int number = 0;
    int waiting = 0;
    for (const auto& [name, letter] : {std::pair{identity.author, std::string("U")},
                                       std::pair{identity.group, std::string("G")}}) {
        if (name.empty()) continue;
        TreeNode& root = tree.Add(nullptr, Node(letter, name, "", true));
        const std::optional<fs::path> inbox = InboxPath(session.configuration.workflow, name);
        if (inbox) waiting += AddWaitingStories(tree, root, *inbox, letter, number);
    }
    ShowWaiting(session, window, waiting);
}

void OpenInterceptWindow(EditorSession& session, ReceiveWindow& window) {
    window.kind = ReceiveKind::Intercept;
    window.state.Control("cmdGet").caption = Caption(session, "ToolsInterceptLabel", "Intercept");
    window.state.Control("cmdGetAndOpen").caption =
        Caption(session, "ToolsInterceptAndOpenLabel", "Intercept and open");
    window.state.Control("cmdGetAll").visible = false;
    window.state.Control("cmdCancel").caption = Caption(session, "Cancel", "Cancel");
    UpdateIntercept(session, window);
}

void UpdateIntercept(EditorSession& session, ReceiveWindow& window) {
    TreeModel& tree = window.state.Tree("treeReceive");
    tree.Clear();
    ClearPreview(window);
    const WorkflowSettings& workflow = session.configuration.workflow;
    int number = 0;
    int waiting = 0;
    for (std::size_t index = 0; index < workflow.interceptedUsers.size(); ++index) {
        const WorkflowDestination& user = workflow.interceptedUsers[index];
        const std::optional<fs::path> inbox = InboxPath(workflow, user.name);
        std::error_code error;
        if (!inbox || !fs::is_directory(*inbox, error)) continue;
        const std::string rootNumber = std::to_string(index + 1);
        const std::string letter = user.type == "Group" ? "G" : "U";
        TreeNode& root = tree.Add(nullptr, Node(rootNumber + letter, user.name, "", true));
        waiting += AddWaitingStories(tree, root, *inbox, "/" + rootNumber + letter, number);
    }
    ShowWaiting(session, window, waiting);
}

void RefreshReceiveWindow(EditorSession& session, ReceiveWindow& window) {
    if (window.kind == ReceiveKind::Receive) {
        UpdateReceive(session, window);
    } else {
        UpdateIntercept(session, window);
    }
}

StoryPreview MakeStoryPreview(const EditorSession& session, const XmlNode& root) {
    const XmlNode body = root.SelectSingleNode("Body");
    std::int64_t chars = 0;
    std::int64_t words = 0;
    for (int index = 0; index < kTextBoxCount; ++index) {
        const XmlNode box = body.SelectSingleNode("TextBox" + std::to_string(index));
        chars += ParseLeadingInteger(box.Attribute("CharCount"));
        words += ParseLeadingInteger(box.Attribute("WordCount"));
    }
    StoryPreview preview;
    const std::vector<XmlNode> logs = root.SelectNodes("Logs/Log");
    if (!logs.empty()) preview.lastLog = logs.back().Text();
    preview.totals = Caption(session, "TotalChars", "Total chars") + "=" + std::to_string(chars) +
                     " / " + Caption(session, "NewsAllWordCount", "Words") + "=" +
                     std::to_string(words);
    preview.text = StoryPlainText(root, PlainTextTabs::AsTab);
    return preview;
}

void SelectReceiveNode(EditorSession& session, ReceiveWindow& window, std::string_view key) {
    ClearPreview(window);
    window.selected = std::string(key);
    const TreeNode* node = window.state.Tree("treeReceive").Find(key);
    if (node == nullptr || node->tag.empty()) return;
    XmlDocument story;
    if (!story.LoadFile(node->tag)) {
        session.user.Beep();
        session.user.Tell(
            FormatParseErrorStatus(node->tag, story.ParseError().value_or(XmlParseError{})),
            MessageIcon::Exclamation);
        return;
    }
    const StoryPreview preview = MakeStoryPreview(session, story.DocumentElement());
    window.storyText = preview.text;
    const bool hasLogs = story.DocumentElement().SelectSingleNode("Logs").HasChildElements();
    window.lastLogText = (hasLogs ? preview.lastLog + "\r\n" : std::string()) + preview.totals;
}

}  // namespace tessarin
