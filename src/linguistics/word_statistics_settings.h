#pragma once

#include "config/profile_file.h"

namespace tessarin {

// The word statistics window's choice to leave the empty words out, kept as IgnoreEmptyWords
// ("1" or "0") in the preferences section WordStatistics; off when missing.
bool IgnoreEmptyWordsChosen(const ProfileFile& profile);
void KeepIgnoreEmptyWords(ProfileFile& profile, bool ignore);

}  // namespace tessarin
