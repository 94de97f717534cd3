#include "ui/story_list.h"

#include <QHeaderView>
#include <QStyle>
#include <QTreeWidget>

#include "search/story_row_text.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

const char* const kColumns[] = {"Name",           "Directory",        "Creation date",
                                "Last save date", "Last save author", "Characters",
                                "Publication",    "Classification",   "Section",
                                "Subsection",     "Publication date", "Form",
                                "Images"};
constexpr int kCharactersColumn = 5;
constexpr int kImagesColumn = 12;

class StoryItem : public QTreeWidgetItem {
  public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (column == kCharactersColumn || column == kImagesColumn)
            return text(column).toLongLong() < other.text(column).toLongLong();
        return QTreeWidgetItem::operator<(other);
    }
};

}  // namespace

void SetUpStoryList(QTreeWidget& list) {
    list.setRootIsDecorated(false);
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    QStringList headers;
    for (const char* column : kColumns)
        headers << QString::fromUtf8(column);
    list.setHeaderLabels(headers);
    QHeaderView* header = list.header();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(false);
    QObject::connect(header, &QHeaderView::sectionClicked, &list, [&list, header](int column) {
        const bool again =
            header->isSortIndicatorShown() && header->sortIndicatorSection() == column;
        const Qt::SortOrder order = again && header->sortIndicatorOrder() == Qt::AscendingOrder
                                        ? Qt::DescendingOrder
                                        : Qt::AscendingOrder;
        header->setSortIndicatorShown(true);
        header->setSortIndicator(column, order);
        list.sortItems(column, order);
    });
}

QTreeWidgetItem* AddStoryItem(QTreeWidget& list, const StoryRow& row, bool story) {
    if (list.topLevelItemCount() == 0) list.header()->setSortIndicatorShown(false);
    QStringList columns;
    if (story) {
        for (const std::string& column : StoryRowColumns(row))
            columns << ToQString(column);
    } else {
        columns << ToQString(row.name);
    }
    auto* item = new StoryItem(&list, columns);
    item->setData(0, Qt::UserRole, QString::fromStdString(row.Path().string()));
    if (row.backup) item->setIcon(0, list.style()->standardIcon(QStyle::SP_FileDialogBack));
    return item;
}

std::filesystem::path StoryItemPath(const QTreeWidgetItem& item) {
    return ToUtf8(item.data(0, Qt::UserRole).toString());
}

}  // namespace tessarin
