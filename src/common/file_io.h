#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace tessarin {

// Writes every byte to an open file, again after an interrupted or partial write; the
// system's error of the first write that failed.
std::error_code WriteAllBytes(int descriptor, std::string_view bytes);

// The whole content of a file; nothing when it cannot be opened or read.
std::optional<std::string> ReadFileBytes(const std::filesystem::path& file);

// Writes the bytes so that the file is never left half-written: they go to a new file in
// the same directory, are flushed to disk, then that file is renamed over the target. An
// existing target keeps its permission bits; a target without any write permission bit
// (read-only) or that is no regular file is not replaced. False when anything fails; the
// target is then untouched. Temporary files that a killed writer left beside the target
// (temporary_files.h) are removed first.
bool WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes);

struct ReplaceResult {
    bool written = false;     // the target holds the new bytes
    bool backupKept = false;  // the backup name holds the target's previous content
};

// As WriteFileAtomically, and the target's previous content is kept under the name backup,
// replacing what stood there: once the new bytes are on disk, the backup is made from the
// old file (a hard link, or a copy where the folder allows no link), then the new file is
// renamed over the target. So the target holds its complete old or its complete new
// content at every instant, and the backup name a complete file or nothing new. A target
// that does not exist yet has nothing to keep; a backup that cannot be made leaves the one
// before and does not stop the write.
ReplaceResult WriteFileKeepingBackup(const std::filesystem::path& file, std::string_view bytes,
                                     const std::filesystem::path& backup);

// As WriteFileAtomically, without waiting for the disk: the file is still never seen
// half-written, and
// the file system's ordering of a rename after the data it replaces is all the safety
// against a power cut. For files that a batch writes by the hundred (staged and exported
// copies, log entries), where a flush per file would cost more than the copies themselves,
// and so would looking through the folder for stale temporary files at each write.
bool WriteFileReplacing(const std::filesystem::path& file, std::string_view bytes);

}  // namespace tessarin
