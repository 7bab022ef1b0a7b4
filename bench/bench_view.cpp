// Opening a large journey in the real main window, and refreshes of the view.
//
//   wayfern_bench_view [ROUNDS]
//
// Each figure is the best and the median of ROUNDS runs (3 unless told). A refresh sorts,
// recomputes and refills; it is timed on a journey already in order, after one cost in the
// middle changed its amount (the running sums of every later cost change with it), and after
// a third of the dates were set back (the sort has work to do). Runs on the offscreen
// platform unless QT_QPA_PLATFORM says otherwise. The figures are reported, never judged:
// this program always exits 0.

#include "benchwindow.h"

#include "shell/wayfernview.h"
#include "storage/scqtutil.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QTreeWidget>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

struct Figure
{
    const char *name;
    std::vector<double> ms;

    void report() const
    {
        std::vector<double> sorted = ms;
        std::sort(sorted.begin(), sorted.end());
        fprintf(stderr, "%-40s best %8.1f ms, median %8.1f ms\n", name, sorted.front(),
                sorted[sorted.size() / 2]);
    }
};

double timed(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    BenchWindow::useOffscreenUnlessTold();
    QTemporaryDir dir;
    const JourneyShape shape;
    BenchWindow::prepare(dir, shape);
    QApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 3;
    fprintf(stderr, "journey: %d costs in %d currencies, %d travellers, %d tips\n", shape.costs,
            shape.currencies, shape.travellers, shape.tips);

    Figure open{"open until the lists are filled", {}};
    Figure sorted{"refresh, journey in order", {}};
    Figure edited{"refresh after an amount changed", {}};
    Figure shuffled{"refresh, a third out of order", {}};
    Figure sortPart{"  of it: the date sort (O(n log n))", {}};
    Figure sumPart{"  of it: the recomputation (O(n))", {}};
    std::unique_ptr<WayfernApp> window;
    for (int round = 0; round < rounds; ++round) {
        window.reset();
        open.ms.push_back(timed([&] { window = BenchWindow::open(); }));
    }
    WayfernView *view = window->view;
    fprintf(stderr, "rows: %d costs, %d tips, %d overview branches\n",
            view->CostsListView->model()->rowCount(), view->TipListView->model()->rowCount(),
            view->OverListView->topLevelItemCount());

    const auto refresh = [&] {
        QuietStdout quiet;
        view->refreshView();
        QApplication::processEvents();
    };
    WayFernData &doc = *window->doc;
    for (int round = 0; round < rounds; ++round) {
        sorted.ms.push_back(timed(refresh));

        CostsData *middle = doc.costs.at(doc.costs.count() / 2);
        middle->fval = QString::number(ScQtUtil::toDouble(QStringView(middle->fval)) + 1.25);
        edited.ms.push_back(timed(refresh));

        for (int i = round; i < doc.costs.count(); i += 3)
            doc.costs.at(i)->date = QStringLiteral("01.01.1999");
        shuffled.ms.push_back(timed(refresh));

        // The two parts of a refresh that must visit every cost, on their own.
        for (int i = round + 1; i < doc.costs.count(); i += 3)
            doc.costs.at(i)->date = QStringLiteral("02.01.1999");
        sortPart.ms.push_back(timed([&] { view->sortCosts(); }));
        sumPart.ms.push_back(timed([&] { view->calcSums(); }));
    }
    for (const Figure *figure : {&open, &sorted, &edited, &shuffled, &sortPart, &sumPart})
        figure->report();
    return 0;
}
