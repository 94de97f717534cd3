#include "linguistics/word_statistics_settings.h"

namespace tessarin {

bool IgnoreEmptyWordsChosen(const ProfileFile& profile) {
    return profile.Read("WordStatistics", "IgnoreEmptyWords") == "1";
}

void KeepIgnoreEmptyWords(ProfileFile& profile, bool ignore) {
    profile.Write("WordStatistics", "IgnoreEmptyWords", ignore ? "1" : "0");
}

}  // namespace tessarin
