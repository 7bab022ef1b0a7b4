// The cost dialogs on a large journey, driven through the main window's buttons as a user
// drives them:
//   - open the costs dialog on a cost (the change button), until its rows are painted;
//   - open the share dialog from it (the share button), until its rows are painted;
//   - confirm a change (OK) until the view is refreshed and painted, once with the share
//     dialog already confirmed, once with the share dialog coming up on OK.
//
//   wayfern_bench_dialogs [ROUNDS]
//
// Runs on the offscreen platform unless QT_QPA_PLATFORM says otherwise. Each figure is
// given for the first time (fonts, styles and caches are cold) and as the best and the
// median of the later rounds. The figures are reported, never judged: this program always
// exits 0.

#include "benchwindow.h"

#include "editors/costsedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernview.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

QElapsedTimer clock_;

double now()
{
    return clock_.nsecsElapsed() / 1e6;
}

// Runs `then` once the list of `dialog` has been painted for the first time after arming,
// that is once the user sees the rows; `then` gets the time of that paint. The action runs
// from the dialog's own event loop, after the paint has finished.
class WhenPainted : public QObject
{
public:
    WhenPainted(QTreeWidget *list, std::function<void(double)> then)
        : list(list), then(std::move(then))
    {
        list->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!fired && watched == list->viewport() && event->type() == QEvent::Paint
            && list->window()->isVisible()) {
            fired = true;
            const double at = now();
            list->viewport()->removeEventFilter(this);
            QTimer::singleShot(0, this, [this, at] { then(at); });
        }
        return false;
    }

private:
    QTreeWidget *list;
    std::function<void(double)> then;
    bool fired = false;
};

QTreeWidgetItem *row(QTreeWidget *list, const QString &label)
{
    return list->findItems(label, Qt::MatchExactly, 0).value(0);
}

// Selects a row of the costs dialog as a tap does, which enables what the row allows.
void selectRow(costsEdit *editor, const QString &label)
{
    if (QTreeWidgetItem *item = row(editor->ListView, label)) {
        editor->ListView->setCurrentItem(item);
        item->setSelected(true);
    }
}

struct Figure
{
    const char *what;
    std::vector<double> ms;

    void report() const
    {
        if (ms.empty()) {
            fprintf(stderr, "%-44s  not measured\n", what);
            return;
        }
        std::vector<double> later(ms.begin() + 1, ms.end());
        std::sort(later.begin(), later.end());
        if (later.empty()) {
            fprintf(stderr, "%-44s  first %8.1f ms\n", what, ms.front());
            return;
        }
        fprintf(stderr, "%-44s  first %8.1f ms, then best %8.1f ms, median %8.1f ms\n", what,
                ms.front(), later.front(), later[later.size() / 2]);
    }
};

// The offscreen platform warns at every dialog that it can't pass size hints on; that says
// nothing about the program.
void quietPlatform(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QLatin1String("propagateSizeHints")))
        return;
    qt_message_output(type, context, message);
}

} // namespace

int main(int argc, char **argv)
{
    BenchWindow::useOffscreenUnlessTold();
    QTemporaryDir dir;
    const JourneyShape shape;
    BenchWindow::prepare(dir, shape);
    qInstallMessageHandler(quietPlatform);
    QApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(2, atoi(argv[1])) : 5;
    fprintf(stderr, "journey: %d costs in %d currencies, %d travellers, %d tips; %d rounds\n",
            shape.costs, shape.currencies, shape.travellers, shape.tips, rounds);

    const std::unique_ptr<WayfernApp> window = BenchWindow::open();
    window->show();
    QApplication::processEvents();
    WayfernView *view = window->view;
    costsEdit *editor = view->costsInput;
    userPayEdit *share = editor->userPay;
    const QString labelForeign = QStringLiteral("foreign value");
    const QString labelComment = QStringLiteral("comment");

    Figure openCosts{"open the costs dialog (change button)", {}};
    Figure openShare{"open the share dialog (share button)", {}};
    Figure confirm{"confirm a change (OK) and refresh", {}};
    Figure okToShare{"OK until the share dialog shows", {}};
    Figure shareOkToRefresh{"its OK until the view is refreshed", {}};
    Figure cancelRefresh{"cancel without a change and refresh", {}};
    int stored = 0; // confirmed changes that reached the cost, as a check on the driving
    clock_.start();

    // A cost in the middle of the list: its list row is made current, as a tap makes it.
    const auto pickCost = [&](int round) {
        QAbstractItemModel *rows = view->CostsListView->model();
        view->CostsListView->selectionModel()->setCurrentIndex(
            rows->index(rows->rowCount() / 2 + round * 7, 0),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QApplication::processEvents();
    };
    // The change button, as a tap; returns once the view has refreshed and painted.
    const auto change = [&] {
        QuietStdout quiet;
        view->ChangeButton->click();
        QApplication::processEvents();
        return now();
    };

    for (int round = 0; round < rounds; ++round) {
        // Open, then leave without a change.
        pickCost(round);
        double t0 = now();
        double cancelAt = 0;
        WhenPainted costsShown(editor->ListView, [&](double at) {
            openCosts.ms.push_back(at - t0);
            cancelAt = now();
            editor->CancelButton->click();
        });
        cancelRefresh.ms.push_back(change() - cancelAt);

        // Share first, then change the comment: OK stores and the view refreshes.
        pickCost(round);
        double shareAt = 0;
        double okAt = 0;
        WhenPainted shareShown(share->ListView, [&](double at) {
            openShare.ms.push_back(at - shareAt);
            share->OkButton->click();
        });
        WhenPainted costsShown2(editor->ListView, [&](double) {
            selectRow(editor, labelForeign);
            shareAt = now();
            editor->UserButton->click(); // returns once the share dialog has closed
            selectRow(editor, labelComment);
            editor->LineEdit->setText(QStringLiteral("shared first, round %1").arg(round));
            okAt = now();
            editor->OkButton->click();
        });
        confirm.ms.push_back(change() - okAt);
        stored += view->actucost
            && view->actucost->comment == QStringLiteral("shared first, round %1").arg(round);

        // Change the comment and confirm: the share dialog comes up on OK.
        pickCost(round);
        double shareOkAt = 0;
        WhenPainted shareShown2(share->ListView, [&](double at) {
            okToShare.ms.push_back(at - okAt);
            shareOkAt = now();
            share->OkButton->click();
        });
        WhenPainted costsShown3(editor->ListView, [&](double) {
            selectRow(editor, labelComment);
            editor->LineEdit->setText(QStringLiteral("changed, round %1").arg(round));
            okAt = now();
            editor->OkButton->click();
        });
        shareOkToRefresh.ms.push_back(change() - shareOkAt);
        stored += view->actucost
            && view->actucost->comment == QStringLiteral("changed, round %1").arg(round);
    }

    openCosts.report();
    openShare.report();
    confirm.report();
    fprintf(stderr, "with the share dialog coming up on OK:\n");
    okToShare.report();
    shareOkToRefresh.report();
    cancelRefresh.report();
    fprintf(stderr, "changes stored in the costs: %d of %d\n", stored, 2 * rounds);
    // The journey is changed; the window would only ask on closing, and it is not closed.
    return 0;
}
