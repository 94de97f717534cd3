#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "app/editor_session.h"

namespace tessarin {

// The inbox of a workflow destination: <WorkflowDirectory>/<name>. A name that is no plain
// file name ("..", a separator, an absolute path) names no inbox, and neither does any name
// while WorkflowDirectory is not an absolute path: the user is told and nothing is given.
std::optional<std::filesystem::path> InboxOf(EditorSession& session, std::string_view name);

}  // namespace tessarin
