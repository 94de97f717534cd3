#include "app/preferences_edit.h"

#include "story/file_operations.h"

namespace tessarin {

bool SpellingOptionsApply(std::int32_t checkSpellingType) {
    return checkSpellingType == 0;
}

PreferencesChoice BeginPreferencesChoice(const EditorSession& session) {
    return PreferencesChoice{session.preferences, false};
}

bool AcceptPreferences(EditorSession& session, const PreferencesChoice& choice) {
    session.preferences = choice.preferences;
    bool written = WritePreferencesDialog(session.profile, session.preferences);
    if (choice.clearRecentFiles) {
        ClearMRU(session.preferences.FileMRU);
        written = WriteRecentFiles(session.profile, session.preferences.FileMRU) && written;
        ShowRecentFiles(session);
    }
    return written;
}

bool ChooseFont(EditorSession& session, PreferencesChoice& choice, std::size_t entry,
                const FontChoice& font) {
    if (entry >= kFontEntries) return false;
    for (Preferences* preferences : {&session.preferences, &choice.preferences}) {
        preferences->FontName[entry] = font.name;
        preferences->FontSize[entry] = font.size;
        preferences->FontBold[entry] = font.bold;
        preferences->FontItalic[entry] = font.italic;
    }
    return WriteFont(session.profile, session.preferences, entry);
}

bool ChooseHighlightColour(EditorSession& session, PreferencesChoice& choice, OleColour colour) {
    session.preferences.ColorInformations = colour;
    choice.preferences.ColorInformations = colour;
    return WriteColorInformations(session.profile, colour);
}

}  // namespace tessarin
