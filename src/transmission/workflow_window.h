#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/window_state.h"
#include "session/editor_session.h"

namespace tessarin {

// The send window without a window: the send list of the folder Upload, the destinations,
// the options and what the window shows. The desktop editor draws it; the command line and
// the tests drive it through the operations of this subsystem.
//
// Controls, by their names: the trees treeUpload and treeUsers; the option pairs
// optControl0 / optControl1 (control the stories added from now on, or not) and
// optPreferred0 / optPreferred1 (preferred destinations, or all); the buttons cmdAddCurrent,
// cmdAddStory, cmdRemoveStory, cmdUpload; the frames FrameStories (its caption holds the
// counters) and FrameHelp; the labels lblControl (the limits); the text fields txtStory (the
// preview, then the report) and txtMessage; the tabs TabSend1 (stories) and TabSend2
// (message). The window's first status panel is the state's status panel.

// The tabs of TabSend, by their index.
enum class WorkflowTab { Stories = 1, Message = 2 };

// A staged story of the send list and the files listed under it, by their names in Upload.
struct ListedStory {
    std::string name;
    std::vector<std::string> images;
    std::vector<std::string> files;
};

// One line of the send report: a story's name, or an image or other file.
struct SendReportLine {
    enum class Kind { Story, Image, OtherFile };
    Kind kind = Kind::Story;
    std::string text;
};

struct WorkflowWindow {
    WindowState state;
    WorkflowTab tab = WorkflowTab::Stories;

    // What SetTreeUpload found in Upload, in tree order, the counters of FrameStories, and
    // the parsing message of each staged story it had to leave out.
    std::vector<ListedStory> stories;
    int imageCount = 0;
    int otherFileCount = 0;
    std::vector<std::string> unreadStories;

    // The selected nodes, by key; empty when none.
    std::string selectedUpload;
    std::string selectedUser;

    // The story that cmdAddCurrent hands to cmdAddStory instead of the file dialog.
    std::filesystem::path preparedStory;

    // txtStory: the preview of the selected node (text, or the picture shown in Image1), or
    // after a send the report under its heading, locked.
    std::string previewText;
    std::filesystem::path previewImage;
    std::string reportHeading;
    std::vector<SendReportLine> report;
    bool reportLocked = false;

    std::string message;  // txtMessage

    // The list as the FTP window adds to it: no personal directory rule, the staged story
    // named with the user's initials when AddInitialsToFilenames is on, a question before a
    // story that has a log is added again, and the control as ControlStoryBeforeTransmission
    // says, never without it.
    bool ftp = false;

    bool ControlOn() const;       // optControl0 is chosen
    bool PreferredShown() const;  // optPreferred0 is chosen
};

// Opening the window: the captions (tabs "<StoriesLabel> && <ImagesLabel>" and
// ToolsSMTPLabelMessage, the options, the buttons), cmdAddCurrent enabled only while the
// editor holds a story with a name, the limits label, optControl0 and optPreferred0 chosen,
// then SetTreeUpload and SetTreeUsers.
void OpenWorkflowWindow(EditorSession& session, WorkflowWindow& window);

// lblControl: "<MaxStories>=<n>", "<MaxImages>=<n>", "<ImageSizeMinLabel>=<n> KB",
// "<ImageSizeMaxLabel>=<n> KB", each only for a limit that is not 0, joined by line breaks.
std::string LimitsText(const EditorSession& session);

// A click on a tab: the message tab hides the list's controls, shows txtMessage, clears the
// preview and enables cmdUpload while the message has text; the stories tab shows the list
// again and rebuilds it. Both rebuild the destinations, which depend on the tab.
void SelectWorkflowTab(EditorSession& session, WorkflowWindow& window, WorkflowTab tab);

// A click on an option: optControl0 / optControl1 (control on or off for the stories added
// from now on) or optPreferred0 / optPreferred1; the destinations are rebuilt.
void ChooseControl(EditorSession& session, WorkflowWindow& window, bool controlOn);
void ChoosePreferred(EditorSession& session, WorkflowWindow& window, bool preferred);

// txtMessage changed: cmdUpload is enabled only while the text is not empty.
void SetMessageText(WorkflowWindow& window, std::string text);

}  // namespace tessarin
