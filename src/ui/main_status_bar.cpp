#include "ui/main_status_bar.h"

#include <QLabel>
#include <QStyle>
#include <QTimer>

#include "common/clock.h"
#include "common/date_format.h"
#include "session/editor_session.h"

namespace tessarin {
namespace {

constexpr int kClockPeriodMs = 1000;
constexpr int kPictureSize = 16;

QLabel* Panel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

}  // namespace

MainStatusBar::MainStatusBar(QWidget* parent)
    : QStatusBar(parent),
      picture_(Panel(this, "StatusPicture")),
      text_(Panel(this, "StatusPanel")),
      second_(Panel(this, "StatusPanel2")),
      date_(Panel(this, "StatusDate")),
      time_(Panel(this, "StatusTime")),
      clock_(new QTimer(this)) {
    setObjectName(QStringLiteral("StatusBar"));
    picture_->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxCritical).pixmap(kPictureSize, kPictureSize));
    picture_->hide();
    addWidget(picture_);
    addWidget(text_, 1);
    addWidget(second_);
    addPermanentWidget(date_);
    addPermanentWidget(time_);
    connect(clock_, &QTimer::timeout, this, &MainStatusBar::ShowClock);
    clock_->start(kClockPeriodMs);
    ShowClock();
}

void MainStatusBar::Refresh(const EditorSession& session) {
    const StatusPanel& status = session.window.Status();
    picture_->setVisible(status.errorPicture);
    text_->setText(QString::fromStdString(status.text));
    second_->setText(QString::fromStdString(session.window.secondStatus));
    setVisible(session.preferences.StatusBarVisible);
    date_->setVisible(session.preferences.StatusDate);
    time_->setVisible(session.preferences.StatusTime);
}

void MainStatusBar::ShowClock() {
    const LocalDateTime now = Now();
    date_->setText(QString::fromStdString(FormatShortDate(now)));
    time_->setText(QString::fromStdString(FormatTimeHourMinute(now)));
}

}  // namespace tessarin
