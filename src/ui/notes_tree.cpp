#include "ui/notes_tree.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QHBoxLayout>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/clock.h"
#include "editing/notes_edit.h"
#include "ui/configured_caption.h"
#include "ui/tool_tip_text.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kNoteRole = Qt::UserRole;

QColor ToQColor(OleColour colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

}  // namespace

NotesTree::NotesTree(EditorSession& session, Panel panel, QWidget* parent)
    : QTreeWidget(parent), session_(session), panel_(std::move(panel)) {
    setObjectName(QStringLiteral("treeNotes"));
    setHeaderHidden(true);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (const std::optional<std::size_t> note = NoteOf(item)) ChangeNote(*note);
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        const std::optional<std::size_t> note = NoteOf(item);
        if (!note) return;
        if (const std::optional<TextSelection> anchor = BookmarkAnchor(session_, *note)) {
            panel_.reveal(*anchor);
        }
    });
}

std::optional<std::size_t> NotesTree::NoteOf(const QTreeWidgetItem* item) const {
    if (item == nullptr || item->parent() == nullptr) return std::nullopt;
    return static_cast<std::size_t>(item->data(0, kNoteRole).toULongLong());
}

void NotesTree::Refresh() {
    ShowNotes(session_);
    const ControlState& control = session_.window.Control("treeNotes");
    setVisible(control.visible);
    setToolTip(ToolTipText(control.toolTip));
    clear();
    const TreeModel& model = session_.window.Tree("treeNotes");
    if (model.Empty()) return;
    const TreeNode& root = model.Roots().front();
    auto* rootItem = new QTreeWidgetItem(this, {ToQString(root.text)});
    std::size_t index = 0;
    for (const TreeNode& node : root.children) {
        auto* item = new QTreeWidgetItem(rootItem, {ToQString(node.text)});
        item->setData(0, kNoteRole, static_cast<qulonglong>(index));
        item->setToolTip(0, ToQString(node.tag));
        if (node.hasColour) item->setForeground(0, ToQColor(node.colour));
        if (session_.story.notes[index].bookmark) {
            item->setBackground(0, ToQColor(session_.preferences.BookmarksColor));
        }
        ++index;
    }
    rootItem->setExpanded(true);
    setSortingEnabled(session_.window.Control("mnuPopupNoteSorted").checked);
}

void NotesTree::AddNote(bool fromSelection) {
    const std::optional<TextSelection> selection =
        fromSelection ? panel_.selection() : std::optional<TextSelection>();
    const std::optional<std::size_t> note = tessarin::AddNote(session_, selection, Now());
    if (!note) return;
    panel_.changed();
    Refresh();
    OpenNote(*note, true);
}

void NotesTree::ChangeNote(std::size_t note) {
    OpenNote(note, false);
}

void NotesTree::RemoveNote(std::size_t note) {
    if (tessarin::RemoveNote(session_, note)) {
        panel_.changed();
        Refresh();
    }
}

void NotesTree::OpenNote(std::size_t note, bool isNew) {
    if (note >= session_.story.notes.size()) return;
    delete noteWindow_;
    noteWindow_ = new QDialog(this);
    noteWindow_->setObjectName(QStringLiteral("frmNote"));
    noteWindow_->setWindowTitle(ToQString(session_.story.notes[note].title));
    auto* text = new QPlainTextEdit(noteWindow_);
    text->setObjectName(QStringLiteral("txtNote"));
    text->setPlainText(ToQString(session_.story.notes[note].text)
                           .replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    const bool mayChange = CanChangeNote(session_, note);
    text->setReadOnly(!mayChange);
    auto* remove =
        new QPushButton(ConfiguredCaption(session_, "RemoveLabel", "Remove"), noteWindow_);
    remove->setObjectName(QStringLiteral("cmdRemove"));
    remove->setVisible(mayChange);
    auto* cancel = new QPushButton(ConfiguredCaption(session_, "Cancel", "Close"), noteWindow_);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(remove);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(noteWindow_);
    layout->addWidget(text);
    layout->addLayout(buttons);

    QDialog* window = noteWindow_;
    connect(cancel, &QPushButton::clicked, window, &QDialog::accept);
    connect(remove, &QPushButton::clicked, window, [this, window, note] {
        window->done(QDialog::Rejected);
        RemoveNote(note);
    });
    connect(window, &QDialog::accepted, this, [this, text, note, isNew] {
        CloseNote(session_, note, text->toPlainText().toStdString(), isNew);
        panel_.changed();
        Refresh();
    });
    window->open();
}

void NotesTree::contextMenuEvent(QContextMenuEvent* event) {
    const std::optional<std::size_t> note = NoteOf(itemAt(event->pos()));
    const WindowState& window = session_.window;
    const auto caption = [&window](const char* name, const char* design) {
        return ControlCaption(window, name, design);
    };
    QMenu menu(this);
    QAction* add = menu.addAction(caption("mnuPopupNoteAdd", "Add note"));
    add->setObjectName(QStringLiteral("mnuPopupNoteAdd"));
    QAction* modify = menu.addAction(caption("mnuPopupNoteModify", "Change note"));
    modify->setObjectName(QStringLiteral("mnuPopupNoteModify"));
    modify->setEnabled(note.has_value());
    QAction* remove = menu.addAction(caption("mnuPopupNoteRemove", "Remove note"));
    remove->setObjectName(QStringLiteral("mnuPopupNoteRemove"));
    remove->setEnabled(note.has_value() && CanChangeNote(session_, *note));
    QAction* sorted = menu.addAction(caption("mnuPopupNoteSorted", "Sorted notes"));
    sorted->setObjectName(QStringLiteral("mnuPopupNoteSorted"));
    sorted->setCheckable(true);
    sorted->setChecked(window.FindControl("mnuPopupNoteSorted") != nullptr &&
                       window.FindControl("mnuPopupNoteSorted")->checked);
    QAction* chosen = menu.exec(event->globalPos());
    if (chosen == add) AddNote(false);
    if (chosen == modify && note) ChangeNote(*note);
    if (chosen == remove && note) RemoveNote(*note);
    if (chosen == sorted) {
        session_.window.Control("mnuPopupNoteSorted").checked = sorted->isChecked();
        Refresh();
    }
}

}  // namespace tessarin
