#pragma once

#include <QKeySequence>
#include <QObject>
#include <QString>
#include <map>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

namespace tessarin {

struct EditorSession;

// The main window's menus and tool bars. Every menu entry is a QAction named "mnu" + its
// Interface key, every tool-bar button a QAction named by its key word ("Print"), every
// tool-bar separator by its own ("SepPrint"); a button triggers the menu entry it stands for,
// so that one handler serves both. Captions, tool tips, visibility, enabled and checked
// states come from the session's window state; a control without a configured caption keeps
// its design-time one. Menu entries carry the desktop's standard shortcuts for their command,
// or those that the configuration's Interface entry sets (Shortcut).
class WindowChrome : public QObject {
    Q_OBJECT
  public:
    explicit WindowChrome(QMainWindow& window);

    // The menu entry of an Interface key ("FileNew"), of a recent-files row ("FileMRU1") or
    // their separator ("SepMRU"); null when the window has none.
    QAction* Entry(const QString& key) const;

    // Shows the session's window state.
    void Refresh(const EditorSession& session);

  signals:
    // A recent-files row was chosen: index 0 is mnuFileMRU1.
    void recentFileChosen(int index);

  private:
    void BuildMenus(QMainWindow& window);
    void BuildToolbars(QMainWindow& window);
    void AddRecentFileRows(QMenu& menu);

    void ShowShortcuts(const EditorSession& session);

    std::map<QString, QAction*> entries_;  // by key
    std::map<QAction*, QKeySequence::StandardKey> standardShortcuts_;
    std::vector<QAction*> buttons_;  // tool-bar buttons and separators
    std::vector<QToolBar*> toolbars_;
};

}  // namespace tessarin
