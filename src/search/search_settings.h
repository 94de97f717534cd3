#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "config/profile_file.h"
#include "search/search_query.h"

namespace tessarin {

// The search window's choices as the preferences keep them, section Configuration.
struct StorySearchSettings {
    std::filesystem::path folder;                         // SearchStoriesInto
    bool includeBackups = false;                          // IncludeBackupStories
    std::vector<std::string> history;                     // Contents0 and up, the latest first
    bool matchCase = false;                               // MatchCase
    SearchScope scope = SearchScope::WholeStory;          // SearchOption
    SearchOperator op = SearchOperator::ExactExpression;  // SearchOperator
};

// How many earlier search texts the history keeps.
inline constexpr std::size_t kSearchHistoryLength = 20;

// A missing key keeps its default; an option or operator out of range reads as the first.
StorySearchSettings ReadStorySearchSettings(const ProfileContents& profile);

// Writes every key in one replacement of the file; false when it cannot be written.
bool WriteStorySearchSettings(ProfileFile& profile, const StorySearchSettings& settings);

// Puts the text at the top of the history, taking it out of where it stood below, and cuts
// the history to its length. An empty text changes nothing.
void RememberSearchText(std::vector<std::string>& history, const std::string& text);

}  // namespace tessarin
