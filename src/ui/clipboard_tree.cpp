#include "ui/clipboard_tree.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include "editing/multiple_clipboard.h"
#include "ui/configured_caption.h"
#include "ui/tool_tip_text.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

// The characters a snippet's short form keeps in the tree.
constexpr std::size_t kShortFormLimit = 40;
constexpr int kEntryRole = Qt::UserRole;

}  // namespace

ClipboardTree::ClipboardTree(EditorSession& session, Panel panel, QWidget* parent)
    : QTreeWidget(parent), session_(session), panel_(std::move(panel)) {
    setObjectName(QStringLiteral("treeClipboard"));
    setHeaderHidden(true);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (item->parent() != nullptr) Insert(item->data(0, kEntryRole).toULongLong());
    });
}

void ClipboardTree::Refresh() {
    ShowMultipleClipboard(session_, kShortFormLimit);
    setVisible(session_.preferences.MultipleClipboardVisible);
    setToolTip(ToolTipText(
        session_.configuration.interface.Entry("EditionMultipleClipboard").ToolTipText));
    clear();
    const TreeModel& model = session_.window.Tree("treeClipboard");
    if (model.Empty()) return;
    const TreeNode& root = model.Roots().front();
    auto* rootItem = new QTreeWidgetItem(this, {ToQString(root.text)});
    if (root.hasColour) rootItem->setForeground(0, Qt::gray);
    qulonglong entry = 0;
    for (const TreeNode& node : root.children) {
        auto* item = new QTreeWidgetItem(rootItem, {ToQString(node.text)});
        item->setData(0, kEntryRole, ++entry);
        item->setToolTip(0, ToQString(node.tag));
    }
    rootItem->setExpanded(true);
}

void ClipboardTree::Insert(std::size_t entry) {
    TextSelection selection = panel_.selection();
    if (InsertClipboardEntry(session_, selection, entry)) panel_.inserted(selection);
}

void ClipboardTree::CopySelection() {
    if (CopyToMultipleClipboard(session_, panel_.selection(), kShortFormLimit)) Refresh();
}

void ClipboardTree::RemoveChosen() {
    const QTreeWidgetItem* item = currentItem();
    if (item == nullptr) return;
    const std::optional<std::size_t> entry =
        item->parent() != nullptr
            ? std::optional<std::size_t>(item->data(0, kEntryRole).toULongLong())
            : std::nullopt;
    RemoveClipboardEntry(session_, entry, kShortFormLimit);
    Refresh();
}

void ClipboardTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) {
        RemoveChosen();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void ClipboardTree::contextMenuEvent(QContextMenuEvent* event) {
    setCurrentItem(itemAt(event->pos()));
    QMenu menu(this);
    QAction* remove = menu.addAction(ConfiguredCaption(session_, "RemoveLabel", "Remove"));
    remove->setEnabled(currentItem() != nullptr);
    if (menu.exec(event->globalPos()) == remove) RemoveChosen();
}

}  // namespace tessarin
