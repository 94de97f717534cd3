#pragma once

#include <filesystem>

namespace tessarin {

// The temporary files that a write puts beside its target before renaming them over it:
// the target's name, ".tmp", the writing process's id, "-" and a number of that process
// ("story.xml.tmp4242-0"). A process killed while writing leaves its file behind.

// A new name of that form beside the file, that no other writer (thread or process) picks
// at the same time.
std::filesystem::path TemporaryNameBeside(const std::filesystem::path& file);

// Removes the temporary files beside the file (named after it) whose process no longer
// runs. Files of a process that still runs, this one included, are left alone.
void RemoveStaleTemporaryFilesOf(const std::filesystem::path& file);

// The same for every temporary file of that form in the folder, whatever its target.
void RemoveStaleTemporaryFilesIn(const std::filesystem::path& folder);

}  // namespace tessarin
