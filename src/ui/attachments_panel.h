#pragma once

#include <QPixmap>
#include <QString>
#include <functional>
#include <map>
#include <string>

#include "ui/session_view.h"

class QLabel;
class QLineEdit;
class QMimeData;
class QPushButton;
class QTreeWidgetItem;

namespace tessarin {

class SessionTreeWidget;
enum class AttachmentKind;

// The pictures and files tab of the main window (the Images view): treeImages with the
// selected picture's caption txtImageCaption and credit txtImageCredit, its path and size
// lblImageInfo, the copy-fit line lblImagesCopyfit and the preview picImage; treeOtherFiles
// with the selected file's description txtOtherFileDescription.
//
// The buttons cmdAddImage and cmdAddOtherFile beside the trees and Enter on a tree add an
// attachment through the file dialog, Del removes the selected one, files dropped on a tree
// or on the preview are added, and the trees' context menus add, and for a selected
// attachment replace, remove, open and show a picture's IPTC data (frmIPTCImage). The core decides
// and asks; the panel shows the outcome and selects the node the core names.
class AttachmentsPanel : public SessionView {
    Q_OBJECT
  public:
    AttachmentsPanel(EditorSession& session, QWidget* parent);
    ~AttachmentsPanel() override;

    void Refresh() override;

  public slots:
    void AddImage();  // through the file dialog
    void AddOtherFile();
    void ShowIptc();  // frmIPTCImage for the selected picture

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    SessionTreeWidget* BuildTree(AttachmentKind kind);
    QPushButton* BuildAddButton(AttachmentKind kind, QWidget* parent);
    QWidget* BuildImagesPart();
    QWidget* BuildOtherFilesPart();
    QLineEdit* NewField(const char* name, const char* labelName, QWidget* parent, QLabel** label);

    void ShowFields();
    void ShowPreview();
    void Select(AttachmentKind kind, const std::string& key);
    void Run(const std::function<void()>& gesture);
    void Add(AttachmentKind kind);
    void Replace(AttachmentKind kind);
    void Remove(AttachmentKind kind);
    void OpenPicture();
    void DropFiles(AttachmentKind kind, const QMimeData& files);
    void ShowContextMenu(AttachmentKind kind, const QPoint& where);
    SessionTreeWidget* TreeOf(AttachmentKind kind) const;

    bool refreshing_ = false;
    bool stale_ = false;
    SessionTreeWidget* images_ = nullptr;
    SessionTreeWidget* otherFiles_ = nullptr;
    QWidget* otherFilesPart_ = nullptr;
    QPushButton* addImage_ = nullptr;
    QPushButton* addOtherFile_ = nullptr;
    QLineEdit* caption_ = nullptr;
    QLineEdit* credit_ = nullptr;
    QLineEdit* description_ = nullptr;
    QLabel* captionLabel_ = nullptr;
    QLabel* creditLabel_ = nullptr;
    QLabel* descriptionLabel_ = nullptr;
    QLabel* info_ = nullptr;
    QLabel* copyFit_ = nullptr;
    QLabel* preview_ = nullptr;
    std::map<QObject*, AttachmentKind> targets_;  // the widgets that take keys and drops
    QString previewPath_;
    QPixmap previewPicture_;
};

}  // namespace tessarin
