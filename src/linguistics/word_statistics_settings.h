#pragma once

#include <optional>
#include <utility>

#include "config/profile_file.h"

namespace tessarin {

// The word statistics window's choice to leave the empty words out, kept as IgnoreEmptyWords
// ("1" or "0") in the preferences section WordStatistics; off when missing.
bool IgnoreEmptyWordsChosen(const ProfileFile& profile);
void KeepIgnoreEmptyWords(ProfileFile& profile, bool ignore);

// Where the window was last left (Left and Top of the same section); nothing until both are
// kept as numbers.
std::optional<std::pair<int, int>> WordStatisticsPosition(const ProfileFile& profile);
void KeepWordStatisticsPosition(ProfileFile& profile, int left, int top);

}  // namespace tessarin
