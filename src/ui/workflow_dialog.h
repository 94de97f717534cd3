#pragma once

#include <QDialog>

#include "transmission/story_control.h"
#include "transmission/workflow_window.h"

class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QRadioButton;
class QPushButton;
class QStatusBar;
class QTabBar;
class QTextEdit;

namespace tessarin {

struct EditorSession;
class SessionTreeWidget;

// frmWorkflow: the send window. The stories tab (TabSend 1) shows the send list treeUpload
// in the frame FrameStories with its counters, the buttons cmdAddCurrent, cmdAddStory and
// cmdRemoveStory, the options optControl0 / optControl1, the limits lblControl and the help
// frame FrameHelp; the message tab (TabSend 2) shows txtMessage instead. On the right the
// destinations treeUsers with optPreferred0 / optPreferred1; below, txtStory (the preview of
// the chosen node, then the report of a send) and Image1 (a picture's preview), cmdUpload,
// cmdCancel and the status panel. Every gesture goes to the core's send window and the
// dialog shows what it holds. An edit question answered Yes opens the story in the editor
// on the view named, and closes the window.
class WorkflowDialog : public QDialog {
    Q_OBJECT
  public:
    WorkflowDialog(EditorSession& session, QWidget* parent);

    const WorkflowWindow& State() const { return window_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* BuildList();
    QWidget* BuildDestinations();
    void Connect();
    void Refresh();
    void ShowPreview();
    void ShowReport();
    void Added(const AddResult& result);
    void Send();

    EditorSession& session_;
    WorkflowWindow window_;
    int beepsShown_ = 0;

    QTabBar* tabs_;
    SessionTreeWidget* upload_;
    SessionTreeWidget* users_;
    QGroupBox* stories_;
    QWidget* help_;
    QLabel* limits_;
    QPushButton* addCurrent_;
    QPushButton* addStory_;
    QPushButton* remove_;
    QPushButton* send_;
    QPushButton* cancel_;
    QRadioButton* control_[2];
    QRadioButton* preferred_[2];
    QPlainTextEdit* message_;
    QTextEdit* story_;
    QLabel* image_;
    QStatusBar* status_;
    QLabel* panel_;
};

}  // namespace tessarin
