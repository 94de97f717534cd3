#include "search/search_settings.h"

#include <algorithm>

#include "config/preferences.h"
#include "config/profile_values.h"

namespace tessarin {
namespace {

std::string HistoryKey(std::size_t index) {
    return "Contents" + std::to_string(index);
}

template <typename Choice>
Choice ChoiceOf(std::int32_t value, int count) {
    return static_cast<Choice>(value >= 0 && value < count ? value : 0);
}

}  // namespace

StorySearchSettings ReadStorySearchSettings(const ProfileContents& profile) {
    const std::string_view section = kConfigurationSection;
    StorySearchSettings settings;
    settings.folder = ReadText(profile, section, "SearchStoriesInto", "");
    settings.includeBackups = ReadFlag(profile, section, "IncludeBackupStories", false);
    settings.matchCase = ReadFlag(profile, section, "MatchCase", false);
    settings.scope = ChoiceOf<SearchScope>(ReadInteger(profile, section, "SearchOption", 0), 4);
    settings.op = ChoiceOf<SearchOperator>(ReadInteger(profile, section, "SearchOperator", 0), 3);
    for (std::size_t index = 0; index < kSearchHistoryLength; ++index) {
        const std::optional<std::string> text = profile.Read(section, HistoryKey(index));
        if (!text) break;
        settings.history.push_back(*text);
    }
    return settings;
}

bool WriteStorySearchSettings(ProfileFile& profile, const StorySearchSettings& settings) {
    const std::string section(kConfigurationSection);
    std::vector<ProfileEntry> entries = {
        {section, "SearchStoriesInto", settings.folder.string()},
        {section, "IncludeBackupStories", FlagText(settings.includeBackups)},
        {section, "MatchCase", FlagText(settings.matchCase)},
        {section, "SearchOption", std::to_string(static_cast<int>(settings.scope))},
        {section, "SearchOperator", std::to_string(static_cast<int>(settings.op))},
    };
    for (std::size_t index = 0; index < settings.history.size(); ++index)
        entries.push_back({section, HistoryKey(index), settings.history[index]});
    return profile.Write(entries);
}

void RememberSearchText(std::vector<std::string>& history, const std::string& text) {
    if (text.empty()) return;
    std::erase(history, text);
    history.insert(history.begin(), text);
    if (history.size() > kSearchHistoryLength) history.resize(kSearchHistoryLength);
}

}  // namespace tessarin
