#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/window_state.h"
#include "session/editor_session.h"
#include "tracking/tracking_window.h"

namespace tessarin {

// The message window without a window: a message about a story written from the tracking
// tree, or the message found in the author's inbox read. Controls: the labels lblFrom, lblTo,
// lblDate, lblStory, lblMessage and their values lblTxtFrom, lblTxtTo, lblTxtDate,
// lblTxtStory; the text txtMessage; the buttons cmdOK, cmdOpen and cmdCancel.

enum class MessageMode { Sending, Reading };

struct MessageWindow {
    MessageMode mode = MessageMode::Sending;
    WindowState state;
    std::string from;
    std::string to;
    std::string date;
    std::string story;
    std::string message;  // txtMessage
};

// The five lines of a message file, read back; only the first line of the text comes back.
struct MessageLines {
    std::string from, to, date, story, text;
};
std::optional<MessageLines> ReadMessageFile(const std::filesystem::path& file);

// mnuPopupSendMessage on a story node: a story in layout asks TrackingMessageLayout first
// (Yes/No, anything but Yes stops). Then the window in sending mode: from the author, to the
// last author that the story display shows, now, the story's file name, the text of the last
// message (the preference Message). False when the question stopped it.
bool StartTrackingMessage(EditorSession& session, const TrackingWindow& tracking,
                          const TreeNode& storyNode, MessageWindow& window);

// The window in reading mode, as the inbox watcher opens it: the five lines of the author's
// message file, txtMessage locked, cmdOK captioned RemoveLabel; without a story the story
// line and cmdOpen are hidden. A beep. False when there is no message to read.
bool OpenReadingMessage(EditorSession& session, MessageWindow& window);

// txtMessage changed: cmdOK is enabled only with text.
void SetTrackingMessageText(MessageWindow& window, std::string text);

// cmdOK. Sending: when the recipient's inbox exists the message file is written and the text
// kept under Message; otherwise nothing is sent. Reading: the message file is deleted. True
// when the file was written or deleted.
bool ConfirmMessage(EditorSession& session, MessageWindow& window);

// cmdOpen: the editor's story is closed (a close that is stopped ends here), the story of the
// message looked for in PersonalTextsDirectory and below it (names compared without regard to
// case) and opened; the message file is deleted; a story not found is told as UnknownStory.
// True when the story was opened.
bool OpenMessageStory(EditorSession& session, MessageWindow& window);

}  // namespace tessarin
