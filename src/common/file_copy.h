#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tessarin {

// Deliveries into folders that others read while they are written (inboxes, delivery
// folders): the bytes go to a new file beside the target, which is then renamed over it, so
// that a reader never sees a half-written file, and a delivery that fails (a missing folder,
// a full disk, a read-only file system) leaves the target as it was and no file beside it.
// Each returns the reason of a failure in the system's words, empty when the file is there.

// Copies source over target.
std::string CopyFileWhole(const std::filesystem::path& source, const std::filesystem::path& target);

// Puts source at target as a second name of the same file where both lie on one file system
// (nothing is copied, and removing the source afterwards frees nothing), else copies it as
// CopyFileWhole does. For a file that is removed once it has arrived, and never written in
// place by anyone.
std::string LinkOrCopyFile(const std::filesystem::path& source,
                           const std::filesystem::path& target);

// Writes bytes over target.
std::string WriteFileWhole(const std::filesystem::path& target, std::string_view bytes);

}  // namespace tessarin
