#include "ui/first_login_dialog.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/first_login.h"
#include "session/editor_session.h"
#include "ui/named_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
// The captions are fixed English texts: at a first login no configuration gives them.
FirstLoginDialog::FirstLoginDialog(EditorSession& session, bool forced, QWidget* parent)
    : QDialog(parent),
      session_(session),
      forced_(forced),
      ftpServer_(Named(new QRadioButton(QStringLiteral("FTP server")), "optServer0")),
      fileServer_(Named(new QRadioButton(QStringLiteral("File server")), "optServer1")),
      serverLabel_(Named(new QLabel, "lblServer")),
      server_(Named(new QLineEdit, "txtServer")),
      user_(Named(new QLineEdit, "txtUser")),
      passwordLabel_(Named(new QLabel(QStringLiteral("Password")), "lblPassword")),
      password_(Named(new QLineEdit, "txtPassword")),
      browse_(Named(new QPushButton(QStringLiteral("...")), "cmdBrowse")) {
    setObjectName(QStringLiteral("frmFirstLogin"));
    setWindowTitle(QStringLiteral("Tessarin " TESSARIN_VERSION " - Login"));
    password_->setEchoMode(QLineEdit::Password);
    auto* ok = Named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    auto* cancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdCancel");
    ok->setDefault(true);

    auto* options = new QHBoxLayout;
    options->addWidget(ftpServer_);
    options->addWidget(fileServer_);
    auto* fields = new QGridLayout;
    fields->addWidget(serverLabel_, 0, 0);
    fields->addWidget(server_, 0, 1);
    fields->addWidget(browse_, 0, 2);
    fields->addWidget(new QLabel(QStringLiteral("User")), 1, 0);
    fields->addWidget(user_, 1, 1);
    fields->addWidget(passwordLabel_, 2, 0);
    fields->addWidget(password_, 2, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(options);
    layout->addLayout(fields);
    layout->addLayout(buttons);

    connect(ftpServer_, &QRadioButton::toggled, this, &FirstLoginDialog::ChooseSource);
    connect(browse_, &QPushButton::clicked, this, [this] {
        const auto folder = session_.user.ChooseFolder("Please select Tessarin UPDATES folder",
                                                       ToUtf8(server_->text()));
        if (folder) server_->setText(ToQString(folder->string()));
    });
    connect(ok, &QPushButton::clicked, this, &FirstLoginDialog::Login);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    if (forced) {
        fileServer_->setChecked(true);
        server_->setText(ToQString(session.configuration.workflow.UpdatesDirectory));
        user_->setText(ToQString(session.configuration.identity.author));
        ftpServer_->setEnabled(false);
        fileServer_->setEnabled(false);
    } else {
        ftpServer_->setChecked(true);
    }
    ChooseSource(ftpServer_->isChecked());
}

void FirstLoginDialog::ChooseSource(bool ftpServer) {
    serverLabel_->setText(ftpServer ? QStringLiteral("FTP Server")
                                    : QStringLiteral("File Server UPDATES folder"));
    browse_->setVisible(!ftpServer);
    passwordLabel_->setVisible(ftpServer);
    password_->setVisible(ftpServer);
}

void FirstLoginDialog::Login() {
    LoginRequest request;
    request.source = ftpServer_->isChecked() ? LoginSource::FtpServer : LoginSource::FileServer;
    request.server = ToUtf8(server_->text());
    request.user = ToUtf8(user_->text());
    request.password = ToUtf8(password_->text());
    request.forced = forced_;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    FtpClient ftp;
    const LoginResult result = RunFirstLogin(session_, ftp, request);
    QApplication::restoreOverrideCursor();
    if (!result.message.empty()) session_.user.Tell(result.message, MessageIcon::Critical);
    if (result.done) {
        accept();
    } else {
        reject();
    }
}

}  // namespace tessarin
