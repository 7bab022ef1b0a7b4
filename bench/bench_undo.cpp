// Undo on the benchmark journey (100,000 costs, 400,000 account lines): what one step costs
// to record and to take back and make again, and what 100 steps hold.
//
//   wayfern_bench_undo [STEPS]
//
// The steps are the window's cost actions in turn: a comment changed, a date changed so
// that the sort moves the cost, a new cost shared among every traveller, a cost deleted.
// Recording is the capture before the action and the comparison after it; the refresh
// that the window does after every action (sort, sums) is not counted, it is the same with
// or without undo. Memory is the growth of the resident set while the steps are kept, and
// what the steps count of themselves. The figures are reported, never judged.

#include "journeygen.h"

#include "data/journeycalc.h"
#include "data/journeychange.h"
#include "settle/sharedivision.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

long residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return -1;
}

void report(const char *name, std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    fprintf(stderr, "%-34s median %7.2f ms, worst %7.2f ms over %zu\n", name, ms[ms.size() / 2],
            ms.back(), ms.size());
}

} // namespace

int main(int argc, char **argv)
{
    const int steps = argc > 1 ? std::max(4, atoi(argv[1])) : 100;
    WayFernData doc;
    generateJourney(doc, JourneyShape());
    DateParts last;
    JourneyCalc::refreshFigures(doc, last);
    fprintf(stderr, "journey: %d costs, %d travellers, %d tips\n", doc.costs.count(),
            doc.users.count(), doc.tips.count());

    QRandomGenerator random(20261124);
    std::vector<JourneyChange> history;
    // As the window keeps it.
    AccountIndex lines;
    std::vector<double> record, undo, redo;
    std::vector<double> byKind[4];
    size_t held = 0;
    const long rssBefore = residentKb();
    for (int n = 0; n < steps; ++n) {
        CostsData *cost = doc.costs.at(int(random.bounded(doc.costs.count())));
        const int id = n % 4 == 2 ? doc.nextCostId() : cost->id;
        QElapsedTimer timer;
        timer.start();
        auto before = JourneyChange::capture(doc, ChangeScope::costs({id}), &lines);
        double ms = timer.nsecsElapsed() / 1e6;
        switch (n % 4) {
        case 0:
            cost->comment = QStringLiteral("changed %1").arg(n);
            break;
        case 1:
            cost->date = QString::asprintf("%02d.%02d.2001", 1 + n % 28, 1 + n % 12);
            break;
        case 2: {
            CostsData *added = doc.costs.append();
            added->id = id;
            added->date = QStringLiteral("15.06.2001");
            added->fval = QStringLiteral("92.63");
            added->ctype = QStringLiteral("EUR");
            added->bvalue = 92.63;
            doc.addAllKto(id);
            const QList<qint64> cents = ShareDivision::evenly(9263, doc.users.count());
            for (int u = 0; u < doc.users.count(); ++u)
                doc.users.at(u)->findKto(id)->change = ShareDivision::changeOfShare(cents[u]);
            break;
        }
        default:
            doc.removeAllKto(id);
            doc.costs.remove(cost);
            break;
        }
        JourneyCalc::sortCosts(doc, last);
        timer.restart();
        JourneyChange change = JourneyChange::since(*before, doc);
        before.reset();
        ms += timer.nsecsElapsed() / 1e6;
        record.push_back(ms);
        byKind[n % 4].push_back(ms);
        held += change.bytes();
        history.push_back(std::move(change));
    }
    const long rssAfter = residentKb();
    // Every step back to the start and forward again.
    for (auto step = history.rbegin(); step != history.rend(); ++step) {
        QElapsedTimer timer;
        timer.start();
        step->undo(doc);
        undo.push_back(timer.nsecsElapsed() / 1e6);
    }
    for (const JourneyChange &step : history) {
        QElapsedTimer timer;
        timer.start();
        step.redo(doc);
        redo.push_back(timer.nsecsElapsed() / 1e6);
    }
    report("record one step", record);
    report("  a comment changed", byKind[0]);
    report("  a date changed, the cost moved", byKind[1]);
    report("  a new cost shared by all", byKind[2]);
    report("  a cost deleted", byKind[3]);
    report("undo one step", undo);
    report("redo one step", redo);
    fprintf(stderr, "%d steps held: %.2f MB counted by the steps, resident set grew %.2f MB\n",
            steps, held / 1048576.0, (rssAfter - rssBefore) / 1024.0);
    return 0;
}
