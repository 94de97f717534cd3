#pragma once

#include <QDialog>

class QPushButton;
class QTabBar;
class QTreeWidget;

namespace tessarin {

struct EditorSession;

// frmListLogs: the open story's logs in lvLogs, in file order on the tab LogsSort and in
// reverse on the tab LogsRevertSort (of the tab strip TabStripLogs; the choice is kept), each
// entry in the colour of its type on the logs' background colour. cmdClearLogs, there when
// the configuration allows it, clears them after its question; cmdCancel closes.
class ListLogsDialog : public QDialog {
    Q_OBJECT
  public:
    ListLogsDialog(EditorSession& session, QWidget* parent);

  private:
    void Refresh();

    EditorSession& session_;
    QTabBar* tabs_;
    QTreeWidget* logs_;
    QPushButton* clear_;
};

}  // namespace tessarin
