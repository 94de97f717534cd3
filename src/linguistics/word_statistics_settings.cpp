#include "linguistics/word_statistics_settings.h"

#include <string>

#include "common/number_parse.h"

namespace tessarin {

bool IgnoreEmptyWordsChosen(const ProfileFile& profile) {
    return profile.Read("WordStatistics", "IgnoreEmptyWords") == "1";
}

void KeepIgnoreEmptyWords(ProfileFile& profile, bool ignore) {
    profile.Write("WordStatistics", "IgnoreEmptyWords", ignore ? "1" : "0");
}

std::optional<std::pair<int, int>> WordStatisticsPosition(const ProfileFile& profile) {
    const std::optional<std::string> left = profile.Read("WordStatistics", "Left");
    const std::optional<std::string> top = profile.Read("WordStatistics", "Top");
    if (!left || !top || !IsNumeric(*left) || !IsNumeric(*top)) return std::nullopt;
    return std::pair(ParseLeadingInteger(*left), ParseLeadingInteger(*top));
}

void KeepWordStatisticsPosition(ProfileFile& profile, int left, int top) {
    profile.Write("WordStatistics", "Left", std::to_string(left));
    profile.Write("WordStatistics", "Top", std::to_string(top));
}

}  // namespace tessarin
