// The end of a journey on the benchmark journey: the settlement plan (and one of 20 parties in
// groups that settle among themselves, the most whose plan is proven fewest), the CSV export
// and the journey report (its figures, the HTML page, the PDF pages, and both files written).
//
//   wayfern_bench_end [ROUNDS]
//
// The journey is generated in memory and its figures refreshed as the window has them;
// each step is then timed ROUNDS times (default 5) and the best and the median reported.
// The figures are reported, never judged: this program always exits 0.

#include "journeygen.h"

#include "data/journeycalc.h"
#include "export/journeycsv.h"
#include "report/journeyreport.h"
#include "report/reportwriter.h"
#include "settle/settlement.h"
#include "storage/scqtutil.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

template <typename Step>
void measure(const char *name, int rounds, Step step)
{
    std::vector<double> ms;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        const long long size = step();
        ms.push_back(timer.nsecsElapsed() / 1e6);
        if (i == 0)
            fprintf(stderr, "%-28s result size %lld\n", name, size);
    }
    std::sort(ms.begin(), ms.end());
    fprintf(stderr, "%-28s best %8.1f ms, median %8.1f ms\n", name, ms.front(), ms[ms.size() / 2]);
}

// Balances of `parties` parties (the last one the kitty) in groups of two to five that each
// settle among themselves: the plan has to find those groups.
Settlement plantedGroups(int parties)
{
    QRandomGenerator random(20261124);
    QList<qint64> cents;
    while (cents.count() < parties) {
        const int left = parties - int(cents.count());
        int size = 2 + int(random.bounded(4));
        if (size > left || left - size == 1)
            size = left;
        QList<qint64> group;
        qint64 sum = 0;
        do {
            group.clear();
            sum = 0;
            for (int i = 0; i < size - 1; ++i) {
                const qint64 amount = (1 + qint64(random.bounded(20000))) * (i % 2 ? -1 : 1);
                group << amount;
                sum += amount;
            }
        } while (sum == 0);
        cents << group << -sum;
    }
    QList<Settlement::Party> travellers;
    for (int i = 0; i + 1 < parties; ++i)
        travellers.append({i, QStringLiteral("T%1").arg(i, 2, 10, QLatin1Char('0')), cents.at(i)});
    return Settlement::fromBalances(travellers, QStringLiteral("kitty"));
}

} // namespace

int main(int argc, char **argv)
{
    setenv("WAYFERNCFG", ".", 0);
    // The report's pages need fonts, not a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 5;
    const JourneyShape shape;
    WayFernData doc;
    generateJourney(doc, shape);
    JourneyCalc::refreshFigures(doc, ScQtUtil::lastDate);
    fprintf(stderr, "journey: %d costs, %d travellers (%d account lines)\n", doc.costs.count(),
            doc.users.count(), shape.costs * shape.travellers);

    measure("settlement plan", rounds, [&] {
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        return static_cast<long long>(s.fewestTransfers().transfers.count());
    });
    const Settlement groups = plantedGroups(Settlement::MaxProvenParties);
    measure("plan, 20 parties in groups", rounds, [&] {
        const Settlement::Plan plan = groups.fewestTransfers();
        return static_cast<long long>(plan.provenFewest ? plan.transfers.count() : -1);
    });
    measure("CSV costs", rounds,
            [&] { return static_cast<long long>(JourneyCsv::costs(doc).size()); });
    measure("CSV accounts", rounds,
            [&] { return static_cast<long long>(JourneyCsv::accounts(doc).size()); });

    measure("report figures", rounds, [&] {
        return static_cast<long long>(JourneyReport::fromJourney(doc, QString()).costs.size());
    });
    const JourneyReport report = JourneyReport::fromJourney(doc, QStringLiteral("bench.wfn"));
    measure("report HTML", rounds, [&] { return static_cast<long long>(report.html().size()); });
    measure("report PDF", rounds, [&] {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        ReportWriter::writePdf(report, &buffer);
        return static_cast<long long>(buffer.size());
    });
    // What the window and wayfern-check do: figures, PDF and HTML, onto the disk.
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("report.pdf"));
    measure("report, both files", rounds, [&] {
        const JourneyReport fresh = JourneyReport::fromJourney(doc, QStringLiteral("bench.wfn"));
        if (!ReportWriter::write(fresh, pdf, nullptr))
            return -1LL;
        return static_cast<long long>(QFileInfo(pdf).size()
                                      + QFileInfo(ReportWriter::htmlPathFor(pdf)).size());
    });
    return 0;
}
