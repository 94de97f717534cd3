#pragma once

#include <QDialog>
#include <optional>
#include <string>

class QLineEdit;
class QRadioButton;

namespace tessarin {

struct EditorSession;

// frmSearchPublications: finds nodes of treePublications by name (optSearchName), by first
// code (optSearchCode1) or by second code (optSearchCode2). Its title shows the tree's node
// count, " [N items]", which follows the two views of the tree (optPreferredPublications,
// optAllPublications) as the writer switches between them. OK (cmdOK) runs the core's search
// on txtSearch and closes; cmdCancel closes.
class SearchPublicationsDialog : public QDialog {
    Q_OBJECT
  public:
    SearchPublicationsDialog(EditorSession& session, QWidget* parent);

    // The key of the first node that the search found, to be scrolled into view.
    const std::optional<std::string>& FirstMatch() const { return firstMatch_; }

  signals:
    // The tree was built again for the other view.
    void viewChanged();

  private:
    void SwitchView(bool allPublications);
    void Search();
    void ShowCount();

    EditorSession& session_;
    QString title_;
    QLineEdit* text_;
    QRadioButton* byName_;
    QRadioButton* byFirstCode_;
    std::optional<std::string> firstMatch_;
};

}  // namespace tessarin
