// The story panel: the spelling check and the synonyms.

#include "ui/story_panel.h"

#include "linguistics/session_synonyms.h"
#include "linguistics/spell_check_command.h"
#include "ui/spelling_dialog.h"
#include "ui/synonyms_dialog.h"
#include "ui/window_state_binding.h"

namespace tessarin {

void StoryPanel::CheckSpelling() {
    SpellingDialog dialog(session_, this);
    const SpellingOutcome outcome = tessarin::CheckSpelling(
        session_, [&dialog](const SpellingQuestion& question) { return dialog.Review(question); });
    if (outcome == SpellingOutcome::NotRun || outcome == SpellingOutcome::Failed) return;
    ShowAllBoxes();
    Changed();
}

void StoryPanel::LoadSynonyms() {
    synonyms_ = LoadSessionSynonyms(session_);
}

void StoryPanel::ShowSynonyms() {
    const int box = session_.activeBox;
    if (!synonyms_ || box < 0 || box >= kTextBoxCount) return;
    const TextSelection selection = SelectionOf(box);
    const StyledText& text = session_.story.boxes[static_cast<std::size_t>(box)];
    const WordRange word = SynonymsWord(text, selection.start, selection.length);
    SynonymsDialog dialog(session_, *synonyms_,
                          ToUtf8(QString::fromStdU16String(text.Text(word.start, word.length))),
                          this);
    if (dialog.exec() != QDialog::Accepted) return;
    const std::string replacement = dialog.Replacement();
    if (replacement.empty() ||
        !ReplaceBySynonym(session_, box, word,
                          QString::fromStdString(replacement).toStdU16String()))
        return;
    ShowAllBoxes();
    Changed();
}

}  // namespace tessarin
