// Reads a journey and prints what it holds: a check of a file without the window.
//   wayfern-check JOURNEY.wfn                   what the journey holds, with the reader's trace
//   wayfern-check --settle JOURNEY.wfn          balances, kitty and who pays whom
//   wayfern-check --csv costs|accounts JOURNEY.wfn    the costs or the accounts as CSV
//   wayfern-check JOURNEY.wfn --report FILE.pdf the journey report as PDF and, beside it,
//                                               as HTML (FILE.html)
// With --settle and --csv only the answer goes to standard output, so scripts can use it.
#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "export/journeycsv.h"
#include "report/journeyreport.h"
#include "report/reportwriter.h"
#include "settle/settlement.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <memory>

namespace {

int usage(const char *program)
{
    fprintf(stderr,
            "usage: %s [--settle | --csv costs|accounts] JOURNEY.wfn\n"
            "       %s JOURNEY.wfn --report FILE.pdf\n",
            program, program);
    return 2;
}

// Reads with the reader's printed lines sent to nowhere.
int readQuietly(WayfernIO &io, const QString &path)
{
    fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int null = open("/dev/null", O_WRONLY);
    if (saved >= 0 && null >= 0)
        dup2(null, STDOUT_FILENO);
    const int result = io.ReadFile(path);
    fflush(stdout);
    if (saved >= 0) {
        dup2(saved, STDOUT_FILENO);
        close(saved);
    }
    if (null >= 0)
        close(null);
    return result;
}

void printOverview(WayFernData &document)
{
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

    // The overview's figures, computed as the window computes them when it opens the journey.
    JourneyCalc::refreshFigures(document, ScQtUtil::lastDate);
    printf("overview  : total %s %s, per day %s %s\n", qPrintable(document.totaltext),
           qPrintable(document.basecurrency), qPrintable(document.perdaytext),
           qPrintable(document.basecurrency));
    if (document.userflag) {
        for (const UserData *user : document.users)
            printf("balance   : %s %s %s\n", qPrintable(user->short_),
                   qPrintable(QString::asprintf("%.2f", user->value)),
                   qPrintable(document.basecurrency));
    }
}

void printSettlement(WayFernData &document)
{
    JourneyCalc::refreshFigures(document, ScQtUtil::lastDate);
    const QString &base = document.basecurrency;
    const Settlement settlement = Settlement::fromJourney(document, QStringLiteral("kitty"));
    for (const Settlement::Party &party : settlement.parties())
        printf("balance   : %s %s %s\n", qPrintable(party.name),
               qPrintable(Settlement::centsText(party.cents)), qPrintable(base));
    printf("unbooked  : %s %s\n", qPrintable(Settlement::centsText(settlement.unbookedCents())),
           qPrintable(base));
    // What is unbooked comes from costs whose shares do not add up to them.
    for (const Settlement::OpenCost &cost : settlement.openCosts())
        printf("open cost : %s\n", qPrintable(Settlement::openCostText(cost)));
    const Settlement::Plan plan = settlement.fewestTransfers();
    for (const Settlement::Transfer &transfer : plan.transfers)
        printf("transfer  : %s\n", qPrintable(Settlement::transferText(transfer, base)));
    if (!plan.transfers.isEmpty())
        printf("plan      : %s\n", plan.provenFewest ? "the fewest transfers possible"
                                                       : "may not be the fewest transfers");
}

} // namespace

int main(int argc, char **argv)
{
    // The report's pages need fonts, so a GUI application, but never a display.
    bool report = false;
    for (int i = 1; i < argc; ++i)
        report = report || strcmp(argv[i], "--report") == 0;
    std::unique_ptr<QCoreApplication> app;
    if (report) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QStringList args = app->arguments();
    args.removeFirst();

    enum class Mode { Overview, Settle, CsvCosts, CsvAccounts, Report } mode = Mode::Overview;
    QString reportPath;
    const qsizetype reportAt = args.indexOf(QStringLiteral("--report"));
    if (reportAt >= 0) {
        reportPath = args.value(reportAt + 1);
        if (reportPath.isEmpty() || reportPath.startsWith(QLatin1String("--")))
            return usage(argv[0]);
        args.remove(reportAt, 2);
        mode = Mode::Report;
    }
    if (mode == Mode::Report) {
        // The report stands alone: no other mode with it.
    } else if (args.value(0) == QLatin1String("--settle")) {
        mode = Mode::Settle;
        args.removeFirst();
    } else if (args.value(0) == QLatin1String("--csv")) {
        const QString what = args.value(1);
        if (what == QLatin1String("costs"))
            mode = Mode::CsvCosts;
        else if (what == QLatin1String("accounts"))
            mode = Mode::CsvAccounts;
        else
            return usage(argv[0]);
        args.remove(0, 2);
    }
    if (args.size() != 1 || args.first().startsWith(QLatin1String("--")))
        return usage(argv[0]);

    WayFernData document;
    WayfernIO io(&document);
    if (mode == Mode::Overview) {
        if (io.ReadFile(args.first()) != 0)
            return 1;
        printOverview(document);
        return 0;
    }
    if (readQuietly(io, args.first()) != 0) {
        fprintf(stderr, "wayfern-check: cannot read %s\n", qPrintable(args.first()));
        return 1;
    }
    if (mode == Mode::Settle) {
        printSettlement(document);
        return 0;
    }
    JourneyCalc::refreshFigures(document, ScQtUtil::lastDate);
    if (mode == Mode::Report) {
        const JourneyReport figures = JourneyReport::fromJourney(document, args.first());
        QString problem;
        if (!ReportWriter::write(figures, reportPath, &problem)) {
            fprintf(stderr, "wayfern-check: could not write the report %s: %s\n",
                    qPrintable(reportPath), qPrintable(problem));
            return 1;
        }
        printf("report    : %s\n", qPrintable(reportPath));
        printf("report    : %s\n", qPrintable(ReportWriter::htmlPathFor(reportPath)));
        return 0;
    }
    const QByteArray csv = mode == Mode::CsvCosts ? JourneyCsv::costs(document)
                                                  : JourneyCsv::accounts(document);
    fwrite(csv.constData(), 1, size_t(csv.size()), stdout);
    return 0;
}
