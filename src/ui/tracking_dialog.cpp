#include "ui/tracking_dialog.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTabBar>
#include <QVBoxLayout>

#include "config/profile_values.h"
#include "logs/story_log_view.h"
#include "session/editor_session.h"
#include "tracking/tracking_actions.h"
#include "ui/configured_caption.h"
#include "ui/session_tree_widget.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 620;

template <typename Widget, typename... Arguments>
Widget* Named(const char* name, Arguments&&... arguments) {
    auto* widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QColor ColourOf(OleColour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

// The menu's choices, each an entry and the choices it makes.
struct ChoiceEntry {
    const char* entry;
    const char* key;
    const char* design;
};
constexpr ChoiceEntry kChoiceEntries[] = {
    {"mnuDispatchByPublicationDate", "TrackingDispatchByPublicationDate", "By publication date"},
    {"mnuDispatchByAuthor", "TrackingDispatchByAuthor", "By author"},
    {"mnuDispatchByLastSaveAuthor", "TrackingDispatchByLastSaveAuthor", "By last author"},
    {"mnuClassifyByForm", "TrackingClassifyByForm", "Classify by form"},
    {"mnuDisplayAllStories", "TrackingDisplayAllStories", "All stories"},
    {"mnuDisplayEditorial", "TrackingDisplayEditorial", "Editorial"},
    {"mnuDisplayLayout", "TrackingDisplayLayout", "Layout"},
    {"mnuAutomaticUpdate", "TrackingAutomaticUpdate", "Automatic update"},
};

bool EntryChecked(const TrackingChoices& choices, int entry) {
    switch (entry) {
        case 0:
            return choices.dispatch == TrackingDispatch::ByDate;
        case 1:
            return choices.dispatch == TrackingDispatch::ByAuthor;
        case 2:
            return choices.dispatch == TrackingDispatch::ByLastSaveAuthor;
        case 3:
            return choices.byForm;
        case 4:
            return choices.show == TrackingShow::All;
        case 5:
            return choices.show == TrackingShow::Editorial;
        case 6:
            return choices.show == TrackingShow::Layout;
        default:
            return choices.automaticUpdate;
    }
}

TrackingChoices WithEntry(TrackingChoices choices, int entry, bool checked) {
    switch (entry) {
        case 0:
            choices.dispatch = TrackingDispatch::ByDate;
            break;
        case 1:
            choices.dispatch = TrackingDispatch::ByAuthor;
            break;
        case 2:
            choices.dispatch = TrackingDispatch::ByLastSaveAuthor;
            break;
        case 3:
            choices.byForm = checked;
            break;
        case 4:
            choices.show = TrackingShow::All;
            break;
        case 5:
            choices.show = TrackingShow::Editorial;
            break;
        case 6:
            choices.show = TrackingShow::Layout;
            break;
        default:
            choices.automaticUpdate = checked;
    }
    return choices;
}

}  // namespace

TrackingDialog::TrackingDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      tree_(new SessionTreeWidget(QStringLiteral("treeTracking"), nullptr)),
      counts_(Named<QLabel>("lblTreeTracking")),
      search_(Named<QComboBox>("lstTxtSearch")),
      matchCase_(Named<QCheckBox>("chkMatchCase")),
      update_(Named<QPushButton>("cmdUpdate")),
      story_(Named<QPlainTextEdit>("txtStory")),
      logTabs_(Named<QTabBar>("TabStripLogs")),
      logs_(Named<QListWidget>("lstLogs")),
      image_(Named<QLabel>("Image1")),
      waiting_(Named<QLabel>("lblTxtWaiting")),
      popup_(Named<QMenu>("mnuPopup", this)) {
    setObjectName(QStringLiteral("frmTracking"));
    setWindowTitle(ConfiguredTitle(session_, "ToolsTracking", "Tracking"));
    search_->setEditable(true);
    matchCase_->setText(ConfiguredCaption(session_, "SearchTextMatchCase", "Match case"));
    story_->setReadOnly(true);
    image_->setAlignment(Qt::AlignCenter);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);

    auto* searchLine = new QHBoxLayout;
    searchLine->addWidget(search_, 1);
    searchLine->addWidget(matchCase_);
    searchLine->addWidget(update_);
    auto* treeColumn = new QWidget;
    auto* treeLayout = new QVBoxLayout(treeColumn);
    treeLayout->setContentsMargins(0, 0, 0, 0);
    treeLayout->addLayout(searchLine);
    treeLayout->addWidget(tree_, 1);
    treeLayout->addWidget(counts_);
    auto* splitter = Named<QSplitter>("Splitter1");
    splitter->addWidget(treeColumn);
    splitter->addWidget(BuildDisplay());
    auto* layout = new QVBoxLayout(this);
    BuildMenu();
    layout->addWidget(splitter, 1);

    placement_ = {kTrackingSection, {kWidth, kHeight}, splitter, "SizeBarV"};
    RestoreWindowPlacement(*this, session.profile.Load(), placement_);
    Connect();
    OpenTrackingWindow(session_, window_);
    Refresh();
}

QWidget* TrackingDialog::BuildDisplay() {
    auto* display = new QWidget;
    auto* labels = new QFormLayout;
    for (const auto& [name, key, design] :
         {std::tuple{"lblTxtCreation", "lblCreationDate", "Created"},
          std::tuple{"lblTxtLastSave", "lblLastSaveDate", "Saved"},
          std::tuple{"lblTxtLastAuthor", "lblLastSaveAuthor", "Last author"}}) {
        labels->addRow(ControlCaption(session_.window, key, design), Named<QLabel>(name));
    }
    labels->addRow(QString(), waiting_);
    logTabs_->addTab(ConfiguredCaption(session_, "LogsSort", "Logs"));
    logTabs_->addTab(ConfiguredCaption(session_, "LogsRevertSort", "Reverse"));
    auto* layout = new QVBoxLayout(display);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(labels);
    layout->addWidget(story_, 2);
    layout->addWidget(image_, 2);
    layout->addWidget(logTabs_);
    layout->addWidget(logs_, 1);
    return display;
}

void TrackingDialog::BuildMenu() {
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* menu = bar->addMenu(ConfiguredTitle(session_, "ToolsTracking", "Tracking"));
    auto* dispatch = new QActionGroup(this);
    auto* show = new QActionGroup(this);
    for (std::size_t index = 0; index < std::size(kChoiceEntries); ++index) {
        const ChoiceEntry& choice = kChoiceEntries[index];
        if (index == 3 || index == 4 || index == 7) menu->addSeparator();
        QAction* action = menu->addAction(ConfiguredCaption(session_, choice.key, choice.design));
        action->setObjectName(QLatin1String(choice.entry));
        action->setCheckable(true);
        if (index < 3) dispatch->addAction(action);
        if (index >= 4 && index < 7) show->addAction(action);
        const int entry = static_cast<int>(index);
        connect(action, &QAction::triggered, this, [this, entry](bool checked) {
            Choose(WithEntry(window_.choices, entry, checked));
        });
        choiceEntries_.push_back(action);
    }
    for (const auto& [name, key, design] :
         {std::tuple{"mnuPopupDeleteAllStories", "TrackingClearAll", "Delete all"},
          std::tuple{"mnuPopupDeleteStories", "TrackingClearInsideItem", "Delete"},
          std::tuple{"mnuPopupSendMessage", "TrackingMessage", "Message"}}) {
        popup_->addAction(ConfiguredCaption(session_, key, design))
            ->setObjectName(QLatin1String(name));
    }
}

void TrackingDialog::Connect() {
    connect(update_, &QPushButton::clicked, this, &TrackingDialog::Update);
    connect(search_->lineEdit(), &QLineEdit::returnPressed, this, &TrackingDialog::Update);
    connect(tree_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        SelectTrackingNode(session_, window_, SessionTreeWidget::KeyOf(item));
        Refresh();
    });
    connect(tree_, &QWidget::customContextMenuRequested, this, [this](const QPoint& where) {
        QTreeWidgetItem* item = tree_->itemAt(where);
        if (item == nullptr) return;
        if (QMenu* menu = PopupFor(SessionTreeWidget::KeyOf(item)))
            menu->exec(tree_->viewport()->mapToGlobal(where));
    });
    connect(logTabs_, &QTabBar::currentChanged, this, &TrackingDialog::ShowLogs);
    const auto popupEntry = [this](const char* name) {
        return popup_->findChild<QAction*>(QLatin1String(name));
    };
    connect(popupEntry("mnuPopupDeleteStories"), &QAction::triggered, this, [this] {
        DeleteTrackingNode(session_, window_, window_.selected);
        Refresh();
    });
    connect(popupEntry("mnuPopupDeleteAllStories"), &QAction::triggered, this, [this] {
        const TreeNode* node = window_.state.Tree("treeTracking").Find(window_.selected);
        DeleteAllTracking(session_, window_, node == nullptr ? std::string() : node->text);
        Refresh();
    });
    connect(popupEntry("mnuPopupSendMessage"), &QAction::triggered, this,
            &TrackingDialog::SendMessage);
}

QMenu* TrackingDialog::PopupFor(const std::string& key) {
    const TreeNode* node = window_.state.Tree("treeTracking").Find(key);
    if (node == nullptr) return nullptr;
    SelectTrackingNode(session_, window_, key);
    Refresh();
    const TrackingPopup entries = PopupEntriesOf(session_, *node);
    const auto show = [this](const char* name, bool visible) {
        popup_->findChild<QAction*>(QLatin1String(name))->setVisible(visible);
    };
    show("mnuPopupDeleteStories", entries.deleteStories);
    show("mnuPopupDeleteAllStories", entries.deleteAllStories);
    show("mnuPopupSendMessage", entries.sendMessage);
    const bool any = entries.deleteStories || entries.deleteAllStories || entries.sendMessage;
    return any ? popup_ : nullptr;
}

void TrackingDialog::Choose(const TrackingChoices& choices) {
    ChooseTracking(session_, window_, choices);
    Refresh();
}

void TrackingDialog::Update() {
    window_.search = ToUtf8(search_->currentText());
    window_.matchCase = matchCase_->isChecked();
    UpdateTracking(session_, window_);
    Refresh();
}

void TrackingDialog::SendMessage() {
    const TreeNode* node = window_.state.Tree("treeTracking").Find(window_.selected);
    MessageWindow message;
    if (node == nullptr || !StartTrackingMessage(session_, window_, *node, message)) return;
    TrackingMessageDialog(session_, std::move(message), this).exec();
}

void TrackingDialog::Refresh() {
    for (std::size_t index = 0; index < choiceEntries_.size(); ++index)
        choiceEntries_[index]->setChecked(EntryChecked(window_.choices, static_cast<int>(index)));
    tree_->Show(window_.state.Tree("treeTracking"));
    tree_->expandAll();
    tree_->SelectKey(window_.selected);
    counts_->setText(ToQString(window_.state.Control("lblTreeTracking").caption));
    {
        const QSignalBlocker blocker(search_);
        const QString typed = search_->currentText();
        search_->clear();
        for (const ListItem& item : window_.state.List("lstTxtSearch").items)
            search_->addItem(ToQString(item.text));
        search_->setCurrentText(typed);
    }
    update_->setText(ToQString(window_.state.Control("cmdUpdate").caption));
    for (const char* name : {"lblTxtCreation", "lblTxtLastSave", "lblTxtLastAuthor"})
        findChild<QLabel*>(QLatin1String(name))
            ->setText(ToQString(window_.state.Control(name).caption));
    waiting_->setText(window_.waitingIn.empty()
                          ? QString()
                          : ConfiguredCaption(session_, "ToolsWaitingStories", "Waiting stories") +
                                QStringLiteral(": ") + ToQString(window_.waitingIn));
    story_->setPlainText(ToQString(window_.storyText));
    const QPixmap picture(ToQString(window_.picture.string()));
    image_->setVisible(!picture.isNull());
    image_->setPixmap(picture.isNull() ? QPixmap()
                                       : picture.scaled(image_->size(), Qt::KeepAspectRatio,
                                                        Qt::SmoothTransformation));
    logTabs_->setVisible(window_.state.Control("TabStripLogs").visible);
    ShowLogs();
}

void TrackingDialog::ShowLogs() {
    logs_->clear();
    const LogOrder order = logTabs_->currentIndex() == 1 ? LogOrder::Reverse : LogOrder::File;
    for (const StoryLog& log : LogsInOrder(window_.logs, order)) {
        auto* item = new QListWidgetItem(ToQString(log.text), logs_);
        if (const std::optional<OleColour> colour = LogTypeColour(log.type))
            item->setForeground(ColourOf(*colour));
    }
}

void TrackingDialog::done(int result) {
    session_.profile.Write(WindowPlacementEntries(*this, placement_));
    QDialog::done(result);
}

TrackingMessageDialog::TrackingMessageDialog(EditorSession& session, MessageWindow window,
                                             QWidget* parent)
    : QDialog(parent), session_(session), window_(std::move(window)) {
    setObjectName(QStringLiteral("frmTrackingMessage"));
    setWindowTitle(ToQString(window_.state.title));
    auto* form = new QFormLayout;
    const WindowState& state = window_.state;
    const auto caption = [&state](const char* name) { return ControlCaption(state, name, ""); };
    for (const auto& [label, value, text] :
         {std::tuple{"lblFrom", "lblTxtFrom", &window_.from},
          std::tuple{"lblTo", "lblTxtTo", &window_.to},
          std::tuple{"lblDate", "lblTxtDate", &window_.date},
          std::tuple{"lblStory", "lblTxtStory", &window_.story}}) {
        auto* name = Named<QLabel>(label, caption(label));
        auto* shown = Named<QLabel>(value, ToQString(*text));
        form->addRow(name, shown);
        ShowControlState(*name, state, label);
        ShowControlState(*shown, state, value);
    }
    auto* message = Named<QPlainTextEdit>("txtMessage");
    message->setPlainText(ToQString(window_.message));
    message->setReadOnly(window_.mode == MessageMode::Reading);
    form->addRow(Named<QLabel>("lblMessage", caption("lblMessage")), message);
    auto* ok = Named<QPushButton>("cmdOK", caption("cmdOK"));
    auto* open = Named<QPushButton>("cmdOpen", ConfiguredTitle(session_, "FileOpen", "Open"));
    auto* cancel = Named<QPushButton>("cmdCancel", caption("cmdCancel"));
    ok->setEnabled(!window_.message.empty());
    ShowControlState(*open, state, "cmdOpen");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {ok, open, cancel})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(message, &QPlainTextEdit::textChanged, this, [this, message, ok] {
        if (window_.mode != MessageMode::Sending) return;
        SetTrackingMessageText(window_, ToUtf8(message->toPlainText()));
        ok->setEnabled(window_.state.Control("cmdOK").enabled);
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        ConfirmMessage(session_, window_);
        accept();
    });
    connect(open, &QPushButton::clicked, this, [this] {
        OpenMessageStory(session_, window_);
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

}  // namespace tessarin
