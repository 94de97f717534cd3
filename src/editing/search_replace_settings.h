#pragma once

#include <string>

#include "config/profile_file.h"

namespace tessarin {

// What frmSearch shows when it opens and stores when it closes: section SearchReplace of the
// preferences, keys Search, Replace, MatchCase and WholeWord ("1" or "0").
struct SearchSettings {
    std::string search;
    std::string replace;
    bool matchCase = false;
    bool wholeWord = false;

    friend bool operator==(const SearchSettings&, const SearchSettings&) = default;
};

SearchSettings ReadSearchSettings(const ProfileFile& profile);
bool WriteSearchSettings(ProfileFile& profile, const SearchSettings& settings);

}  // namespace tessarin
