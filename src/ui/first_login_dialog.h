#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tessarin {

struct EditorSession;

// frmFirstLogin: fetches the user's configuration document from an FTP server (optServer0)
// or from a file-server updates folder (optServer1, with cmdBrowse), then installs and loads
// it. The dialog is accepted when the login is done; a failed login is told in a stop box and
// rejects it, which ends the program. A forced login (the configuration in place demands one)
// is from the updates folder and the Author's name, and the choice of the server is taken
// away.
class FirstLoginDialog : public QDialog {
    Q_OBJECT
  public:
    FirstLoginDialog(EditorSession& session, bool forced, QWidget* parent);

  private:
    void ChooseSource(bool ftpServer);
    void Login();

    EditorSession& session_;
    bool forced_;
    QRadioButton* ftpServer_;
    QRadioButton* fileServer_;
    QLabel* serverLabel_;
    QLineEdit* server_;
    QLineEdit* user_;
    QLabel* passwordLabel_;
    QLineEdit* password_;
    QPushButton* browse_;
};

}  // namespace tessarin
