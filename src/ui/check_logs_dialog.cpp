#include "ui/check_logs_dialog.h"

#include <QDesktopServices>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "logs/daily_log.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kColumns = 4;
constexpr int kWidth = 520;
constexpr int kHeight = 320;

}  // namespace

CheckLogsDialog::CheckLogsDialog(EditorSession& session, QWidget* parent, PageOpener open)
    : QDialog(parent), session_(session), open_(std::move(open)) {
    if (!open_) open_ = [](const QUrl& page) { QDesktopServices::openUrl(page); };
    setObjectName(QStringLiteral("frmCheckLogs"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsCheckLogs", "Check logs"));
    resize(kWidth, kHeight);

    auto* dates = new QListWidget(this);
    dates->setObjectName(QStringLiteral("lstLogFiles"));
    dates->setSortingEnabled(true);
    dates->hide();
    auto* grid = new QWidget;
    auto* cells = new QGridLayout(grid);
    for (const std::string& date : DailyLogDates(session.paths.logsDir)) {
        dates->addItem(ToQString(date));
        auto* label = new QLabel(ToQString(date), grid);
        label->setObjectName(QStringLiteral("lblLogFile%1").arg(labels_.size()));
        label->setCursor(Qt::PointingHandCursor);
        label->installEventFilter(this);
        const int index = static_cast<int>(labels_.size());
        cells->addWidget(label, index / kColumns, index % kColumns);
        labels_.push_back(label);
    }
    cells->setRowStretch(cells->rowCount(), 1);
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(grid);
    scroll->setWidgetResizable(true);
    scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    scroll->verticalScrollBar()->setObjectName(QStringLiteral("VScroll1"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll);
}

bool CheckLogsDialog::eventFilter(QObject* watched, QEvent* event) {
    auto* label = qobject_cast<QLabel*>(watched);
    if (event->type() != QEvent::MouseButtonRelease || label == nullptr)
        return QDialog::eventFilter(watched, event);
    const std::filesystem::path page =
        DailyLogPageOf(session_.paths.logsDir, ToUtf8(label->text()));
    open_(QUrl::fromLocalFile(ToQString(page.string())));
    return true;
}

}  // namespace tessarin
