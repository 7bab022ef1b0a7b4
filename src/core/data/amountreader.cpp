#include "data/amountreader.h"

#include <algorithm>
#include <cmath>

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// The digits in front of the decimal mark, grouped by `group`: one to three digits first,
// then groups of three. Empty when the grouping is wrong; `valid` tells.
QString ungroup(QStringView whole, QChar group, bool &valid)
{
    valid = true;
    if (!whole.contains(group))
        return whole.toString();
    QString digits;
    qsizetype start = 0;
    bool first = true;
    while (true) {
        const qsizetype end = whole.indexOf(group, start);
        const QStringView piece = whole.mid(start, end < 0 ? -1 : end - start);
        const bool fits = first ? piece.size() >= 1 && piece.size() <= 3 : piece.size() == 3;
        if (!fits) {
            valid = false;
            return QString();
        }
        digits += piece;
        if (end < 0)
            break;
        start = end + 1;
        first = false;
    }
    return digits;
}

} // namespace

TypedAmount AmountReader::read(QStringView typed)
{
    TypedAmount refused;
    QStringView text = typed.trimmed();
    bool negative = false;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        negative = text.front() == u'-';
        text = text.mid(1);
    }

    int digits = 0;
    int points = 0;
    int commas = 0;
    for (const QChar c : text) {
        if (isDigit(c))
            ++digits;
        else if (c == u'.')
            ++points;
        else if (c == u',')
            ++commas;
        else
            return refused;
    }
    if (digits == 0)
        return refused;

    // Which mark is the decimal one, if any, and which one groups thousands.
    QChar decimal;
    QChar group;
    if (points > 0 && commas > 0) {
        decimal = text.at(std::max(text.lastIndexOf(u'.'), text.lastIndexOf(u',')));
        group = decimal == u'.' ? QChar(u',') : QChar(u'.');
        if ((decimal == u'.' ? points : commas) != 1)
            return refused;
    } else if (points + commas == 1) {
        decimal = points ? QChar(u'.') : QChar(u',');
    } else if (points + commas > 1) {
        group = points ? QChar(u'.') : QChar(u',');
    }

    const qsizetype mark = decimal.isNull() ? -1 : text.indexOf(decimal);
    const QStringView whole = mark < 0 ? text : text.left(mark);
    const QStringView fraction = mark < 0 ? QStringView() : text.mid(mark + 1);
    if (!group.isNull() && fraction.contains(group))
        return refused;
    bool grouped = true;
    QString number = group.isNull() ? whole.toString() : ungroup(whole, group, grouped);
    if (!grouped)
        return refused;

    if (number.isEmpty())
        number = QStringLiteral("0");
    if (!fraction.isEmpty()) {
        number += QLatin1Char('.');
        number += fraction;
    }
    if (negative)
        number.prepend(QLatin1Char('-'));

    // QString::toDouble reads the C form whatever the locale.
    bool converted = false;
    const double value = number.toDouble(&converted);
    if (!converted || !std::isfinite(value))
        return refused;
    return TypedAmount{true, value, number};
}

QString AmountReader::stored(const QString &typed)
{
    const TypedAmount amount = read(typed);
    return amount.ok ? amount.text : typed;
}
