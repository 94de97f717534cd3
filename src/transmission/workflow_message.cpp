#include "transmission/workflow_message.h"

#include "common/date_format.h"
#include "common/file_io.h"
#include "common/windows1252.h"
#include "transmission/workflow_inbox.h"

namespace tessarin {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Line breaks as CR LF, whatever form they came in.
std::string WithCrLf(std::string_view text) {
    std::string result;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] == '\r' && position + 1 < text.size() && text[position + 1] == '\n')
            continue;
        if (text[position] == '\n' || text[position] == '\r') {
            result += kLineEnd;
        } else {
            result += text[position];
        }
    }
    return result;
}

}  // namespace

std::string WorkflowMessageBytes(std::string_view sender, std::string_view recipient,
                                 const LocalDateTime& now, std::string_view story,
                                 std::string_view text) {
    const std::string when = FormatShortDate(now) + " " + FormatTimeHourMinute(now);
    std::string lines;
    for (const std::string_view line : {sender, recipient, std::string_view(when), story})
        lines += std::string(line) + std::string(kLineEnd);
    lines += WithCrLf(text) + std::string(kLineEnd);
    return Utf8ToWindows1252(lines);
}

bool SendWorkflowMessage(EditorSession& session, const ChosenDestination& recipient,
                         std::string_view text) {
    const std::optional<std::filesystem::path> inbox = InboxOf(session, recipient.name);
    if (!inbox) return false;
    const std::filesystem::path file = *inbox / kMessageFileName;
    const std::string bytes = WorkflowMessageBytes(session.configuration.identity.author,
                                                   recipient.name, Now(), "", text);
    if (WriteFileAtomically(file, bytes)) return true;
    session.user.Tell("The message cannot be written to " + file.string(), MessageIcon::Critical);
    return false;
}

}  // namespace tessarin
