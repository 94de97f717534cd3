#pragma once

#include <QDialog>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "news/news_copy.h"
#include "news/news_scan.h"
#include "news/news_show.h"
#include "ui/window_placement.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPrinter;
class QPushButton;
class QRadioButton;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace tessarin {

struct EditorSession;

// frmNews: one agency service of the news store. optRepository chooses the live or the
// archive folder, lstNewsCategories the category, txtSearch a word and the dates a range;
// cmdSearch scans into lvNewsML, row by row as the items are read, off the interface thread.
// The current row's text shows in rtfNewsML, its marks in the mark colours, its location in
// lblLocation, its organisations and its log's comments in txtOrganisation and txtNewsLog.
// cmdCopySelection and mnuCopySelection, mnuCopyAll take text into the open story;
// cmdSortSelectedNews and mnuSortSelectedNews open frmSortSelectedNews on the chosen rows.
// The Columns menu writes each of the list's preferences as soon as it is chosen and applies
// it; mnuPrint and mnuPrintListView print the current item and the list.
class NewsWindow : public QDialog {
    Q_OBJECT
  public:
    // At most five news windows are open at once.
    static constexpr int kMaxWindows = 5;

    NewsWindow(EditorSession& session, int service, QWidget* parent);
    ~NewsWindow() override;

    // cmdSearch: scans the chosen folder; the rows arrive as they are read.
    void Search();
    bool Scanning() const { return scanning_; }

    void CopySelection();
    void CopyAll();
    void SortSelectedNews();

    // Shows the columns, the date forms and the way of choosing a row that the preferences
    // ask for.
    void CheckColumns();
    // Gives the list's columns the widths kept when a news window last closed.
    void SetSizeColumns();

    // mnuPrint and mnuPrintListView: ask for a printer, then print.
    void PrintCurrentStory();
    void PrintListView();
    enum class Printout { CurrentItem, List };
    // Prints into printer as it is set up; false, printing nothing, when no item is shown.
    bool Print(Printout what, QPrinter& printer) const;

    // The rows in the list's order, and the chosen ones.
    const std::vector<NewsRow>& Rows() const { return rows_; }

  signals:
    // Text went into the open story.
    void storyChanged();
    // A scan has put all its rows in the list.
    void scanFinished();

  protected:
    void done(int result) override;

  private:
    QWidget* BuildList();
    QWidget* BuildItem();
    void BuildMenu();
    void AskPrinterAndPrint(Printout what);
    void AddRows(const std::vector<NewsRow>& rows);
    void FinishScan(NewsScanResult result);
    void ShowRow(QTreeWidgetItem* item);
    void ShowMarks();
    NewsRow* CurrentRow();
    NewsCopySource SourceOf(const NewsRow& row) const;
    void AfterCopy(NewsRow& row, const NewsCopyResult& result);
    void PaintRow(QTreeWidgetItem& item, const NewsRow& row) const;
    std::filesystem::path Folder() const;

    EditorSession& session_;
    int service_;
    NewsScanner scanner_;
    std::jthread scan_;
    std::atomic<bool> scanning_{false};
    std::vector<NewsRow> rows_;
    NewsDateFormats dateForms_;
    NewsRowChoice choice_ = NewsRowChoice::OnClick;
    ShownNewsItem shown_;
    std::u16string shownText_;  // the item's text in the code units of its log

    QRadioButton* live_;
    QRadioButton* archive_;
    QComboBox* categories_;
    QLineEdit* search_;
    QCheckBox* dates_;
    QDateEdit* from_;
    QDateEdit* to_;
    QPushButton* searchButton_;
    QTreeWidget* list_;
    QTextEdit* text_;
    QLabel* location_;
    QPlainTextEdit* organisations_;
    QPlainTextEdit* log_;
    QLabel* status_;
    WindowPlacementKeys placement_;
};

// frmSortSelectedNews: lvNewsSelected lists the chosen rows of a news window with a check box
// each, in an order the user changes by dragging; cmdOK copies the checked ones, in that
// order, into the open story.
class SortSelectedNewsDialog : public QDialog {
    Q_OBJECT
  public:
    SortSelectedNewsDialog(EditorSession& session, std::vector<NewsCopySource> items,
                           QWidget* parent);

    // True when cmdOK put text into the story.
    bool Copied() const { return copied_; }

  private:
    void Copy();

    EditorSession& session_;
    std::vector<NewsCopySource> items_;
    QTreeWidget* list_;
    bool copied_ = false;
};

}  // namespace tessarin
