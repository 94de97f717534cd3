#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "config/profile_file.h"

namespace tessarin {

inline constexpr std::string_view kFileMRUSection = "FileMRU";
inline constexpr std::size_t kRecentFileCount = 4;

// The recent-files list of the File menu, kept in section FileMRU: File1 (the most recent) to
// File4, and the UseMRU flag that turns the list off. An empty entry has no menu row.
struct RecentFiles {
    bool UseMRU = true;
    std::array<std::string, kRecentFileCount> File;  // File[0] is File1

    bool operator==(const RecentFiles&) const = default;
};

RecentFiles ReadRecentFiles(const ProfileContents& profile);

// Puts a story that was opened or saved at the top of the list. Nothing happens when the list
// is off or when the file's extension, in upper case, is not "XML". A path already in the
// list (compared exactly as it stands) moves to the top, and those above it move down one
// place; a new path pushes every entry down one place and the last one falls out. True when
// the list took the path, which is then to be written back with WriteRecentFiles.
bool UpdateMRU(RecentFiles& list, std::string_view path);

// Empties the four entries; written back with WriteRecentFiles, they are stored empty.
void ClearMRU(RecentFiles& list);

// Writes File1 to File4. False, silently, when the file cannot be written.
bool WriteRecentFiles(ProfileFile& profile, const RecentFiles& list);

// The text of an entry's menu row: its file name, the part after the last "\" or "/".
std::string RecentFileDisplayName(std::string_view path);

// The separator above the list shows while at least one entry is not empty.
bool RecentFilesSeparatorVisible(const RecentFiles& list);

}  // namespace tessarin
