#pragma once

#include <QDialog>
#include <QUrl>
#include <functional>
#include <vector>

class QLabel;

namespace tessarin {

struct EditorSession;

// frmCheckLogs: the daily log pages by their dates, sorted in lstLogFiles and laid out as a
// grid of labels (lblLogFile0, lblLogFile1 ...), four to a row, that the scroll bar VScroll1
// moves. A click on a label opens that page with the desktop's browser.
class CheckLogsDialog : public QDialog {
    Q_OBJECT
  public:
    using PageOpener = std::function<void(const QUrl& page)>;

    // open: how a page is shown; by default the desktop's browser.
    CheckLogsDialog(EditorSession& session, QWidget* parent, PageOpener open = {});

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    EditorSession& session_;
    PageOpener open_;
    std::vector<QLabel*> labels_;
};

}  // namespace tessarin
