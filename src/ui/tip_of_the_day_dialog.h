#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "session/editor_session.h"

class QCheckBox;
class QLabel;

namespace tessarin {

// frmTipOfTheDay: one tip of TipOfTheDay.xml at a time, the one after the last the user saw;
// cmdPreviousTip and cmdNextTip leaf through them, going round. chkShowTipsAtStartup says
// whether the window opens at start. Closing it, however it is closed, keeps the tip shown
// and the check in the TipOfTheDay section. It does not hold up the editor.
class TipOfTheDayDialog : public QDialog {
    Q_OBJECT
  public:
    TipOfTheDayDialog(EditorSession& session, std::vector<std::string> tips, QWidget* parent);

  private:
    void Show(std::size_t tip);

    EditorSession& session_;
    std::vector<std::string> tips_;
    std::size_t shown_ = 0;
    QLabel* tip_;
    QCheckBox* showAtStartup_;
};

}  // namespace tessarin
