#pragma once

#include <optional>
#include <string>

#include "linguistics/synonyms.h"
#include "session/editor_session.h"

namespace tessarin {

// LoadSynonyms for the session, at the end of a configuration load: the dictionary that the
// configuration names is read; a warning is told; a missing dictionary disables
// mnuToolsSynonyms and gives nothing.
std::optional<SynonymsDictionary> LoadSessionSynonyms(EditorSession& session);

// The word that the synonyms command takes in a box: the selection when there is one,
// otherwise the word around the caret (WordAtCaret).
WordRange SynonymsWord(const StyledText& box, std::size_t start, std::size_t length);

// cmdOK of the synonyms window: the word's range in the box is replaced by the replacement
// as typing over it would be. False when the replacement is refused (a note's anchor, a
// read-only main box).
bool ReplaceBySynonym(EditorSession& session, int box, const WordRange& word,
                      std::u16string_view replacement);

}  // namespace tessarin
