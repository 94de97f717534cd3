#pragma once

#include <string>

#include "common/clock.h"
#include "session/editor_session.h"
#include "transmission/receive_window.h"

namespace tessarin {

// Taking waiting stories out of an inbox into the user's personal directories.

struct ReceiveCounts {
    int stories = 0;
    int images = 0;
    int otherFiles = 0;
};

// cmdGet of both windows, on the selected node. Nothing selected: a beep and SelectStory; a
// root: deselected, with a beep. Then the take of the story:
//  1. receive: the inbox (the group's when the node's root has key "G", else the author's)
//     must exist, else a beep and "<path>\n<InvalidDirectory>\n\n<WarningAdministrator>";
//     intercept: the inbox is the folder of the node's tag;
//  2. the preview is cleared; a story of that name in PersonalTextsDirectory asks
//     "<StoryAlreadyPresent>:\n<path>\n<StoryBackupReplace>" (Yes/No), anything but Yes
//     stops with nothing changed;
//  3. the story is loaded; one that does not parse is told (beep, "Parsing error:" path, a
//     line break, "line:" n ", pos:" n, the source text, the reason), the tree is refreshed
//     and nothing moves;
//  4. each Image and File href names a file beside the story (a leading "file:///" goes and
//     "%20" becomes a blank; a name that is no plain file name refuses the take, told): it is
//     copied into PersonalImagesDirectory (and TrackingImagesDirectory when TrackingEnabled)
//     and its href becomes "file://" and the new full path;
//  5. intercept: a Log of Type "I", "<date> <hh:mm> - <InterceptedBy> <author>", is added
//     (Logs made when missing) and LastSaveAuthor becomes the author;
//  6. the story is saved back in the inbox when it changed (a story without images and
//     files is not), copied to PersonalTextsDirectory (intercept: tracking copy first), and
//     only once it is there the inbox's story and files are deleted;
//  7. receive from the group's inbox: LastSaveAuthor becomes the author in the personal copy;
//     then the tracking copy to TrackingTextsDirectory when TrackingEnabled;
//  8. the path is remembered for cmdGetAndOpen, the tree rebuilt and the main window's
//     status panel shows the report (ReceivedReport).
// A copy into the personal directories that fails is told with its reason and the inbox keeps
// the story and its files. True when the story was taken.
bool TakeSelectedStory(EditorSession& session, ReceiveWindow& window);

// cmdGetAll: every story of the tree, in tree order, without the selection's check, the
// preview cleared once and the report made once at the end. The counts of what was taken.
ReceiveCounts TakeAllStories(EditorSession& session, ReceiveWindow& window);

// cmdGetAndOpen: cmdGet, then, when a story was taken, the editor's story is closed (with
// the question before a change is lost) and the taken one opened. True when it was opened:
// the window closes.
bool TakeAndOpenStory(EditorSession& session, ReceiveWindow& window);

// "hh:mm - <ToolsReceivedStories>: <n>, <ToolsReceivedImages>: <m>,
// <ToolsReceivedOtherFiles>: <k>".
std::string ReceivedReport(const EditorSession& session, const ReceiveCounts& counts,
                           const LocalDateTime& now);

}  // namespace tessarin
