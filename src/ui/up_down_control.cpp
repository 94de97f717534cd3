#include "ui/up_down_control.h"

#include <QLineEdit>

namespace tessarin {
namespace {

constexpr int kArrowsWidth = 18;

}  // namespace

UpDownControl::UpDownControl(const QString& name, QWidget* parent) : QAbstractSpinBox(parent) {
    setObjectName(name);
    setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    setFrame(false);
    setFixedWidth(kArrowsWidth);
    lineEdit()->setReadOnly(true);
    lineEdit()->hide();
    setFocusPolicy(Qt::NoFocus);
}

void UpDownControl::stepBy(int steps) {
    if (steps != 0) emit stepped(steps > 0 ? 1 : -1);
}

QAbstractSpinBox::StepEnabled UpDownControl::stepEnabled() const {
    return StepUpEnabled | StepDownEnabled;
}

}  // namespace tessarin
