#include "transmission/workflow_inbox.h"

#include <algorithm>
#include <string>

#include "common/plain_file_name.h"

namespace tessarin {

std::optional<std::filesystem::path> InboxOf(EditorSession& session, std::string_view name) {
    if (!IsPlainFileName(name)) {
        session.user.Tell("The destination \"" + std::string(name) +
                              "\" is not a folder name: nothing is sent to it",
                          MessageIcon::Exclamation);
        return std::nullopt;
    }
    std::string root = session.configuration.workflow.WorkflowDirectory;
    std::replace(root.begin(), root.end(), '\\', '/');
    if (!std::filesystem::path(root).is_absolute()) {
        session.user.Tell("No workflow directory is set (WorkflowDirectory): nothing is sent",
                          MessageIcon::Exclamation);
        return std::nullopt;
    }
    return std::filesystem::path(root) / name;
}

}  // namespace tessarin
