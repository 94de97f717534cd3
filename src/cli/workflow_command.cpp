#include <filesystem>
#include <functional>
#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "transmission/remove_story.h"
#include "transmission/send_list.h"
#include "transmission/story_control.h"
#include "transmission/workflow_destinations.h"
#include "transmission/workflow_send.h"
#include "transmission/workflow_window.h"

namespace tessarin::cli {
namespace {

constexpr const char* kWorkflowUsage =
    "tessarin-cli: usage: workflow add STORY [--no-control] | workflow list | "
    "workflow remove NAME | workflow send DESTINATION [--all-users] | "
    "workflow message DESTINATION TEXT\n";

// The editor started and its send window open, as each workflow command finds them.
struct WorkflowDesk {
    explicit WorkflowDesk(CliContext& context)
        : user(context.answer, context.err), session(SessionPaths(context), user) {}

    CliInteraction user;
    EditorSession session;
    WorkflowWindow window;
};

// The status panel's text on standard error; the exit status of a command that did, or did
// not, do what was asked.
int Finish(WorkflowDesk& desk, bool done) {
    desk.user.ShowStatus(desk.window.state.Status().text);
    return done ? kExitDone : kExitRefused;
}

int Add(WorkflowDesk& desk, const std::filesystem::path& story, bool control) {
    ChooseControl(desk.session, desk.window, control);
    desk.window.preparedStory = std::filesystem::absolute(story);
    return Finish(desk, AddStory(desk.session, desk.window).outcome == AddOutcome::Staged);
}

int List(WorkflowDesk& desk, std::ostream& out) {
    for (const std::string& unread : desk.window.unreadStories)
        desk.user.ShowStatus(unread);
    for (const TreeNode* node : desk.window.state.Tree("treeUpload").AllNodes())
        out << node->tag << ' ' << node->text << '\n';
    out << desk.window.state.Control("FrameStories").caption << '\n';
    return kExitDone;
}

int Remove(WorkflowDesk& desk, const std::string& name) {
    for (const TreeNode& node : desk.window.state.Tree("treeUpload").Roots()) {
        if (node.tag == "S" && node.text == name) {
            desk.window.selectedUpload = node.key;
            break;
        }
    }
    return Finish(desk, RemoveStory(desk.session, desk.window));
}

int Send(WorkflowDesk& desk, const std::string& destination, std::ostream& out) {
    if (!SelectDestinationNamed(desk.window, destination)) desk.window.selectedUser.clear();
    const SendOutcome outcome = SendWorkflow(desk.session, desk.window);
    for (const SendReportLine& line : desk.window.report)
        out << ReportLineText(desk.session, line) << '\n';
    return Finish(desk, outcome == SendOutcome::Sent);
}

int Message(WorkflowDesk& desk, const std::string& destination, const std::string& text) {
    if (text.empty()) {
        desk.user.ShowStatus("The message is empty: nothing is sent");
        return kExitRefused;
    }
    SelectWorkflowTab(desk.session, desk.window, WorkflowTab::Message);
    SetMessageText(desk.window, text);
    if (!SelectDestinationNamed(desk.window, destination)) desk.window.selectedUser.clear();
    return Finish(desk, SendWorkflow(desk.session, desk.window) == SendOutcome::Sent);
}

// The command to run on the started desk; nothing when the command line is wrong.
std::function<int(WorkflowDesk&)> ParseWorkflow(const Arguments& arguments, std::ostream& out) {
    const std::size_t count = arguments.size();
    if (count == 0) return {};
    const std::string& verb = arguments[0];
    if (verb == "add" && (count == 2 || (count == 3 && arguments[2] == "--no-control"))) {
        const std::string story = arguments[1];
        const bool control = count == 2;
        return [story, control](WorkflowDesk& desk) { return Add(desk, story, control); };
    }
    if (verb == "list" && count == 1) return [&out](WorkflowDesk& desk) { return List(desk, out); };
    if (verb == "remove" && count == 2) {
        const std::string name = arguments[1];
        return [name](WorkflowDesk& desk) { return Remove(desk, name); };
    }
    if (verb == "send" && (count == 2 || (count == 3 && arguments[2] == "--all-users"))) {
        const std::string destination = arguments[1];
        const bool preferred = count == 2;
        return [destination, preferred, &out](WorkflowDesk& desk) {
            ChoosePreferred(desk.session, desk.window, preferred);
            return Send(desk, destination, out);
        };
    }
    if (verb == "message" && count == 3) {
        const std::string destination = arguments[1], text = arguments[2];
        return [destination, text](WorkflowDesk& desk) { return Message(desk, destination, text); };
    }
    return {};
}

}  // namespace

int RunWorkflowCommand(CliContext& context, const Arguments& arguments) {
    const std::function<int(WorkflowDesk&)> command = ParseWorkflow(arguments, context.out);
    if (!command) {
        context.err << kWorkflowUsage;
        return kExitUsage;
    }
    WorkflowDesk desk(context);
    if (!StartSession(desk.session, context, desk.user)) return kExitRefused;
    OpenWorkflowWindow(desk.session, desk.window);
    return command(desk);
}

}  // namespace tessarin::cli
