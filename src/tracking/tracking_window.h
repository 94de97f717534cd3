#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/window_state.h"
#include "session/editor_session.h"
#include "tracking/tracking_cache.h"
#include "tracking/tracking_choices.h"

namespace tessarin {

// The tracking window without a window: the tree of the tracking copies, its choices, the
// search and the story display. The desktop editor draws it; the command line and the tests
// drive it through the operations below.
//
// Controls, by their names: the tree treeTracking, the label lblTreeTracking (the counts),
// the search list lstTxtSearch and chkMatchCase, the button cmdUpdate; the story display
// txtStory, the labels lblTxtCreation, lblTxtLastSave, lblTxtLastAuthor, the log lists
// lstLogs and lstLogsTypes, the tab strip TabStripLogs and the picture Image1.

// The pictures of the story nodes: a story in layout and one in the editorial state.
inline constexpr int kEditorialPicture = 7;
inline constexpr int kLayoutPicture = 8;

// A date node's colours: bright red (and bold) before today, grey otherwise.
inline constexpr OleColour kPastDateColour = Rgb(255, 0, 0);
inline constexpr OleColour kDateColour = Rgb(0x80, 0x80, 0x80);

struct TrackingCounts {
    int stories = 0;
    int images = 0;
    int otherFiles = 0;
    int found = 0;
    bool searched = false;
};

struct TrackingWindow {
    WindowState state;
    TrackingChoices choices;
    std::string search;  // the text typed in lstTxtSearch
    bool matchCase = false;
    TrackingCounts counts;
    TrackingCache cache;

    // The story display of the selected node.
    std::string selected;
    std::string storyText;          // txtStory
    std::vector<StoryLog> logs;     // lstLogs, in file order
    std::filesystem::path picture;  // Image1
    std::string lastAuthor;         // lblTxtLastAuthor
    std::string waitingIn;          // the inbox where the story also waits
};

// Opening the window: the captions of the menu entries, the choices from the preferences;
// the tree is updated at once when TrackingAutomaticUpdate is on.
void OpenTrackingWindow(EditorSession& session, TrackingWindow& window);

// Whether the window is offered: TrackingEnabled and TrackingDisplayAllowed.
bool TrackingAvailable(const EditorSession& session);

// cmdUpdate. The display is cleared; the search text, trimmed, goes to the top of
// lstTxtSearch (upper-cased unless chkMatchCase). Each file of TrackingTextsDirectory that
// loads is placed in the tree, unless a search text is set and its boxes' text lacks it, or
// its state is not shown. Levels from the top: the author (Author or LastSaveAuthor, when
// dispatched by one of them), the date ("[yyyymmdd] <long date>", or "[<label>] " for a
// story without date; tag "R"; bright red and bold before today, grey otherwise), the
// publication, the classification, the section and subsection (when not empty), the form
// (when classified by form), then the story ("[<file name>] <title>", tag name and "S",
// picture by state) with its images (tag "I") and other files (tag "F"). Nodes of equal
// paths are merged; each level is sorted by text. lblTreeTracking gets the counts.
void UpdateTracking(EditorSession& session, TrackingWindow& window);

// lblTreeTracking: "<StoriesLabel>: <n>, <ImagesLabel>: <m>", then ", <OtherFiles>: <k>"
// when other files are shown, then ", <StoriesFound>: <found>" after a search.
std::string TrackingCountsText(const EditorSession& session, const TrackingCounts& counts);

// The story display emptied: nothing selected, no text, logs, picture or labels.
void ClearTrackingDisplay(TrackingWindow& window);

// A menu choice: kept in the preferences; the tree is not updated until cmdUpdate.
void ChooseTracking(EditorSession& session, TrackingWindow& window, const TrackingChoices& choices);

// The file that a story, image or other file node stands for; empty for other nodes.
std::filesystem::path TrackedFileOf(const EditorSession& session, const TreeNode& node);

}  // namespace tessarin
