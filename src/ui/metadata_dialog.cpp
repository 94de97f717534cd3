#include "ui/metadata_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/configured_caption.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr const char* kMetadataButtonDesign = "Metadata";

}  // namespace

MetadataDialog::MetadataDialog(const EditorSession& session, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmMetadata"));
    const WindowState& window = session.window;
    setWindowTitle(ControlCaption(window, "cmdMetadata", kMetadataButtonDesign) +
                   QStringLiteral("..."));

    auto* form = new QFormLayout;
    const ClassificationValues values = ReadClassification(session.story);
    std::size_t index = 0;
    for (const ClassificationField& field : ClassificationFields()) {
        const std::string labelName = "lbl" + std::string(field.name);
        const std::string fieldName = "txt" + std::string(field.name);
        auto* label = new QLabel(this);
        label->setObjectName(ToQString(labelName));
        ShowLabelCaption(*label, window, labelName);
        auto* edit = new QLineEdit(ToQString(values[index]), this);
        edit->setObjectName(ToQString(fieldName));
        ShowControlState(*edit, window, fieldName);
        form->addRow(label, edit);
        fields_[index++] = edit;
    }

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* ok = buttons->addButton(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(ConfiguredCaption(session, "Cancel", "Cancel"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

ClassificationValues MetadataDialog::Values() const {
    ClassificationValues values;
    for (std::size_t index = 0; index < fields_.size(); ++index)
        values[index] = ToUtf8(fields_[index]->text());
    return values;
}

}  // namespace tessarin
