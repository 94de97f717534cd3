#pragma once

#include <QString>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/session_view.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidgetItem;

namespace tessarin {

class DateCalendarButton;
class SessionTreeWidget;
class UpDownControl;
enum class DateField;

// The metadata tab of the main window (the Informations view): the author's identity and the
// story's dates (lblAuthor, lblTxtAuthor ... lblTxtLastSaveDate), the publication date
// txtPublicationDate with udDate and cmdDate, the event date txtEventDate with udEventDate and
// cmdEventDate, the publication number txtPublicationNumber with udNumber, chkColdStory,
// lstStatus, lstGenre, the classification fields txtPublication ... txtCodeLocal2 with the
// button cmdMetadata, lblMetadataLocked, and the trees treePublications, treeTaxonomy and
// treeKeywords.
//
// Every gesture goes to the core: a click in the publications tree files the story, a check
// box in the taxonomy checks a topic, the keyword tree's entry line adds a keyword when its
// text is edited and Del removes the selected keyword, the date and number fields pass on
// what is typed, their leaving, their up-down steps and the calendar's day. The panel then
// shows what the session holds. The public slots serve the main window's menu entries.
class MetadataPanel : public SessionView {
    Q_OBJECT
  public:
    MetadataPanel(EditorSession& session, QWidget* parent);
    ~MetadataPanel() override;

    void Refresh() override;

  public slots:
    void ShowPreferredPublications();  // mnuDisplayPublicationsPreferred
    void ShowAllPublications();        // mnuDisplayPublicationsFull
    void SearchPublications();         // mnuSearchPublications: frmSearchPublications
    void SearchTaxonomy();             // mnuSearchTaxonomy: the input box
    void LockMetadata(bool locked);    // mnuDisplayLockMetadata
    void EditClassification();         // cmdMetadata: frmMetadata

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    struct DateControls {
        QLineEdit* field = nullptr;
        UpDownControl* upDown = nullptr;
        DateCalendarButton* calendar = nullptr;
    };

    void BuildLayout();
    void BuildIdentity(QGridLayout& grid);
    void BuildDates(QGridLayout& grid);
    void BuildChoices(QGridLayout& grid);
    void BuildClassification(QGridLayout& grid);
    QWidget* BuildTrees();
    DateControls BuildDate(DateField field, const char* name, const char* upDownName,
                           const char* buttonName, const char* monthViewName);
    QLabel* AddLabel(QGridLayout& grid, int row, const char* name);
    void AddRow(QGridLayout& grid, int row, const char* labelName, QWidget* field);
    template <typename Widget>
    Widget* Bound(Widget* widget, const char* name);

    void ShowFields();
    void ShowChoices();
    void ShowTrees();
    void ShowTreeTip(SessionTreeWidget& tree, bool changed);

    void ClickPublication(QTreeWidgetItem* item);
    void CheckTopic(QTreeWidgetItem* item);
    void EditKeyword(QTreeWidgetItem* item);
    void RemoveSelectedKeyword();
    void Run(const std::function<void()>& gesture);

    bool refreshing_ = false;
    bool stale_ = false;
    std::vector<std::pair<QWidget*, std::string>> bound_;  // shown as their control states
    std::vector<std::pair<QLabel*, std::string>> labels_;  // with their captions
    std::vector<QLabel*> identity_;
    DateControls publicationDate_;
    DateControls eventDate_;
    QLineEdit* publicationNumber_ = nullptr;
    QCheckBox* coldStory_ = nullptr;
    QComboBox* status_ = nullptr;
    QComboBox* genre_ = nullptr;
    std::array<QLineEdit*, 8> classification_{};
    QPushButton* metadataButton_ = nullptr;
    QLabel* lockedLabel_ = nullptr;
    SessionTreeWidget* publications_ = nullptr;
    SessionTreeWidget* taxonomy_ = nullptr;
    SessionTreeWidget* keywords_ = nullptr;
};

}  // namespace tessarin
