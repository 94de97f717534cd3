#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tessarin {

// The whole content of a file; nothing when it cannot be opened or read.
std::optional<std::string> ReadFileBytes(const std::filesystem::path& file);

// Writes the bytes so that the file is never left half-written: they go to a new file in
// the same directory, are flushed to disk, then that file is renamed over the target. An
// existing target keeps its permission bits; a target without any write permission bit
// (read-only) is not replaced. False when anything fails; the target is then untouched.
bool WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes);

// The same, without waiting for the disk: the file is still never seen half-written, and
// the file system's ordering of a rename after the data it replaces is all the safety
// against a power cut. For files that a batch writes by the hundred (staged and exported
// copies, log entries), where a flush per file would cost more than the copies themselves.
bool WriteFileReplacing(const std::filesystem::path& file, std::string_view bytes);

}  // namespace tessarin
