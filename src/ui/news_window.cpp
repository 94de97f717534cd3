#include "ui/news_window.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStyle>
#include <QTextDocument>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <tuple>

#include "common/clock.h"
#include "common/date_format.h"
#include "common/utf8.h"
#include "config/profile_values.h"
#include "session/editor_session.h"
#include "ui/configured_caption.h"
#include "ui/named_widget.h"
#include "ui/printouts.h"
#include "ui/styled_text_bridge.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr int kRowIndexRole = Qt::UserRole;
constexpr int kRawDateColumn = 7;

// The columns that the preferences may hide: the entry, its preference key, its caption key.
struct ColumnEntry {
    const char* entry;
    const char* key;
    const char* caption;
    const char* design;
    int column;
};
constexpr ColumnEntry kColumnEntries[] = {
    {"mnuSlugLine", "SlugLine", "NewsSlugLine", "Slug", 2},
    {"mnuCategory", "Category", "NewsCategory", "Category", 3},
    {"mnuPriority", "Priority", "NewsPriority", "Priority", 4},
    {"mnuRevision", "Revision", "NewsRevision", "Revision", 5},
    {"mnuWordCount", "WordCount", "NewsWordCount", "Words", 6},
};

// The pane shows each CR LF of an item's text as one line break: offsets move between the
// two forms.
std::size_t PaneOffset(std::u16string_view text, std::size_t offset) {
    return DocumentLength(text.substr(0, std::min(offset, text.size())));
}

std::size_t TextOffset(std::u16string_view text, std::size_t pane) {
    std::size_t i = 0;
    for (std::size_t shown = 0; shown < pane && i < text.size(); ++shown)
        i += text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n' ? 2 : 1;
    return i;
}

void Colour(QTextEdit& pane, int start, int end, const QTextCharFormat& format) {
    QTextCursor cursor(pane.document());
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
}

}  // namespace

NewsWindow::NewsWindow(EditorSession& session, int service, QWidget* parent)
    : QDialog(parent),
      session_(session),
      service_(service),
      live_(Named(new QRadioButton, "optRepository")),
      archive_(Named(new QRadioButton, "optRepository")),
      categories_(Named(new QComboBox, "lstNewsCategories")),
      search_(Named(new QLineEdit, "txtSearch")),
      dates_(Named(new QCheckBox, "chkDates")),
      from_(Named(new QDateEdit, "dtpFrom")),
      to_(Named(new QDateEdit, "dtpTo")),
      searchButton_(Named(new QPushButton, "cmdSearch")),
      list_(Named(new QTreeWidget, "lvNewsML")),
      text_(Named(new QTextEdit, "rtfNewsML")),
      location_(Named(new QLabel, "lblLocation")),
      organisations_(Named(new QPlainTextEdit, "txtOrganisation")),
      log_(Named(new QPlainTextEdit, "txtNewsLog")),
      status_(Named(new QLabel, "lblStatus")) {
    setObjectName(QStringLiteral("frmNews"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    const NewsServicesSettings& news = session.configuration.newsServices;
    const std::string title =
        service >= 0 && static_cast<std::size_t>(service) < news.services.size()
            ? news.services[static_cast<std::size_t>(service)].name
            : news.name;
    setWindowTitle(ToQString(title));
    if (session.preferences.NewsTopMost) setWindowFlag(Qt::WindowStaysOnTopHint);

    auto* splitter = Named(new QSplitter, "Splitter1");
    splitter->addWidget(BuildList());
    splitter->addWidget(BuildItem());
    auto* layout = new QVBoxLayout(this);
    BuildMenu();
    layout->addWidget(splitter, 1);
    layout->addWidget(status_);

    placement_ = {kNewsWindowSection, {1000, 650}, splitter, "SizeBarV"};
    RestoreWindowPlacement(*this, session.profile.Load(), placement_);
    CheckColumns();
    SetSizeColumns();
}

NewsWindow::~NewsWindow() {
    if (scan_.joinable()) scan_.join();
}

QWidget* NewsWindow::BuildList() {
    const NewsServicesSettings& news = session_.configuration.newsServices;
    live_->setText(ConfiguredCaption(session_, "NewsCurrent", "Current"));
    archive_->setText(ConfiguredCaption(session_, "NewsArchives", "Archives"));
    live_->setChecked(true);
    auto* repository = new QButtonGroup(this);
    repository->addButton(live_);
    repository->addButton(archive_);
    categories_->addItem(
        ToQString(news.allCategoriesName.empty() ? std::string("*") : news.allCategoriesName));
    for (const NewsCategory& category : news.categories)
        categories_->addItem(ToQString(category.text), ToQString(category.formalName));
    dates_->setText(ConfiguredCaption(session_, "NewsDateTime", "Date"));
    for (QDateEdit* date : {from_, to_}) {
        date->setCalendarPopup(true);
        date->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
        date->setDate(QDate::currentDate());
    }
    searchButton_->setText(ConfiguredCaption(session_, "NewsSearchList", "Search"));

    const QStringList headers = {ConfiguredCaption(session_, "NewsDateTime", "Date"),
                                 ConfiguredCaption(session_, "NewsHeadLine", "Headline"),
                                 ConfiguredCaption(session_, "NewsSlugLine", "Slug"),
                                 ConfiguredCaption(session_, "NewsCategory", "Category"),
                                 ConfiguredCaption(session_, "NewsPriority", "Priority"),
                                 ConfiguredCaption(session_, "NewsRevision", "Revision"),
                                 ConfiguredCaption(session_, "NewsWordCount", "Words"),
                                 QString()};
    list_->setHeaderLabels(headers);
    list_->setRootIsDecorated(false);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setColumnHidden(kRawDateColumn, true);
    list_->setSortingEnabled(true);
    list_->sortByColumn(kRawDateColumn, Qt::DescendingOrder);
    list_->setMouseTracking(true);

    auto* choices = new QHBoxLayout;
    choices->addWidget(live_);
    choices->addWidget(archive_);
    choices->addWidget(categories_, 1);
    auto* filters = new QHBoxLayout;
    filters->addWidget(search_, 1);
    filters->addWidget(dates_);
    filters->addWidget(from_);
    filters->addWidget(to_);
    filters->addWidget(searchButton_);
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(choices);
    layout->addLayout(filters);
    layout->addWidget(list_, 1);

    connect(searchButton_, &QPushButton::clicked, this, &NewsWindow::Search);
    connect(search_, &QLineEdit::returnPressed, this, &NewsWindow::Search);
    connect(list_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { ShowRow(item); });
    connect(list_, &QTreeWidget::itemEntered, this, [this](QTreeWidgetItem* item) {
        if (choice_ == NewsRowChoice::OnHover && item != list_->currentItem())
            list_->setCurrentItem(item);
    });
    return column;
}

QWidget* NewsWindow::BuildItem() {
    text_->setReadOnly(true);
    organisations_->setReadOnly(true);
    log_->setReadOnly(true);
    location_->setWordWrap(true);
    auto* copy = Named(new QPushButton, "cmdCopySelection");
    copy->setText(ConfiguredCaption(session_, "NewsCopySelection", "Copy selection"));
    auto* sort = Named(new QPushButton, "cmdSortSelectedNews");
    sort->setText(ConfiguredCaption(session_, "NewsSort", "Sort the selected news"));
    connect(copy, &QPushButton::clicked, this, &NewsWindow::CopySelection);
    connect(sort, &QPushButton::clicked, this, &NewsWindow::SortSelectedNews);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addWidget(sort);
    buttons->addStretch(1);
    auto* side = new QWidget;
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(location_);
    layout->addWidget(text_, 4);
    layout->addWidget(new QLabel(ConfiguredCaption(session_, "NewsOrganization", "Organisations")));
    layout->addWidget(organisations_, 1);
    layout->addWidget(new QLabel(ConfiguredCaption(session_, "NewsLog", "Log")));
    layout->addWidget(log_, 1);
    layout->addLayout(buttons);
    return side;
}

void NewsWindow::BuildMenu() {
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* copy = bar->addMenu(ConfiguredCaption(session_, "NewsCopy", "Copy"));
    const auto entry = [this](QMenu* menu, const char* name, std::string_view key,
                              std::string_view design) {
        QAction* action = menu->addAction(ConfiguredCaption(session_, key, design));
        action->setObjectName(QLatin1String(name));
        return action;
    };
    connect(entry(copy, "mnuCopySelection", "NewsCopySelection", "Copy selection"),
            &QAction::triggered, this, &NewsWindow::CopySelection);
    connect(entry(copy, "mnuCopyAll", "NewsCopyAll", "Copy all"), &QAction::triggered, this,
            &NewsWindow::CopyAll);
    connect(entry(copy, "mnuSortSelectedNews", "NewsSort", "Sort the selected news"),
            &QAction::triggered, this, &NewsWindow::SortSelectedNews);
    copy->addSeparator();
    connect(entry(copy, "mnuCopyAllListView", "NewsSearchList", "Copy the list"),
            &QAction::triggered, this, [this] {
                std::string text;
                for (const NewsRow& row : rows_) {
                    const std::vector<std::string> cells =
                        NewsRowCells(row, DateOrder(), dateForms_);
                    for (std::size_t i = 0; i < cells.size(); ++i)
                        text += (i ? "\t" : "") + cells[i];
                    text += "\r\n";
                }
                QApplication::clipboard()->setText(ToQString(text));
            });

    QMenu* columns = bar->addMenu(ConfiguredCaption(session_, "NewsColumns", "Columns"));
    for (const ColumnEntry& column : kColumnEntries) {
        QAction* action = entry(columns, column.entry, column.caption, column.design);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, key = column.key](bool checked) {
            session_.profile.Write(kNewsWindowSection, key, FlagText(checked));
            CheckColumns();
        });
    }
    columns->addSeparator();
    QAction* headlines = entry(columns, "mnuCopyHeadlines", "NewsCopyHeadlines", "Copy headlines");
    headlines->setCheckable(true);
    connect(headlines, &QAction::triggered, this, [this](bool checked) {
        session_.profile.Write(kNewsWindowSection, "CopyHeadlines", FlagText(checked));
    });

    // Each choice below is written at once and the list follows it.
    const auto preference = [this](QAction* action, const char* key, bool value) {
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, key, value](bool checked) {
            session_.profile.Write(kNewsWindowSection, key, FlagText(checked == value));
            CheckColumns();
        });
    };
    columns->addSeparator();
    preference(entry(columns, "mnuDateFormat", "", "Long date"), "DateFormat", true);
    preference(entry(columns, "mnuTimeFormat", "", "Time with seconds"), "TimeFormat", true);
    columns->addSeparator();
    auto* choice = new QActionGroup(this);
    for (const auto& [name, key, design, hover] :
         {std::tuple{"mnuSelectOnClick", "NewsSelectOnClick", "Select on click", false},
          std::tuple{"mnuSelectHover", "NewsSelectHover", "Select on hover", true}}) {
        QAction* action = choice->addAction(entry(columns, name, key, design));
        preference(action, "Select", hover);
    }

    QMenu* print = bar->addMenu(ConfiguredCaption(session_, "FilePrint", "Print"));
    connect(entry(print, "mnuPrint", "", "Print the item"), &QAction::triggered, this,
            &NewsWindow::PrintCurrentStory);
    connect(entry(print, "mnuPrintListView", "", "Print the list"), &QAction::triggered, this,
            &NewsWindow::PrintListView);
}

void NewsWindow::CheckColumns() {
    const ProfileContents stored = session_.profile.Load();
    const auto check = [this](const char* entry, bool checked) {
        findChild<QAction*>(QLatin1String(entry))->setChecked(checked);
    };
    for (const ColumnEntry& column : kColumnEntries) {
        const bool shown = ReadFlag(stored, kNewsWindowSection, column.key, true);
        list_->setColumnHidden(column.column, !shown);
        check(column.entry, shown);
    }
    check("mnuCopyHeadlines", ReadFlag(stored, kNewsWindowSection, "CopyHeadlines", false));

    const NewsListPreferences list = ReadNewsListPreferences(stored);
    check("mnuDateFormat", list.dates.longDate);
    check("mnuTimeFormat", list.dates.seconds);
    check(list.choice == NewsRowChoice::OnHover ? "mnuSelectHover" : "mnuSelectOnClick", true);
    choice_ = list.choice;
    if (list.dates.longDate == dateForms_.longDate && list.dates.seconds == dateForms_.seconds)
        return;
    dateForms_ = list.dates;
    const int order = DateOrder();
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = list_->topLevelItem(i);
        const NewsRow& row = rows_[item->data(0, kRowIndexRole).toULongLong()];
        item->setText(0, ToQString(NewsDateCell(row.entry.rawDate, order, dateForms_)));
    }
}

void NewsWindow::SetSizeColumns() {
    for (const auto& [column, width] :
         ReadNewsListPreferences(session_.profile.Load()).columnWidths)
        list_->setColumnWidth(column, width);
}

std::filesystem::path NewsWindow::Folder() const {
    const auto& services = session_.configuration.newsServices.services;
    if (service_ < 0 || static_cast<std::size_t>(service_) >= services.size()) return {};
    return NewsStoreFolder(services[static_cast<std::size_t>(service_)].repositories,
                           archive_->isChecked(), ToUtf8(categories_->currentData().toString()));
}

void NewsWindow::Search() {
    if (scanning_) return;
    if (scan_.joinable()) scan_.join();
    list_->clear();
    rows_.clear();
    ShowRow(nullptr);
    searchButton_->setEnabled(false);
    scanning_ = true;
    NewsFilters filters;
    filters.word = ToUtf8(search_->text().trimmed());
    if (dates_->isChecked()) {
        filters.fromDate = ToUtf8(from_->date().toString(QStringLiteral("yyyyMMdd")));
        filters.toDate = ToUtf8(to_->date().toString(QStringLiteral("yyyyMMdd")));
    }
    scan_ = std::jthread([this, folder = Folder(), filters] {
        NewsScanResult result =
            scanner_.Scan(folder, filters, [this](std::span<const NewsRow> rows) {
                QMetaObject::invokeMethod(
                    this,
                    [this, batch = std::vector<NewsRow>(rows.begin(), rows.end())] {
                        AddRows(batch);
                    },
                    Qt::QueuedConnection);
            });
        result.rows.clear();
        QMetaObject::invokeMethod(
            this, [this, result = std::move(result)] { FinishScan(result); }, Qt::QueuedConnection);
    });
}

void NewsWindow::AddRows(const std::vector<NewsRow>& rows) {
    QList<QTreeWidgetItem*> items;
    for (const NewsRow& row : rows) {
        const std::vector<std::string> cells = NewsRowCells(row, DateOrder(), dateForms_);
        QStringList texts;
        for (const std::string& cell : cells)
            texts << ToQString(cell);
        auto* item = new QTreeWidgetItem(texts);
        item->setData(0, kRowIndexRole, static_cast<qulonglong>(rows_.size()));
        rows_.push_back(row);
        PaintRow(*item, rows_.back());
        items << item;
    }
    list_->addTopLevelItems(items);
}

void NewsWindow::PaintRow(QTreeWidgetItem& item, const NewsRow& row) const {
    item.setText(1, ToQString(row.ShownHeadline()));
    QFont font = item.font(0);
    font.setBold(row.Bold());
    for (int column = 0; column < item.columnCount(); ++column) {
        item.setFont(column, font);
        if (row.state != NewsCopyState::NotCopied) {
            item.setForeground(
                column, ToQColor(MarkColour(row.state, session_.configuration.newsServices)));
        }
    }
    struct StatusIcon {
        const char* status;
        const char* key;
        QStyle::StandardPixmap icon;
    };
    for (const StatusIcon& status :
         {StatusIcon{"Embargoed", "NewsEmbargoed", QStyle::SP_MessageBoxWarning},
          StatusIcon{"Withheld", "NewsWithheld", QStyle::SP_MessageBoxCritical},
          StatusIcon{"Canceled", "NewsCanceled", QStyle::SP_DialogCancelButton}}) {
        if (row.entry.status != status.status) continue;
        item.setIcon(0, style()->standardIcon(status.icon));
        item.setToolTip(0, ConfiguredCaption(session_, status.key, status.status));
    }
}

void NewsWindow::FinishScan(NewsScanResult result) {
    scanning_ = false;
    searchButton_->setEnabled(true);
    if (result.status == NewsScanStatus::InvalidDirectory) {
        session_.user.Tell(Folder().string() + "\n" + session_.Message("InvalidDirectory"),
                           MessageIcon::Exclamation);
    } else if (result.status == NewsScanStatus::ParseError) {
        session_.user.Tell(result.parseError, MessageIcon::Critical);
    }
    emit scanFinished();
}

NewsRow* NewsWindow::CurrentRow() {
    const QTreeWidgetItem* item = list_->currentItem();
    if (item == nullptr) return nullptr;
    const auto index = item->data(0, kRowIndexRole).toULongLong();
    return index < rows_.size() ? &rows_[index] : nullptr;
}

void NewsWindow::ShowRow(QTreeWidgetItem* item) {
    text_->clear();
    organisations_->clear();
    log_->clear();
    location_->clear();
    status_->clear();
    shown_ = {};
    shownText_.clear();
    const NewsRow* row = item == nullptr ? nullptr : CurrentRow();
    if (row == nullptr) return;
    shown_ = ShowNewsItem(Folder() / row->fileName);
    shownText_ = Utf8ToUtf16(shown_.PaneText());
    QString pane = ToQString(shown_.PaneText());
    pane.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text_->setPlainText(pane);
    if (!shown_.read) return;
    status_->setText(ToQString("Id=" + shown_.view.id));
    location_->setVisible(!shown_.view.location.empty());
    location_->setText(ToQString(shown_.view.location));
    std::string organisations;
    for (const std::string& organisation : shown_.view.organisations)
        organisations += organisation + "\n";
    organisations_->setPlainText(ToQString(organisations));
    ShowMarks();
}

void NewsWindow::ShowMarks() {
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    const std::u16string word = Utf8ToUtf16(ToUtf8(search_->text().trimmed()));
    for (const std::size_t at : WordPositions(shownText_, word)) {
        Colour(*text_, static_cast<int>(PaneOffset(shownText_, at)),
               static_cast<int>(PaneOffset(shownText_, at + word.size())), bold);
    }
    if (!shown_.log) return;
    QTextCharFormat marked;
    marked.setForeground(ToQColor(MarkColour(shown_.state, session_.configuration.newsServices)));
    for (const NewsMark& mark : shown_.log->marks) {
        Colour(*text_, static_cast<int>(PaneOffset(shownText_, mark.start)),
               static_cast<int>(PaneOffset(shownText_, mark.start + mark.length)), marked);
    }
    std::string comments;
    for (const std::string& comment : shown_.log->comments)
        comments += comment + "\n";
    log_->setPlainText(ToQString(comments));
    QPalette palette = log_->palette();
    palette.setColor(QPalette::Text,
                     ToQColor(session_.configuration.newsServices.partiallyCopiedColour));
    log_->setPalette(palette);
}

NewsCopySource NewsWindow::SourceOf(const NewsRow& row) const {
    const std::filesystem::path item = Folder() / row.fileName;
    return {item, row.entry.headline, row.entry.status, row.state,
            Utf8ToUtf16(ShowNewsItem(item).view.text)};
}

void NewsWindow::AfterCopy(NewsRow& row, const NewsCopyResult& result) {
    if (result.outcome != NewsCopyOutcome::Copied) return;
    const ShownNewsItem item = ShowNewsItem(Folder() / row.fileName);
    row.log = item.log;
    // A store that refused the log line still shows what this workstation took.
    row.state = row.log ? item.state : result.marked;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* shown = list_->topLevelItem(i);
        if (&rows_[shown->data(0, kRowIndexRole).toULongLong()] == &row) PaintRow(*shown, row);
    }
    ShowRow(list_->currentItem());
    emit storyChanged();
}

void NewsWindow::CopySelection() {
    NewsRow* row = CurrentRow();
    const QTextCursor cursor = text_->textCursor();
    if (row == nullptr || !cursor.hasSelection() || !shown_.read) return;
    const std::size_t start =
        TextOffset(shownText_, static_cast<std::size_t>(cursor.selectionStart()));
    const std::size_t end = TextOffset(shownText_, static_cast<std::size_t>(cursor.selectionEnd()));
    NewsCopySource source = SourceOf(*row);
    source.text = shownText_;
    AfterCopy(*row, CopyNewsSelection(session_, source, start, end - start, Now()));
}

void NewsWindow::CopyAll() {
    NewsRow* row = CurrentRow();
    if (row == nullptr) return;
    const bool headlines =
        ReadFlag(session_.profile.Load(), kNewsWindowSection, "CopyHeadlines", false);
    AfterCopy(*row, CopyWholeNewsItem(session_, SourceOf(*row), headlines, Now()));
}

void NewsWindow::SortSelectedNews() {
    std::vector<NewsRow*> chosen;
    std::vector<NewsCopySource> sources;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = list_->topLevelItem(i);
        if (!item->isSelected()) continue;
        NewsRow& row = rows_[item->data(0, kRowIndexRole).toULongLong()];
        chosen.push_back(&row);
        sources.push_back(SourceOf(row));
    }
    if (sources.empty()) return;
    SortSelectedNewsDialog dialog(session_, std::move(sources), this);
    if (dialog.exec() != QDialog::Accepted || !dialog.Copied()) return;
    for (NewsRow* row : chosen)
        AfterCopy(*row, {NewsCopyOutcome::Copied, NewsCopyState::Copied});
}

bool NewsWindow::Print(Printout what, QPrinter& printer) const {
    std::unique_ptr<QTextDocument> document;
    if (what == Printout::CurrentItem) {
        const QTreeWidgetItem* item = list_->currentItem();
        if (item == nullptr || !shown_.read) return false;
        const NewsEntry& entry = rows_[item->data(0, kRowIndexRole).toULongLong()].entry;
        std::string dateLine = NewsDateCell(entry.rawDate, DateOrder(), dateForms_);
        if (!entry.slug.empty()) dateLine += " - " + entry.slug;
        document = NewsItemDocument(ToQString(entry.headline), ToQString(dateLine),
                                    ToQString(shown_.PaneText()));
    } else {
        QStringList headers;
        QList<QStringList> rows(list_->topLevelItemCount());
        for (int column = 0; column < kRawDateColumn; ++column) {
            if (list_->isColumnHidden(column)) continue;
            headers << list_->headerItem()->text(column);
            for (int i = 0; i < list_->topLevelItemCount(); ++i)
                rows[i] << list_->topLevelItem(i)->text(column);
        }
        document = NewsListDocument(windowTitle(), headers, rows);
    }
    document->print(&printer);
    return true;
}

void NewsWindow::AskPrinterAndPrint(Printout what) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) Print(what, printer);
}

void NewsWindow::PrintCurrentStory() {
    if (list_->currentItem() != nullptr && shown_.read) AskPrinterAndPrint(Printout::CurrentItem);
}

void NewsWindow::PrintListView() {
    AskPrinterAndPrint(Printout::List);
}

void NewsWindow::done(int result) {
    std::vector<ProfileEntry> kept = WindowPlacementEntries(*this, placement_);
    std::vector<int> widths;
    for (int column = 0; column < kNewsListColumns; ++column)
        widths.push_back(list_->isColumnHidden(column) ? 0 : list_->columnWidth(column));
    std::ranges::move(NewsColumnWidthEntries(widths), std::back_inserter(kept));
    session_.profile.Write(kept);
    QDialog::done(result);
}

SortSelectedNewsDialog::SortSelectedNewsDialog(EditorSession& session,
                                               std::vector<NewsCopySource> items, QWidget* parent)
    : QDialog(parent),
      session_(session),
      items_(std::move(items)),
      list_(Named(new QTreeWidget, "lvNewsSelected")) {
    setObjectName(QStringLiteral("frmSortSelectedNews"));
    setWindowTitle(ConfiguredTitle(session, "NewsSort", "Sort the selected news"));
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setDragDropMode(QAbstractItemView::InternalMove);
    for (std::size_t index = 0; index < items_.size(); ++index) {
        auto* item = new QTreeWidgetItem(list_, {ToQString(items_[index].headline)});
        item->setFlags((item->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsDropEnabled);
        item->setCheckState(0, Qt::Checked);
        item->setData(0, kRowIndexRole, static_cast<qulonglong>(index));
    }
    auto* ok = Named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    auto* cancel =
        Named(new QPushButton(ConfiguredCaption(session, "Cancel", "Cancel")), "cmdCancel");
    connect(ok, &QPushButton::clicked, this, &SortSelectedNewsDialog::Copy);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Named(new QLabel(ConfiguredCaption(session, "NewsSortLabel", "Drag to sort")),
                            "lblNewsSortLabel"));
    layout->addWidget(list_, 1);
    layout->addLayout(buttons);
}

void SortSelectedNewsDialog::Copy() {
    std::vector<NewsCopySource> checked;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = list_->topLevelItem(i);
        if (item->checkState(0) == Qt::Checked)
            checked.push_back(items_[item->data(0, kRowIndexRole).toULongLong()]);
    }
    copied_ = CopySortedNewsItems(session_, checked, Now());
    accept();
}

}  // namespace tessarin
