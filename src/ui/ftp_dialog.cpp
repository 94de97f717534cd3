#include "ui/ftp_dialog.h"

#include <QApplication>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QStyle>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/configuration_update.h"
#include "common/date_format.h"
#include "session/editor_session.h"
#include "transmission/ftp_send.h"
#include "transmission/ftp_server_connection.h"
#include "transmission/remove_story.h"
#include "transmission/send_preview.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"
#include "ui/session_tree_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 820;
constexpr int kHeight = 600;
constexpr int kProgressSteps = 1000;

// The connection's buttons, captioned by the configuration's Interface section; the send
// list's buttons take the captions of the send window.
struct ButtonCaption {
    const char* control;
    const char* key;
    const char* design;
};

constexpr ButtonCaption kButtonCaptions[] = {
    {"cmdConnect", "Connect", "Connect"},
    {"cmdDisconnect", "Disconnect", "Disconnect"},
    {"cmdRefresh", "Refresh", "Refresh"},
};

}  // namespace

FtpDialog::FtpDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      servers_(Named(new QListWidget, "lstServers")),
      user_(Named(new QLineEdit, "txtUser")),
      password_(Named(new QLineEdit, "txtPassword")),
      format_(Named(new QLabel, "lblFormat")),
      connect_(Named(new QPushButton, "cmdConnect")),
      disconnect_(Named(new QPushButton, "cmdDisconnect")),
      refresh_(Named(new QPushButton, "cmdRefresh")),
      directory_(Named(new QLabel, "lblDir")),
      remote_(Named(new QTreeWidget, "lv")),
      upload_(new SessionTreeWidget(QStringLiteral("treeUpload"), nullptr)),
      stories_(Named(new QGroupBox, "FrameStories")),
      addCurrent_(Named(new QPushButton, "cmdAddCurrent")),
      addStory_(Named(new QPushButton, "cmdAddStory")),
      remove_(Named(new QPushButton, "cmdRemoveStory")),
      send_(Named(new QPushButton, "cmdUpload")),
      story_(Named(new QTextEdit, "txtStory")),
      image_(Named(new QLabel, "Image1")),
      progress_(Named(new QProgressBar, "pb")),
      sentFile_(Named(new QLabel, "lblSentFile")),
      status_(Named(new QStatusBar, "StatusBar1")),
      panel_(Named(new QLabel, "StatusPanel1")) {
    setObjectName(QStringLiteral("frmFTP"));
    resize(kWidth, kHeight);
    password_->setEchoMode(QLineEdit::Password);
    story_->setReadOnly(true);
    image_->setAlignment(Qt::AlignCenter);
    progress_->setRange(0, kProgressSteps);
    progress_->setVisible(false);
    sentFile_->setVisible(false);
    status_->addWidget(panel_, 1);
    // The column captions are settings of the FTP section, not Interface keys.
    const FtpTransmissionSettings& ftp = session.configuration.ftpTransmission;
    remote_->setHeaderLabels({ToQString(ftp.Name), ToQString(ftp.Size), ToQString(ftp.LastAccessed),
                              ToQString(ftp.Directory)});
    remote_->setRootIsDecorated(false);
    auto* columns = new QHBoxLayout;
    columns->addWidget(BuildConnection(), 2);
    columns->addWidget(BuildList(), 3);
    auto* preview = new QHBoxLayout;
    preview->addWidget(remote_, 3);
    preview->addWidget(story_, 3);
    preview->addWidget(image_, 1);
    auto* sending = new QHBoxLayout;
    sending->addWidget(sentFile_);
    sending->addWidget(progress_, 1);
    sending->addWidget(send_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 3);
    layout->addWidget(directory_);
    layout->addLayout(preview, 2);
    layout->addLayout(sending);
    layout->addWidget(status_);
    for (const ButtonCaption& button : kButtonCaptions) {
        findChild<QPushButton*>(QLatin1String(button.control))
            ->setText(ConfiguredCaption(session, button.key, button.design));
    }

    for (const FtpServer& server : session.configuration.ftpTransmission.servers)
        servers_->addItem(ToQString(server.IPNumber));
    ftp_.SetProgress([this](std::int64_t done, std::int64_t total) {
        const ControlState* file = window_.state.FindControl("lblSentFile");
        const QString name = file == nullptr ? QString() : ToQString(file->caption);
        QMetaObject::invokeMethod(
            this, [this, done, total, name] { ShowProgress(done, total, name); },
            Qt::QueuedConnection);
    });
    Connect();
    window_.ftp = true;
    OpenWorkflowWindow(session_, window_);
    beepsShown_ = window_.state.beeps;
    if (servers_->count() > 0) {
        servers_->setCurrentRow(0);
        ChooseServer(0);
    }
    ShowNotConnected();
}

FtpDialog::~FtpDialog() {
    if (worker_.joinable()) worker_.join();
}

void FtpDialog::reject() {
    if (Busy()) return;
    ftp_.CloseConnection();
    QDialog::reject();
}

QWidget* FtpDialog::BuildConnection() {
    auto* frame = Named(new QGroupBox(ConfiguredCaption(session_, "Connexion", "Connection")),
                        "FrameConnexion");
    auto* form = new QFormLayout;
    form->addRow(ConfiguredCaption(session_, "ServerLabel", "Server"), servers_);
    form->addRow(ConfiguredCaption(session_, "UserLabel", "User"), user_);
    form->addRow(ConfiguredCaption(session_, "PasswordLabel", "Password"), password_);
    form->addRow(ConfiguredCaption(session_, "FormatLabel", "Format"), format_);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {connect_, disconnect_, refresh_})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(frame);
    layout->addLayout(form);
    layout->addLayout(buttons);
    return frame;
}

QWidget* FtpDialog::BuildList() {
    auto* list = new QVBoxLayout(stories_);
    list->addWidget(upload_, 1);
    auto* commands = new QHBoxLayout;
    for (QPushButton* button : {addCurrent_, addStory_, remove_})
        commands->addWidget(button);
    list->addLayout(commands);
    return stories_;
}

void FtpDialog::Connect() {
    connect(servers_, &QListWidget::currentRowChanged, this, &FtpDialog::ChooseServer);
    connect(connect_, &QPushButton::clicked, this, &FtpDialog::ConnectToServer);
    connect(disconnect_, &QPushButton::clicked, this, &FtpDialog::Disconnect);
    connect(refresh_, &QPushButton::clicked, this, &FtpDialog::ListRemote);
    connect(send_, &QPushButton::clicked, this, &FtpDialog::Send);
    connect(upload_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        PreviewNode(session_, window_, SessionTreeWidget::KeyOf(item));
        story_->setPlainText(ToQString(window_.previewText));
        const QPixmap picture(ToQString(window_.previewImage.string()));
        image_->setPixmap(picture.isNull() ? QPixmap()
                                           : picture.scaled(image_->size(), Qt::KeepAspectRatio,
                                                            Qt::SmoothTransformation));
    });
    connect(addStory_, &QPushButton::clicked, this, [this] { Added(AddStory(session_, window_)); });
    connect(addCurrent_, &QPushButton::clicked, this,
            [this] { Added(AddCurrentStory(session_, window_)); });
    connect(remove_, &QPushButton::clicked, this, [this] {
        window_.selectedUpload = upload_->CurrentKey();
        RemoveStory(session_, window_);
        RefreshList();
    });
}

void FtpDialog::ChooseServer(int row) {
    const std::vector<FtpServer>& servers = session_.configuration.ftpTransmission.servers;
    if (row < 0 || static_cast<std::size_t>(row) >= servers.size()) return;
    const FtpServer& server = servers[static_cast<std::size_t>(row)];
    user_->setText(ToQString(server.User));
    password_->setText(ToQString(server.Password));
    format_->setText(ToQString(server.ExportFormat));
}

void FtpDialog::RunExchange(std::function<void()> work, std::function<void()> done) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    worker_ = std::thread([this, work = std::move(work), done = std::move(done)] {
        work();
        QMetaObject::invokeMethod(
            this,
            [this, done] {
                worker_.join();
                QApplication::restoreOverrideCursor();
                done();
                RefreshButtons();
                emit exchangeFinished();
            },
            Qt::QueuedConnection);
    });
    RefreshButtons();
}

void FtpDialog::ConnectToServer() {
    const int row = servers_->currentRow();
    const std::vector<FtpServer>& servers = session_.configuration.ftpTransmission.servers;
    if (Busy() || row < 0 || static_cast<std::size_t>(row) >= servers.size()) return;
    panel_->clear();
    // A copy: the configuration update of the connection may load another document.
    server_ = servers[static_cast<std::size_t>(row)];
    serverNumber_ = static_cast<std::size_t>(row) + 1;
    const std::string user = ToUtf8(user_->text());
    const std::string password = ToUtf8(password_->text());
    auto connected = std::make_shared<bool>(false);
    auto update = std::make_shared<UpdateResult>();
    auto error = std::make_shared<std::string>();
    RunExchange(
        [this, user, password, connected, update, error] {
            *connected = ConnectToFtpServer(ftp_, *server_, user, password) &&
                         ftp_.GetDirectoryListing("*.*");
            if (*connected)
                *update = UpdateConfigurationFromFtp(session_, ftp_, server_->FTPDirectory);
            *error = ftp_.GetLastErrorMessage();
        },
        [this, user, connected, update, error] {
            if (!*connected) {
                ftp_.CloseConnection();
                session_.user.Tell(*error + ":\n" + session_.Message("FTPNotConnected"),
                                   MessageIcon::Critical);
                return;
            }
            setWindowTitle(ToQString(FormatShortDate(Now()) + " " + FormatTimeHourMinute(Now()) +
                                     " " + server_->IPNumber + " / " + user + " " +
                                     session_.Message("FTPConnected") + " - Tessarin " +
                                     TESSARIN_VERSION));
            const bool remoteVisible = session_.configuration.ftpTransmission.RemoteVisible;
            remote_->setVisible(remoteVisible);
            story_->setVisible(!remoteVisible);
            image_->setVisible(!remoteVisible);
            ShowRemoteListing();
            panel_->setText(ToQString(update->status));
        });
}

void FtpDialog::ListRemote() {
    if (Busy() || !ftp_.Connected()) return;
    RunExchange([this] { ftp_.GetDirectoryListing("*.*"); }, [this] { ShowRemoteListing(); });
}

void FtpDialog::ShowRemoteListing() {
    directory_->setText(ConfiguredCaption(session_, "CurrentDirectoryLabel", "Current directory") +
                        QStringLiteral(": ") + ToQString(ftp_.GetFTPDirectory()));
    remote_->clear();
    new QTreeWidgetItem(remote_, {QStringLiteral("..")});
    for (const FtpDirItem& entry : ftp_.Directory()) {
        auto* item = new QTreeWidgetItem(remote_);
        item->setText(0, ToQString(entry.Filename));
        item->setIcon(
            0, style()->standardIcon(entry.Directory ? QStyle::SP_DirIcon : QStyle::SP_FileIcon));
        item->setText(
            1, entry.Directory ? QStringLiteral("Directory") : QString::number(entry.FileSize));
        if (!entry.Directory)
            item->setText(2, ToQString(FormatShortDate(entry.LastAccessTime) + " " +
                                       FormatTimeHourMinute(entry.LastAccessTime)));
        item->setText(3, ToQString(FtpAttributeMarks(entry)));
    }
}

void FtpDialog::Send() {
    if (Busy()) return;
    panel_->clear();
    progress_->setValue(0);
    progress_->setVisible(true);
    sentFile_->clear();
    sentFile_->setVisible(true);
    RunExchange([this] { SendFtp(session_, window_, ftp_, serverNumber_); },
                [this] {
                    progress_->setVisible(false);
                    sentFile_->clear();
                    sentFile_->setVisible(false);
                    ShowNotConnected();
                    panel_->setText(ToQString(window_.state.Status().text));
                });
}

void FtpDialog::ShowProgress(std::int64_t done, std::int64_t total, const QString& file) {
    if (total <= 0) return;
    sentFile_->setText(file);
    progress_->setValue(
        static_cast<int>(std::min<std::int64_t>(kProgressSteps, done * kProgressSteps / total)));
}

void FtpDialog::Disconnect() {
    if (Busy()) return;
    ftp_.CloseConnection();
    ShowNotConnected();
}

void FtpDialog::ShowNotConnected() {
    remote_->clear();
    story_->clear();
    image_->clear();
    directory_->clear();
    setWindowTitle(ToQString(session_.Message("FTPNotConnected")));
    RefreshList();
}

void FtpDialog::Added(const AddResult& result) {
    if (result.outcome == AddOutcome::EditRequested && OpenStoryForEdit(session_, result)) {
        accept();
        return;
    }
    RefreshList();
}

void FtpDialog::RefreshList() {
    const WindowState& state = window_.state;
    const ControlState* frame = state.FindControl("FrameStories");
    if (frame != nullptr) stories_->setTitle(ToQString(frame->caption));
    for (QPushButton* button : {addCurrent_, addStory_, remove_, send_}) {
        const ControlState* control = state.FindControl(ToUtf8(button->objectName()));
        if (control != nullptr) button->setText(ToQString(control->caption));
    }
    upload_->Show(*state.FindTree("treeUpload"));
    upload_->expandAll();
    panel_->setText(ToQString(state.Status().text));
    for (; beepsShown_ < state.beeps; ++beepsShown_)
        session_.user.Beep();
    RefreshButtons();
}

void FtpDialog::RefreshButtons() {
    const bool idle = !Busy();
    const bool connected = idle && ftp_.Connected();
    connect_->setEnabled(idle && servers_->count() > 0);
    disconnect_->setEnabled(connected);
    for (QWidget* control : std::initializer_list<QWidget*>{refresh_, addStory_, remove_, stories_})
        control->setEnabled(connected);
    const ControlState* current = window_.state.FindControl("cmdAddCurrent");
    addCurrent_->setEnabled(connected && current != nullptr && current->enabled);
    send_->setEnabled(connected && !window_.stories.empty());
    servers_->setEnabled(idle);
}

}  // namespace tessarin
