#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QDialog>
#include <functional>

#include "editing/search_replace.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabBar;

namespace tessarin {

// frmSearch: search and replace through all text boxes as one run, with the tabs of
// TabStripSearchReplace (search, replace), txtSearch, txtReplace, chkMatchCase, chkWholeWord,
// lblSearchAll and the buttons cmdFollowing, cmdReplace, cmdReplaceAll, cmdSearchAll and
// cmdCancel. It stays open beside the story; the story panel shows the hits it selects.
class SearchDialog : public QDialog {
    Q_OBJECT
  public:
    // What the dialog needs of the story panel: the selection of the active box, showing a
    // hit selected in its box, and showing the boxes again after a change.
    struct Panel {
        std::function<TextSelection()> selection;
        std::function<void(const TextSelection&)> reveal;
        std::function<void()> changed;
    };

    SearchDialog(EditorSession& session, Panel panel, QWidget* parent);

    // Opens on the search tab (0) or the replace tab (1) with the stored values.
    void Open(int tab);

    // cmdFollowing, also for the menu's next occurrence.
    void FindNext();

    // The box being searched while the window is open, else kNoBox.
    int SearchedBox() const;

  protected:
    void done(int result) override;

  private:
    SearchOptions Options() const;
    void Restart();
    void Replace();
    void ReplaceAll();
    void SearchAll();
    void ShowTab(int tab);

    EditorSession& session_;
    Panel panel_;
    SearchRun run_;
    QTabBar* tabs_;
    QLineEdit* search_;
    QLineEdit* replace_;
    QCheckBox* matchCase_;
    QCheckBox* wholeWord_;
    QLabel* searchAllCount_;
    QPushButton* replaceButton_;
    QPushButton* replaceAllButton_;
};

}  // namespace tessarin
