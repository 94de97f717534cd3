#pragma once

#include "ui/editor_session_qt.h"  // first: before any header that includes the session

#include <QTreeWidget>
#include <functional>

#include "editing/text_selection.h"

namespace tessarin {

// treeClipboard: the snippets of the multiple clipboard under their root. A double click on a
// snippet puts it over the selection of the active box, Del (or the context menu) removes the
// chosen snippet, or all of them from the root, after a question.
class ClipboardTree : public QTreeWidget {
    Q_OBJECT
  public:
    // What the tree needs of the story panel: the selection of the active box, and putting
    // a snippet there (the panel shows the outcome).
    struct Panel {
        std::function<TextSelection()> selection;
        std::function<void(TextSelection)> inserted;
    };

    ClipboardTree(EditorSession& session, Panel panel, QWidget* parent);

    // Reads the list file again.
    void Refresh();

    // Ctrl+F1 to Ctrl+F6 and the double click: entry 1 is the first snippet.
    void Insert(std::size_t entry);
    // The copy command: the active box's selection becomes a snippet.
    void CopySelection();
    void RemoveChosen();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    EditorSession& session_;
    Panel panel_;
};

}  // namespace tessarin
