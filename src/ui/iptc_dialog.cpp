#include "ui/iptc_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "attachments/attachments.h"
#include "attachments/iptc_display.h"
#include "config/colours.h"
#include "ui/configured_caption.h"
#include "ui/styled_text_bridge.h"
#include "ui/window_state_binding.h"

namespace tessarin {
namespace {

constexpr const char* kTitle = "IPTC";
constexpr int kLabelColour = 8;  // dark grey in the sixteen-colour palette
constexpr int kWidth = 520;
constexpr int kHeight = 420;

}  // namespace

IptcDialog::IptcDialog(EditorSession& session, std::string selectedKey, IptcData data,
                       QWidget* parent)
    : QDialog(parent),
      session_(session),
      selectedKey_(std::move(selectedKey)),
      data_(std::move(data)),
      text_(new QTextEdit(this)),
      macintoshAccents_(new QCheckBox(
          ConfiguredCaption(session, "MacintoshAccents", "Macintosh accents"), this)) {
    setObjectName(QStringLiteral("frmIPTCImage"));
    setWindowTitle(QString::fromUtf8(kTitle));
    resize(kWidth, kHeight);
    text_->setObjectName(QStringLiteral("rtfIPTC"));
    text_->setReadOnly(true);
    macintoshAccents_->setObjectName(QStringLiteral("chkMacintoshAccents"));

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* copy = buttons->addButton(
        ConfiguredCaption(session, "CopyCreditCaption", "Copy credit and caption"),
        QDialogButtonBox::AcceptRole);
    copy->setObjectName(QStringLiteral("cmdIPTCCaption"));
    QPushButton* cancel = buttons->addButton(ConfiguredCaption(session, "Cancel", "Cancel"),
                                             QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(copy, &QPushButton::clicked, this, &IptcDialog::CopyToPicture);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(macintoshAccents_, &QCheckBox::toggled, this, &IptcDialog::Display);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_, 1);
    layout->addWidget(macintoshAccents_);
    layout->addWidget(buttons);
    Display();
}

void IptcDialog::Display() {
    text_->clear();
    QTextCursor cursor(text_->document());
    QTextCharFormat labelFormat;
    labelFormat.setForeground(ToQColor(ClassicColour(kLabelColour)));
    const QTextCharFormat valueFormat;
    bool first = true;
    for (const IptcDisplayLine& line : IptcDisplayLines(data_, session_.configuration.interface,
                                                        macintoshAccents_->isChecked())) {
        if (!first) cursor.insertBlock();
        first = false;
        cursor.insertText(ToQString(line.label), labelFormat);
        cursor.insertText(QStringLiteral(": ") + ToQString(line.value), valueFormat);
    }
}

void IptcDialog::CopyToPicture() {
    CopyIptcToImage(session_, selectedKey_, data_);
    accept();
}

}  // namespace tessarin
