#pragma once

#include "linguistics/spelling_bridge.h"
#include "session/editor_session.h"

namespace tessarin {

// The settings of a check for the open session: the configuration's language, the spelling
// preferences, the personal dictionary of the application directory.
SpellingSettings SessionSpellingSettings(const EditorSession& session);

// True when CheckSpellingType asks for a check (0 and 1); any other type does nothing.
bool SpellingCheckerChosen(const Preferences& preferences);

enum class SpellingOutcome { NotRun, Failed, Stopped, Done };

// The spelling command: each box from 0 to 6 that has text goes through the bridge with the
// reviewer's decisions; a box that changed takes the corrected text and is counted again,
// and the story is marked as modified. A checker that cannot start tells why and leaves the
// story as it was. At the end the status bar says SpellCheckingTerminated.
SpellingOutcome CheckSpelling(EditorSession& session, const SpellingReviewer& reviewer);

}  // namespace tessarin
