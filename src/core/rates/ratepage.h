#pragma once

#include <QByteArray>
#include <QString>

// Reading an exchange rate out of a downloaded page. Two kinds of page are understood: the
// HTML page with a rate table (its line holds "Exchange Rate" behind a "<table>" tag), read
// by plain text search, and, where no such line stands, a JSON answer of a rate service.
namespace RatePage {

// Only this much of a page is ever read. A rate answer is a few hundred bytes and the old
// table pages were some tens of kilobytes; anything much larger is no rate page, and
// reading it whole would let a broken or hostile server make us spend memory at will. The
// page is read once, in one piece, and searched in place; every search is linear in it.
inline constexpr qint64 maxPageBytes = 16 * 1024 * 1024;

// The first `maxPageBytes` of the file, or a null array when it cannot be opened.
QByteArray readPage(const QString &path);

// The first line of `page` that holds "Exchange Rate" at a position greater than 0 (a line
// beginning with the words does not count). Without such a line: the empty, not null, text.
QString findTrigger(const QByteArray &page);

// The column figure of the trigger line: the header text in front of "Exchange Rate" behind
// "<table>", shrunk to its last p characters for each "<th" found at p. 0 when "<table>"
// (exactly so, without attributes) or "Exchange Rate" behind it is missing.
int countColumns(const QString &trigger);

// The number in the cell opened by the (n + 2)-th "<td" behind "<table>" (the last cell of a
// shorter row), up to its "</td>", with the first 3 characters dropped. A text that is no
// number gives 0.0; no "</td>" gives -1.0.
double readCell(const QString &trigger, int n);

// The table rule on a trigger line: a null text prints "\nTrigger not found ... " and gives
// -1.0; a line with column figure 0 gives -1.0; else the cell.
double rateFromTrigger(const QString &trigger);

// The rate in a JSON answer: the number of the code `to` in a "rates" object, or else the
// number of "rate". Both are looked for in the answer itself first and then in the objects
// inside it, nearest to the top first; the first "rates" object decides whether the code is
// there. A name given twice in one object counts with its last value. Missing, no number,
// or a page that is no JSON object: -1.0.
double readJsonRate(const QByteArray &page, const QString &to);

// The whole reading of a page file for currency `to`: the table rule when the page holds a
// trigger line, else the JSON answer. -1.0 means no rate.
double readRateFile(const QString &path, const QString &to);

// True when the file holds more than 40 lines: 40 line ends and at least one byte behind
// them. A file that cannot be opened gives false.
bool hasFortyLines(const QString &path);

} // namespace RatePage
