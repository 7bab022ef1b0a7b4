#include "rates/ratepage.h"

#include "storage/printline.h"

#include <QFile>
#include <QStringView>

#include <cmath>
#include <cstring>

namespace {

const QByteArray triggerWords = QByteArrayLiteral("Exchange Rate");

bool isJsonSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

int skipSpace(const QByteArray &text, int pos)
{
    while (pos < text.size() && isJsonSpace(text.at(pos)))
        ++pos;
    return pos;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A JSON number starting at `pos` (after blanks), which must end at a blank, ",", "}", "]"
// or the end of the text. Anything else, or a number too large for a double, is -1.0.
double jsonNumberAt(const QByteArray &text, int pos)
{
    const int size = text.size();
    pos = skipSpace(text, pos);
    const int start = pos;
    if (pos < size && text.at(pos) == '-')
        ++pos;
    if (pos >= size || !isDigit(text.at(pos)))
        return -1.0;
    if (text.at(pos) == '0') {
        ++pos;
    } else {
        while (pos < size && isDigit(text.at(pos)))
            ++pos;
    }
    if (pos < size && text.at(pos) == '.') {
        ++pos;
        if (pos >= size || !isDigit(text.at(pos)))
            return -1.0;
        while (pos < size && isDigit(text.at(pos)))
            ++pos;
    }
    if (pos < size && (text.at(pos) == 'e' || text.at(pos) == 'E')) {
        ++pos;
        if (pos < size && (text.at(pos) == '+' || text.at(pos) == '-'))
            ++pos;
        if (pos >= size || !isDigit(text.at(pos)))
            return -1.0;
        while (pos < size && isDigit(text.at(pos)))
            ++pos;
    }
    if (pos < size) {
        const char next = text.at(pos);
        if (!isJsonSpace(next) && next != ',' && next != '}' && next != ']')
            return -1.0;
    }
    bool ok = false;
    const double value = text.mid(start, pos - start).toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return -1.0;
    return value;
}

// Position behind `"key"` followed by blanks and ":" within [from, to), or -1.
int valueBehindKey(const QByteArray &text, const QByteArray &quotedKey, int from, int to)
{
    int at = from;
    while (true) {
        at = text.indexOf(quotedKey, at);
        if (at < 0 || at + quotedKey.size() > to)
            return -1;
        const int colon = skipSpace(text, at + quotedKey.size());
        if (colon < to && text.at(colon) == ':')
            return colon + 1;
        at += quotedKey.size();
    }
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
    const QByteArray ratesKey = QByteArrayLiteral("\"rates\"");
    int at = 0;
    while (true) {
        const int value = valueBehindKey(page, ratesKey, at, page.size());
        if (value < 0)
            break;
        const int open = skipSpace(page, value);
        if (open < page.size() && page.at(open) == '{') {
            int close = page.indexOf('}', open);
            if (close < 0)
                close = page.size();
            const QByteArray key = '"' + to.toUtf8() + '"';
            const int number = valueBehindKey(page, key, open + 1, close);
            if (number >= 0)
                return jsonNumberAt(page, number);
            break;
        }
        at = value;
    }
    const int number = valueBehindKey(page, QByteArrayLiteral("\"rate\""), 0, page.size());
    if (number >= 0)
        return jsonNumberAt(page, number);
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
