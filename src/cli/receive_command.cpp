#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "transmission/inbox_watch.h"
#include "transmission/receive_take.h"
#include "transmission/receive_window.h"

namespace tessarin::cli {
namespace {

constexpr const char* kReceiveUsage =
    "tessarin-cli: usage: receive list | receive get NAME [--group] | receive all\n";
constexpr const char* kInterceptUsage =
    "tessarin-cli: usage: intercept list | intercept get USER NAME\n";

// The editor started, as the receive commands find it.
struct ReceiveDesk {
    explicit ReceiveDesk(CliContext& context)
        : user(context.answer, context.err), session(SessionPaths(context), user) {}

    CliInteraction user;
    EditorSession session;
    ReceiveWindow window;
};

void PrintTree(const ReceiveWindow& window, std::ostream& out) {
    for (const TreeNode& root : window.state.FindTree("treeReceive")->Roots()) {
        out << root.text << '\n';
        for (const TreeNode& story : root.children)
            out << "  " << story.text << '\n';
    }
}

// Selects the story NAME under the root whose key or text is given; false when it is not
// waiting there.
bool SelectWaiting(ReceiveWindow& window, const std::string& rootKey, const std::string& rootText,
                   const std::string& name) {
    for (const TreeNode& root : window.state.Tree("treeReceive").Roots()) {
        if (root.key != rootKey && root.text != rootText) continue;
        for (const TreeNode& story : root.children) {
            if (story.text != name) continue;
            window.selected = story.key;
            return true;
        }
    }
    return false;
}

// The take of the selected story; the report on standard error.
int Take(ReceiveDesk& desk, bool selected, const std::string& name) {
    if (!selected) {
        desk.user.ShowStatus("The story " + name + " is not waiting there");
        return kExitRefused;
    }
    const bool taken = TakeSelectedStory(desk.session, desk.window);
    if (taken) desk.user.ShowStatus(desk.session.window.Status().text);
    return taken ? kExitDone : kExitRefused;
}

}  // namespace

int RunInboxCommand(CliContext& context, const Arguments& arguments) {
    if (!arguments.empty()) {
        context.err << "tessarin-cli: usage: inbox\n";
        return kExitUsage;
    }
    ReceiveDesk desk(context);
    if (!StartSession(desk.session, context, desk.user)) return kExitRefused;
    const InboxPass pass = CheckInbox(desk.session);
    if (pass.message) {
        context.out << "message\n";
    } else {
        context.out << pass.count << '\n';
    }
    return kExitDone;
}

int RunReceiveCommand(CliContext& context, const Arguments& arguments) {
    const std::size_t count = arguments.size();
    const std::string verb = count == 0 ? std::string() : arguments[0];
    const bool list = verb == "list" && count == 1;
    const bool all = verb == "all" && count == 1;
    const bool get = verb == "get" && (count == 2 || (count == 3 && arguments[2] == "--group"));
    if (!list && !all && !get) {
        context.err << kReceiveUsage;
        return kExitUsage;
    }
    ReceiveDesk desk(context);
    if (!StartSession(desk.session, context, desk.user)) return kExitRefused;
    OpenReceiveWindow(desk.session, desk.window);
    if (list) {
        PrintTree(desk.window, context.out);
        context.out << desk.window.state.Status().text << '\n';
        return kExitDone;
    }
    if (all) {
        const int waiting = desk.window.waiting;
        const ReceiveCounts counts = TakeAllStories(desk.session, desk.window);
        desk.user.ShowStatus(desk.session.window.Status().text);
        return counts.stories == waiting ? kExitDone : kExitRefused;
    }
    const std::string root = count == 3 ? "G" : "U";
    return Take(desk, SelectWaiting(desk.window, root, "", arguments[1]), arguments[1]);
}

int RunInterceptCommand(CliContext& context, const Arguments& arguments) {
    const std::size_t count = arguments.size();
    const bool list = count == 1 && arguments[0] == "list";
    const bool get = count == 3 && arguments[0] == "get";
    if (!list && !get) {
        context.err << kInterceptUsage;
        return kExitUsage;
    }
    ReceiveDesk desk(context);
    if (!StartSession(desk.session, context, desk.user)) return kExitRefused;
    OpenInterceptWindow(desk.session, desk.window);
    if (list) {
        PrintTree(desk.window, context.out);
        return kExitDone;
    }
    return Take(desk, SelectWaiting(desk.window, "", arguments[1], arguments[2]), arguments[2]);
}

}  // namespace tessarin::cli
