#pragma once

#include <QDialog>

#include "tracking/tracking_message.h"
#include "tracking/tracking_window.h"
#include "ui/window_placement.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QTabBar;

namespace tessarin {

struct EditorSession;
class SessionTreeWidget;

// frmTracking: the choices in its menu (mnuDispatchBy..., mnuClassifyByForm, mnuDisplay...,
// mnuAutomaticUpdate), the search lstTxtSearch with chkMatchCase and cmdUpdate, the tree
// treeTracking with its counts lblTreeTracking, and the story display: lblTxtCreation,
// lblTxtLastSave, lblTxtLastAuthor, txtStory, the logs lstLogs under TabStripLogs, and
// Image1. A right click on a date or a story offers the pop-up entries mnuPopupDeleteStories,
// mnuPopupDeleteAllStories and mnuPopupSendMessage. The window's size and position are kept
// in the preferences' TrackingWindow section.
class TrackingDialog : public QDialog {
    Q_OBJECT
  public:
    TrackingDialog(EditorSession& session, QWidget* parent);

    const TrackingWindow& State() const { return window_; }

    // The pop-up menu as a right click on the node of key shows it.
    QMenu* PopupFor(const std::string& key);

  protected:
    void done(int result) override;

  private:
    QWidget* BuildDisplay();
    void BuildMenu();
    void Connect();
    void Choose(const TrackingChoices& choices);
    void Update();
    void Refresh();
    void ShowLogs();
    void SendMessage();

    EditorSession& session_;
    TrackingWindow window_;

    SessionTreeWidget* tree_;
    QLabel* counts_;
    QComboBox* search_;
    QCheckBox* matchCase_;
    QPushButton* update_;
    QPlainTextEdit* story_;
    QTabBar* logTabs_;
    QListWidget* logs_;
    QLabel* image_;
    QLabel* waiting_;
    QMenu* popup_;
    WindowPlacementKeys placement_;
    std::vector<QAction*> choiceEntries_;
};

// frmTrackingMessage: lblTxtFrom, lblTxtTo, lblTxtDate, lblTxtStory under their labels,
// txtMessage, and the buttons cmdOK (send, or remove the message read), cmdOpen (open the
// story the message speaks of) and cmdCancel.
class TrackingMessageDialog : public QDialog {
    Q_OBJECT
  public:
    TrackingMessageDialog(EditorSession& session, MessageWindow window, QWidget* parent);

    const MessageWindow& State() const { return window_; }

  private:
    EditorSession& session_;
    MessageWindow window_;
};

}  // namespace tessarin
