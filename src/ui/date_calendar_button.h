#pragma once

#include <QToolButton>
#include <optional>

#include "common/clock.h"

class QCalendarWidget;

namespace tessarin {

struct Preferences;

// The button beside a date field (cmdDate, cmdEventDate) and the month view it pops up
// (MonthViewPublicationDate, MonthViewEventDate). The button's picture shows the month of the
// field's date; a field that holds no date leaves the picture as it was.
class DateCalendarButton : public QToolButton {
    Q_OBJECT
  public:
    DateCalendarButton(const QString& name, const QString& monthViewName, QWidget* parent);

    // The picture for the month of the field's date, 1 to 12; nothing keeps the picture.
    void ShowMonth(std::optional<int> month);

    // Pops the month view up below the button, on day, with week numbers as the preferences
    // ask.
    void PopUp(const LocalDateTime& day, const Preferences& preferences);

    QCalendarWidget* MonthView() const { return monthView_; }

  signals:
    // The writer pressed the button: the owner answers with PopUp.
    void calendarRequested();
    // The writer clicked a day in the month view, which is then closed.
    void dayPicked(const LocalDateTime& day);

  private:
    QCalendarWidget* monthView_;
    int shownMonth_ = 0;
};

}  // namespace tessarin
