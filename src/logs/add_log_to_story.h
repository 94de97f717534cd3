#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "common/clock.h"
#include "story/story_context.h"

namespace tessarin {

// Adds an entry to the log that a story file on disk carries, the one writer of such entries:
// 1. the file is loaded; one that does not parse gives a beep and an error box with the
//    parsing message ("Parsing error: " path ", line:" n ", pos:" n, the source text and the
//    reason), and nothing else happens;
// 2. in Metadata, LastSaveDate is replaced by a new one at the end, its Name the caption of
//    lblLastSaveDate and its text the short date, a blank and "hh:mm" of now; LastSaveAuthor
//    likewise, its text the user's name;
// 3. a Log is added under Logs (made at the end of the story when missing), with the attribute
//    Type only when type is not empty, and the text;
// 4. a read-only file is made writable again, then the document is saved in its own encoding
//    (never seen half-written, not flushed to disk one by one: a send logs stories by the
//    hundred).
// Returns true when the entry is in the file. A save that fails is told as NotSavedStory ": "
// and the path.
bool AddLogToStory(const std::filesystem::path& story, std::string_view type, std::string_view text,
                   const StoryContext& context, const LocalDateTime& now);

// The short date of now, a blank and "hh:mm": how every log entry begins.
std::string LogDateAndTime(const LocalDateTime& now);

// The log text of a transmission to a workflow destination: the short date and "hh:mm" of
// now, " - ", the author, " -> ", the destination's text.
std::string TransmissionLogText(std::string_view author, std::string_view destination,
                                const LocalDateTime& now);

// The log text of a backup story restored over its story: the short date and "hh:mm" of now,
// " - ", StoryBackupLabel, " -> ", StoryLabel, " [", the user's name, "]". Its type is "A".
std::string BackupRestoredLogText(const StoryContext& context, const LocalDateTime& now);
inline constexpr std::string_view kBackupRestoredLogType = "A";

}  // namespace tessarin
