// Reads a journey and prints what it holds: a check of a file without the window.
//   wayfern-check JOURNEY.wfn                         what the journey holds
//   wayfern-check --settle JOURNEY.wfn                balances, kitty and who pays whom
//   wayfern-check --csv costs|accounts [-o FILE] JOURNEY.wfn
//                                                     the costs or the accounts as CSV
//   wayfern-check --report FILE.pdf JOURNEY.wfn       the journey report as PDF and, beside
//                                                     it, as HTML (FILE.html)
// Options come in any order. Standard output carries only the answer, so scripts can use it;
// the reader's printed lines go to standard error with --trace and nowhere without it.
// Exit status: 0 done, 1 the journey cannot be read or the answer not written, 2 a usage error.
#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "export/journeycsv.h"
#include "report/journeyreport.h"
#include "report/reportwriter.h"
#include "settle/settlement.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"
#include "wayfernversion.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <memory>

namespace {

constexpr int usageError = 2;

int usage(const QCommandLineParser &parser, const QString &problem)
{
    fprintf(stderr, "wayfern-check: %s\n%s", qPrintable(problem), qPrintable(parser.helpText()));
    return usageError;
}

// Holds a journey read with the reader's printed lines (and the configuration's, which it
// prints when the document is made) sent to standard error or to nowhere: standard output
// keeps only the answer.
class QuietRead
{
public:
    QuietRead(bool trace)
    {
        fflush(stdout);
        saved = dup(STDOUT_FILENO);
        const int target = trace ? dup(STDERR_FILENO) : open("/dev/null", O_WRONLY);
        if (saved >= 0 && target >= 0)
            dup2(target, STDOUT_FILENO);
        if (target >= 0)
            close(target);
    }
    ~QuietRead() { restore(); }
    QuietRead(const QuietRead &) = delete;
    QuietRead &operator=(const QuietRead &) = delete;

    void restore()
    {
        fflush(stdout);
        if (saved >= 0) {
            dup2(saved, STDOUT_FILENO);
            close(saved);
            saved = -1;
        }
    }

private:
    int saved = -1;
};

QString readProblemText(const WayfernIO &io)
{
    switch (io.readProblem) {
    case WayfernIO::ReadProblem::NotOpened:
        return io.readProblemDetail.isEmpty() ? QStringLiteral("cannot be opened")
                                              : io.readProblemDetail;
    case WayfernIO::ReadProblem::NoHeader:
        return QStringLiteral("not a journey (no Header section)");
    case WayfernIO::ReadProblem::SectionMissing:
        return QStringLiteral("section missing: %1").arg(io.readProblemDetail);
    case WayfernIO::ReadProblem::None:
        break;
    }
    return QStringLiteral("not readable");
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
        report = report || strncmp(argv[i], "--report", 8) == 0;
    std::unique_ptr<QCoreApplication> app;
    if (report) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("wayfern-check"));
    QCoreApplication::setApplicationVersion(QStringLiteral(WAYFERN_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Reads a journey and prints what it holds; with an option, only the "
                       "answer asked for."));
    // Own help and version options: the parser's help would add Qt's options too.
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Print this help."));
    const QCommandLineOption versionOption({QStringLiteral("v"), QStringLiteral("version")},
                                           QStringLiteral("Print the version."));
    const QCommandLineOption settleOption(
        QStringLiteral("settle"),
        QStringLiteral("Print the balances, the kitty and who pays whom."));
    const QCommandLineOption csvOption(QStringLiteral("csv"),
                                       QStringLiteral("Write the costs or the accounts as CSV."),
                                       QStringLiteral("costs|accounts"));
    const QCommandLineOption outputOption(
        {QStringLiteral("o"), QStringLiteral("output")},
        QStringLiteral("With --csv: write the CSV to FILE, whole or not at all, instead of "
                       "standard output."),
        QStringLiteral("FILE"));
    const QCommandLineOption reportOption(
        QStringLiteral("report"),
        QStringLiteral("Write the journey report to FILE.pdf and, beside it, FILE.html."),
        QStringLiteral("FILE.pdf"));
    const QCommandLineOption traceOption(
        QStringLiteral("trace"),
        QStringLiteral("Print the reader's lines to standard error while the journey is read."));
    parser.addOptions({helpOption, versionOption, settleOption, csvOption, outputOption,
                       reportOption, traceOption});
    parser.addPositionalArgument(QStringLiteral("JOURNEY.wfn"),
                                 QStringLiteral("The journey to read."));

    if (!parser.parse(app->arguments()))
        return usage(parser, parser.errorText());
    if (parser.isSet(helpOption)) {
        printf("%s", qPrintable(parser.helpText()));
        return 0;
    }
    if (parser.isSet(versionOption)) {
        printf("wayfern-check %s\n", WAYFERN_VERSION);
        return 0;
    }

    // A value that looks like an option is one whose value was left out: `--report --settle J`
    // must not write a file named --settle.
    for (const QCommandLineOption &option : {csvOption, outputOption, reportOption}) {
        for (const QString &value : parser.values(option)) {
            if (value.isEmpty() || value.startsWith(QLatin1Char('-')))
                return usage(parser,
                             QStringLiteral("option --%1 needs a value, not '%2'")
                                 .arg(option.names().constLast(), value));
        }
        if (parser.values(option).size() > 1)
            return usage(
                parser,
                QStringLiteral("option --%1 given more than once").arg(option.names().constLast()));
    }

    enum class Mode { Overview, Settle, CsvCosts, CsvAccounts, Report } mode = Mode::Overview;
    const int modes = int(parser.isSet(settleOption)) + int(parser.isSet(csvOption))
        + int(parser.isSet(reportOption));
    if (modes > 1)
        return usage(parser, QStringLiteral("--settle, --csv and --report go one at a time"));
    if (parser.isSet(settleOption)) {
        mode = Mode::Settle;
    } else if (parser.isSet(csvOption)) {
        const QString what = parser.value(csvOption);
        if (what == QLatin1String("costs"))
            mode = Mode::CsvCosts;
        else if (what == QLatin1String("accounts"))
            mode = Mode::CsvAccounts;
        else
            return usage(parser,
                         QStringLiteral("--csv takes costs or accounts, not '%1'").arg(what));
    } else if (parser.isSet(reportOption)) {
        mode = Mode::Report;
    }
    if (parser.isSet(outputOption) && mode != Mode::CsvCosts && mode != Mode::CsvAccounts)
        return usage(parser, QStringLiteral("-o goes with --csv only"));
    const QStringList journeys = parser.positionalArguments();
    if (journeys.size() != 1)
        return usage(parser,
                     journeys.isEmpty() ? QStringLiteral("no journey given")
                                        : QStringLiteral("one journey at a time"));
    const QString journey = journeys.first();

    QuietRead quiet(parser.isSet(traceOption));
    WayFernData document;
    WayfernIO io(&document);
    const int read = io.ReadFile(journey);
    quiet.restore();
    if (read != 0) {
        fprintf(stderr, "wayfern-check: cannot read %s: %s\n", qPrintable(journey),
                qPrintable(readProblemText(io)));
        return 1;
    }
    if (mode == Mode::Overview) {
        printOverview(document);
        return 0;
    }
    if (mode == Mode::Settle) {
        printSettlement(document);
        return 0;
    }
    JourneyCalc::refreshFigures(document, ScQtUtil::lastDate);
    if (mode == Mode::Report) {
        const QString reportPath = parser.value(reportOption);
        const JourneyReport figures = JourneyReport::fromJourney(document, journey);
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
    if (parser.isSet(outputOption)) {
        const QString path = parser.value(outputOption);
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(csv) != csv.size() || !file.commit()) {
            fprintf(stderr, "wayfern-check: could not write %s: %s\n", qPrintable(path),
                    qPrintable(file.errorString()));
            return 1;
        }
        return 0;
    }
    fwrite(csv.constData(), 1, size_t(csv.size()), stdout);
    return fflush(stdout) == 0 ? 0 : 1;
}
