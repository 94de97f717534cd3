#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <string>

#include "config/preferences.h"
#include "tools/teleprompter.h"

class QLabel;
class QTextEdit;
class QTimer;

namespace tessarin {

// frmTeleprompter: the story's text in the teleprompter's font (preferences entry 8) on its
// background colour, filling the screen, scrolling up at the speed the presenter sets from
// the keyboard. txtTeleprompter holds the text, lblTeleprompterSpeed shows whether it runs
// and at which speed, TimerTeleprompter moves it on. Escape closes it.
class TeleprompterWindow : public QWidget {
    Q_OBJECT
  public:
    TeleprompterWindow(const std::u16string& text, const Preferences& preferences, QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Tick();
    void ShowSpeed();

    PrompterScroll scroll_;
    QTextEdit* text_;
    QLabel* speed_;
    QTimer* timer_;
    QElapsedTimer clock_;
};

}  // namespace tessarin
