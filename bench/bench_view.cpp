// Opening a large journey in the real main window, and one refresh of the view.
//
//   wayfern_bench_view
//
// Runs on the offscreen platform unless QT_QPA_PLATFORM says otherwise. The figures are
// reported, never judged: this program always exits 0.

#include "benchwindow.h"

#include "shell/wayfernview.h"

#include <QElapsedTimer>
#include <QTreeWidget>

int main(int argc, char **argv)
{
    BenchWindow::useOffscreenUnlessTold();
    QTemporaryDir dir;
    const JourneyShape shape;
    BenchWindow::prepare(dir, shape);
    QApplication app(argc, argv);
    fprintf(stderr, "journey: %d costs in %d currencies, %d travellers, %d tips\n", shape.costs,
            shape.currencies, shape.travellers, shape.tips);

    QElapsedTimer timer;
    timer.start();
    const std::unique_ptr<WayfernApp> window = BenchWindow::open();
    const double openMs = timer.nsecsElapsed() / 1e6;
    WayfernView *view = window->view;
    fprintf(stderr,
            "open until the lists are filled: %8.1f ms (%d cost rows, %d tip rows, %d "
            "overview branches)\n",
            openMs, view->CostsListView->topLevelItemCount(),
            view->TipListView->topLevelItemCount(), view->OverListView->topLevelItemCount());

    // A refresh of a sorted journey, and one after the dates were shuffled again.
    for (const bool shuffled : {false, true}) {
        if (shuffled) {
            for (int i = 0; i < window->doc->costs.count(); i += 3)
                window->doc->costs.at(i)->date = QStringLiteral("01.01.1999");
        }
        timer.restart();
        {
            QuietStdout quiet;
            view->refreshView();
            QApplication::processEvents();
        }
        fprintf(stderr, "refreshView (%s):%s %8.1f ms\n",
                shuffled ? "a third out of order" : "sorted", shuffled ? "" : "             ",
                timer.nsecsElapsed() / 1e6);
    }
    return 0;
}
