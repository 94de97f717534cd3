#include "editing/search_replace_settings.h"

#include <string_view>
#include <vector>

#include "config/profile_values.h"

namespace tessarin {
namespace {

constexpr std::string_view kSection = "SearchReplace";

}  // namespace

SearchSettings ReadSearchSettings(const ProfileFile& profile) {
    const ProfileContents contents = profile.Load();
    return {ReadText(contents, kSection, "Search", ""), ReadText(contents, kSection, "Replace", ""),
            ReadFlag(contents, kSection, "MatchCase", false),
            ReadFlag(contents, kSection, "WholeWord", false)};
}

bool WriteSearchSettings(ProfileFile& profile, const SearchSettings& settings) {
    const std::string section(kSection);
    return profile.Write(std::vector<ProfileEntry>{
        {section, "Search", settings.search},
        {section, "Replace", settings.replace},
        {section, "MatchCase", FlagText(settings.matchCase)},
        {section, "WholeWord", FlagText(settings.wholeWord)},
    });
}

}  // namespace tessarin
