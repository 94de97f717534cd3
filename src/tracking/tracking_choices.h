#pragma once

#include "config/profile_file.h"

namespace tessarin {

// The choices of the tracking window's menu, kept in the preferences' TrackingWindow
// section as "1" or "0": TrackingDispatchByPublicationDate, TrackingDispatchByAuthor,
// TrackingDispatchByLastSaveAuthor (the radio entries of the dispatch),
// TrackingClassifyByForm, TrackingDisplayAllStories, TrackingDisplayEditorial,
// TrackingDisplayLayout (the radio entries of the states shown) and TrackingAutomaticUpdate.

enum class TrackingDispatch { ByDate, ByAuthor, ByLastSaveAuthor };
enum class TrackingShow { All, Editorial, Layout };

struct TrackingChoices {
    TrackingDispatch dispatch = TrackingDispatch::ByDate;
    bool byForm = false;
    TrackingShow show = TrackingShow::All;
    bool automaticUpdate = false;
};

inline constexpr std::string_view kTrackingSection = "TrackingWindow";

// The stored choices: a dispatch by author when TrackingDispatchByAuthor is "1", else by last
// author when TrackingDispatchByLastSaveAuthor is, else by date; likewise editorial, then
// layout, else all states.
TrackingChoices ReadTrackingChoices(const ProfileFile& profile);

// Writes every key of the choices; false when the file cannot be written.
bool WriteTrackingChoices(ProfileFile& profile, const TrackingChoices& choices);

}  // namespace tessarin
