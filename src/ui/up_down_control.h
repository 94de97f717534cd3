#pragma once

#include <QAbstractSpinBox>

namespace tessarin {

// An up-down control (udDate, udEventDate, udNumber): two arrows beside a field that hold no
// value of their own. Each click, arrow key or wheel step is passed on as a direction, +1 or
// -1, for the core to move the field's value.
class UpDownControl : public QAbstractSpinBox {
    Q_OBJECT
  public:
    UpDownControl(const QString& name, QWidget* parent);

    void stepBy(int steps) override;

  signals:
    void stepped(int direction);

  protected:
    StepEnabled stepEnabled() const override;
};

}  // namespace tessarin
