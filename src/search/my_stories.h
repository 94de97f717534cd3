#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/user_interaction.h"
#include "config/messages_section.h"
#include "search/search_cache.h"
#include "search/story_row.h"

namespace tessarin {

// One file of the desk drawer: a story with its columns, or any other file with its name
// alone.
struct DeskFile {
    StoryRow row;
    bool story = false;
    bool archived = false;  // in the archives directory rather than the personal one
};

// The files of the personal directory, then those of the archives directory, each walked with
// its subfolders in the walk's order. Backup stories are left out unless included. A story
// file that does not parse is left out, and told: "Parsing error:", the path, a line break,
// "line:", the line, ", pos:", the position. An empty directory name gives no rows.
std::vector<DeskFile> GetDeskFiles(const std::filesystem::path& personal,
                                   const std::filesystem::path& archives, bool includeBackups,
                                   SearchCache& cache, UserInteraction& user);

// Moves the file between the two directories: one of the personal directory goes to the
// archives, and the other way round, under the same name. When that name is taken there, the
// question StoryAlreadyPresent " '" name "'", a line break, StoryBackupReplace; anything but
// Yes stops. The copy is made writable and the source deleted. False when nothing moved.
bool MoveBetweenDesks(const DeskFile& file, const std::filesystem::path& personal,
                      const std::filesystem::path& archives, const MessageTexts& messages,
                      UserInteraction& user);

}  // namespace tessarin
