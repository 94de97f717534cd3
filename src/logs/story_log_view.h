#pragma once

#include <optional>
#include <vector>

#include "session/editor_session.h"
#include "story/story_record.h"

namespace tessarin {

// What the story log window shows of the open story's logs, and what it does.

// The two tabs: LogsSort shows the logs in file order, LogsRevertSort in reverse. The choice
// is kept under IndexSortLogs of the Configuration section, "0" or "1".
enum class LogOrder { File = 0, Reverse = 1 };
std::vector<StoryLog> LogsInOrder(const std::vector<StoryLog>& logs, LogOrder order);
LogOrder StoredLogOrder(const ProfileFile& profile);
void StoreLogOrder(ProfileFile& profile, LogOrder order);

// The colour of an entry by its type: "L" (layout) bright red, "I" (intercepted) and "G"
// (a group) colours of their own; nothing for the others, which take the list's colour.
std::optional<OleColour> LogTypeColour(std::string_view type);

// Whether the clear command is there: ClearLogsAllowed of the Workflow section.
bool ClearLogsAvailable(const EditorSession& session);

// cmdClearLogs: the Yes/No question ClearLogsConfirm; on Yes the open story's logs go, the
// tool-bar button Logs is disabled and the story counts as changed, so that the next save
// writes it without them. True when the logs were cleared.
bool ClearLogs(EditorSession& session);

}  // namespace tessarin
