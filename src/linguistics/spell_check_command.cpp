#include "linguistics/spell_check_command.h"

#include "editing/copy_fit.h"
#include "linguistics/dictionary_location.h"

namespace tessarin {

SpellingSettings SessionSpellingSettings(const EditorSession& session) {
    SpellingSettings settings;
    settings.language = session.configuration.general.language;
    settings.ignoreUppercase = session.preferences.CheckSpellingIgnoreUppercase;
    settings.alwaysSuggest = session.preferences.CheckSpellingAlwaysSuggest;
    settings.personalDictionary = PersonalDictionaryPath(session.paths.appDir);
    settings.dictionaryFolders = DictionaryFolders();
    return settings;
}

bool SpellingCheckerChosen(const Preferences& preferences) {
    return preferences.CheckSpellingType == 0 || preferences.CheckSpellingType == 1;
}

SpellingOutcome CheckSpelling(EditorSession& session, const SpellingReviewer& reviewer) {
    if (!SpellingCheckerChosen(session.preferences)) return SpellingOutcome::NotRun;
    SpellingBridge bridge;
    if (const std::string problem = bridge.Start(SessionSpellingSettings(session));
        !problem.empty()) {
        session.user.Tell(problem, MessageIcon::Exclamation);
        return SpellingOutcome::Failed;
    }
    bool stopped = false;
    for (int box = 0; box < kTextBoxCount && !stopped; ++box) {
        StyledText& text = session.story.boxes[box];
        if (text.Empty()) continue;
        StyledText corrected = bridge.Correct(text, box, reviewer, stopped);
        if (corrected == text) continue;
        text = std::move(corrected);
        RecountBox(session, box, ChangeOrigin::User);
    }
    if (!bridge.Problem().empty()) session.user.Tell(bridge.Problem(), MessageIcon::Exclamation);
    bridge.Stop();
    session.window.Status() = {session.Message("SpellCheckingTerminated"), false};
    return stopped ? SpellingOutcome::Stopped : SpellingOutcome::Done;
}

}  // namespace tessarin
