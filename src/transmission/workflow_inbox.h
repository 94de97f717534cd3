#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "session/editor_session.h"

namespace tessarin {

// The inbox of a workflow destination: <WorkflowDirectory>/<name>. A name that is no plain
// file name ("..", a separator, an absolute path) names no inbox, and neither does any name
// while WorkflowDirectory is not an absolute path.

// The inbox, or nothing, without a word: for the watcher and the trees, which poll.
std::optional<std::filesystem::path> InboxPath(const WorkflowSettings& workflow,
                                               std::string_view name);

// The inbox, or nothing after telling the user why.
std::optional<std::filesystem::path> InboxOf(EditorSession& session, std::string_view name);

// A folder named by the configuration ("\" or "/" separators), as a native path; empty when
// the text is not an absolute path, so that nothing lands in the working directory.
std::filesystem::path ConfiguredFolder(std::string text);

}  // namespace tessarin
