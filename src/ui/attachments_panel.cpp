// The pictures and files tab: its controls, how they show the session and where the
// gestures go.

#include "ui/attachments_panel.h"

#include <QDesktopServices>
#include <QDropEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>

#include "attachments/attachment_fields.h"
#include "attachments/attachments.h"
#include "attachments/story_attachment_trees.h"
#include "metadata/field_labels.h"
#include "ui/configured_caption.h"
#include "ui/iptc_dialog.h"
#include "ui/session_tree_widget.h"
#include "ui/tool_tip_text.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr const char* kIptcCaption = "IPTC...";
constexpr int kPreviewMinimum = 160;

// The picture's file while a picture node is selected; empty otherwise.
std::string SelectedPicturePath(const EditorSession& session, const std::string& key) {
    const auto index = AttachmentIndex(session, AttachmentKind::Image, key);
    return index ? session.story.images[*index].path : std::string();
}

}  // namespace

AttachmentsPanel::AttachmentsPanel(EditorSession& session, QWidget* parent)
    : SessionView(session, parent) {
    setObjectName(QStringLiteral("AttachmentsPanel"));
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("SizeBarVImage"));
    splitter->addWidget(BuildImagesPart());
    splitter->addWidget(BuildOtherFilesPart());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);
    Refresh();
}

AttachmentsPanel::~AttachmentsPanel() {
    // The trees and fields report their last changes while they are taken down.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

QLineEdit* AttachmentsPanel::NewField(const char* name, const char* labelName, QWidget* parent,
                                      QLabel** label) {
    *label = new QLabel(parent);
    (*label)->setObjectName(QString::fromUtf8(labelName));
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromUtf8(name));
    return field;
}

SessionTreeWidget* AttachmentsPanel::BuildTree(AttachmentKind kind) {
    auto* tree = new SessionTreeWidget(ToQString(AttachmentTreeName(kind)), this);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);
    for (QObject* target : {static_cast<QObject*>(tree), static_cast<QObject*>(tree->viewport())}) {
        targets_.emplace(target, kind);
        target->installEventFilter(this);
    }
    tree->viewport()->setAcceptDrops(true);
    connect(tree, &QTreeWidget::currentItemChanged, this, [this, kind](QTreeWidgetItem* item) {
        if (refreshing_) return;
        if (kind == AttachmentKind::Image)
            tessarin::ShowImage(session_, SessionTreeWidget::KeyOf(item));
        Refresh();
    });
    connect(tree, &QWidget::customContextMenuRequested, this,
            [this, kind](const QPoint& where) { ShowContextMenu(kind, where); });
    connect(tree, &SessionTreeWidget::expansionChanged, this,
            [this, kind](const std::string& key, bool expanded) {
                TreeNode* node = session_.window.Tree(AttachmentTreeName(kind)).Find(key);
                if (node != nullptr) node->expanded = expanded;
            });
    return tree;
}

QPushButton* AttachmentsPanel::BuildAddButton(AttachmentKind kind, QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(kind == AttachmentKind::Image ? QStringLiteral("cmdAddImage")
                                                        : QStringLiteral("cmdAddOtherFile"));
    connect(button, &QPushButton::clicked, this, [this, kind] { Add(kind); });
    return button;
}

QWidget* AttachmentsPanel::BuildImagesPart() {
    auto* part = new QWidget(this);
    images_ = BuildTree(AttachmentKind::Image);
    addImage_ = BuildAddButton(AttachmentKind::Image, part);
    caption_ = NewField("txtImageCaption", "lblImageCaption", part, &captionLabel_);
    credit_ = NewField("txtImageCredit", "lblImageCredit", part, &creditLabel_);
    connect(caption_, &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] { TypeImageCaption(session_, images_->CurrentKey(), ToUtf8(text)); });
    });
    connect(credit_, &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] { TypeImageCredit(session_, images_->CurrentKey(), ToUtf8(text)); });
    });
    info_ = new QLabel(part);
    info_->setObjectName(ToQString(kImageInfoLabel));
    info_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    copyFit_ = new QLabel(part);
    copyFit_->setObjectName(ToQString(kImagesCopyfitLabel));
    preview_ = new QLabel(part);
    preview_->setObjectName(QStringLiteral("picImage"));
    preview_->setAlignment(Qt::AlignCenter);
    preview_->setMinimumSize(kPreviewMinimum, kPreviewMinimum);
    preview_->setAcceptDrops(true);
    targets_.emplace(preview_, AttachmentKind::Image);
    preview_->installEventFilter(this);

    auto* fields = new QGridLayout;
    fields->addWidget(captionLabel_, 0, 0);
    fields->addWidget(caption_, 0, 1);
    fields->addWidget(creditLabel_, 1, 0);
    fields->addWidget(credit_, 1, 1);
    auto* layout = new QVBoxLayout(part);
    layout->addWidget(images_, 1);
    layout->addWidget(addImage_, 0, Qt::AlignLeft);
    layout->addLayout(fields);
    layout->addWidget(info_);
    layout->addWidget(copyFit_);
    layout->addWidget(preview_, 2);
    return part;
}

QWidget* AttachmentsPanel::BuildOtherFilesPart() {
    otherFilesPart_ = new QWidget(this);
    otherFiles_ = BuildTree(AttachmentKind::OtherFile);
    addOtherFile_ = BuildAddButton(AttachmentKind::OtherFile, otherFilesPart_);
    description_ = NewField("txtOtherFileDescription", "lblOtherFileDescription", otherFilesPart_,
                            &descriptionLabel_);
    connect(description_, &QLineEdit::textEdited, this, [this](const QString& text) {
        Run([&] { TypeOtherFileDescription(session_, otherFiles_->CurrentKey(), ToUtf8(text)); });
    });
    auto* layout = new QVBoxLayout(otherFilesPart_);
    layout->addWidget(otherFiles_, 1);
    layout->addWidget(addOtherFile_, 0, Qt::AlignLeft);
    layout->addWidget(descriptionLabel_);
    layout->addWidget(description_);
    return otherFilesPart_;
}

void AttachmentsPanel::Refresh() {
    // A tab that is not shown is brought up to date when it is shown.
    if (!isVisible()) {
        stale_ = true;
        return;
    }
    stale_ = false;
    // Showing the session moves the selection; what the trees report meanwhile is no gesture
    // of the writer.
    const QScopedValueRollback showing(refreshing_, true);
    ShowStoryAttachmentTrees(session_);
    const WindowState& window = session_.window;
    for (AttachmentKind kind : {AttachmentKind::Image, AttachmentKind::OtherFile}) {
        SessionTreeWidget* tree = TreeOf(kind);
        const TreeModel* model = window.FindTree(AttachmentTreeName(kind));
        tree->Show(model ? *model : TreeModel());
        tree->setToolTip(ToolTipText(AttachmentTreeTip(session_, kind)));
        // Each file's node shows its full path; the others show the tree's tip.
        for (QTreeWidgetItemIterator item(tree); *item; ++item) {
            const std::string key = SessionTreeWidget::KeyOf(*item);
            (*item)->setToolTip(0, ToQString(AttachmentNodeTip(session_, kind, key)));
        }
        if (tree->currentItem() == nullptr) tree->SelectKey(kAttachmentRootKey);
    }
    otherFilesPart_->setVisible(session_.configuration.interface.OtherFilesVisible);
    captionLabel_->setText(ToQString(ImageCaptionLabel(session_.configuration)));
    creditLabel_->setText(ToQString(ImageCreditLabel(session_.configuration)));
    descriptionLabel_->setText(ConfiguredCaption(session_, "OtherFileDescription", "Description"));
    const QString add = ConfiguredCaption(session_, "AddLabel", "Add");
    addImage_->setText(add + QLatin1Char(' ') + ConfiguredMessage(session_, "ImageLabel", "Photo") +
                       QStringLiteral("..."));
    addOtherFile_->setText(add + QLatin1Char(' ') +
                           ConfiguredCaption(session_, "OtherFile", "File") +
                           QStringLiteral("..."));
    const ControlState* info = window.FindControl(kImageInfoLabel);
    info_->setText(info ? ToQString(info->caption) : QString());
    const ControlState* copyFit = window.FindControl(kImagesCopyfitLabel);
    copyFit_->setText(copyFit ? ToQString(copyFit->caption) : QString());
    ShowFields();
    ShowPreview();
}

void AttachmentsPanel::ShowFields() {
    const auto picture = AttachmentIndex(session_, AttachmentKind::Image, images_->CurrentKey());
    const auto file =
        AttachmentIndex(session_, AttachmentKind::OtherFile, otherFiles_->CurrentKey());
    const StoryRecord& story = session_.story;
    ShowFieldText(*caption_, picture ? story.images[*picture].caption : std::string());
    ShowFieldText(*credit_, picture ? story.images[*picture].credit : std::string());
    ShowFieldText(*description_, file ? story.files[*file].description : std::string());
    caption_->setEnabled(picture.has_value());
    credit_->setEnabled(picture.has_value());
    description_->setEnabled(file.has_value());
}

void AttachmentsPanel::ShowPreview() {
    const QString path = ToQString(SelectedPicturePath(session_, images_->CurrentKey()));
    if (path != previewPath_) {
        previewPath_ = path;
        previewPicture_ = path.isEmpty() ? QPixmap() : QPixmap(path);
    }
    if (previewPicture_.isNull()) {
        preview_->clear();
        return;
    }
    // A picture is made smaller to fit the frame, never larger.
    const QSize room = previewPicture_.size().boundedTo(preview_->size());
    preview_->setPixmap(
        previewPicture_.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void AttachmentsPanel::resizeEvent(QResizeEvent* event) {
    SessionView::resizeEvent(event);
    ShowPreview();
}

SessionTreeWidget* AttachmentsPanel::TreeOf(AttachmentKind kind) const {
    return kind == AttachmentKind::Image ? images_ : otherFiles_;
}

void AttachmentsPanel::Select(AttachmentKind kind, const std::string& key) {
    TreeOf(kind)->SelectKey(key);
}

void AttachmentsPanel::showEvent(QShowEvent* event) {
    SessionView::showEvent(event);
    if (stale_) Refresh();
}

void AttachmentsPanel::Run(const std::function<void()>& gesture) {
    if (refreshing_) return;
    gesture();
    Refresh();
    emit sessionChanged();
}

void AttachmentsPanel::Add(AttachmentKind kind) {
    std::optional<std::string> added;
    Run([&] {
        added = kind == AttachmentKind::Image ? tessarin::AddImage(session_)
                                              : tessarin::AddOtherFile(session_);
    });
    if (added) Select(kind, *added);
}

void AttachmentsPanel::AddImage() {
    Add(AttachmentKind::Image);
}

void AttachmentsPanel::AddOtherFile() {
    Add(AttachmentKind::OtherFile);
}

void AttachmentsPanel::Replace(AttachmentKind kind) {
    const std::string key = TreeOf(kind)->CurrentKey();
    Run([&] {
        if (kind == AttachmentKind::Image) {
            ModifyImage(session_, key);
        } else {
            ModifyOtherFile(session_, key);
        }
    });
    Select(kind, key);
}

void AttachmentsPanel::Remove(AttachmentKind kind) {
    const std::string key = TreeOf(kind)->CurrentKey();
    std::optional<std::string> next;
    Run([&] {
        next = kind == AttachmentKind::Image ? RemoveImage(session_, key)
                                             : RemoveOtherFile(session_, key);
    });
    if (next) Select(kind, *next);
}

void AttachmentsPanel::OpenPicture() {
    const std::string path = SelectedPicturePath(session_, images_->CurrentKey());
    if (!path.empty()) QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(path)));
}

void AttachmentsPanel::ShowIptc() {
    const std::string key = images_->CurrentKey();
    std::optional<IptcData> data = ReadSelectedPictureIptc(session_, key);
    if (!data) return;
    IptcDialog dialog(session_, key, std::move(*data), this);
    if (dialog.exec() != QDialog::Accepted) return;
    Refresh();
    emit sessionChanged();
}

void AttachmentsPanel::DropFiles(AttachmentKind kind, const QMimeData& files) {
    std::optional<std::string> last;
    Run([&] {
        for (const QUrl& url : files.urls()) {
            if (!url.isLocalFile()) continue;
            const std::filesystem::path path = ToUtf8(url.toLocalFile());
            const auto added = kind == AttachmentKind::Image
                                   ? tessarin::AddImage(session_, path)
                                   : tessarin::AddOtherFile(session_, path);
            if (added) last = added;
        }
    });
    if (last) Select(kind, *last);
}

// The tree's context menu: adding, and what needs a selected attachment (replacing,
// removing, opening and the IPTC data of a picture), disabled while none is selected. Its
// entries are named mnuPopup, the kind ("Image", "OtherFile") and the command.
void AttachmentsPanel::ShowContextMenu(AttachmentKind kind, const QPoint& where) {
    const bool image = kind == AttachmentKind::Image;
    const QString prefix =
        image ? QStringLiteral("mnuPopupImage") : QStringLiteral("mnuPopupOtherFile");
    const bool selected = AttachmentIndex(session_, kind, TreeOf(kind)->CurrentKey()).has_value();
    QMenu menu(this);
    const auto add = [&](const QString& caption, const char* command, bool enabled,
                         std::function<void()> action) {
        QAction* entry = menu.addAction(caption, this, std::move(action));
        entry->setObjectName(prefix + QLatin1String(command));
        entry->setEnabled(enabled);
    };
    add(ConfiguredCaption(session_, "AddLabel", "Add"), "Add", true, [this, kind] { Add(kind); });
    add(ConfiguredCaption(session_, "ReplaceLabel", "Replace"), "Replace", selected,
        [this, kind] { Replace(kind); });
    add(image ? ConfiguredCaption(session_, "ImageRemove", "Remove image")
              : ConfiguredCaption(session_, "OtherFileRemove", "Remove file"),
        "Remove", selected, [this, kind] { Remove(kind); });
    if (image) {
        add(ConfiguredCaption(session_, "ImageOpen", "Open image"), "Open", selected,
            [this] { OpenPicture(); });
        add(QString::fromUtf8(kIptcCaption), "IPTC", selected, [this] { ShowIptc(); });
    }
    menu.exec(TreeOf(kind)->viewport()->mapToGlobal(where));
}

bool AttachmentsPanel::eventFilter(QObject* watched, QEvent* event) {
    const auto target = targets_.find(watched);
    if (target == targets_.end()) return SessionView::eventFilter(watched, event);
    const AttachmentKind kind = target->second;
    switch (event->type()) {
        case QEvent::KeyPress: {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                Add(kind);
                return true;
            }
            if (key == Qt::Key_Delete) {
                Remove(kind);
                return true;
            }
            break;
        }
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* drag = static_cast<QDropEvent*>(event);
            if (!drag->mimeData()->hasUrls()) break;
            drag->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            if (!drop->mimeData()->hasUrls()) break;
            drop->acceptProposedAction();
            DropFiles(kind, *drop->mimeData());
            return true;
        }
        default:
            break;
    }
    return SessionView::eventFilter(watched, event);
}

}  // namespace tessarin
