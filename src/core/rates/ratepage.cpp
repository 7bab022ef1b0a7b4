#include "rates/ratepage.h"

#include "rates/jsonpage.h"
#include "storage/printline.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QStringView>

#include <cmath>
#include <cstring>

namespace {

const QByteArray triggerWords = QByteArrayLiteral("Exchange Rate");

// The number of a rate: a finite JSON number, else -1.0.
double rateNumber(const QJsonValue &value)
{
    if (!value.isDouble())
        return -1.0;
    const double rate = value.toDouble();
    return std::isfinite(rate) ? rate : -1.0;
}

// Every object of the answer, the answer first, then the objects inside it level by level
// (objects in arrays too), so that the one nearest to the top comes first.
QList<QJsonObject> objectsByLevel(const QJsonObject &answer)
{
    QList<QJsonObject> objects{answer};
    QList<QJsonValue> values;
    for (qsizetype next = 0; next < objects.size(); ++next) {
        for (const QJsonValue &value : objects.at(next))
            values.append(value);
        // Arrays are opened in the same pass; their objects join the level behind.
        for (qsizetype v = 0; v < values.size(); ++v) {
            const QJsonValue value = values.at(v);
            if (value.isObject())
                objects.append(value.toObject());
            else if (value.isArray())
                for (const QJsonValue &item : value.toArray())
                    values.append(item);
        }
        values.clear();
    }
    return objects;
}

} // namespace

namespace RatePage {

QByteArray readPage(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    QByteArray page = file.read(maxPageBytes);
    if (page.isNull())
        page = QByteArray(""); // an empty page still opened
    return page;
}

QString findTrigger(const QByteArray &page)
{
    // Line by line as a text stream reads it: a line ends at "\n" (a "\r" in front of it is
    // no part of the line), and a byte order mark at the very beginning is no text.
    int lineStart = page.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (lineStart < page.size()) {
        const int found = page.indexOf(triggerWords, lineStart);
        if (found < 0)
            break;
        // The line that holds the first occurrence behind lineStart; every search starts at a
        // line's beginning, so this is that line's first occurrence too.
        const int newline = page.lastIndexOf('\n', found);
        const int begin = newline < lineStart ? lineStart : newline + 1;
        int end = page.indexOf('\n', found);
        if (end < 0)
            end = page.size();
        if (found > begin) {
            int length = end - begin;
            if (end < page.size() && length > 0 && page.at(end - 1) == '\r')
                --length;
            return QString::fromUtf8(page.constData() + begin, length);
        }
        lineStart = end + 1;
    }
    return QString(QLatin1String(""));
}

int countColumns(const QString &trigger)
{
    const int table = trigger.indexOf(QLatin1String("<table>"));
    if (table < 0)
        return 0;
    const QStringView work = QStringView(trigger).mid(table + 1);
    const int words = work.indexOf(QLatin1String("Exchange Rate"));
    if (words < 0)
        return 0;
    const QStringView header = work.left(words);

    // The header text is replaced by its last p characters for each "<th" found at p. Kept as
    // a start offset into the header: an occurrence at a stays the first one found while the
    // start moves on by (end - a) per step, so all the steps it takes are counted at once.
    // That keeps a long line linear instead of quadratic.
    const qsizetype end = header.size();
    qsizetype start = 0;
    int count = 0;
    while (true) {
        const qsizetype at = header.indexOf(QLatin1String("<th"), start);
        if (at < 0)
            break;
        const qsizetype step = end - at;
        const qsizetype steps = (at - start) / step + 1;
        count += int(steps);
        start += steps * step;
    }
    return count;
}

double readCell(const QString &trigger, int n)
{
    const int table = trigger.indexOf(QLatin1String("<table>"));
    if (table < 0)
        return -1.0;
    QStringView work = QStringView(trigger).mid(table + 1);
    qint64 counter = 0;
    while (true) {
        const qsizetype at = work.indexOf(QLatin1String("<td"));
        if (at < 0)
            break;
        work = work.mid(at + 1);
        ++counter;
        if (counter > qint64(n) + 1)
            break;
    }
    const qsizetype close = work.indexOf(QLatin1String("</td>"));
    if (close < 0)
        return -1.0;
    // Dropping 3 characters takes away "td>" only when the tag has no attributes; whatever
    // is no number then converts to 0.0.
    return work.left(close).toString().mid(3).toDouble();
}

double rateFromTrigger(const QString &trigger)
{
    if (trigger.isNull()) {
        printLine("\nTrigger not found ... ");
        return -1.0;
    }
    const int n = countColumns(trigger);
    if (n == 0)
        return -1.0;
    return readCell(trigger, n);
}

double readJsonRate(const QByteArray &page, const QString &to)
{
    QJsonObject answer;
    if (!JsonPage::readObject(page, &answer))
        return -1.0;
    const QList<QJsonObject> objects = objectsByLevel(answer);
    // The first "rates" object decides: it holds the code, or the answer has no such table.
    for (const QJsonObject &object : objects) {
        const QJsonValue rates = object.value(QLatin1String("rates"));
        if (!rates.isObject())
            continue;
        const QJsonObject table = rates.toObject();
        const auto found = table.constFind(to);
        if (found != table.constEnd())
            return rateNumber(found.value());
        break;
    }
    for (const QJsonObject &object : objects) {
        const auto found = object.constFind(QLatin1String("rate"));
        if (found != object.constEnd())
            return rateNumber(found.value());
    }
    return -1.0;
}

double readRateFile(const QString &path, const QString &to)
{
    const QByteArray page = readPage(path);
    if (page.isNull())
        return -1.0;
    const QString trigger = findTrigger(page);
    if (!trigger.isNull() && trigger.isEmpty())
        return readJsonRate(page, to);
    return rateFromTrigger(trigger);
}

bool hasFortyLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    // Counted in bytes, a piece at a time: a page of one endless line costs no memory.
    constexpr qint64 pieceSize = 64 * 1024;
    QByteArray piece(pieceSize, Qt::Uninitialized);
    int lineEnds = 0;
    while (true) {
        const qint64 got = file.read(piece.data(), pieceSize);
        if (got <= 0)
            return false;
        const char *at = piece.constData();
        const char *const stop = at + got;
        while (at < stop) {
            if (lineEnds == 40)
                return true; // a byte behind the 40th line
            const void *newline = std::memchr(at, '\n', size_t(stop - at));
            if (!newline)
                break;
            ++lineEnds;
            at = static_cast<const char *>(newline) + 1;
        }
    }
}

} // namespace RatePage
