#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/editor_session.h"
#include "transmission/workflow_window.h"

namespace tessarin {

// The destinations of the send window: users ("U"), groups ("G") and layout systems ("L"
// and a blank and the export format), from the Workflow section's preferred list or from
// all of them.

// Whether a destination of that type is offered: on the stories tab users, groups, and the
// other types (layout among them) only while the list is controlled; on the message tab
// users only.
bool DestinationAdmitted(std::string_view type, WorkflowTab tab, bool controlOn);

// The preference key that remembers the chosen destination: IndexLastDestination while the
// preferred destinations are shown, IndexLastDestinationNotPreferred otherwise.
std::string_view LastDestinationKey(bool preferred);

// SetTreeUsers: treeUsers gets its root (key "R", text UploadTo, expanded) and under it a
// node for each admitted destination of the list in force (key "U" and the destination's
// index in that list, text its name, tag its type). The remembered node index (1 for the
// root, as the tree counts its nodes) is selected again when the tree has it.
void SetTreeUsers(EditorSession& session, WorkflowWindow& window);

// The selected destination; nothing when no node or the root is selected.
struct ChosenDestination {
    std::string name;
    std::string type;
};
std::optional<ChosenDestination> SelectedDestination(const WorkflowWindow& window);

// Remembers the selected node's index under the key that optPreferred chooses.
void RememberDestination(EditorSession& session, const WorkflowWindow& window);

// Selects the destination node whose text is name; false when the tree has none.
bool SelectDestinationNamed(WorkflowWindow& window, std::string_view name);

}  // namespace tessarin
