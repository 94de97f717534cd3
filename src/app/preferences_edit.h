#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "session/editor_session.h"

namespace tessarin {

// What the preferences window does to the editor session, without the window. The window
// edits a copy of the session's preferences; OK hands the copy back, Cancel drops it. The
// font button and the highlight colour button store their choice at once, as their keys are
// written by them and not by OK.

// The two steps of the date up-down controls that the window offers.
inline constexpr std::int32_t kDailyStep = 1;
inline constexpr std::int32_t kWeeklyStep = 7;

// The values that the window's number entries accept.
struct IntegerRange {
    std::int32_t minimum;
    std::int32_t maximum;
};
inline constexpr IntegerRange kBackupAutoTimeRange{1, 999};  // minutes
inline constexpr IntegerRange kMonthGridRange{1, 4};         // calendar pop-up rows, columns

// The font entries that the window offers: text boxes 1 to 7 (entries 0 to 6) and the
// teleprompter (entry 8).
inline constexpr std::size_t kOfferedFontEntries[] = {0, 1, 2, 3, 4, 5, 6, kTeleprompterFont};

// Always-suggest and ignore-uppercase are options of the Word checker only (type 0).
bool SpellingOptionsApply(std::int32_t checkSpellingType);

struct PreferencesChoice {
    Preferences preferences;        // the window's copy, taken from the session at opening
    bool clearRecentFiles = false;  // the clear-list button was pressed
};

PreferencesChoice BeginPreferencesChoice(const EditorSession& session);

// OK: the session takes the chosen preferences, which are written to the preferences file
// (every key of the window and UseMRU); a pressed clear-list button then empties the recent
// files, writes the four entries empty and hides their menu rows. False when the file could
// not be written; the session keeps the choice all the same.
bool AcceptPreferences(EditorSession& session, const PreferencesChoice& choice);

struct FontChoice {
    std::string name;
    std::int32_t size = 12;
    bool bold = false;
    bool italic = false;
};

// The font button: entry's font in the session, in the window's copy and in the file.
bool ChooseFont(EditorSession& session, PreferencesChoice& choice, std::size_t entry,
                const FontChoice& font);

// The highlight colour button: ColorInformations in the session, the copy and the file.
bool ChooseHighlightColour(EditorSession& session, PreferencesChoice& choice, OleColour colour);

}  // namespace tessarin
