#include "ui/inbox_watcher.h"

#include <QApplication>
#include <QLabel>
#include <QStatusBar>
#include <QStyle>
#include <QSystemTrayIcon>
#include <QTimer>

#include "session/editor_session.h"
#include "tracking/tracking_message.h"
#include "transmission/inbox_watch.h"
#include "ui/tracking_dialog.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kPollMs = 5000;
constexpr int kBlinkMs = 300;

QIcon WaitingIcon(bool alternate) {
    return QApplication::style()->standardIcon(alternate ? QStyle::SP_MessageBoxInformation
                                                         : QStyle::SP_FileDialogNewFolder);
}

}  // namespace

InboxWatcher::InboxWatcher(EditorSession& session, QStatusBar& statusBar, QWidget& window)
    : QObject(&window),
      session_(session),
      window_(window),
      poll_(new QTimer(this)),
      blink_(new QTimer(this)),
      tray_(new QSystemTrayIcon(this)),
      sign_(new QLabel) {
    poll_->setObjectName(QStringLiteral("Timer1"));
    poll_->setInterval(kPollMs);
    blink_->setObjectName(QStringLiteral("Timer2"));
    blink_->setInterval(kBlinkMs);
    sign_->setObjectName(QStringLiteral("lblWaitingSign"));
    sign_->hide();
    statusBar.addPermanentWidget(sign_);
    connect(poll_, &QTimer::timeout, this, &InboxWatcher::Check);
    connect(blink_, &QTimer::timeout, this, &InboxWatcher::Blink);
    connect(tray_, &QSystemTrayIcon::activated, this, [this] { window_.activateWindow(); });
}

InboxWatcher::~InboxWatcher() {
    tray_->hide();
}

void InboxWatcher::Start() {
    if (session_.configuration.workflow.Visible) poll_->start();
    Check();
}

void InboxWatcher::Pause() {
    poll_->stop();
}

void InboxWatcher::Resume() {
    if (session_.configuration.workflow.Visible) poll_->start();
    Check();
}

bool InboxWatcher::SignShown() const {
    return tray_->isVisible() || !sign_->isHidden();
}

void InboxWatcher::Check() {
    if (reading_) return;
    const InboxPass pass = CheckInbox(session_);
    if (!pass.message) {
        ShowWaiting(pass.count);
        emit changed();
        return;
    }
    MessageWindow message;
    if (!OpenReadingMessage(session_, message)) return;
    reading_ = true;
    TrackingMessageDialog(session_, std::move(message), &window_).exec();
    reading_ = false;
    emit changed();
}

void InboxWatcher::ShowWaiting(int count) {
    if (!ShowInboxCount(session_.window, count)) {
        blink_->stop();
        tray_->hide();
        sign_->hide();
        return;
    }
    if (!blink_->isActive()) blink_->start();
    const QString tip = ToQString(WaitingTip(session_, count));
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        tray_->setIcon(WaitingIcon(alternate_));
        tray_->setToolTip(tip);
        tray_->show();
    } else {
        sign_->setPixmap(WaitingIcon(alternate_).pixmap(16, 16));
        sign_->setToolTip(tip);
        sign_->show();
    }
}

void InboxWatcher::Blink() {
    alternate_ = !alternate_;
    if (tray_->isVisible()) {
        tray_->setIcon(WaitingIcon(alternate_));
    } else {
        sign_->setPixmap(WaitingIcon(alternate_).pixmap(16, 16));
    }
}

}  // namespace tessarin
