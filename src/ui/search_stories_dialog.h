#pragma once

#include <QDialog>
#include <memory>
#include <thread>

#include "search/search_cache.h"
#include "search/search_settings.h"
#include "search/story_search.h"
#include "ui/window_placement.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTextEdit;
class QTreeWidget;

namespace tessarin {

struct EditorSession;

// frmSearchStories: searches the folder lblFolder (chosen with cmdBrowse) for the text of
// lstTxtSearch, in the scope optSearch0 to optSearch3, with the operator optOperator0 to
// optOperator2 and chkMatchCase; lists the hits in lvStories (backup stories only with
// chkIncludeBackupStories), previews the one clicked in rtfStory with the search words
// highlighted, and opens it with cmdOpen or a double click. The search runs off the window's
// thread, with pbSearch showing how far it is, and cmdSearch disabled until it ends.
class SearchStoriesDialog : public QDialog {
    Q_OBJECT
  public:
    SearchStoriesDialog(EditorSession& session, QWidget* parent);
    ~SearchStoriesDialog() override;

    // True while a search runs.
    bool Searching() const { return worker_.joinable(); }

  signals:
    void searchFinished();

  private:
    void Search();
    void ShowProgress(qulonglong done, qulonglong total);
    void ShowResults();
    void FillList();
    void Preview();
    void OpenSelected();
    void StoreSettings();
    void done(int result) override;

    EditorSession& session_;
    StorySearchSettings settings_;
    SearchQuery query_;
    SearchCache cache_;
    StorySearchResult result_;
    std::jthread worker_;

    QLabel* folder_;
    QComboBox* text_;
    QRadioButton* scopes_[4];
    QRadioButton* operators_[3];
    QCheckBox* matchCase_;
    QCheckBox* includeBackups_;
    QPushButton* search_;
    QTreeWidget* stories_;
    QTextEdit* preview_;
    QLabel* found_;
    QLabel* allSelected_;
    QProgressBar* progress_;
    WindowPlacementKeys placement_;
};

}  // namespace tessarin
