#include "transmission/inbox_watch.h"

#include <system_error>

#include "common/folder_listing.h"
#include "common/utf8.h"
#include "transmission/workflow_inbox.h"
#include "transmission/workflow_message.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

bool HoldsStories(const WorkflowSettings& workflow, const std::string& name) {
    const std::optional<fs::path> inbox = InboxPath(workflow, name);
    return inbox && !NamesWithExtension(*inbox, ".xml").empty();
}

}  // namespace

InboxPass CheckInbox(const EditorSession& session) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    const Identity& identity = session.configuration.identity;
    InboxPass pass;
    if (!identity.author.empty()) {
        if (const std::optional<fs::path> inbox = InboxPath(workflow, identity.author)) {
            std::error_code error;
            if (fs::is_regular_file(*inbox / kMessageFileName, error)) {
                pass.message = true;
                return pass;
            }
        }
        if (HoldsStories(workflow, identity.author)) ++pass.count;
    }
    if (!identity.group.empty() && HoldsStories(workflow, identity.group)) ++pass.count;
    return pass;
}

bool ShowInboxCount(WindowState& main, int count) {
    main.Control("mnuToolsReceiveWorkflow").enabled = count != 0;
    main.Control("ReceiveWorkflow").enabled = count != 0;
    return count != 0;
}

std::string WaitingTip(const EditorSession& session, int count) {
    const std::string tip =
        "Tessarin " TESSARIN_VERSION " - " +
        session.configuration.interface.CaptionOr("ToolsWaitingStories", "Waiting stories") + ": " +
        std::to_string(count);
    return Utf16ToUtf8(Utf8ToUtf16(tip).substr(0, 63));
}

}  // namespace tessarin
