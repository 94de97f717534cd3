#pragma once

#include <QDialog>
#include <vector>

#include "search/my_stories.h"
#include "search/search_cache.h"
#include "ui/window_placement.h"

class QCheckBox;
class QLabel;
class QTextEdit;
class QTreeWidget;

namespace tessarin {

struct EditorSession;

// frmMyStories: the files of PersonalTextsDirectory and PersonalArchivesDirectory in
// lvStories (backup stories with chkIncludeBackupStories), counted in lblCount, previewed in
// rtfStory. cmdOpen (or a double click) opens a story, imports a document or hands any other
// file to the desktop; cmdArchives moves the selected file between the two directories;
// cmdRemove puts the selected files in the desktop's trash; cmdXML shows a story file's raw
// text; lblSearchStories opens the search window.
class MyStoriesDialog : public QDialog {
    Q_OBJECT
  public:
    MyStoriesDialog(EditorSession& session, QWidget* parent);

    // Fills the list from the two directories.
    void GetStories();

  private:
    const DeskFile* Selected() const;
    void OpenSelected();
    void MoveSelected();
    void RemoveSelected();
    void ShowRawFile();
    void done(int result) override;

    EditorSession& session_;
    SearchCache cache_;
    std::vector<DeskFile> files_;
    QCheckBox* includeBackups_;
    QTreeWidget* stories_;
    QTextEdit* preview_;
    QLabel* count_;
    WindowPlacementKeys placement_;
};

}  // namespace tessarin
