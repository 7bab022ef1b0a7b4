#pragma once

#include <QByteArray>
#include <QString>

class WayFernData;

// A journey's costs and accounts as CSV for spreadsheets: UTF-8, comma separated, lines
// ending in CRLF, fields quoted where they hold a comma, a quote or a line break. Amounts
// are written with a dot and two decimals, rates with four. A text that a spreadsheet
// would run as a formula (beginning with =, +, - or @ and not a number) gets a leading
// apostrophe.
namespace JourneyCsv {

// date, type, comment, foreign value, currency, rate, base value, base currency, shared,
// then each traveller's share of the cost, one column per traveller in list order, then the
// booked rate. The rate is the one applied: the currency's present factor in foreign units
// per base unit, so that the foreign value divided by it is the base value; empty for a
// currency the journey does not know. The booked rate is the one stored with the cost.
QByteArray costs(const WayFernData &doc);
// traveller, date, type, change, running total: every account line, traveller by
// traveller, lines in account order.
QByteArray accounts(const WayFernData &doc);

// One text field, guarded and quoted as needed.
QString textField(const QString &text);

// Where the accounts go beside the costs: "trip.csv" gives "trip-accounts.csv".
QString accountsPathFor(const QString &costsPath);
// Writes the costs to `costsPath` and the accounts to accountsPathFor(costsPath), each file
// whole or not at all. False when one could not be written; `problem` then says why, and
// `failedPath` which file it was.
bool writeFiles(const WayFernData &doc, const QString &costsPath, QString *problem,
                QString *failedPath);

} // namespace JourneyCsv
