#include "ui/workflow_dialog.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "session/editor_session.h"
#include "transmission/remove_story.h"
#include "transmission/send_preview.h"
#include "transmission/workflow_destinations.h"
#include "transmission/workflow_send.h"
#include "ui/configured_caption.h"
#include "ui/session_tree_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 560;
constexpr int kHeadingSize = 10;
constexpr int kReportSize = 8;

template <typename Widget, typename... Arguments>
Widget* Named(const char* name, Arguments&&... arguments) {
    auto* widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QTextCharFormat TextFormat(bool bold, int size) {
    QTextCharFormat format;
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    format.setFontPointSize(size);
    return format;
}

}  // namespace

WorkflowDialog::WorkflowDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      tabs_(Named<QTabBar>("TabSend")),
      upload_(new SessionTreeWidget(QStringLiteral("treeUpload"), nullptr)),
      users_(new SessionTreeWidget(QStringLiteral("treeUsers"), nullptr)),
      stories_(Named<QGroupBox>("FrameStories")),
      help_(Named<QWidget>("FrameHelp")),
      limits_(Named<QLabel>("lblControl")),
      addCurrent_(Named<QPushButton>("cmdAddCurrent")),
      addStory_(Named<QPushButton>("cmdAddStory")),
      remove_(Named<QPushButton>("cmdRemoveStory")),
      send_(Named<QPushButton>("cmdUpload")),
      cancel_(Named<QPushButton>("cmdCancel")),
      control_{Named<QRadioButton>("optControl0"), Named<QRadioButton>("optControl1")},
      preferred_{Named<QRadioButton>("optPreferred0"), Named<QRadioButton>("optPreferred1")},
      message_(Named<QPlainTextEdit>("txtMessage")),
      story_(Named<QTextEdit>("txtStory")),
      image_(Named<QLabel>("Image1")),
      status_(Named<QStatusBar>("StatusBar1")),
      panel_(Named<QLabel>("StatusPanel1")) {
    setObjectName(QStringLiteral("frmWorkflow"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsSendWorkflow", "Send"));
    resize(kWidth, kHeight);
    tabs_->addTab(QString());
    tabs_->addTab(QString());
    story_->setReadOnly(true);
    image_->setAlignment(Qt::AlignCenter);
    status_->addWidget(panel_, 1);

    auto* columns = new QHBoxLayout;
    columns->addWidget(BuildList(), 3);
    columns->addWidget(BuildDestinations(), 2);
    auto* preview = new QHBoxLayout;
    preview->addWidget(story_, 3);
    preview->addWidget(image_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(send_);
    buttons->addWidget(cancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addLayout(columns, 3);
    layout->addLayout(preview, 2);
    layout->addLayout(buttons);
    layout->addWidget(status_);

    Connect();
    OpenWorkflowWindow(session_, window_);
    beepsShown_ = window_.state.beeps;
    Refresh();
}

QWidget* WorkflowDialog::BuildList() {
    auto* list = new QVBoxLayout(stories_);
    list->addWidget(upload_, 1);
    auto* helpLines = new QVBoxLayout(help_);
    for (int line = 1; line <= 4; ++line) {
        auto* label = new QLabel;
        label->setObjectName(QStringLiteral("lblHelp%1").arg(line));
        label->setWordWrap(true);
        helpLines->addWidget(label);
    }
    list->addWidget(help_);
    auto* commands = new QHBoxLayout;
    for (QPushButton* button : {addCurrent_, addStory_, remove_})
        commands->addWidget(button);
    list->addLayout(commands);
    list->addWidget(control_[0]);
    list->addWidget(control_[1]);
    list->addWidget(limits_);

    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(stories_, 1);
    layout->addWidget(message_, 1);
    return column;
}

QWidget* WorkflowDialog::BuildDestinations() {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(users_, 1);
    layout->addWidget(preferred_[0]);
    layout->addWidget(preferred_[1]);
    return column;
}

void WorkflowDialog::Connect() {
    const auto run = [this](auto command) {
        return [this, command] {
            command();
            Refresh();
        };
    };
    connect(tabs_, &QTabBar::tabBarClicked, this, [this, run](int index) {
        run([this, index] {
            SelectWorkflowTab(session_, window_,
                              index == 1 ? WorkflowTab::Message : WorkflowTab::Stories);
        })();
    });
    for (int option = 0; option < 2; ++option) {
        connect(control_[option], &QRadioButton::clicked, this,
                run([this, option] { ChooseControl(session_, window_, option == 0); }));
        connect(preferred_[option], &QRadioButton::clicked, this,
                run([this, option] { ChoosePreferred(session_, window_, option == 0); }));
    }
    connect(upload_, &QTreeWidget::itemClicked, this, [this, run](QTreeWidgetItem* item) {
        run([this, item] { PreviewNode(session_, window_, SessionTreeWidget::KeyOf(item)); })();
    });
    connect(users_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        window_.selectedUser = SessionTreeWidget::KeyOf(item);
    });
    connect(addStory_, &QPushButton::clicked, this, [this] { Added(AddStory(session_, window_)); });
    connect(addCurrent_, &QPushButton::clicked, this,
            [this] { Added(AddCurrentStory(session_, window_)); });
    connect(remove_, &QPushButton::clicked, this, run([this] { RemoveStory(session_, window_); }));
    connect(send_, &QPushButton::clicked, this, &WorkflowDialog::Send);
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(message_, &QPlainTextEdit::textChanged, this, [this] {
        SetMessageText(window_, ToUtf8(message_->toPlainText()));
        send_->setEnabled(window_.state.Control("cmdUpload").enabled);
    });
}

void WorkflowDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && upload_->hasFocus()) {
        window_.selectedUpload = upload_->CurrentKey();
        RemoveStory(session_, window_);
        Refresh();
        return;
    }
    QDialog::keyPressEvent(event);
}

void WorkflowDialog::Added(const AddResult& result) {
    if (result.outcome == AddOutcome::EditRequested && OpenStoryForEdit(session_, result)) {
        accept();
        return;
    }
    Refresh();
}

void WorkflowDialog::Send() {
    const WorkflowTab tab = window_.tab;
    const SendOutcome outcome = SendWorkflow(session_, window_);
    if (tab == WorkflowTab::Message && outcome == SendOutcome::Sent) {
        accept();
        return;
    }
    Refresh();
}

void WorkflowDialog::Refresh() {
    const WindowState& state = window_.state;
    const auto caption = [&state](std::string_view name) {
        return ControlCaption(state, name, "");
    };
    tabs_->setTabText(0, caption("TabSend1"));
    tabs_->setTabText(1, caption("TabSend2"));
    tabs_->setCurrentIndex(window_.tab == WorkflowTab::Message ? 1 : 0);
    stories_->setTitle(caption("FrameStories"));
    for (QWidget* widget : std::initializer_list<QWidget*>{
             upload_, stories_, help_, limits_, addCurrent_, addStory_, remove_, send_, cancel_,
             control_[0], control_[1], preferred_[0], preferred_[1], message_, story_}) {
        const std::string name = ToUtf8(widget->objectName());
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setText(caption(name));
        ShowControlState(*widget, state, name);
    }
    limits_->setText(caption("lblControl"));
    for (int line = 1; line <= 4; ++line) {
        const std::string name = "lblHelp" + std::to_string(line);
        findChild<QLabel*>(ToQString(name))->setText(caption(name));
    }
    for (QRadioButton* option : {control_[0], control_[1], preferred_[0], preferred_[1]})
        option->setChecked(state.FindControl(ToUtf8(option->objectName()))->checked);
    upload_->Show(*state.FindTree("treeUpload"));
    upload_->expandAll();
    users_->Show(*state.FindTree("treeUsers"));
    users_->expandAll();
    users_->SelectKey(window_.selectedUser);
    if (window_.reportLocked) {
        ShowReport();
    } else {
        ShowPreview();
    }
    panel_->setText(ToQString(state.Status().text));
    for (; beepsShown_ < state.beeps; ++beepsShown_)
        session_.user.Beep();
}

void WorkflowDialog::ShowPreview() {
    story_->setPlainText(ToQString(window_.previewText));
    const QPixmap picture(ToQString(window_.previewImage.string()));
    image_->setPixmap(picture.isNull() ? QPixmap()
                                       : picture.scaled(image_->size(), Qt::KeepAspectRatio,
                                                        Qt::SmoothTransformation));
}

void WorkflowDialog::ShowReport() {
    image_->clear();
    story_->clear();
    QTextCursor cursor(story_->document());
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    cursor.setBlockFormat(centred);
    cursor.insertText(ToQString(window_.reportHeading), TextFormat(true, kHeadingSize));
    QTextBlockFormat left;
    left.setAlignment(Qt::AlignLeft);
    for (const SendReportLine& line : window_.report) {
        cursor.insertBlock(left);
        const bool story = line.kind == SendReportLine::Kind::Story;
        cursor.insertText(ToQString(ReportLineText(session_, line)),
                          TextFormat(story, kReportSize));
    }
}

}  // namespace tessarin
