#include "ui/date_calendar_button.h"

#include <QCalendarWidget>
#include <QPainter>
#include <QPixmap>

#include "config/preferences.h"

namespace tessarin {
namespace {

constexpr int kIconSize = 20;
constexpr int kHeaderHeight = 6;
const QColor kHeaderColour(192, 0, 0);

// A leaf of a calendar with the month's number on it; a blank leaf for month 0.
QIcon MonthIcon(int month) {
    QPixmap picture(kIconSize, kIconSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRect page(0, 0, kIconSize - 1, kIconSize - 1);
    painter.fillRect(page, Qt::white);
    painter.fillRect(QRect(0, 0, kIconSize, kHeaderHeight), kHeaderColour);
    painter.setPen(Qt::darkGray);
    painter.drawRect(page);
    if (month != 0) {
        QFont font = painter.font();
        font.setPixelSize(kIconSize - kHeaderHeight - 3);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(QRect(0, kHeaderHeight, kIconSize, kIconSize - kHeaderHeight),
                         Qt::AlignCenter, QString::number(month));
    }
    painter.end();
    return QIcon(picture);
}

}  // namespace

DateCalendarButton::DateCalendarButton(const QString& name, const QString& monthViewName,
                                       QWidget* parent)
    : QToolButton(parent), monthView_(new QCalendarWidget(this)) {
    setObjectName(name);
    setIconSize(QSize(kIconSize, kIconSize));
    setIcon(MonthIcon(shownMonth_));
    monthView_->setObjectName(monthViewName);
    monthView_->setWindowFlags(Qt::Popup);
    monthView_->hide();
    connect(this, &QToolButton::clicked, this, &DateCalendarButton::calendarRequested);
    connect(monthView_, &QCalendarWidget::clicked, this, [this](QDate date) {
        monthView_->hide();
        emit dayPicked(LocalDateTime{date.year(), date.month(), date.day()});
    });
}

void DateCalendarButton::ShowMonth(std::optional<int> month) {
    if (!month || *month == shownMonth_) return;
    shownMonth_ = *month;
    setIcon(MonthIcon(*month));
}

void DateCalendarButton::PopUp(const LocalDateTime& day, const Preferences& preferences) {
    monthView_->setVerticalHeaderFormat(preferences.ShowWeekNumbers
                                            ? QCalendarWidget::ISOWeekNumbers
                                            : QCalendarWidget::NoVerticalHeader);
    monthView_->setSelectedDate(QDate(day.year, day.month, day.day));
    monthView_->move(mapToGlobal(QPoint(0, height())));
    monthView_->show();
}

}  // namespace tessarin
