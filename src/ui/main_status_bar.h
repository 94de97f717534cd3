#pragma once

#include <QStatusBar>

class QLabel;
class QTimer;

namespace tessarin {

struct EditorSession;

// The main window's status bar: the first panel (the error picture and the text of the
// window state's status panel), the second panel (what the repository said), then the date and the
// time panels, each shown as the preferences StatusDate and StatusTime say. The clock panels follow
// the core's clock.
class MainStatusBar : public QStatusBar {
    Q_OBJECT
  public:
    explicit MainStatusBar(QWidget* parent);

    // Shows the session's status panel and the panels the preferences ask for.
    void Refresh(const EditorSession& session);

  private:
    void ShowClock();

    QLabel* picture_;
    QLabel* text_;
    QLabel* second_;
    QLabel* date_;
    QLabel* time_;
    QTimer* clock_;
};

}  // namespace tessarin
