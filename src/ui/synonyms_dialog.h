#pragma once

#include <QDialog>
#include <string>

#include "linguistics/synonyms.h"

class QLineEdit;
class QListWidget;

namespace tessarin {

struct EditorSession;

// frmSynonyms: the synonyms of a word in lstSynonyms; a click takes a line's word into
// txtReplaceBy, a double click also looks that word up. cmdOK accepts with the replacement,
// cmdCancel closes.
class SynonymsDialog : public QDialog {
    Q_OBJECT
  public:
    SynonymsDialog(const EditorSession& session, const SynonymsDictionary& dictionary,
                   const std::string& word, QWidget* parent);

    std::string Replacement() const;

  private:
    void ShowSynonyms(const std::string& word);

    const EditorSession& session_;
    const SynonymsDictionary& dictionary_;
    QListWidget* synonyms_;
    QLineEdit* replaceBy_;
};

}  // namespace tessarin
