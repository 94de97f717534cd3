#pragma once

#include <QColor>
#include <QTreeWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "app/window_state.h"

namespace tessarin {

// A tree control that shows one of the window state's trees: an item per node, holding the
// node's key, with its text, bold face, colour, check box and expanded state as the node has
// them. Showing again keeps the items of every level whose keys did not change, so that the
// selection and the scroll position stay; a level whose keys changed is built anew.
class SessionTreeWidget : public QTreeWidget {
    Q_OBJECT
  public:
    // The back colour of a node; nothing leaves the tree's own.
    using BackColour = std::function<std::optional<QColor>(const TreeNode&)>;
    // Whether the writer may edit a node's text in place.
    using Editable = std::function<bool(const TreeNode&)>;

    SessionTreeWidget(const QString& name, QWidget* parent);

    void SetBackColour(BackColour backColour) { backColour_ = std::move(backColour); }
    void SetEditable(Editable editable) { editable_ = std::move(editable); }

    // Shows the tree; emits no signal of its own while doing so.
    void Show(const TreeModel& tree);

    static std::string KeyOf(const QTreeWidgetItem* item);
    QTreeWidgetItem* ItemOf(std::string_view key) const;
    // The current node's key; empty when there is none.
    std::string CurrentKey() const;
    // Makes the node of key current and scrolls it into view; false when there is none.
    bool SelectKey(std::string_view key);
    // Scrolls the node of key into view.
    void ScrollToKey(std::string_view key);

  signals:
    // The writer opened or closed the node of key.
    void expansionChanged(const std::string& key, bool expanded);

  private:
    void ShowLevel(QTreeWidgetItem* parent, const std::list<TreeNode>& nodes);
    void ShowNode(QTreeWidgetItem& item, const TreeNode& node);
    QTreeWidgetItem* NewItem(QTreeWidgetItem* parent, const TreeNode& node);
    void Forget(QTreeWidgetItem* item);

    BackColour backColour_;
    Editable editable_;
    std::unordered_map<std::string, QTreeWidgetItem*> items_;
};

}  // namespace tessarin
