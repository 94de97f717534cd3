#include "tracking/tracking_choices.h"

#include <vector>

#include "config/profile_values.h"

namespace tessarin {

TrackingChoices ReadTrackingChoices(const ProfileFile& profile) {
    const ProfileContents contents = profile.Load();
    const auto flag = [&](std::string_view key) {
        return ReadFlag(contents, kTrackingSection, key, false);
    };
    TrackingChoices choices;
    if (flag("TrackingDispatchByAuthor")) {
        choices.dispatch = TrackingDispatch::ByAuthor;
    } else if (flag("TrackingDispatchByLastSaveAuthor")) {
        choices.dispatch = TrackingDispatch::ByLastSaveAuthor;
    }
    if (flag("TrackingDisplayEditorial")) {
        choices.show = TrackingShow::Editorial;
    } else if (flag("TrackingDisplayLayout")) {
        choices.show = TrackingShow::Layout;
    }
    choices.byForm = flag("TrackingClassifyByForm");
    choices.automaticUpdate = flag("TrackingAutomaticUpdate");
    return choices;
}

bool WriteTrackingChoices(ProfileFile& profile, const TrackingChoices& choices) {
    const std::string section(kTrackingSection);
    const auto entry = [&](const char* key, bool value) {
        return ProfileEntry{section, key, FlagText(value)};
    };
    return profile.Write(std::vector<ProfileEntry>{
        entry("TrackingDispatchByPublicationDate", choices.dispatch == TrackingDispatch::ByDate),
        entry("TrackingDispatchByAuthor", choices.dispatch == TrackingDispatch::ByAuthor),
        entry("TrackingDispatchByLastSaveAuthor",
              choices.dispatch == TrackingDispatch::ByLastSaveAuthor),
        entry("TrackingClassifyByForm", choices.byForm),
        entry("TrackingDisplayAllStories", choices.show == TrackingShow::All),
        entry("TrackingDisplayEditorial", choices.show == TrackingShow::Editorial),
        entry("TrackingDisplayLayout", choices.show == TrackingShow::Layout),
        entry("TrackingAutomaticUpdate", choices.automaticUpdate),
    });
}

}  // namespace tessarin
