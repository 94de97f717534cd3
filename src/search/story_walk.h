#pragma once

#include <filesystem>
#include <vector>

namespace tessarin {

// The files of a folder tree in the order the lists show them: the entries of each folder by
// name, and each subfolder walked in its turn where its name comes. With storiesOnly, only
// files with the extension "xml" or "bml" (in any case). A folder that cannot be read is
// passed over without a word; links to folders are not followed, so that a loop cannot trap
// the walk.
std::vector<std::filesystem::path> WalkFolderFiles(const std::filesystem::path& folder,
                                                   bool storiesOnly);

// True for a name whose extension is "xml" or "bml", in any case.
bool IsStoryFileName(const std::filesystem::path& file);

}  // namespace tessarin
