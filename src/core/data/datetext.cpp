#include "data/datetext.h"

#include <QDate>

namespace {

int number(QStringView piece)
{
    return piece.toInt(nullptr, 10);
}

// Stores `value` when the caller asked for `field`, and notes it among those set.
void store(int &target, int value, int field, int fields, int &set)
{
    if (!(fields & field))
        return;
    target = value;
    set |= field;
}

} // namespace

int DateText::read(QStringView text, Reading reading, DateParts &parts, int fields)
{
    int set = 0;
    if (text.isEmpty())
        return set;
    const qsizetype first = text.indexOf(u'.');
    switch (reading) {
    case Record: {
        const bool front = first >= 1;
        const qsizetype last = text.lastIndexOf(u'.');
        store(parts.day, front ? number(text.left(first)) : 0, Day, fields, set);
        store(parts.month, front ? number(text.mid(first + 1, 2)) : 0, Month, fields, set);
        store(parts.year, last >= 1 ? number(text.mid(last + 1)) : 0, Year, fields, set);
        break;
    }
    case Picker: {
        if (first <= 0)
            break;
        store(parts.day, number(text.left(first)), Day, fields, set);
        const QStringView rest = text.mid(first + 1);
        const qsizetype second = rest.indexOf(u'.');
        if (second <= 0)
            break;
        store(parts.month, number(rest.left(second)), Month, fields, set);
        store(parts.year, number(rest.mid(second + 1)), Year, fields, set);
        break;
    }
    case Span: {
        const qsizetype last = text.lastIndexOf(u'.');
        const QStringView front = last >= 0 ? text.left(last) : QStringView();
        store(parts.year, number(text.mid(last + 1)), Year, fields, set);
        const qsizetype split = front.indexOf(u'.');
        store(parts.day, number(split >= 0 ? front.left(split) : front), Day, fields, set);
        store(parts.month, split >= 0 ? number(front.mid(split + 1)) : 0, Month, fields, set);
        break;
    }
    }
    return set;
}

qint64 DateText::dayNumber(const DateParts &parts)
{
    const QDate date(parts.year, parts.month, parts.day);
    return date.isValid() ? date.toJulianDay() : 0;
}

int DateText::daysBetween(QStringView from, QStringView to, DateParts &work)
{
    // Qt's daysTo would answer 0 for a date that is not valid; here it is day 0 instead.
    read(from, Span, work);
    const qint64 start = dayNumber(work);
    read(to, Span, work);
    return int(dayNumber(work) - start);
}

bool DateText::isDate(QStringView text)
{
    // The shape first: the readings convert pieces such as "2." or " 3" in their own ways.
    const qsizetype first = text.indexOf(u'.');
    if (first < 1 || first > 2 || text.size() != first + 8 || text.at(first + 3) != u'.')
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (i != first && i != first + 3 && !(text.at(i) >= u'0' && text.at(i) <= u'9'))
            return false;
    }
    DateParts parts;
    if (read(text, Record, parts) != AllFields)
        return false;
    return QDate(parts.year, parts.month, parts.day).isValid();
}
