#pragma once

#include <QDialog>
#include <array>

#include "metadata/metadata_choices.h"

class QLineEdit;

namespace tessarin {

// frmMetadata, the dialog behind cmdMetadata: the classification fields of the main window
// (txtPublication ... txtCodeLocal2) with their labels, contents and enabled states copied
// from it. Its title is the metadata button's caption and "...". On OK (cmdOK) the caller
// gives Values to the core; cmdCancel keeps the story as it was.
class MetadataDialog : public QDialog {
    Q_OBJECT
  public:
    MetadataDialog(const EditorSession& session, QWidget* parent);

    ClassificationValues Values() const;

  private:
    std::array<QLineEdit*, kClassificationFieldCount> fields_{};
};

}  // namespace tessarin
