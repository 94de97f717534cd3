#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "app/window_state.h"
#include "common/xml_document.h"
#include "session/editor_session.h"

namespace tessarin {

// The receive and intercept windows without a window: the stories waiting in inboxes of
// WorkflowDirectory and what the window shows of them. The desktop editor draws it; the
// command line and the tests drive it through the operations below and in receive_take.h.
//
// Controls, by their names: the tree treeReceive (a root for each inbox, a story node under
// it whose tag is the story's full path), the text fields txtStory (the preview) and
// txtLastLog (the last log and the totals), the buttons cmdGet, cmdGetAndOpen, cmdGetAll and
// cmdCancel. The window's first status panel shows the number of waiting stories.

enum class ReceiveKind { Receive, Intercept };

struct ReceiveWindow {
    ReceiveKind kind = ReceiveKind::Receive;
    WindowState state;
    std::string selected;              // the key of the selected node; empty when none
    std::string storyText;             // txtStory
    std::string lastLogText;           // txtLastLog
    std::filesystem::path takenStory;  // the last story taken, which cmdGetAndOpen opens
    int waiting = 0;                   // the stories the tree holds
};

// Opening frmReceive: the captions (ToolsReceiveLabel, ToolsReceiveAndOpenLabel,
// ToolsReceiveAllLabel, Cancel), then UpdateReceive.
void OpenReceiveWindow(EditorSession& session, ReceiveWindow& window);

// UpdateReceive: the tree is rebuilt. With an Author, a root of that text (key "U",
// expanded) holds the stories "*.xml" of the author's inbox in name order (key a running
// number and "U", tag the full path); with a Group, a root "G" likewise. The status panel
// shows "<ToolsWaitingStories>: <n>"; with n = 0 cmdGet, cmdGetAndOpen and cmdGetAll are
// disabled.
void UpdateReceive(EditorSession& session, ReceiveWindow& window);

// Opening frmIntercept: the captions (ToolsInterceptLabel, ToolsInterceptAndOpenLabel,
// Cancel; no cmdGetAll), then UpdateIntercept.
void OpenInterceptWindow(EditorSession& session, ReceiveWindow& window);

// UpdateIntercept: a root for each intercepted user or group whose inbox exists (key its
// number in the list and "G" for the type "Group", "U" otherwise), its stories below it
// (key "<story number>/<root number>" and the same letter, tag the full path); the status
// panel and the buttons as UpdateReceive sets them.
void UpdateIntercept(EditorSession& session, ReceiveWindow& window);

// Rebuilds the window's own tree.
void RefreshReceiveWindow(EditorSession& session, ReceiveWindow& window);

// A click on a node selects it; on a story node the preview is made: the story is loaded (one
// that does not parse is told in an exclamation box with a beep), the plain text of its
// boxes (a tab for "<tab/>") goes to txtStory, and txtLastLog gets the text of the last log
// and a line break when the story has logs, then "<TotalChars>=<chars> /
// <NewsAllWordCount>=<words>", the sums of the boxes' CharCount and WordCount.
void SelectReceiveNode(EditorSession& session, ReceiveWindow& window, std::string_view key);

// The preview's text and totals of a loaded story, as txtStory and txtLastLog show them
// (also in the tracking window's story display).
struct StoryPreview {
    std::string text;
    std::string lastLog;
    std::string totals;
};
StoryPreview MakeStoryPreview(const EditorSession& session, const XmlNode& root);

}  // namespace tessarin
