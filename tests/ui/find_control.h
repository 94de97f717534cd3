#pragma once

#include <QObject>
#include <QString>
#include <QTreeWidget>
#include <QtGlobal>

namespace tessarin::testing {

// The control of that name and type inside a window; a test without it cannot go on.
template <typename Widget>
Widget* Find(QObject& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QString::fromUtf8(name));
    if (widget == nullptr) qFatal("no control %s", name);
    return widget;
}

// The first item of a tree, at any depth, whose text is exactly text; null when there is none.
inline QTreeWidgetItem* ItemNamed(QTreeWidget& tree, const QString& text) {
    const auto items = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    return items.isEmpty() ? nullptr : items.front();
}

}  // namespace tessarin::testing
