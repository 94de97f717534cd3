#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tracking/tracked_story.h"

namespace tessarin {

// The tracking copies of a folder as the last update read them. An update lists the folder;
// a file whose name, size and modification time are those of the earlier reading is taken
// from it, the others are read again, in parallel. A file that does not load (half-copied,
// not XML) is left out until it changes.
class TrackingCache {
  public:
    struct Entry {
        std::string name;
        std::shared_ptr<const TrackedStory> story;  // null for a file that does not load
    };

    // The folder's regular files in name order, each with what was read of it; withText: with
    // the plain text of the boxes, which a reading made without it is read again for.
    std::vector<Entry> Refresh(const std::filesystem::path& folder, int titleBox, bool withText);

    // Forgets everything: the next refresh reads every file.
    void Clear() { known_.clear(); }

  private:
    struct Known {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type modified;
        int titleBox = 0;
        bool withText = false;
        std::shared_ptr<const TrackedStory> story;
    };
    std::map<std::string, Known, std::less<>> known_;
};

}  // namespace tessarin
