// Reads a journey and prints what it holds: a check of a file without the window.
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
    document.recalcUsers();
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
    return 0;
}
