#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// The send list: what the folder Upload holds. Staged stories "<name>.xml" with their
// images and other files beside them under the names their href attributes give, and the
// empty markers "<base>.nc" of stories that entered the list without control.

// The marker of a story that entered the list without control: the name up to and with
// its last "." followed by "nc"; a name without a dot gets ".nc" appended.
std::string NoControlMarkerName(std::string_view storyName);

// The name under which a story's image or other file stands in the list, from its href:
// a leading "file:///" goes and "%20" becomes a blank.
std::string ListedFileName(std::string_view href);

// SetTreeUpload: rebuilds the list from Upload.
// 1. With no story in Upload, the stale markers are deleted.
// 2. While a marker is left, optControl1 is chosen and optControl0 disabled (the list as a
//    whole is uncontrolled); otherwise optControl0 is enabled.
// 3. Each story in Upload, in name order, is read; one that does not parse is reported in
//    the status panel ("Parsing error: " file name ", line:" ...) with a beep, kept in
//    unreadStories, and left out.
// 4. A story node (key "A" and its number, tag "S", expanded) gets a node for each of its
//    images (tag "I") and other files (tag "F"), named by ListedFileName; an empty href,
//    a file that vanished while it was staged, gives no node.
// 5. FrameStories shows "<StoriesLabel>:<n> / <ImagesLabel>:<m>", then " / <OtherFiles>:<k>"
//    when other files are shown. With an empty list cmdUpload and cmdRemoveStory are
//    disabled and FrameHelp is shown when the help preference (SendHelpBalloons) is on;
//    otherwise they are enabled and FrameHelp is hidden.
void SetTreeUpload(EditorSession& session, WorkflowWindow& window);

}  // namespace tessarin
