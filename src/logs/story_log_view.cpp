#include "logs/story_log_view.h"

#include "config/colours.h"
#include "config/preferences.h"

namespace tessarin {
namespace {

constexpr std::string_view kIndexSortLogs = "IndexSortLogs";

}  // namespace

std::vector<StoryLog> LogsInOrder(const std::vector<StoryLog>& logs, LogOrder order) {
    if (order == LogOrder::File) return logs;
    return {logs.rbegin(), logs.rend()};
}

LogOrder StoredLogOrder(const ProfileFile& profile) {
    return profile.Read(kConfigurationSection, kIndexSortLogs) == "1" ? LogOrder::Reverse
                                                                      : LogOrder::File;
}

void StoreLogOrder(ProfileFile& profile, LogOrder order) {
    profile.Write(kConfigurationSection, kIndexSortLogs, order == LogOrder::Reverse ? "1" : "0");
}

std::optional<OleColour> LogTypeColour(std::string_view type) {
    if (type == "L") return ClassicColour(12);
    if (type == "I") return ClassicColour(5);
    if (type == "G") return ClassicColour(2);
    return std::nullopt;
}

bool ClearLogsAvailable(const EditorSession& session) {
    return session.configuration.workflow.ClearLogsAllowed;
}

bool ClearLogs(EditorSession& session) {
    const std::string question =
        session.configuration.interface.CaptionOr("ClearLogsConfirm", "Confirm Logs clearing");
    if (session.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) return false;
    session.story.logs.clear();
    session.window.Control("Logs").enabled = false;
    session.storyModified = true;
    return true;
}

}  // namespace tessarin
