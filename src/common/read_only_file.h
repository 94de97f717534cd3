#pragma once

#include <filesystem>

namespace tessarin {

// Read-only, on this system, means a regular file without any write permission bit; making
// a file writable again ("set to archive") gives its owner the write permission back.
// Failures are passed over: the callers go on whatever the attribute.

bool IsReadOnlyFile(const std::filesystem::path& file);
void MakeReadOnly(const std::filesystem::path& file);
void MakeWritable(const std::filesystem::path& file);

}  // namespace tessarin
