#include "transmission/workflow_destinations.h"

#include <charconv>

#include "config/preferences.h"

namespace tessarin {
namespace {

constexpr std::string_view kRootKey = "R";

const std::vector<WorkflowDestination>& ListInForce(const EditorSession& session,
                                                    const WorkflowWindow& window) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    return window.PreferredShown() ? workflow.preferredUsers : workflow.allUsers;
}

std::optional<std::size_t> RememberedIndex(const EditorSession& session, bool preferred) {
    const std::optional<std::string> text =
        session.profile.Read(kConfigurationSection, LastDestinationKey(preferred));
    std::size_t index = 0;
    if (!text ||
        std::from_chars(text->data(), text->data() + text->size(), index).ec != std::errc())
        return std::nullopt;
    return index;
}

}  // namespace

bool DestinationAdmitted(std::string_view type, WorkflowTab tab, bool controlOn) {
    const char letter = type.empty() ? 'U' : type.front();
    if (tab == WorkflowTab::Message) return letter == 'U';
    return letter == 'U' || letter == 'G' || controlOn;
}

std::string_view LastDestinationKey(bool preferred) {
    return preferred ? "IndexLastDestination" : "IndexLastDestinationNotPreferred";
}

void SetTreeUsers(EditorSession& session, WorkflowWindow& window) {
    TreeModel& tree = window.state.Tree("treeUsers");
    tree.Clear();
    TreeNode root;
    root.key = kRootKey;
    root.text = session.configuration.interface.CaptionOr("UploadTo", "Send to");
    root.expanded = true;
    TreeNode& top = tree.Add(nullptr, std::move(root));
    const std::vector<WorkflowDestination>& destinations = ListInForce(session, window);
    for (std::size_t index = 0; index < destinations.size(); ++index) {
        const WorkflowDestination& destination = destinations[index];
        if (!DestinationAdmitted(destination.type, window.tab, window.ControlOn())) continue;
        TreeNode node;
        node.key = "U" + std::to_string(index);
        node.text = destination.name;
        node.tag = destination.type;
        tree.Add(&top, std::move(node));
    }
    window.selectedUser.clear();
    const std::vector<const TreeNode*> nodes = tree.AllNodes();
    const std::optional<std::size_t> remembered = RememberedIndex(session, window.PreferredShown());
    if (remembered && *remembered >= 1 && *remembered <= nodes.size())
        window.selectedUser = nodes[*remembered - 1]->key;
}

std::optional<ChosenDestination> SelectedDestination(const WorkflowWindow& window) {
    if (window.selectedUser.empty() || window.selectedUser == kRootKey) return std::nullopt;
    const TreeModel* tree = window.state.FindTree("treeUsers");
    const TreeNode* node = tree == nullptr ? nullptr : tree->Find(window.selectedUser);
    if (node == nullptr) return std::nullopt;
    return ChosenDestination{node->text, node->tag};
}

void RememberDestination(EditorSession& session, const WorkflowWindow& window) {
    const TreeModel* tree = window.state.FindTree("treeUsers");
    if (tree == nullptr) return;
    const std::vector<const TreeNode*> nodes = tree->AllNodes();
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        if (nodes[index]->key != window.selectedUser) continue;
        session.profile.Write(kConfigurationSection, LastDestinationKey(window.PreferredShown()),
                              std::to_string(index + 1));
        return;
    }
}

bool SelectDestinationNamed(WorkflowWindow& window, std::string_view name) {
    const TreeModel& tree = window.state.Tree("treeUsers");
    for (const TreeNode* node : tree.AllNodes()) {
        if (node->key == kRootKey || node->text != name) continue;
        window.selectedUser = node->key;
        return true;
    }
    return false;
}

}  // namespace tessarin
