// Reads a journey and prints what it holds: a check of a file without the window.
#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 2) {
        fprintf(stderr, "usage: %s JOURNEY.wfn\n", argv[0]);
        return 2;
    }
    WayFernData document;
    WayfernIO io(&document);
    if (io.ReadFile(args.at(1)) != 0)
        return 1;
    printf("\njourney   : %s\n", qPrintable(document.journeyname));
    printf("base      : %s\n", qPrintable(document.basecurrency));
    printf("costs     : %d\n", document.costs.count());
    printf("tips      : %d\n", document.tips.count());
    printf("travellers: %d\n", document.users.count());
    printf("currencies: %d\n", document.currencies.count());
    printf("categories: %d cost, %d tip, %d quality\n", document.ctypes.count(),
           document.ttypes.count(), document.qtypes.count());
    const CostsData *last = document.costs.last();
    printf("total     : %s %s\n", last ? qPrintable(last->bsum) : "0.00",
           qPrintable(document.basecurrency));

    // The overview's figures, computed as the window computes them when it opens the journey:
    // costs sorted by date, the sums, and the balances when the journey has accounts.
    JourneyCalc::sortCosts(document, ScQtUtil::lastDate);
    DateParts span;
    JourneyCalc::calcSums(document, [&span](const QString &from, const QString &to) {
        return DateText::daysBetween(from, to, span);
    });
    printf("overview  : total %s %s, per day %s %s\n", qPrintable(document.totaltext),
           qPrintable(document.basecurrency), qPrintable(document.perdaytext),
           qPrintable(document.basecurrency));
    if (document.userflag) {
        document.recalcUsers();
        for (const UserData *user : document.users)
            printf("balance   : %s %s %s\n", qPrintable(user->short_),
                   qPrintable(QString::asprintf("%.2f", user->value)),
                   qPrintable(document.basecurrency));
    }
    return 0;
}
