#pragma once

#include <QDialog>
#include <QEventLoop>

#include "linguistics/spelling_bridge.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace tessarin {

struct EditorSession;

// frmSpelling: the spelling checker's questions, one unknown word at a time. lblBox names the
// box, txtNotInDictionary holds the word and txtContext shows it in its sentence, lstSuggestions
// the dictionary's suggestions and txtChangeTo the replacement (the first suggestion to begin
// with). cmdChange, cmdIgnore, cmdIgnoreAll, cmdAddToDictionary answer; cmdSuggest asks for
// suggestions when the preferences do not always suggest; cmdCancel (or closing) stops the check.
class SpellingDialog : public QDialog {
    Q_OBJECT
  public:
    SpellingDialog(const EditorSession& session, QWidget* parent);

    // Shows the question and waits for the user's answer.
    SpellingDecision Review(const SpellingQuestion& question);

  protected:
    void reject() override;

  private:
    void Answer(SpellingAction action);
    void ShowSuggestions(const std::vector<std::u16string>& suggestions);

    const EditorSession& session_;
    QLabel* box_;
    QLineEdit* word_;
    QTextEdit* context_;
    QListWidget* suggestions_;
    QLineEdit* changeTo_;
    QPushButton* suggest_;
    QEventLoop answered_;
    SpellingDecision decision_;
    const SpellingQuestion* question_ = nullptr;
};

}  // namespace tessarin
