#pragma once

#include <string>
#include <string_view>

#include "common/clock.h"
#include "session/editor_session.h"
#include "transmission/workflow_destinations.h"

namespace tessarin {

// The short message that users leave each other: the file "{msg}.txt" in the recipient's
// inbox under WorkflowDirectory, written whole, so that a second message replaces a first
// one not yet read.

inline constexpr std::string_view kMessageFileName = "{msg}.txt";

// Its bytes, in Windows-1252: five lines ended by CR LF, the sender, the recipient, the
// short date and "hh:mm" of now, the story's file name (empty for none), the text (whose own
// line breaks become CR LF).
std::string WorkflowMessageBytes(std::string_view sender, std::string_view recipient,
                                 const LocalDateTime& now, std::string_view story,
                                 std::string_view text);

// The message tab's send of txtMessage to a user, from the identity's Author, with no
// story. A recipient that is no plain name, or a file that cannot be written, is told with
// the reason and nothing is written. True when the message is there.
bool SendWorkflowMessage(EditorSession& session, const ChosenDestination& recipient,
                         std::string_view text);

}  // namespace tessarin
