#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QDialog>
#include <functional>

#include "config/character_sets_section.h"
#include "editing/text_selection.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace tessarin {

// frmInsertCharacters: the configured sets in lstCharactersName, the characters of the chosen
// set in lstCharactersSet (in the font of the box they go to), the chosen character's code in
// lblDecimal, cmdOK (or a double click) to put it over the selection, cmdCancel to close, and
// chkUseAltGrForCaps. The window stays open until it is closed, which stores the set chosen.
class InsertCharactersDialog : public QDialog {
    Q_OBJECT
  public:
    // What the window needs of the story panel: the selection of the box the characters go
    // to, and showing that box after an insertion.
    struct Panel {
        std::function<TextSelection()> selection;
        std::function<void(TextSelection)> inserted;
    };

    InsertCharactersDialog(EditorSession& session, Panel panel, QWidget* parent);

  protected:
    void done(int result) override;

  private:
    void ChooseSet(int row);
    void ChooseCharacter();
    void Insert();

    EditorSession& session_;
    Panel panel_;
    CharacterSets sets_;
    QListWidget* names_;
    QListWidget* characters_;
    QLabel* code_;
    QPushButton* ok_;
    QCheckBox* altGr_;
};

}  // namespace tessarin
