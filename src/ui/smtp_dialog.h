#pragma once

#include <QDialog>
#include <thread>

#include "session/editor_session.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QStatusBar;

namespace tessarin {

// frmSMTP: mails a text, or the open story with its files, to the recipient chosen in
// lstRecipients. The dialogue with the server runs beside the event loop, so the window
// stays alive however slow the server; cmdSend stays disabled until it ends, and
// StatusBarSMTP then tells how it went.
class SmtpDialog : public QDialog {
    Q_OBJECT

  public:
    explicit SmtpDialog(EditorSession& session, QWidget* parent = nullptr);
    ~SmtpDialog() override;

  signals:
    void sendingFinished();

  private:
    void Send();
    void ChooseCurrentStory(bool on);
    void ShowOutcome(const QString& status, const QString& transcript);

    EditorSession& session_;
    QLineEdit* server_;
    QLineEdit* sender_;
    QListWidget* recipients_;
    QLineEdit* subject_;
    QPlainTextEdit* message_;
    QCheckBox* currentStory_;
    QCheckBox* xmlStory_;
    QCheckBox* images_;
    QPlainTextEdit* debug_;
    QPushButton* send_;
    QStatusBar* status_;
    std::thread worker_;
};

}  // namespace tessarin
