#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace tessarin {

struct EditorSession;

// frmSelectConfiguration: the named configurations (lstTessarin) and tips of the day
// (lstTessarinTipOfTheDay) of the application directory. OK copies the chosen ones over the
// documents in use and loads the configuration; the dialog is then accepted, and the caller
// lays its window out again.
class SelectConfigurationDialog : public QDialog {
    Q_OBJECT
  public:
    SelectConfigurationDialog(EditorSession& session, QWidget* parent);

  private:
    void Select();

    EditorSession& session_;
    QListWidget* configurations_;
    QListWidget* tips_;
    QPushButton* ok_;
};

}  // namespace tessarin
