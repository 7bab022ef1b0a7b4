// Opening a large journey in the real main window, and one refresh of the view.
//
//   wayfern_bench_view
//
// Runs on the offscreen platform unless QT_QPA_PLATFORM says otherwise. The figures are
// reported, never judged: this program always exits 0.

#include "journeygen.h"
#include "quietstdout.h"

#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"
#include "storage/wayfernio.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <cstdio>
#include <cstdlib>

namespace {

bool writeText(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}
} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir dir;
    // The window finds its journey the way it does at a real start: configuration, then the
    // last-state file.
    qputenv("WAYFERNCFG", dir.path().toLocal8Bit());
    const QString data = dir.path();
    writeText(dir.filePath(QStringLiteral("wayfern.cfg")),
              "[Header]\nDATA-PATH=" + data.toLocal8Bit() +
                  ";\nLAST=wayfern.last;\nTEMPLATE=template.wfn;\n\n[HTMLSYNC]\n\n#end\n");
    writeText(dir.filePath(QStringLiteral("wayfern.last")),
              "[Header]\nLASTFILE=bench.wfn;\n\n#end\n");

    QApplication app(argc, argv);
    const JourneyShape shape;
    {
        QuietStdout quiet;
        WayFernData doc;
        generateJourney(doc, shape);
        WayfernIO io(&doc);
        io.WriteFile(dir.filePath(QStringLiteral("bench.wfn")));
    }
    fprintf(stderr, "journey: %d costs in %d currencies, %d travellers, %d tips\n", shape.costs,
            shape.currencies, shape.travellers, shape.tips);

    QElapsedTimer timer;
    timer.start();
    WayfernApp *window;
    {
        QuietStdout quiet;
        window = new WayfernApp();
        QApplication::processEvents();
    }
    const double openMs = timer.nsecsElapsed() / 1e6;
    WayfernView *view = window->view;
    fprintf(stderr, "open until the lists are filled: %8.1f ms (%d cost rows, %d tip rows, %d "
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
        fprintf(stderr, "refreshView (%s):%s %8.1f ms\n", shuffled ? "a third out of order" : "sorted",
                shuffled ? "" : "             ", timer.nsecsElapsed() / 1e6);
    }
    // The window would ask about saving a modified journey; it is not modified.
    delete window;
    return 0;
}
