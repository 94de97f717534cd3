#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;

namespace tessarin {

struct EditorSession;

// frmEmptyWordsList: the empty words file's words in lstEmptyWords. cmdAddEmptyWord adds
// txtEmptyWord, cmdReplaceEmptyWord puts it in place of the chosen line, cmdRemoveEmptyWord
// removes that line; cmdOK writes the file one word a line, cmdCancel leaves it alone.
class EmptyWordsDialog : public QDialog {
    Q_OBJECT
  public:
    EmptyWordsDialog(EditorSession& session, QWidget* parent);

    void accept() override;

  private:
    EditorSession& session_;
    QListWidget* words_;
    QLineEdit* word_;
};

}  // namespace tessarin
