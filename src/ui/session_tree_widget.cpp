#include "ui/session_tree_widget.h"

#include <QSignalBlocker>

#include "ui/styled_text_bridge.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kKeyRole = Qt::UserRole;

QTreeWidgetItem* ChildAt(QTreeWidget& tree, QTreeWidgetItem* parent, int index) {
    return parent ? parent->child(index) : tree.topLevelItem(index);
}

int ChildCount(const QTreeWidget& tree, const QTreeWidgetItem* parent) {
    return parent ? parent->childCount() : tree.topLevelItemCount();
}

bool SameKeys(QTreeWidget& tree, QTreeWidgetItem* parent, const std::list<TreeNode>& nodes) {
    if (ChildCount(tree, parent) != static_cast<int>(nodes.size())) return false;
    int index = 0;
    for (const TreeNode& node : nodes) {
        if (SessionTreeWidget::KeyOf(ChildAt(tree, parent, index++)) != node.key) return false;
    }
    return true;
}

}  // namespace

SessionTreeWidget::SessionTreeWidget(const QString& name, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(name);
    setHeaderHidden(true);
    setColumnCount(1);
    setMouseTracking(true);
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { emit expansionChanged(KeyOf(item), true); });
    connect(this, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { emit expansionChanged(KeyOf(item), false); });
}

void SessionTreeWidget::Show(const TreeModel& tree) {
    const QSignalBlocker blocker(this);
    ShowLevel(nullptr, tree.Roots());
}

void SessionTreeWidget::ShowLevel(QTreeWidgetItem* parent, const std::list<TreeNode>& nodes) {
    if (!SameKeys(*this, parent, nodes)) {
        while (ChildCount(*this, parent) > 0) {
            QTreeWidgetItem* child = ChildAt(*this, parent, 0);
            Forget(child);
            delete child;
        }
        for (const TreeNode& node : nodes)
            NewItem(parent, node);
    }
    int index = 0;
    for (const TreeNode& node : nodes) {
        QTreeWidgetItem* item = ChildAt(*this, parent, index++);
        ShowLevel(item, node.children);
        ShowNode(*item, node);
    }
}

QTreeWidgetItem* SessionTreeWidget::NewItem(QTreeWidgetItem* parent, const TreeNode& node) {
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setData(0, kKeyRole, ToQString(node.key));
    if (!node.key.empty()) items_[node.key] = item;
    return item;
}

void SessionTreeWidget::Forget(QTreeWidgetItem* item) {
    for (int index = 0; index < item->childCount(); ++index)
        Forget(item->child(index));
    const auto found = items_.find(KeyOf(item));
    if (found != items_.end() && found->second == item) items_.erase(found);
}

void SessionTreeWidget::ShowNode(QTreeWidgetItem& item, const TreeNode& node) {
    const QString text = ToQString(node.text);
    if (item.text(0) != text) item.setText(0, text);
    QFont font = item.font(0);
    if (font.bold() != node.bold) {
        font.setBold(node.bold);
        item.setFont(0, font);
    }
    const QBrush fore = node.hasColour ? QBrush(ToQColor(node.colour)) : QBrush();
    if (item.foreground(0) != fore) item.setForeground(0, fore);
    const std::optional<QColor> backColour = backColour_ ? backColour_(node) : std::nullopt;
    const QBrush back = backColour ? QBrush(*backColour) : QBrush();
    if (item.background(0) != back) item.setBackground(0, back);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (node.hasCheckbox) flags |= Qt::ItemIsUserCheckable;
    if (editable_ && editable_(node)) flags |= Qt::ItemIsEditable;
    if (item.flags() != flags) item.setFlags(flags);
    if (node.hasCheckbox) item.setCheckState(0, node.checked ? Qt::Checked : Qt::Unchecked);
    if (item.isExpanded() != node.expanded) item.setExpanded(node.expanded);
}

std::string SessionTreeWidget::KeyOf(const QTreeWidgetItem* item) {
    return item ? ToUtf8(item->data(0, kKeyRole).toString()) : std::string();
}

QTreeWidgetItem* SessionTreeWidget::ItemOf(std::string_view key) const {
    const auto found = items_.find(std::string(key));
    return found == items_.end() ? nullptr : found->second;
}

std::string SessionTreeWidget::CurrentKey() const {
    return KeyOf(currentItem());
}

bool SessionTreeWidget::SelectKey(std::string_view key) {
    QTreeWidgetItem* item = ItemOf(key);
    if (item == nullptr) return false;
    setCurrentItem(item);
    scrollToItem(item);
    return true;
}

void SessionTreeWidget::ScrollToKey(std::string_view key) {
    if (QTreeWidgetItem* item = ItemOf(key)) scrollToItem(item);
}

}  // namespace tessarin
