#pragma once

#include <string>

#include "app/window_state.h"
#include "session/editor_session.h"

namespace tessarin {

// The inbox watcher of the main window: every five seconds (and once at start) it looks
// whether the user's inboxes under WorkflowDirectory hold a message or stories.

struct InboxPass {
    bool message = false;  // a message waits in the author's inbox: it is read first
    int count = 0;         // the inboxes holding stories: 0, 1 or 2
};

// One pass of CheckInbox. With no WorkflowDirectory nothing is found. With an Author: a
// "{msg}.txt" in the author's inbox ends the pass as a message; otherwise the inbox counts 1
// when it holds a "*.xml". With a Group: its inbox counts 1 likewise.
InboxPass CheckInbox(const EditorSession& session);

// What the main window shows of a pass without a message: the menu entry
// mnuToolsReceiveWorkflow and the tool-bar button ReceiveWorkflow are enabled exactly while
// the count is not 0. True when the waiting sign (the blinking tray icon or the status bar's
// sign) is to be shown.
bool ShowInboxCount(WindowState& main, int count);

// The tip of the tray icon: "Tessarin <version> - <ToolsWaitingStories>: <count>", cut to
// the 63 characters a tip holds.
std::string WaitingTip(const EditorSession& session, int count);

}  // namespace tessarin
