#include <ostream>
#include <string>

#include "cli/cli_context.h"
#include "cli/cli_interaction.h"
#include "cli/cli_session.h"
#include "tracking/tracking_actions.h"
#include "tracking/tracking_window.h"

namespace tessarin::cli {
namespace {

constexpr const char* kTrackUsage =
    "tessarin-cli: usage: track [--by date|author|last-author] [--by-form | --no-by-form] "
    "[--show all|editorial|layout] [--search TEXT] [--match-case] | "
    "track delete NODE-TEXT... [--all]\n";

struct TrackDesk {
    explicit TrackDesk(CliContext& context)
        : user(context.answer, context.err), session(SessionPaths(context), user) {}

    CliInteraction user;
    EditorSession session;
    TrackingWindow window;
};

// The choices and search of the command line over the stored choices; false when an
// option is wrong.
bool ParseOptions(const Arguments& arguments, TrackingWindow& window) {
    TrackingChoices& choices = window.choices;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& option = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (option == "--by-form" || option == "--no-by-form") {
            choices.byForm = option == "--by-form";
        } else if (option == "--match-case") {
            window.matchCase = true;
        } else if (option == "--search" && hasValue) {
            window.search = arguments[++i];
        } else if (option == "--by" && hasValue) {
            const std::string& by = arguments[++i];
            if (by == "date") {
                choices.dispatch = TrackingDispatch::ByDate;
            } else if (by == "author") {
                choices.dispatch = TrackingDispatch::ByAuthor;
            } else if (by == "last-author") {
                choices.dispatch = TrackingDispatch::ByLastSaveAuthor;
            } else {
                return false;
            }
        } else if (option == "--show" && hasValue) {
            const std::string& show = arguments[++i];
            if (show == "all") {
                choices.show = TrackingShow::All;
            } else if (show == "editorial") {
                choices.show = TrackingShow::Editorial;
            } else if (show == "layout") {
                choices.show = TrackingShow::Layout;
            } else {
                return false;
            }
        } else {
            return false;
        }
    }
    return true;
}

void PrintNodes(const std::list<TreeNode>& nodes, const std::string& indent, std::ostream& out) {
    for (const TreeNode& node : nodes) {
        out << indent << node.text << '\n';
        PrintNodes(node.children, indent + "  ", out);
    }
}

// The node reached by following the texts from the top; nullptr when there is none.
const TreeNode* Follow(const TreeModel& tree, const std::vector<std::string>& texts) {
    const std::list<TreeNode>* level = &tree.Roots();
    const TreeNode* reached = nullptr;
    for (const std::string& text : texts) {
        reached = nullptr;
        for (const TreeNode& node : *level) {
            if (node.text == text) {
                reached = &node;
                break;
            }
        }
        if (reached == nullptr) return nullptr;
        level = &reached->children;
    }
    return reached;
}

int Delete(TrackDesk& desk, const Arguments& arguments) {
    std::vector<std::string> texts;
    bool all = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == "--all") {
            all = true;
        } else {
            texts.push_back(arguments[i]);
        }
    }
    UpdateTracking(desk.session, desk.window);
    const TreeNode* node = Follow(desk.window.state.Tree("treeTracking"), texts);
    if (all && texts.empty()) return DeleteAllTracking(desk.session, desk.window, "") ? 0 : 1;
    if (node == nullptr) {
        desk.user.ShowStatus("No node of the tracking tree has that path");
        return kExitRefused;
    }
    const bool done = all ? DeleteAllTracking(desk.session, desk.window, node->text)
                          : DeleteTrackingNode(desk.session, desk.window, node->key);
    return done ? kExitDone : kExitRefused;
}

}  // namespace

int RunTrackCommand(CliContext& context, const Arguments& arguments) {
    const bool remove = !arguments.empty() && arguments[0] == "delete";
    if (remove && arguments.size() < 2) {
        context.err << kTrackUsage;
        return kExitUsage;
    }
    TrackDesk desk(context);
    if (!StartSession(desk.session, context, desk.user)) return kExitRefused;
    desk.window.choices = ReadTrackingChoices(desk.session.profile);
    if (remove) return Delete(desk, arguments);
    if (!ParseOptions(arguments, desk.window)) {
        context.err << kTrackUsage;
        return kExitUsage;
    }
    UpdateTracking(desk.session, desk.window);
    PrintNodes(desk.window.state.Tree("treeTracking").Roots(), "", context.out);
    context.out << desk.window.state.Control("lblTreeTracking").caption << '\n';
    return kExitDone;
}

}  // namespace tessarin::cli
