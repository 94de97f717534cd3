#include "ui/teleprompter_window.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QScrollBar>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/named_widget.h"
#include "ui/preference_font.h"
#include "ui/styled_text_bridge.h"

namespace tessarin {
namespace {

constexpr int kTickMs = 30;
constexpr int kDarkBelow = 128;
constexpr int kMarginLines = 1;
constexpr int kSmallestSpeedPoints = 10;

// Light letters on a dark background, dark ones on a light background.
QColor LettersOn(const QColor& background) {
    return background.lightness() < kDarkBelow ? Qt::white : Qt::black;
}

}  // namespace

TeleprompterWindow::TeleprompterWindow(const std::u16string& text, const Preferences& preferences,
                                       QWidget* parent)
    : QWidget(parent, Qt::Window),
      text_(Named(new QTextEdit, "txtTeleprompter")),
      speed_(Named(new QLabel, "lblTeleprompterSpeed")),
      timer_(Named(new QTimer(this), "TimerTeleprompter")) {
    setObjectName(QStringLiteral("frmTeleprompter"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QColor background = ToQColor(preferences.BackgroundColorTeleprompter);
    QPalette palette;
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Text, LettersOn(background));
    palette.setColor(QPalette::WindowText, LettersOn(background));
    setPalette(palette);
    setAutoFillBackground(true);

    const QFont font = PreferenceFont(preferences, kTeleprompterFont);
    text_->setFont(font);
    text_->setPalette(palette);
    text_->setReadOnly(true);
    text_->setFrameShape(QFrame::NoFrame);
    text_->setFocusPolicy(Qt::NoFocus);
    text_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text_->document()->setDocumentMargin(QFontMetrics(font).lineSpacing() * kMarginLines);
    text_->setPlainText(QString::fromStdU16String(text));
    speed_->setAlignment(Qt::AlignRight);
    QFont speedFont = font;
    speedFont.setPointSize(std::max(kSmallestSpeedPoints, font.pointSize() / 2));
    speed_->setFont(speedFont);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_, 1);
    layout->addWidget(speed_);
    setFocusPolicy(Qt::StrongFocus);

    timer_->setInterval(kTickMs);
    connect(timer_, &QTimer::timeout, this, &TeleprompterWindow::Tick);
    clock_.start();
    timer_->start();
    ShowSpeed();
}

void TeleprompterWindow::keyPressEvent(QKeyEvent* event) {
    const QString name = QKeySequence(event->key()).toString(QKeySequence::PortableText);
    const PrompterCommand command = PrompterCommandForKey(name.toStdString());
    if (command == PrompterCommand::None) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (command == PrompterCommand::Close) {
        close();
        return;
    }
    scroll_.Apply(command);
    text_->verticalScrollBar()->setValue(scroll_.Offset());
    ShowSpeed();
}

void TeleprompterWindow::Tick() {
    const auto elapsed = static_cast<int>(clock_.restart());
    const bool wasPaused = scroll_.Paused();
    QScrollBar& bar = *text_->verticalScrollBar();
    bar.setValue(
        scroll_.Advance(elapsed, QFontMetrics(text_->font()).lineSpacing(), bar.maximum()));
    if (scroll_.Paused() != wasPaused) ShowSpeed();
}

// A sign for running or paused and the speed, words that need no translation.
void TeleprompterWindow::ShowSpeed() {
    speed_->setText(
        QStringLiteral("%1 %2")
            .arg(scroll_.Paused() ? QStringLiteral("\u275A\u275A") : QStringLiteral("\u25B6"))
            .arg(scroll_.Speed()));
}

}  // namespace tessarin
