#include "ui/my_stories_dialog.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextEdit>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "common/file_io.h"
#include "session/editor_session.h"
#include "story/file_operations.h"
#include "story/import_document.h"
#include "ui/configured_caption.h"
#include "ui/search_stories_dialog.h"
#include "ui/story_list.h"
#include "ui/story_preview.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 600;

QPushButton* NewButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    return button;
}

// Files that the open command takes: stories, backup stories and documents to import.
bool OpensInTheEditor(const std::filesystem::path& file) {
    QString extension = QString::fromStdString(file.extension().string()).toLower();
    for (const char* known : {".xml", ".bml", ".doc", ".docx", ".odt", ".rtf", ".txt"})
        if (extension == QLatin1String(known)) return true;
    return false;
}

}  // namespace

MyStoriesDialog::MyStoriesDialog(EditorSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      includeBackups_(new QCheckBox(this)),
      stories_(new QTreeWidget(this)),
      preview_(new QTextEdit(this)),
      count_(new QLabel(this)) {
    const WorkflowSettings& workflow = session.configuration.workflow;
    setObjectName(QStringLiteral("frmMyStories"));
    setWindowTitle(ConfiguredTitle(session_, "FileMyStories", "My stories"));
    cache_.Load(SearchCacheFileBeside(session.paths.preferencesFile));

    auto* personal =
        new QLabel(ConfiguredCaption(session_, "MyStoriesDirectoryPersonal", "Personal") + " " +
                       ToQString(workflow.PersonalTextsDirectory),
                   this);
    personal->setObjectName(QStringLiteral("lblPersonal"));
    auto* archives =
        new QLabel(ConfiguredCaption(session_, "MyStoriesDirectoryArchives", "Archives") + " " +
                       ToQString(workflow.PersonalArchivesDirectory),
                   this);
    archives->setObjectName(QStringLiteral("lblArchives"));
    auto* help = new QLabel(ConfiguredCaption(session_, "MyStoriesHelp", ""), this);
    help->setObjectName(QStringLiteral("lblHelp"));
    auto* search =
        new QLabel(QStringLiteral("<a href=\"#\">%1</a>")
                       .arg(ConfiguredTitle(session_, "SearchStories", "Search stories")),
                   this);
    search->setObjectName(QStringLiteral("lblSearchStories"));
    includeBackups_->setObjectName(QStringLiteral("chkIncludeBackupStories"));
    includeBackups_->setText(
        ConfiguredCaption(session_, "SearchStoriesIncludeBackupStories", "Include backup stories"));
    stories_->setObjectName(QStringLiteral("lvStories"));
    SetUpStoryList(*stories_);
    preview_->setObjectName(QStringLiteral("rtfStory"));
    preview_->setReadOnly(true);
    count_->setObjectName(QStringLiteral("lblCount"));
    auto* open =
        NewButton(QStringLiteral("cmdOpen"), ConfiguredTitle(session_, "FileOpen", "Open"), this);
    auto* move =
        NewButton(QStringLiteral("cmdArchives"),
                  ConfiguredCaption(session_, "MyStoriesDirectoryArchives", "Archives"), this);
    auto* remove = NewButton(QStringLiteral("cmdRemove"),
                             ConfiguredCaption(session_, "RemoveLabel", "Remove"), this);
    auto* raw = NewButton(QStringLiteral("cmdXML"), QStringLiteral("XML"), this);
    auto* cancel = NewButton(QStringLiteral("cmdCancel"),
                             ConfiguredCaption(session_, "Cancel", "Cancel"), this);

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(stories_);
    splitter->addWidget(preview_);
    placement_ = {"MyStoriesWindow", {kWidth, kHeight}, splitter, "SizeBarH"};
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(count_);
    buttons->addWidget(includeBackups_);
    buttons->addWidget(search);
    buttons->addStretch(1);
    for (QPushButton* button : {open, move, remove, raw, cancel})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(personal);
    layout->addWidget(archives);
    layout->addWidget(help);
    layout->addWidget(splitter, 1);
    RestoreWindowPlacement(*this, session.profile.Load(), placement_);
    layout->addLayout(buttons);

    connect(includeBackups_, &QCheckBox::toggled, this, &MyStoriesDialog::GetStories);
    connect(stories_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        ShowStoryPreview(*preview_, StoryItemPath(*item), session_.preferences);
    });
    connect(stories_, &QTreeWidget::itemDoubleClicked, this, &MyStoriesDialog::OpenSelected);
    connect(open, &QPushButton::clicked, this, &MyStoriesDialog::OpenSelected);
    connect(move, &QPushButton::clicked, this, &MyStoriesDialog::MoveSelected);
    connect(remove, &QPushButton::clicked, this, &MyStoriesDialog::RemoveSelected);
    connect(raw, &QPushButton::clicked, this, &MyStoriesDialog::ShowRawFile);
    connect(search, &QLabel::linkActivated, this, [this] {
        SearchStoriesDialog dialog(session_, this);
        if (dialog.exec() == QDialog::Accepted) accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    GetStories();
}

void MyStoriesDialog::GetStories() {
    const WorkflowSettings& workflow = session_.configuration.workflow;
    files_ = GetDeskFiles(workflow.PersonalTextsDirectory, workflow.PersonalArchivesDirectory,
                          includeBackups_->isChecked(), cache_, session_.user);
    cache_.Save(SearchCacheFileBeside(session_.paths.preferencesFile));
    stories_->clear();
    preview_->clear();
    for (std::size_t index = 0; index < files_.size(); ++index)
        AddStoryItem(*stories_, files_[index].row, files_[index].story)
            ->setData(1, Qt::UserRole, static_cast<qulonglong>(index));
    count_->setText(QString::number(files_.size()));
}

const DeskFile* MyStoriesDialog::Selected() const {
    const QTreeWidgetItem* item = stories_->currentItem();
    if (item == nullptr) return nullptr;
    return &files_.at(item->data(1, Qt::UserRole).toULongLong());
}

void MyStoriesDialog::OpenSelected() {
    const DeskFile* file = Selected();
    if (file == nullptr) {
        session_.user.Tell(session_.Message("SelectStory"), MessageIcon::Exclamation);
        return;
    }
    const std::filesystem::path path = file->row.Path();
    if (!OpensInTheEditor(path)) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path.string())));
        return;
    }
    if (!SettleChangesBeforeLoss(session_)) return;
    if (OpenStoryFile(session_, path, StandardDocumentImport())) accept();
}

void MyStoriesDialog::MoveSelected() {
    const DeskFile* file = Selected();
    if (file == nullptr) return;
    const WorkflowSettings& workflow = session_.configuration.workflow;
    MoveBetweenDesks(*file, workflow.PersonalTextsDirectory, workflow.PersonalArchivesDirectory,
                     session_.configuration.messages, session_.user);
    GetStories();
}

// The selected files go to the desktop's trash, from where they can be put back, once the
// user has confirmed, as the desktop itself asks before such a move.
void MyStoriesDialog::RemoveSelected() {
    const QList<QTreeWidgetItem*> selected = stories_->selectedItems();
    if (selected.isEmpty()) return;
    const std::string question =
        selected.size() == 1
            ? "Move \"" + StoryItemPath(*selected.front()).filename().string() + "\" to the trash?"
            : "Move these " + std::to_string(selected.size()) + " files to the trash?";
    if (session_.user.Ask(question, false, MessageIcon::Question) != Answer::Yes) return;
    bool removed = false;
    for (const QTreeWidgetItem* item : selected) {
        const std::filesystem::path path = StoryItemPath(*item);
        if (QFile::moveToTrash(QString::fromStdString(path.string())))
            removed = true;
        else
            session_.user.Tell("Cannot move to the trash:\n" + path.string(),
                               MessageIcon::Exclamation);
    }
    if (removed) GetStories();
}

void MyStoriesDialog::done(int result) {
    session_.profile.Write(WindowPlacementEntries(*this, placement_));
    QDialog::done(result);
}

void MyStoriesDialog::ShowRawFile() {
    const DeskFile* file = Selected();
    if (file == nullptr || !file->story) return;
    QDialog viewer(this);
    viewer.setObjectName(QStringLiteral("frmXML"));
    viewer.setWindowTitle(QString::fromStdString(file->row.name));
    viewer.resize(kWidth, kHeight);
    auto* text = new QPlainTextEdit(&viewer);
    text->setObjectName(QStringLiteral("txtXML"));
    text->setReadOnly(true);
    text->setPlainText(ToQString(ReadFileBytes(file->row.Path()).value_or("")));
    (new QVBoxLayout(&viewer))->addWidget(text);
    viewer.exec();
}

}  // namespace tessarin
