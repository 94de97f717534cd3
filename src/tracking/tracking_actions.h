#pragma once

#include <string_view>

#include "session/editor_session.h"
#include "tracking/tracking_window.h"

namespace tessarin {

// What a click or a right click on a node of treeTracking does.

// A click: the story display. A story node loads its tracking copy: lblTxtCreation shows
// CreationDate and Author, lblTxtLastSave LastSaveDate, lblTxtLastAuthor LastSaveAuthor;
// the inbox where the story also waits is noted; txtStory gets the plain text and the totals,
// lstLogs the logs and lstLogsTypes their types, and TabStripLogs is shown. An image node
// shows its tracking copy in Image1; an other file its name; any other node clears the
// display.
void SelectTrackingNode(EditorSession& session, TrackingWindow& window, std::string_view key);

// The entries of the pop-up menu on a node: the deletions on a date or a story (when
// TrackingClearAllowed), the message on a story.
struct TrackingPopup {
    bool deleteStories = false;     // mnuPopupDeleteStories
    bool deleteAllStories = false;  // mnuPopupDeleteAllStories
    bool sendMessage = false;       // mnuPopupSendMessage
};
TrackingPopup PopupEntriesOf(const EditorSession& session, const TreeNode& node);

// mnuPopupDeleteStories on the node: the question (the entry's caption TrackingClearInsideItem
// and the node's text on two lines); on Yes the tracking copies of the stories, images and
// other files below it (ten levels down) are deleted and the tree updated. False when
// deleting is not allowed (told), the node is not found or the answer was not Yes.
bool DeleteTrackingNode(EditorSession& session, TrackingWindow& window, std::string_view key);

// mnuPopupDeleteAllStories: the question (TrackingClearAll and the text of the node it was
// called on); on Yes every file of both tracking directories is deleted and the tree updated.
bool DeleteAllTracking(EditorSession& session, TrackingWindow& window, std::string_view nodeText);

}  // namespace tessarin
