#include "calendar/calendar.h"

#include <QDate>
#include <QLocale>

QString Calendar::nameOfMonth(int month)
{
    return QLocale().monthName(month, QLocale::ShortFormat);
}

QString Calendar::nameOfDay(int weekday)
{
    return QLocale().dayName(weekday, QLocale::ShortFormat);
}

QList<CalendarDay> Calendar::daysOfMonth(int year, int month, bool onlyMonth)
{
    // An invalid month (the month box may offer more than twelve entries) answers 0 for
    // both the length and the weekday, so the grid then holds days of the month after only.
    const int length = QDate(year, month, 1).daysInMonth();
    QList<CalendarDay> days;

    if (onlyMonth) {
        days.reserve(length);
        for (int d = 1; d <= length; ++d)
            days.append(CalendarDay{d, 1, 0});
        return days;
    }

    days.reserve(42);
    int weekday = QDate(year, month, 1).dayOfWeek();
    if (weekday == 1)
        weekday = 8; // a whole week of the month before
    const QDate before = month <= 1 ? QDate(year - 1, 12, 1) : QDate(year, month - 1, 1);
    const int beforeLength = before.daysInMonth();
    for (int i = 1; i <= weekday - 1; ++i)
        days.append(CalendarDay{beforeLength + 1 - (weekday - i), 0, 0});
    for (int d = 1; d <= length; ++d)
        days.append(CalendarDay{d, 1, 0});
    for (int d = 1; days.size() < 42; ++d)
        days.append(CalendarDay{d, 2, 0});
    return days;
}
