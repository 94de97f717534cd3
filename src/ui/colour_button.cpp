#include "ui/colour_button.h"

#include <QColorDialog>

#include "ui/styled_text_bridge.h"

namespace tessarin {

namespace {
constexpr int kSwatchWidth = 48;
}  // namespace

ColourButton::ColourButton(const QString& objectName, OleColour colour, QWidget* parent)
    : QPushButton(parent), colour_(colour) {
    setObjectName(objectName);
    setFixedWidth(kSwatchWidth);
    SetColour(colour);
    connect(this, &QPushButton::clicked, this, &ColourButton::Choose);
}

void ColourButton::SetColour(OleColour colour) {
    colour_ = colour;
    setStyleSheet(QStringLiteral("background-color: %1").arg(ToQColor(colour).name()));
}

void ColourButton::Choose() {
    const QColor chosen = QColorDialog::getColor(ToQColor(colour_), this);
    if (!chosen.isValid()) return;
    SetColour(ToOleColour(chosen));
    emit colourChosen(colour_);
}

}  // namespace tessarin
