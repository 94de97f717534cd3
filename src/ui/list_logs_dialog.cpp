#include "ui/list_logs_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "logs/story_log_view.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/styled_text_bridge.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 560;
constexpr int kHeight = 360;

}  // namespace

ListLogsDialog::ListLogsDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      tabs_(new QTabBar(this)),
      logs_(new QTreeWidget(this)),
      clear_(new QPushButton(this)) {
    setObjectName(QStringLiteral("frmListLogs"));
    setWindowTitle(ConfiguredTitle(session_, "DisplayLogs", "Logs"));
    resize(kWidth, kHeight);
    tabs_->setObjectName(QStringLiteral("TabStripLogs"));
    tabs_->addTab(ConfiguredCaption(session_, "LogsSort", "Sort"));
    tabs_->addTab(ConfiguredCaption(session_, "LogsRevertSort", "Reverse sort"));
    tabs_->setCurrentIndex(static_cast<int>(StoredLogOrder(session.profile)));
    logs_->setObjectName(QStringLiteral("lvLogs"));
    logs_->setHeaderHidden(true);
    logs_->setRootIsDecorated(false);
    QPalette palette = logs_->palette();
    palette.setColor(QPalette::Base, ToQColor(session.preferences.BackgroundColorLogs));
    logs_->setPalette(palette);
    clear_->setObjectName(QStringLiteral("cmdClearLogs"));
    clear_->setText(ConfiguredCaption(session_, "ClearLogs", "Clear logs"));
    clear_->setVisible(ClearLogsAvailable(session));
    auto* cancel = new QPushButton(ConfiguredCaption(session_, "Cancel", "Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(clear_);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(logs_, 1);
    layout->addLayout(buttons);

    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        StoreLogOrder(session_.profile, static_cast<LogOrder>(index));
        Refresh();
    });
    connect(clear_, &QPushButton::clicked, this, [this] {
        ClearLogs(session_);
        Refresh();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    Refresh();
}

void ListLogsDialog::Refresh() {
    logs_->clear();
    const auto order = static_cast<LogOrder>(tabs_->currentIndex());
    for (const StoryLog& log : LogsInOrder(session_.story.logs, order)) {
        auto* item = new QTreeWidgetItem(logs_, {ToQString(log.text)});
        item->setToolTip(0, ToQString(log.type));
        if (const auto colour = LogTypeColour(log.type)) item->setForeground(0, ToQColor(*colour));
    }
    clear_->setEnabled(!session_.story.logs.empty());
}

}  // namespace tessarin
