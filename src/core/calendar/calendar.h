#pragma once

#include "calendar/calendarday.h"

#include <QList>
#include <QString>

// Date arithmetic of the date picker. All rules of the calendar itself come from QDate.
class Calendar
{
public:
    Calendar() = default;

    // Short names in the default locale; 1 is January. Out of range gives "".
    static QString nameOfMonth(int month);
    // Short names in the default locale; 1 is Monday. Out of range gives "".
    static QString nameOfDay(int weekday);
    // With onlyMonth the days of the month alone; otherwise a grid of 42 cells whose weeks
    // begin on Monday and whose first row always holds days of the month before.
    static QList<CalendarDay> daysOfMonth(int year, int month, bool onlyMonth);
};
