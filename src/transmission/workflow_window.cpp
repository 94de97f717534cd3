#include "transmission/workflow_window.h"

#include "transmission/send_list.h"
#include "transmission/workflow_destinations.h"

namespace tessarin {
namespace {

// The controls of the stories tab, hidden while the message tab is shown.
constexpr std::string_view kListControls[] = {"treeUpload",     "cmdAddCurrent", "cmdAddStory",
                                              "cmdRemoveStory", "FrameStories",  "optControl0",
                                              "optControl1",    "lblControl",    "txtStory"};

void Choose(WindowState& state, std::string_view first, std::string_view second, bool isFirst) {
    state.Control(first).checked = isFirst;
    state.Control(second).checked = !isFirst;
}

void Caption(const EditorSession& session, WindowState& state, std::string_view control,
             std::string_view key, std::string_view design) {
    state.Control(control).caption = session.configuration.interface.CaptionOr(key, design);
}

void ShowCaptions(const EditorSession& session, WindowState& state) {
    state.Control("TabSend1").caption =
        session.Message("StoriesLabel") + " && " + session.Message("ImagesLabel");
    Caption(session, state, "TabSend2", "ToolsSMTPLabelMessage", "Message");
    Caption(session, state, "optControl0", "UploadControl", "Control document");
    Caption(session, state, "optControl1", "UploadNoControl", "Do not control document");
    Caption(session, state, "optPreferred0", "UploadPreferred", "Preferred");
    Caption(session, state, "optPreferred1", "UploadNotPreferred", "All");
    Caption(session, state, "cmdUpload", "Upload", "Send to...");
    Caption(session, state, "cmdCancel", "Cancel", "Cancel");
    Caption(session, state, "cmdAddCurrent", "CurrentStoryLabel", "Current story");
    state.Control("cmdAddStory").caption = session.Message("AddStory");
    state.Control("cmdRemoveStory").caption =
        session.configuration.interface.CaptionOr("RemoveLabel", "Remove");
    for (int line = 1; line <= 4; ++line) {
        const std::string key = "StorySendHelp" + std::to_string(line);
        Caption(session, state, "lblHelp" + std::to_string(line), key, "");
    }
}

}  // namespace

bool WorkflowWindow::ControlOn() const {
    const ControlState* control = state.FindControl("optControl0");
    return control != nullptr && control->checked;
}

bool WorkflowWindow::PreferredShown() const {
    const ControlState* preferred = state.FindControl("optPreferred0");
    return preferred != nullptr && preferred->checked;
}

std::string LimitsText(const EditorSession& session) {
    const FtpTransmissionSettings& limits = session.configuration.ftpTransmission;
    std::string text;
    const auto add = [&](std::string_view key, std::int32_t value, std::string_view unit) {
        if (value == 0) return;
        if (!text.empty()) text += '\n';
        text += session.Message(key) + "=" + std::to_string(value) + std::string(unit);
    };
    add("MaxStories", limits.MaxStories, "");
    add("MaxImages", limits.MaxImages, "");
    add("ImageSizeMinLabel", limits.MinSizeImage, " KB");
    add("ImageSizeMaxLabel", limits.MaxSizeImage, " KB");
    return text;
}

void OpenWorkflowWindow(EditorSession& session, WorkflowWindow& window) {
    ShowCaptions(session, window.state);
    window.previewText.clear();
    window.previewImage.clear();
    window.state.Control("cmdAddCurrent").enabled = !session.storyFileName.empty();
    window.state.Control("lblControl").caption = LimitsText(session);
    Choose(window.state, "optControl0", "optControl1", true);
    Choose(window.state, "optPreferred0", "optPreferred1", true);
    SelectWorkflowTab(session, window, WorkflowTab::Stories);
}

void SelectWorkflowTab(EditorSession& session, WorkflowWindow& window, WorkflowTab tab) {
    window.tab = tab;
    const bool stories = tab == WorkflowTab::Stories;
    for (std::string_view control : kListControls)
        window.state.Control(control).visible = stories;
    window.state.Control("txtMessage").visible = !stories;
    if (stories) {
        SetTreeUpload(session, window);
    } else {
        window.previewText.clear();
        window.previewImage.clear();
        window.state.Control("FrameHelp").visible = false;
        window.state.Control("cmdUpload").enabled = !window.message.empty();
    }
    SetTreeUsers(session, window);
}

void ChooseControl(EditorSession& session, WorkflowWindow& window, bool controlOn) {
    if (controlOn && !window.state.Control("optControl0").enabled) return;
    Choose(window.state, "optControl0", "optControl1", controlOn);
    SetTreeUsers(session, window);
}

void ChoosePreferred(EditorSession& session, WorkflowWindow& window, bool preferred) {
    Choose(window.state, "optPreferred0", "optPreferred1", preferred);
    SetTreeUsers(session, window);
}

void SetMessageText(WorkflowWindow& window, std::string text) {
    window.message = std::move(text);
    window.state.Control("cmdUpload").enabled = !window.message.empty();
}

}  // namespace tessarin
