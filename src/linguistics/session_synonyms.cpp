#include "linguistics/session_synonyms.h"

#include "editing/copy_fit.h"

namespace tessarin {

std::optional<SynonymsDictionary> LoadSessionSynonyms(EditorSession& session) {
    SynonymsLoad load = LoadSynonyms(SynonymsFile(session.configuration, session.paths.appDir));
    if (!load.warning.empty()) session.user.Tell(load.warning, MessageIcon::Exclamation);
    if (!load.usable) {
        session.window.Control("mnuToolsSynonyms").enabled = false;
        return std::nullopt;
    }
    return std::move(load.dictionary);
}

WordRange SynonymsWord(const StyledText& box, std::size_t start, std::size_t length) {
    if (length > 0) return {start, length};
    const std::size_t from = start > 64 ? start - 64 : 0;
    const std::u16string around = box.Text(from, 128);
    const WordRange word = WordAtCaret(around, start - from);
    return {from + word.start, word.length};
}

bool ReplaceBySynonym(EditorSession& session, int box, const WordRange& word,
                      std::u16string_view replacement) {
    return TypeText(session, box, word.start, replacement, word.length).has_value();
}

}  // namespace tessarin
