// The metadata tab: its controls, how they show the session and where the gestures go.

#include "ui/metadata_panel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>

#include "config/publications_tree.h"
#include "metadata/keywords.h"
#include "metadata/metadata_choices.h"
#include "metadata/metadata_fields.h"
#include "metadata/publication_selection.h"
#include "metadata/story_metadata_trees.h"
#include "metadata/taxonomy.h"
#include "ui/configured_caption.h"
#include "ui/date_calendar_button.h"
#include "ui/metadata_dialog.h"
#include "ui/qt_user_interaction.h"
#include "ui/search_publications_dialog.h"
#include "ui/session_tree_widget.h"
#include "ui/styled_text_bridge.h"
#include "ui/tool_tip_text.h"
#include "ui/up_down_control.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr const char* kColdStoryDesign = "Cold story";
constexpr const char* kMetadataButtonDesign = "Metadata";
constexpr const char* kMetadataLockedDesign = "Metadata locked";
constexpr const char* kSearchTaxonomyDesign = "Search taxonomy";
constexpr int kFieldsColumnWidth = 380;

// A label of the identity block and the story value its partner shows.
struct IdentityRow {
    const char* label;
    const char* value;
    std::string (*text)(const StoryRecord& story);
};

constexpr IdentityRow kIdentityRows[] = {
    {"lblAuthor", "lblTxtAuthor", [](const StoryRecord& s) { return s.author; }},
    {"lblEmail", "lblTxtEmail", [](const StoryRecord& s) { return s.email; }},
    {"lblGroup", "lblTxtGroup", [](const StoryRecord& s) { return s.group; }},
    {"lblInitials", "lblTxtInitials", [](const StoryRecord& s) { return s.initials; }},
    {"lblCreationDate", "lblTxtCreationDate",
     [](const StoryRecord& s) { return s.creation.Empty() ? "" : s.creation.Display(); }},
    {"lblLastSaveDate", "lblTxtLastSaveDate",
     [](const StoryRecord& s) { return s.lastSave.Empty() ? "" : s.lastSave.Display(); }},
};

const TreeModel& TreeOf(const WindowState& window, std::string_view name) {
    static const TreeModel kEmpty;
    const TreeModel* tree = window.FindTree(name);
    return tree ? *tree : kEmpty;
}

void ShowList(QComboBox& list, const ListModel* model, int chosen) {
    QStringList texts;
    if (model != nullptr) {
        for (const ListItem& item : model->items)
            texts << ToQString(item.text);
    }
    QStringList shown;
    for (int row = 0; row < list.count(); ++row)
        shown << list.itemText(row);
    if (shown != texts) {
        list.clear();
        list.addItems(texts);
    }
    list.setCurrentIndex(chosen < list.count() ? chosen : -1);
}

// The entry line of the keyword tree is the one node whose text the writer edits.
bool IsKeywordEntryLine(const TreeNode& node) {
    const std::size_t slash = node.key.rfind('/');
    return slash != std::string::npos && node.key == KeywordEntryKey(node.key.substr(0, slash));
}

}  // namespace

MetadataPanel::MetadataPanel(EditorSession& session, QWidget* parent)
    : SessionView(session, parent) {
    setObjectName(QStringLiteral("MetadataPanel"));
    BuildLayout();
    Refresh();
}

MetadataPanel::~MetadataPanel() {
    // Closing moves the focus out of a field, which would report a gesture to a panel that is
    // going away.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

template <typename Widget>
Widget* MetadataPanel::Bound(Widget* widget, const char* name) {
    widget->setObjectName(QString::fromUtf8(name));
    bound_.emplace_back(widget, name);
    return widget;
}

QLabel* MetadataPanel::AddLabel(QGridLayout& grid, int row, const char* name) {
    auto* label = new QLabel(this);
    label->setObjectName(QString::fromUtf8(name));
    labels_.emplace_back(label, name);
    grid.addWidget(label, row, 0);
    return label;
}

void MetadataPanel::AddRow(QGridLayout& grid, int row, const char* labelName, QWidget* field) {
    AddLabel(grid, row, labelName);
    grid.addWidget(field, row, 1);
}

void MetadataPanel::BuildLayout() {
    auto* fields = new QWidget(this);
    fields->setFixedWidth(kFieldsColumnWidth);
    auto* grid = new QGridLayout(fields);
    BuildIdentity(*grid);
    BuildDates(*grid);
    BuildChoices(*grid);
    BuildClassification(*grid);
    grid->setRowStretch(grid->rowCount(), 1);

    auto* columns = new QHBoxLayout(this);
    columns->addWidget(fields);
    columns->addWidget(BuildTrees(), 1);
}

void MetadataPanel::BuildIdentity(QGridLayout& grid) {
    for (const IdentityRow& row : kIdentityRows) {
        auto* value = Bound(new QLabel(this), row.value);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        AddRow(grid, grid.rowCount(), row.label, value);
        identity_.push_back(value);
    }
}

MetadataPanel::DateControls MetadataPanel::BuildDate(DateField field, const char* name,
                                                     const char* upDownName, const char* buttonName,
                                                     const char* monthViewName) {
    DateControls controls;
    controls.field = Bound(new QLineEdit(this), name);
    controls.upDown = Bound(new UpDownControl(upDownName, this), upDownName);
    controls.calendar = Bound(
        new DateCalendarButton(buttonName, QString::fromUtf8(monthViewName), this), buttonName);
    connect(controls.field, &QLineEdit::textEdited, this, [this, field](const QString& text) {
        Run([&] { TypeDate(session_, field, ToUtf8(text)); });
    });
    connect(controls.field, &QLineEdit::editingFinished, this,
            [this, field] { Run([&] { LeaveDateField(session_, field); }); });
    connect(controls.upDown, &UpDownControl::stepped, this,
            [this, field](int direction) { Run([&] { StepDate(session_, field, direction); }); });
    DateCalendarButton* button = controls.calendar;
    connect(button, &DateCalendarButton::calendarRequested, this, [this, field, button] {
        const StoryRecord& story = session_.story;
        button->PopUp(CalendarStartDay(field == DateField::Publication ? story.publicationDate
                                                                       : story.eventDate),
                      session_.preferences);
    });
    connect(button, &DateCalendarButton::dayPicked, this, [this, field](const LocalDateTime& day) {
        Run([&] { PickCalendarDay(session_, field, day); });
    });
    return controls;
}

void MetadataPanel::BuildDates(QGridLayout& grid) {
    publicationDate_ = BuildDate(DateField::Publication, "txtPublicationDate", "udDate", "cmdDate",
                                 "MonthViewPublicationDate");
    coldStory_ = Bound(new QCheckBox(this), "chkColdStory");
    connect(coldStory_, &QCheckBox::clicked, this,
            [this](bool cold) { Run([&] { SetColdStory(session_, cold); }); });
    auto* dateRow = new QHBoxLayout;
    dateRow->addWidget(publicationDate_.field, 1);
    dateRow->addWidget(publicationDate_.upDown);
    dateRow->addWidget(publicationDate_.calendar);
    const int dateLine = grid.rowCount();
    AddLabel(grid, dateLine, "lblPublicationDate");
    grid.addLayout(dateRow, dateLine, 1);
    grid.addWidget(coldStory_, dateLine + 1, 1, Qt::AlignLeft);

    publicationNumber_ = Bound(new QLineEdit(this), "txtPublicationNumber");
    auto* numberUpDown = Bound(new UpDownControl(QStringLiteral("udNumber"), this), "udNumber");
    connect(publicationNumber_, &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] { TypePublicationNumber(session_, ToUtf8(text)); });
    });
    connect(publicationNumber_, &QLineEdit::editingFinished, this,
            [this] { Run([&] { LeavePublicationNumber(session_); }); });
    connect(numberUpDown, &UpDownControl::stepped, this,
            [this](int direction) { Run([&] { StepPublicationNumber(session_, direction); }); });
    auto* numberRow = new QHBoxLayout;
    numberRow->addWidget(publicationNumber_, 1);
    numberRow->addWidget(numberUpDown);
    const int numberLine = grid.rowCount();
    AddLabel(grid, numberLine, "lblPublicationNumber");
    grid.addLayout(numberRow, numberLine, 1);

    eventDate_ = BuildDate(DateField::Event, "txtEventDate", "udEventDate", "cmdEventDate",
                           "MonthViewEventDate");
    auto* eventRow = new QHBoxLayout;
    eventRow->addWidget(eventDate_.field, 1);
    eventRow->addWidget(eventDate_.upDown);
    eventRow->addWidget(eventDate_.calendar);
    const int eventLine = grid.rowCount();
    AddLabel(grid, eventLine, "lblEventDate");
    grid.addLayout(eventRow, eventLine, 1);
}

void MetadataPanel::BuildChoices(QGridLayout& grid) {
    status_ = Bound(new QComboBox(this), "lstStatus");
    genre_ = Bound(new QComboBox(this), "lstGenre");
    connect(status_, &QComboBox::activated, this,
            [this](int index) { Run([&] { ChooseStatus(session_, index); }); });
    connect(genre_, &QComboBox::activated, this,
            [this](int index) { Run([&] { ChooseGenre(session_, index); }); });
    AddRow(grid, grid.rowCount(), "lblStatus", status_);
    AddRow(grid, grid.rowCount(), "lblGenre", genre_);
}

void MetadataPanel::BuildClassification(QGridLayout& grid) {
    std::size_t index = 0;
    for (const ClassificationField& field : ClassificationFields()) {
        const std::string name(field.name);
        auto* edit = Bound(new QLineEdit(this), ("txt" + name).c_str());
        edit->setReadOnly(true);
        classification_[index++] = edit;
        AddRow(grid, grid.rowCount(), ("lbl" + name).c_str(), edit);
    }
    metadataButton_ = Bound(new QPushButton(this), "cmdMetadata");
    connect(metadataButton_, &QPushButton::clicked, this, &MetadataPanel::EditClassification);
    grid.addWidget(metadataButton_, grid.rowCount(), 1, Qt::AlignLeft);
    lockedLabel_ = Bound(new QLabel(this), "lblMetadataLocked");
    lockedLabel_->setText(QString::fromUtf8(kMetadataLockedDesign));
    lockedLabel_->setStyleSheet(QStringLiteral("color: #c00000; font-weight: bold"));
    lockedLabel_->hide();
    grid.addWidget(lockedLabel_, grid.rowCount(), 0, 1, 2);
}

QWidget* MetadataPanel::BuildTrees() {
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("SizeBarV"));
    publications_ = new SessionTreeWidget(QString::fromUtf8(kPublicationsTree.data()), splitter);
    auto* rightColumn = new QSplitter(Qt::Vertical, splitter);
    taxonomy_ = new SessionTreeWidget(QString::fromUtf8(kTaxonomyTree.data()), rightColumn);
    keywords_ = new SessionTreeWidget(QString::fromUtf8(kKeywordsTree.data()), rightColumn);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);

    for (auto [tree, name] :
         {std::pair{publications_, kPublicationsTree}, std::pair{taxonomy_, kTaxonomyTree}}) {
        tree->SetBackColour([this, name](const TreeNode& node) {
            return ToQColor(session_.highlights.BackColour(name, node, session_.preferences));
        });
    }
    keywords_->SetEditable(IsKeywordEntryLine);
    keywords_->setEditTriggers(QAbstractItemView::DoubleClicked |
                               QAbstractItemView::SelectedClicked |
                               QAbstractItemView::EditKeyPressed);
    keywords_->installEventFilter(this);

    connect(publications_, &QTreeWidget::itemClicked, this, &MetadataPanel::ClickPublication);
    connect(publications_, &QTreeWidget::itemEntered, this, [this](QTreeWidgetItem* item) {
        ShowTreeTip(*publications_, PointPublicationNode(session_, SessionTreeWidget::KeyOf(item)));
    });
    connect(taxonomy_, &QTreeWidget::itemChanged, this, &MetadataPanel::CheckTopic);
    connect(taxonomy_, &QTreeWidget::itemEntered, this, [this](QTreeWidgetItem* item) {
        ShowTreeTip(*taxonomy_, PointTaxonomyNode(session_, SessionTreeWidget::KeyOf(item)));
    });
    connect(keywords_, &QTreeWidget::itemChanged, this, &MetadataPanel::EditKeyword);
    for (SessionTreeWidget* tree : {publications_, taxonomy_, keywords_}) {
        connect(tree, &SessionTreeWidget::expansionChanged, this,
                [this, tree](const std::string& key, bool expanded) {
                    TreeNode* node = session_.window.Tree(ToUtf8(tree->objectName())).Find(key);
                    if (node != nullptr) node->expanded = expanded;
                });
    }
    return splitter;
}

void MetadataPanel::Refresh() {
    // A tab that is not shown is brought up to date when it is shown.
    if (!isVisible()) {
        stale_ = true;
        return;
    }
    stale_ = false;
    // Showing the session moves focus and selection; what the controls report meanwhile is
    // no gesture of the writer.
    const QScopedValueRollback showing(refreshing_, true);
    ShowStoryMetadataTrees(session_);
    ShowFields();
    ShowChoices();
    ShowTrees();
    const WindowState& window = session_.window;
    for (const auto& [widget, name] : bound_)
        ShowControlState(*widget, window, name);
    for (const auto& [label, name] : labels_)
        ShowLabelCaption(*label, window, name);
}

void MetadataPanel::ShowFields() {
    const StoryRecord& story = session_.story;
    for (std::size_t row = 0; row < identity_.size(); ++row)
        identity_[row]->setText(ToQString(kIdentityRows[row].text(story)));
    ShowFieldText(*publicationDate_.field, story.publicationDate);
    publicationDate_.calendar->ShowMonth(CalendarMonth(story.publicationDate));
    ShowFieldText(*eventDate_.field, story.eventDate);
    eventDate_.calendar->ShowMonth(CalendarMonth(story.eventDate));
    ShowFieldText(*publicationNumber_, story.publicationNumber);
    const ClassificationValues values = ReadClassification(story);
    for (std::size_t index = 0; index < values.size(); ++index)
        ShowFieldText(*classification_[index], values[index]);
    const WindowState& window = session_.window;
    coldStory_->setText(ControlCaption(window, "chkColdStory", kColdStoryDesign));
    coldStory_->setChecked(story.coldStory);
    metadataButton_->setText(ControlCaption(window, "cmdMetadata", kMetadataButtonDesign));
}

void MetadataPanel::ShowChoices() {
    const WindowState& window = session_.window;
    ShowList(*status_, window.FindList("lstStatus"), session_.story.statusIndex);
    ShowList(*genre_, window.FindList("lstGenre"), session_.story.genreIndex);
}

void MetadataPanel::ShowTrees() {
    const WindowState& window = session_.window;
    const Configuration& configuration = session_.configuration;
    publications_->Show(TreeOf(window, kPublicationsTree));
    taxonomy_->Show(TreeOf(window, kTaxonomyTree));
    keywords_->Show(TreeOf(window, kKeywordsTree));
    // The publication chosen stays selected only while its chain is highlighted: a new story
    // has none.
    const TreeNode* chosen = TreeOf(window, kPublicationsTree).Find(publications_->CurrentKey());
    if (chosen == nullptr || !session_.highlights.IsHighlighted(kPublicationsTree, *chosen)) {
        publications_->setCurrentItem(nullptr);
        publications_->clearSelection();
    }
    ShowControlState(*publications_, window, kPublicationsTree);
    ShowControlState(*taxonomy_, window, kTaxonomyTree, configuration.taxonomyOn);
    ShowControlState(*keywords_, window, kKeywordsTree, configuration.keywordsOn);
}

void MetadataPanel::ShowTreeTip(SessionTreeWidget& tree, bool changed) {
    if (!changed) return;
    const ControlState* control = session_.window.FindControl(ToUtf8(tree.objectName()));
    tree.setToolTip(control ? ToolTipText(control->toolTip) : QString());
}

void MetadataPanel::ClickPublication(QTreeWidgetItem* item) {
    Run([&] {
        ClickPublicationNode(session_, session_.highlights, SessionTreeWidget::KeyOf(item));
    });
}

void MetadataPanel::CheckTopic(QTreeWidgetItem* item) {
    const bool checked = item->checkState(0) == Qt::Checked;
    Run([&] {
        CheckTaxonomyTopic(session_, session_.highlights, SessionTreeWidget::KeyOf(item), checked);
    });
}

void MetadataPanel::EditKeyword(QTreeWidgetItem* item) {
    // The item being edited is rebuilt by the change, so the edit is taken once the editor
    // has let go of it.
    const std::string key = SessionTreeWidget::KeyOf(item);
    const std::string text = ToUtf8(item->text(0));
    QMetaObject::invokeMethod(
        this,
        [this, key, text] {
            KeywordEdit edit;
            Run([&] { edit = AddKeyword(session_, key, text); });
            keywords_->SelectKey(edit.selectKey);
        },
        Qt::QueuedConnection);
}

void MetadataPanel::RemoveSelectedKeyword() {
    KeywordEdit edit;
    Run([&] { edit = RemoveKeyword(session_, keywords_->CurrentKey()); });
    keywords_->SelectKey(edit.selectKey);
}

bool MetadataPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == keywords_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Delete) {
            RemoveSelectedKeyword();
            return true;
        }
        // The Enter key that an open editor lets through is not the tree's own.
        const bool editing = keywords_->viewport()->isAncestorOf(QApplication::focusWidget());
        QTreeWidgetItem* current = keywords_->currentItem();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !editing && current != nullptr &&
            (current->flags() & Qt::ItemIsEditable)) {
            keywords_->editItem(current);
            return true;
        }
    }
    return SessionView::eventFilter(watched, event);
}

void MetadataPanel::showEvent(QShowEvent* event) {
    SessionView::showEvent(event);
    if (stale_) Refresh();
}

void MetadataPanel::Run(const std::function<void()>& gesture) {
    if (refreshing_) return;
    gesture();
    Refresh();
    emit sessionChanged();
}

void MetadataPanel::ShowPreferredPublications() {
    Run([this] {
        tessarin::ShowPreferredPublications(session_.paths.configurationFile, session_.preferences,
                                            session_.configuration, session_.window);
    });
}

void MetadataPanel::ShowAllPublications() {
    Run([this] {
        tessarin::ShowAllPublications(session_.paths.configurationFile, session_.preferences,
                                      session_.configuration, session_.window);
    });
}

void MetadataPanel::SearchPublications() {
    SearchPublicationsDialog dialog(session_, this);
    connect(&dialog, &SearchPublicationsDialog::viewChanged, this, [this] {
        Refresh();
        emit sessionChanged();
    });
    if (dialog.exec() != QDialog::Accepted) return;
    Refresh();
    if (dialog.FirstMatch()) publications_->ScrollToKey(*dialog.FirstMatch());
}

void MetadataPanel::SearchTaxonomy() {
    const std::string prompt = TaxonomySearchPrompt(
        ToUtf8(ConfiguredTitle(session_, "SearchTaxonomy", kSearchTaxonomyDesign)),
        session_.window);
    bool answered = false;
    const QString answer =
        QInputDialog::getText(this, QStringLiteral("Tessarin - " TESSARIN_VERSION),
                              ToQString(prompt), QLineEdit::Normal, QString(), &answered);
    if (!answered) return;
    std::optional<std::string> firstMatch;
    Run([&] {
        firstMatch = tessarin::SearchTaxonomy(session_.window, session_.highlights, ToUtf8(answer));
    });
    if (firstMatch) taxonomy_->ScrollToKey(*firstMatch);
}

void MetadataPanel::LockMetadata(bool locked) {
    Run([&] { SetMetadataLock(session_, locked); });
}

void MetadataPanel::EditClassification() {
    MetadataDialog dialog(session_, this);
    if (dialog.exec() != QDialog::Accepted) return;
    Run([&] { ApplyClassification(session_, dialog.Values()); });
}

}  // namespace tessarin
