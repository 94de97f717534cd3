#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QTreeWidget>
#include <functional>
#include <optional>

#include "editing/text_selection.h"

class QDialog;

namespace tessarin {

// treeNotes: the story's notes under the root "N1", bookmarks on the bookmark colour, foreign
// notes in grey. Its context menu adds (mnuPopupNoteAdd), changes (mnuPopupNoteModify, or a
// double click), removes (mnuPopupNoteRemove) and sorts (mnuPopupNoteSorted) notes; a click
// on a bookmark selects its anchor in the text. frmNote, with txtNote, cmdRemove and
// cmdCancel, shows a note's text; closing it keeps the text.
class NotesTree : public QTreeWidget {
    Q_OBJECT
  public:
    // What the tree needs of the story panel: the selection a note is added at (nothing: a
    // plain note), showing a selection in its box, and showing the boxes again.
    struct Panel {
        std::function<std::optional<TextSelection>()> selection;
        std::function<void(const TextSelection&)> reveal;
        std::function<void()> changed;
    };

    NotesTree(EditorSession& session, Panel panel, QWidget* parent);

    void Refresh();

    // mnuPopupNoteAdd / mnuPopupAddNote: a note, a bookmark when fromSelection and the text
    // has a selection; frmNote opens on it.
    void AddNote(bool fromSelection);
    void ChangeNote(std::size_t note);
    void RemoveNote(std::size_t note);

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    std::optional<std::size_t> NoteOf(const QTreeWidgetItem* item) const;
    void OpenNote(std::size_t note, bool isNew);

    EditorSession& session_;
    Panel panel_;
    QDialog* noteWindow_ = nullptr;
};

}  // namespace tessarin
