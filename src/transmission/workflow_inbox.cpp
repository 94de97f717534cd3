#include "transmission/workflow_inbox.h"

#include <algorithm>
#include <string>

#include "common/plain_file_name.h"

namespace tessarin {

std::filesystem::path ConfiguredFolder(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    std::filesystem::path folder(text);
    return folder.is_absolute() ? folder : std::filesystem::path();
}

std::optional<std::filesystem::path> InboxPath(const WorkflowSettings& workflow,
                                               std::string_view name) {
    const std::filesystem::path root = ConfiguredFolder(workflow.WorkflowDirectory);
    if (root.empty() || !IsPlainFileName(name)) return std::nullopt;
    return root / name;
}

std::optional<std::filesystem::path> InboxOf(EditorSession& session, std::string_view name) {
    if (!IsPlainFileName(name)) {
        session.user.Tell("The destination \"" + std::string(name) +
                              "\" is not a folder name: nothing is sent to it",
                          MessageIcon::Exclamation);
        return std::nullopt;
    }
    const std::optional<std::filesystem::path> inbox =
        InboxPath(session.configuration.workflow, name);
    if (!inbox) {
        session.user.Tell("No workflow directory is set (WorkflowDirectory): nothing is sent",
                          MessageIcon::Exclamation);
    }
    return inbox;
}

}  // namespace tessarin
