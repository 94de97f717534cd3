#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <thread>

#include "config/transmission_section.h"
#include "transmission/ftp_client.h"
#include "transmission/story_control.h"
#include "transmission/workflow_window.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QStatusBar;
class QTextEdit;
class QTreeWidget;

namespace tessarin {

struct EditorSession;
class SessionTreeWidget;

// frmFTP: sends the send list to one of the configured FTP servers. On the left the servers
// lstServers with txtUser, txtPassword and the export format lblFormat, cmdConnect,
// cmdDisconnect and cmdRefresh; the remote listing lv under lblDir; the send list treeUpload
// (the same list as the send window's) in FrameStories with cmdAddCurrent, cmdAddStory and
// cmdRemoveStory; the preview txtStory and Image1; cmdUpload, the progress bar pb with
// lblSentFile, and the status panel.
//
// Every exchange with the server (connecting with the configuration update, listing,
// sending) runs on a thread of its own while the window's event loop goes on: the window
// repaints, pb moves with each block, and the buttons stay disabled until the exchange ends.
class FtpDialog : public QDialog {
    Q_OBJECT
  public:
    FtpDialog(EditorSession& session, QWidget* parent);
    ~FtpDialog() override;

    // Whether an exchange with the server is under way.
    bool Busy() const { return worker_.joinable(); }

  signals:
    void exchangeFinished();

  protected:
    // The window closes only between exchanges; the connection ends with it.
    void reject() override;

  private:
    QWidget* BuildConnection();
    QWidget* BuildList();
    void Connect();
    void ChooseServer(int row);
    void ConnectToServer();
    void Disconnect();
    void ListRemote();
    void Send();
    void Added(const AddResult& result);
    // Runs work beside the event loop, then done on the window's thread.
    void RunExchange(std::function<void()> work, std::function<void()> done);
    void ShowProgress(std::int64_t done, std::int64_t total, const QString& file);
    void ShowRemoteListing();
    void RefreshList();
    void RefreshButtons();
    void ShowNotConnected();

    EditorSession& session_;
    WorkflowWindow window_;
    FtpClient ftp_;
    std::optional<FtpServer> server_;  // the server connected to, as it was chosen
    std::size_t serverNumber_ = 0;     // from 1
    std::thread worker_;
    int beepsShown_ = 0;

    QListWidget* servers_;
    QLineEdit* user_;
    QLineEdit* password_;
    QLabel* format_;
    QPushButton* connect_;
    QPushButton* disconnect_;
    QPushButton* refresh_;
    QLabel* directory_;
    QTreeWidget* remote_;
    SessionTreeWidget* upload_;
    QGroupBox* stories_;
    QPushButton* addCurrent_;
    QPushButton* addStory_;
    QPushButton* remove_;
    QPushButton* send_;
    QTextEdit* story_;
    QLabel* image_;
    QProgressBar* progress_;
    QLabel* sentFile_;
    QStatusBar* status_;
    QLabel* panel_;
};

}  // namespace tessarin
