#include "data/wayferndata.h"
#include "dialogs/scqtwidgetutil.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/usercashedit.h"
#include "editors/userktoedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPixmap>
#include <QScreen>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QWindow>

#include <cstdio>
#include <functional>

// Pictures of the main window and of the cost dialogs for the documentation, taken as a
// user sees them: the costs, share and base settings dialogs open through the window's own
// buttons and actions, the deposit and account dialogs are built here as the user list
// builds them, and each picture is the whole screen, so a dialog that does not fill it
// shows over the window.
//
//   wayfern-screenshot DIR [JOURNEY [SUFFIX]]
//
// With JOURNEY the program opens that journey from a scratch configuration; without it, it
// opens the user's last journey as a normal start does. The files go to DIR, named
// main-overview, main-costs, main-tips, costs, share, base, deposit and account, each
// followed by SUFFIX (e.g. "-240x320") and ".png". Meant to run under a virtual X server
// with the screen size of the pictures; scripts/screenshots.sh does that.

namespace {

QString outDir;
QString suffix;
int failures = 0;

// Lets the windows reach the screen: waits until `widget`'s window is exposed, then hands
// the pending paint and flush events out.
void settle(QWidget *widget)
{
    QElapsedTimer waited;
    waited.start();
    while (!(widget->windowHandle() && widget->windowHandle()->isExposed())
           && waited.elapsed() < 5000)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

void shoot(QWidget *shown, const char *name)
{
    settle(shown);
    const QString path = outDir + u'/' + QLatin1String(name) + suffix + QStringLiteral(".png");
    const QPixmap picture = shown->screen()->grabWindow(0);
    if (picture.isNull() || !picture.save(path)) {
        fprintf(stderr, "wayfern-screenshot: could not save %s\n", qPrintable(path));
        ++failures;
        return;
    }
    fprintf(stderr, "wayfern-screenshot: %s\n", qPrintable(path));
}

// A maximised window without a window manager: nothing maximises it, so it takes the
// screen's free area itself.
void maximise(QWidget *widget)
{
    widget->setGeometry(widget->screen()->availableGeometry());
}

// Runs `then` from the dialog's own event loop as soon as `dialog` is the modal dialog on
// screen. Gives up after ten seconds, so that a dialog that never comes can't hang the run.
void whenModal(QWidget *dialog, const char *what, std::function<void()> then)
{
    auto *poll = new QTimer(dialog);
    auto *waited = new QElapsedTimer;
    waited->start();
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, dialog, [=] {
        const bool up = QApplication::activeModalWidget() == dialog && dialog->isVisible();
        if (!up && waited->elapsed() < 10000)
            return;
        poll->stop();
        poll->deleteLater();
        delete waited;
        if (up) {
            then();
        } else {
            fprintf(stderr, "wayfern-screenshot: the %s did not show\n", what);
            ++failures;
        }
    });
    poll->start();
}

void selectRow(QTreeWidget *list, const QString &label, int column = 0)
{
    if (QTreeWidgetItem *row = list->findItems(label, Qt::MatchExactly, column).value(0)) {
        list->setCurrentItem(row);
        row->setSelected(true);
    }
}

bool writeText(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

// A scratch configuration whose last journey is a copy of `journey`, so that nothing of the
// user's is read or written.
bool prepareJourney(const QTemporaryDir &dir, const QString &journey)
{
    const QString name = QFileInfo(journey).fileName();
    qputenv("WAYFERNCFG", dir.path().toLocal8Bit());
    return writeText(dir.filePath(QStringLiteral("wayfern.cfg")),
                     "[Header]\nDATA-PATH=" + dir.path().toLocal8Bit()
                         + ";\nLAST=wayfern.last;\nTEMPLATE=template.wfn;\n\n[HTMLSYNC]\n\n#end\n")
        && writeText(dir.filePath(QStringLiteral("wayfern.last")),
                     "[Header]\nLASTFILE=" + name.toLocal8Bit() + ";\n\n#end\n")
        && QFile::copy(journey, dir.filePath(name));
}

void shootMainWindow(WayfernApp &window)
{
    static const char *const names[] = {"main-overview", "main-costs", "main-tips"};
    window.view->OverListView->expandAll();
    for (int i = 0; i < 3; ++i) {
        window.view->TabWidget2->setCurrentIndex(i);
        shoot(&window, names[i]);
    }
}

// The costs dialog on the second cost, as the change button opens it, with the foreign
// value selected; from it the share dialog with one traveller selected. Both are left
// without storing anything.
void shootCostDialogs(WayfernApp &window)
{
    WayfernView *view = window.view;
    costsEdit *costs = view->costsInput;
    userPayEdit *share = costs->userPay;
    view->TabWidget2->setCurrentIndex(1);
    if (QTreeWidgetItem *item = view->CostsListView->topLevelItem(1)) {
        view->CostsListView->setCurrentItem(item);
        item->setSelected(true);
    }
    whenModal(costs, "costs dialog", [=] {
        maximise(costs);
        selectRow(costs->ListView, costs->rowForeign);
        shoot(costs, "costs");
        whenModal(share, "share dialog", [=] {
            maximise(share);
            if (QTreeWidgetItem *second = share->ListView->topLevelItem(1)) {
                share->ListView->setCurrentItem(second);
                second->setSelected(true);
            }
            shoot(share, "share");
            share->reject();
        });
        costs->UserButton->click();
        costs->reject();
    });
    view->ChangeButton->click();
}

void shootBaseSettings(WayfernApp &window)
{
    baseEdit *base = window.view->baseInput;
    whenModal(base, "base settings", [=] {
        maximise(base);
        selectRow(base->ListView, base->rowBase);
        shoot(base, "base");
        base->reject();
    });
    window.view->openBase();
}

// The deposit dialog for the first traveller, with an amount typed, over the window; and
// that traveller's account. The line booked for the picture is taken out again.
void shootAccountDialogs(WayfernApp &window)
{
    WayfernView *view = window.view;
    WayFernData *doc = window.doc;
    UserData *user = doc->users.first();
    if (!user) {
        fprintf(stderr, "wayfern-screenshot: the journey has no traveller\n");
        ++failures;
        return;
    }
    // Their owner, the user list, builds them with the other dialogs before the window sets
    // every widget's font; these are built late and get the font here.
    auto *cash = new userCashEdit(view, "deposit", true, doc);
    cash->hide();
    auto *account = new userKtoEdit(view, "account", true, doc);
    account->hide();
    ScQtWidgetUtil::setAllWidgetsFont(QStringLiteral("helvetica"), 8);

    KtoData *line = user->addKto(-2);
    cash->prepare(QStringLiteral("deposit"), QStringLiteral("02.06.2002"), user, line,
                  view->calendar);
    whenModal(cash, "deposit dialog", [=] {
        cash->LineEdit->setText(QStringLiteral("50"));
        shoot(cash, "deposit");
        cash->reject();
    });
    cash->exec();
    cash->hide();
    user->removeKto(line);
    delete cash;

    account->prepare(user);
    whenModal(account, "account", [=] {
        maximise(account);
        shoot(account, "account");
        account->accept();
    });
    account->exec();
    account->hide();
    delete account;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc < 2) {
        fprintf(stderr, "usage: wayfern-screenshot DIR [JOURNEY [SUFFIX]]\n");
        return 1;
    }
    outDir = QString::fromLocal8Bit(argv[1]);
    suffix = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    QTemporaryDir scratch;
    if (argc > 2 && !prepareJourney(scratch, QString::fromLocal8Bit(argv[2]))) {
        fprintf(stderr, "wayfern-screenshot: could not prepare %s\n", argv[2]);
        return 1;
    }
    QDir().mkpath(outDir);

    WayfernApp window;
    window.show();
    maximise(&window);
    QTimer::singleShot(0, &window, [&] {
        shootMainWindow(window);
        shootCostDialogs(window);
        shootBaseSettings(window);
        shootAccountDialogs(window);
        // Nothing of the journey is saved: the window goes without the question.
        window.doc->setModified(false);
        QCoreApplication::exit(failures ? 1 : 0);
    });
    return app.exec();
}
