#include "ui/receive_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "session/editor_session.h"
#include "transmission/receive_take.h"
#include "ui/configured_caption.h"
#include "ui/session_tree_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 520;

template <typename Widget>
Widget* Named(const char* name) {
    auto* widget = new Widget;
    widget->setObjectName(QLatin1String(name));
    return widget;
}

}  // namespace

ReceiveDialog::ReceiveDialog(EditorSession& session, ReceiveKind kind, QWidget* parent)
    : QDialog(parent),
      session_(session),
      tree_(new SessionTreeWidget(QStringLiteral("treeReceive"), nullptr)),
      story_(Named<QPlainTextEdit>("txtStory")),
      lastLog_(Named<QPlainTextEdit>("txtLastLog")),
      get_(Named<QPushButton>("cmdGet")),
      getAndOpen_(Named<QPushButton>("cmdGetAndOpen")),
      getAll_(Named<QPushButton>("cmdGetAll")),
      cancel_(Named<QPushButton>("cmdCancel")),
      panel_(Named<QLabel>("StatusPanel1")) {
    const bool receive = kind == ReceiveKind::Receive;
    setObjectName(receive ? QStringLiteral("frmReceive") : QStringLiteral("frmIntercept"));
    setWindowTitle(ConfiguredTitle(session_,
                                   receive ? "ToolsReceiveWorkflow" : "ToolsInterceptWorkflow",
                                   receive ? "Receive" : "Intercept"));
    resize(kWidth, kHeight);
    story_->setReadOnly(true);
    lastLog_->setReadOnly(true);
    lastLog_->setMaximumHeight(lastLog_->fontMetrics().height() * 4);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {get_, getAndOpen_, getAll_, cancel_})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tree_, 2);
    layout->addWidget(story_, 2);
    layout->addWidget(lastLog_);
    layout->addLayout(buttons);
    layout->addWidget(panel_);

    Connect();
    if (receive) {
        OpenReceiveWindow(session_, window_);
    } else {
        OpenInterceptWindow(session_, window_);
    }
    Refresh();
}

void ReceiveDialog::Connect() {
    connect(tree_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        SelectReceiveNode(session_, window_, SessionTreeWidget::KeyOf(item));
        Refresh();
    });
    connect(get_, &QPushButton::clicked, this, [this] {
        window_.selected = tree_->CurrentKey();
        TakeSelectedStory(session_, window_);
        Refresh();
    });
    connect(getAll_, &QPushButton::clicked, this, [this] {
        TakeAllStories(session_, window_);
        Refresh();
    });
    connect(getAndOpen_, &QPushButton::clicked, this, [this] {
        window_.selected = tree_->CurrentKey();
        if (TakeAndOpenStory(session_, window_)) {
            accept();
            return;
        }
        Refresh();
    });
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void ReceiveDialog::Refresh() {
    const WindowState& state = window_.state;
    for (QPushButton* button : {get_, getAndOpen_, getAll_, cancel_}) {
        const std::string name = ToUtf8(button->objectName());
        if (const ControlState* control = state.FindControl(name))
            button->setText(ToQString(control->caption));
        ShowControlState(*button, state, name);
    }
    tree_->Show(*state.FindTree("treeReceive"));
    tree_->expandAll();
    tree_->SelectKey(window_.selected);
    story_->setPlainText(ToQString(window_.storyText));
    lastLog_->setPlainText(ToQString(window_.lastLogText));
    panel_->setText(ToQString(state.Status().text));
}

}  // namespace tessarin
