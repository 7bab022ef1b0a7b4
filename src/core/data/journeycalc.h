#pragma once

#include "data/datetext.h"

#include <QList>
#include <QString>

#include <functional>

class WayFernData;

// The arithmetic of the journey view: the date order of costs and tips, the sums and the
// category sums of the overview. The window and the command-line check both compute
// through here, so they show the same figures.
class JourneyCalc
{
public:
    // What orders a cost or tip: the day number of its date read as the record tools read
    // it (Record), 0 for a date that is not valid. An empty date takes the parts read last
    // from `last`, which every call updates.
    static qint64 dateKey(const QString &date, DateParts &last);

    // Stable sorts by dateKey, keys taken first record to last. They exchange contents as
    // swapCosts and swapTips do, so a cost's `shared` stays with its list position.
    static void sortCosts(WayFernData &doc, DateParts &last);
    static void sortTips(WayFernData &doc, DateParts &last);

    // Days from the first date text to the second.
    using DaysBetween = std::function<int(const QString &from, const QString &to)>;

    // Recomputes the currencies and costs, then fills `total`, `totaltext`, `perday` and
    // `perdaytext` of the document. Runs after the costs are sorted: the span of the
    // journey is that from the first cost to the last, both ends counted.
    static void calcSums(WayFernData &doc, const DaysBetween &daysBetween);

    // The figures as the window has them after opening a journey: costs and tips sorted by
    // date, amounts and sums recomputed, and the balances when the journey has accounts.
    // For tools that work without the window; `last` as for dateKey.
    static void refreshFigures(WayFernData &doc, DateParts &last);

    // Sum of `bvalue` over the costs whose type is exactly `type`.
    static double categorySum(const WayFernData &doc, const QString &type);
    // categorySum of each row of the category table, in its order, in one pass over the
    // costs: each sum adds the same costs in the same order as categorySum.
    static QList<double> categorySums(const WayFernData &doc);
};
