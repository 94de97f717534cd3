#pragma once

#include <QObject>

class QLabel;
class QStatusBar;
class QSystemTrayIcon;
class QTimer;
class QWidget;

namespace tessarin {

struct EditorSession;

// The main window's inbox watcher: Timer1 makes a pass of CheckInbox every five seconds;
// while stories wait, Timer2 blinks the tray icon every 300 ms (where the desktop has no
// tray, the status bar's waiting sign lblWaitingSign stands in for it), and the receive entry
// and button are enabled. A message in the author's inbox opens frmTrackingMessage in its
// reading mode, and comes back at the next pass while it is not removed.
class InboxWatcher : public QObject {
    Q_OBJECT
  public:
    InboxWatcher(EditorSession& session, QStatusBar& statusBar, QWidget& window);
    ~InboxWatcher() override;

    // Starts Timer1 when the Workflow section is visible, and makes a first pass.
    void Start();

    // Timer1 is off while frmReceive or frmIntercept is open.
    void Pause();
    void Resume();

    // One pass.
    void Check();

    bool SignShown() const;

  signals:
    // A pass changed what the main window shows (the receive entry, the story opened).
    void changed();

  private:
    void Blink();
    void ShowWaiting(int count);

    EditorSession& session_;
    QWidget& window_;
    QTimer* poll_;
    QTimer* blink_;
    QSystemTrayIcon* tray_;
    QLabel* sign_;
    bool alternate_ = false;
    bool reading_ = false;
};

}  // namespace tessarin
