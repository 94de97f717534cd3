#include "ui/search_stories_dialog.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "session/editor_session.h"
#include "story/file_operations.h"
#include "story/import_document.h"
#include "ui/configured_caption.h"
#include "ui/story_list.h"
#include "ui/story_preview.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 600;

const char* const kScopeKeys[][2] = {{"SearchStoriesAll", "Whole story"},
                                     {"SearchStoriesMetadata", "Metadata"},
                                     {"SearchStoriesText", "Text"},
                                     {"SearchStoriesIPTC", "IPTC of the images"}};
const char* const kOperatorKeys[][2] = {{"SearchStoriesExactExpression", "Exact expression"},
                                        {"SearchStoriesAnd", "All words"},
                                        {"SearchStoriesOr", "Any word"}};

}  // namespace

SearchStoriesDialog::SearchStoriesDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      settings_(ReadStorySearchSettings(session.profile.Load())),
      folder_(new QLabel(this)),
      text_(new QComboBox(this)),
      matchCase_(new QCheckBox(this)),
      includeBackups_(new QCheckBox(this)),
      search_(new QPushButton(this)),
      stories_(new QTreeWidget(this)),
      preview_(new QTextEdit(this)),
      found_(new QLabel(this)),
      allSelected_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("frmSearchStories"));
    setWindowTitle(ConfiguredTitle(session_, "SearchStories", "Search stories"));
    cache_.Load(SearchCacheFileBeside(session.paths.preferencesFile));

    folder_->setObjectName(QStringLiteral("lblFolder"));
    folder_->setText(QString::fromStdString(settings_.folder.string()));
    auto* browse = new QPushButton(ConfiguredCaption(session_, "SearchStoriesBrowse", "..."), this);
    browse->setObjectName(QStringLiteral("cmdBrowse"));
    text_->setObjectName(QStringLiteral("lstTxtSearch"));
    text_->setEditable(true);
    for (const std::string& earlier : settings_.history)
        text_->addItem(ToQString(earlier));
    text_->setCurrentText(QString());

    // The two groups of options are exclusive each on its own.
    auto* scopeBox = new QWidget(this);
    auto* scopeLayout = new QVBoxLayout(scopeBox);
    for (int index = 0; index < 4; ++index) {
        scopes_[index] = new QRadioButton(
            ConfiguredCaption(session_, kScopeKeys[index][0], kScopeKeys[index][1]), scopeBox);
        scopes_[index]->setObjectName(QStringLiteral("optSearch%1").arg(index));
        scopeLayout->addWidget(scopes_[index]);
    }
    auto* operatorBox = new QWidget(this);
    auto* operatorLayout = new QVBoxLayout(operatorBox);
    for (int index = 0; index < 3; ++index) {
        operators_[index] = new QRadioButton(
            ConfiguredCaption(session_, kOperatorKeys[index][0], kOperatorKeys[index][1]),
            operatorBox);
        operators_[index]->setObjectName(QStringLiteral("optOperator%1").arg(index));
        operatorLayout->addWidget(operators_[index]);
    }
    scopes_[static_cast<int>(settings_.scope)]->setChecked(true);
    operators_[static_cast<int>(settings_.op)]->setChecked(true);

    matchCase_->setObjectName(QStringLiteral("chkMatchCase"));
    matchCase_->setText(ConfiguredCaption(session_, "SearchTextMatchCase", "Match case"));
    matchCase_->setChecked(settings_.matchCase);
    includeBackups_->setObjectName(QStringLiteral("chkIncludeBackupStories"));
    includeBackups_->setText(
        ConfiguredCaption(session_, "SearchStoriesIncludeBackupStories", "Include backup stories"));
    includeBackups_->setChecked(settings_.includeBackups);
    search_->setObjectName(QStringLiteral("cmdSearch"));
    search_->setText(ConfiguredTitle(session_, "Search", "Search"));
    auto* open = new QPushButton(ConfiguredTitle(session_, "FileOpen", "Open"), this);
    open->setObjectName(QStringLiteral("cmdOpen"));
    auto* cancel = new QPushButton(ConfiguredCaption(session_, "Cancel", "Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));

    stories_->setObjectName(QStringLiteral("lvStories"));
    SetUpStoryList(*stories_);
    preview_->setObjectName(QStringLiteral("rtfStory"));
    preview_->setReadOnly(true);
    // The preview's menu copies what is selected in it.
    preview_->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction(ConfiguredTitle(session_, "EditionCopy", "Copy"), preview_);
    copy->setObjectName(QStringLiteral("mnuCopy"));
    connect(copy, &QAction::triggered, preview_, &QTextEdit::copy);
    preview_->addAction(copy);
    found_->setObjectName(QStringLiteral("lblStoriesFound"));
    allSelected_->setObjectName(QStringLiteral("lblAllStoriesSelected"));
    allSelected_->setText(
        ConfiguredMessage(session_, "AllStoriesSelected", "All stories selected"));
    allSelected_->hide();
    progress_->setObjectName(QStringLiteral("pbSearch"));
    progress_->hide();

    auto* top = new QHBoxLayout;
    top->addWidget(folder_, 1);
    top->addWidget(browse);
    auto* options = new QHBoxLayout;
    options->addWidget(scopeBox);
    options->addWidget(operatorBox);
    auto* checks = new QVBoxLayout;
    checks->addWidget(matchCase_);
    checks->addWidget(includeBackups_);
    options->addLayout(checks);
    options->addStretch(1);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(stories_);
    splitter->addWidget(preview_);
    placement_ = {"SearchStoriesWindow", {kWidth, kHeight}, splitter, "SizeBarV"};
    auto* status = new QHBoxLayout;
    status->addWidget(found_);
    status->addWidget(allSelected_);
    status->addWidget(progress_, 1);
    status->addStretch(1);
    status->addWidget(search_);
    status->addWidget(open);
    status->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(text_);
    layout->addLayout(options);
    layout->addWidget(splitter, 1);
    RestoreWindowPlacement(*this, session.profile.Load(), placement_);
    layout->addLayout(status);

    connect(browse, &QPushButton::clicked, this, [this] {
        const auto chosen = session_.user.ChooseFolder("", ToUtf8(folder_->text()));
        if (chosen) folder_->setText(QString::fromStdString(chosen->string()));
    });
    connect(search_, &QPushButton::clicked, this, &SearchStoriesDialog::Search);
    connect(includeBackups_, &QCheckBox::toggled, this, &SearchStoriesDialog::FillList);
    connect(stories_, &QTreeWidget::itemClicked, this, &SearchStoriesDialog::Preview);
    connect(stories_, &QTreeWidget::itemDoubleClicked, this, &SearchStoriesDialog::OpenSelected);
    connect(open, &QPushButton::clicked, this, &SearchStoriesDialog::OpenSelected);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

SearchStoriesDialog::~SearchStoriesDialog() {
    if (worker_.joinable()) worker_.join();
}

void SearchStoriesDialog::Search() {
    if (Searching()) return;
    stories_->clear();
    preview_->clear();
    found_->clear();
    settings_.folder = ToUtf8(folder_->text());
    settings_.matchCase = matchCase_->isChecked();
    for (int index = 0; index < 4; ++index)
        if (scopes_[index]->isChecked()) settings_.scope = static_cast<SearchScope>(index);
    for (int index = 0; index < 3; ++index)
        if (operators_[index]->isChecked()) settings_.op = static_cast<SearchOperator>(index);
    query_ = MakeSearchQuery(ToUtf8(text_->currentText()), settings_.scope, settings_.op,
                             settings_.matchCase);
    allSelected_->setVisible(query_.text.empty());
    if (!query_.text.empty()) {
        const QString typed = text_->currentText().trimmed();
        RememberSearchText(settings_.history, ToUtf8(typed));
        text_->clear();
        for (const std::string& earlier : settings_.history)
            text_->addItem(ToQString(earlier));
        text_->setCurrentText(typed);
    }
    found_->setText(ToQString(session_.Message("StoriesFound")) + ":");
    progress_->setValue(0);
    progress_->show();
    search_->setEnabled(false);
    worker_ = std::jthread([this, folder = settings_.folder, query = query_] {
        StorySearchResult result =
            SearchStories(folder, query, cache_, [this](std::size_t done, std::size_t total) {
                QMetaObject::invokeMethod(
                    this, [this, done, total] { ShowProgress(done, total); }, Qt::QueuedConnection);
            });
        QMetaObject::invokeMethod(
            this,
            [this, result = std::move(result)]() mutable {
                result_ = std::move(result);
                ShowResults();
            },
            Qt::QueuedConnection);
    });
}

void SearchStoriesDialog::ShowProgress(qulonglong done, qulonglong total) {
    progress_->setMaximum(static_cast<int>(total));
    progress_->setValue(static_cast<int>(done));
}

void SearchStoriesDialog::ShowResults() {
    worker_.join();
    cache_.Save(SearchCacheFileBeside(session_.paths.preferencesFile));
    progress_->hide();
    search_->setEnabled(true);
    FillList();
    emit searchFinished();
}

void SearchStoriesDialog::FillList() {
    if (Searching()) return;
    settings_.includeBackups = includeBackups_->isChecked();
    stories_->clear();
    for (const StoryRow* row : result_.Listed(settings_.includeBackups))
        AddStoryItem(*stories_, *row);
    found_->setText(ToQString(session_.Message("StoriesFound")) + ": " +
                    ToQString(result_.CountsText(settings_.includeBackups)));
}

void SearchStoriesDialog::Preview() {
    const QTreeWidgetItem* item = stories_->currentItem();
    if (item == nullptr) return;
    ShowStoryPreview(*preview_, StoryItemPath(*item), session_.preferences, &query_);
}

void SearchStoriesDialog::OpenSelected() {
    const QTreeWidgetItem* item = stories_->currentItem();
    if (item == nullptr) {
        session_.user.Tell(session_.Message("SelectStory"), MessageIcon::Exclamation);
        return;
    }
    const std::filesystem::path file = StoryItemPath(*item);
    if (!SettleChangesBeforeLoss(session_)) return;
    if (OpenStoryFile(session_, file, StandardDocumentImport())) accept();
}

void SearchStoriesDialog::StoreSettings() {
    settings_.folder = ToUtf8(folder_->text());
    settings_.includeBackups = includeBackups_->isChecked();
    settings_.matchCase = matchCase_->isChecked();
    WriteStorySearchSettings(session_.profile, settings_);
}

void SearchStoriesDialog::done(int result) {
    if (worker_.joinable()) worker_.join();
    StoreSettings();
    session_.profile.Write(WindowPlacementEntries(*this, placement_));
    QDialog::done(result);
}

}  // namespace tessarin
