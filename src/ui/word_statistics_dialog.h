#pragma once

#include <QDialog>
#include <memory>

#include "linguistics/word_statistics.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QTextEdit;
class QTreeWidget;

namespace tessarin {

struct EditorSession;

// frmWordStatistics: the words of the open story with their occurrences in lvWords, the
// totals in lblStatus. chkIgnoreEmptyWords leaves the empty words out (kept in the
// preferences), lblEmptyWords edits their list (frmEmptyWordsList), lblUnknownWords marks the
// words that the spelling dictionary does not know and chkDisplayUnknownOnly lists only those.
// cmdAnalyse counts again; a click on a word shows in rtfStory the boxes that hold it with
// each occurrence highlighted. The window opens where it was last left.
class WordStatisticsDialog : public QDialog {
    Q_OBJECT
  public:
    WordStatisticsDialog(EditorSession& session, QWidget* parent);

    void Analyse();
    // Keeps where the window was left.
    void done(int result) override;

  private:
    void ListWords();
    bool MarkUnknownWords();
    void ShowWord(const QString& word);

    EditorSession& session_;
    WordStatistics statistics_;
    bool marked_ = false;
    QTreeWidget* words_;
    QCheckBox* ignoreEmptyWords_;
    QCheckBox* unknownOnly_;
    QLabel* status_;
    QTextEdit* story_;
};

}  // namespace tessarin
