#pragma once

#include <QDialog>

#include "transmission/receive_window.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tessarin {

struct EditorSession;
class SessionTreeWidget;

// frmReceive, and frmIntercept for the stories of intercepted users: the waiting stories in
// treeReceive, the preview txtStory and txtLastLog below, the buttons cmdGet, cmdGetAndOpen,
// cmdGetAll (receive only) and cmdCancel, and the status panel with the number of waiting
// stories. A story taken and opened closes the window.
class ReceiveDialog : public QDialog {
    Q_OBJECT
  public:
    ReceiveDialog(EditorSession& session, ReceiveKind kind, QWidget* parent);

    const ReceiveWindow& State() const { return window_; }

  private:
    void Connect();
    void Refresh();

    EditorSession& session_;
    ReceiveWindow window_;

    SessionTreeWidget* tree_;
    QPlainTextEdit* story_;
    QPlainTextEdit* lastLog_;
    QPushButton* get_;
    QPushButton* getAndOpen_;
    QPushButton* getAll_;
    QPushButton* cancel_;
    QLabel* panel_;
};

}  // namespace tessarin
