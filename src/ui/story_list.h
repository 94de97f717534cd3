#pragma once

#include <filesystem>

class QTreeWidget;
class QTreeWidgetItem;

namespace tessarin {

struct StoryRow;

// The story lists of the search and My stories windows: the columns of a story row, in the
// order the walk gave until a column's header is clicked; then by that column, numbers as
// numbers, and the other way round at the next click on the same header.
void SetUpStoryList(QTreeWidget& list);

// Adds the row at the end: all its columns for a story, its name alone for any other file.
// A backup story carries an icon of its own.
QTreeWidgetItem* AddStoryItem(QTreeWidget& list, const StoryRow& row, bool story = true);

// The path of the file an item stands for.
std::filesystem::path StoryItemPath(const QTreeWidgetItem& item);

}  // namespace tessarin
