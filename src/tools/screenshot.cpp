#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/curredit.h"
#include "editors/currlistedit.h"
#include "editors/settleedit.h"
#include "editors/tipedit.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userktoedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "lists/journeylistmodels.h"
#include "rates/currsync.h"
#include "rates/synclistedit.h"
#include "shell/journeyrecovery.h"
#include "shell/translationloader.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QTabWidget>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QWindow>

#include <cstdio>
#include <functional>
#include <memory>

// Pictures of the main window and of its dialogs for the documentation, taken as a user
// sees them: every dialog opens through the window's own buttons and actions or through
// those of the user list, and each picture is the whole screen, so a dialog that does not
// fill it shows over what opened it.
//
//   wayfern-screenshot DIR [JOURNEY [SUFFIX]]
//
// With JOURNEY the program opens that journey from a scratch configuration; without it, it
// opens the user's last journey as a normal start does. The files go to DIR, named
// main-overview, main-costs, main-tips, costs, share, base, userlist, user, deposit,
// account, tip, currlist, currlist-sync, currlist-synced, curr, catalogue,
// share-redivided, delete-traveller, settle and settle-booked, each followed by SUFFIX
// (e.g. "-240x320") and ".png". The rates come from a page server on the loopback address
// that this program runs itself, answering as today's rate service does. The texts are in the language of the locale, as in the program.
// Meant to run under a virtual X server with the screen size of the pictures;
// scripts/screenshots.sh does that.

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

// Runs `then` from the event loop once `done` holds; gives up after 20 seconds, so that
// what never comes can't hang the run.
void when(QObject *context, const char *what, std::function<bool()> done,
          std::function<void()> then)
{
    auto *poll = new QTimer(context);
    auto *waited = new QElapsedTimer;
    waited->start();
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, context, [=] {
        const bool ready = done();
        if (!ready && waited->elapsed() < 20000)
            return;
        poll->stop();
        poll->deleteLater();
        delete waited;
        if (ready) {
            then();
        } else {
            fprintf(stderr, "wayfern-screenshot: waited in vain for the %s\n", what);
            ++failures;
        }
    });
    poll->start();
}

// Runs `then` from the dialog's own event loop as soon as `dialog` is the modal dialog on
// screen.
void whenModal(QWidget *dialog, const char *what, std::function<void()> then)
{
    when(
        dialog, what,
        [dialog] { return QApplication::activeModalWidget() == dialog && dialog->isVisible(); },
        then);
}

void selectRow(QTreeWidget *list, const QString &label, int column = 0)
{
    if (QTreeWidgetItem *row = list->findItems(label, Qt::MatchExactly, column).value(0)) {
        list->setCurrentItem(row);
        row->setSelected(true);
    }
}

// Makes a top-level row of a list current and selected, as a tap does.
void selectTopRow(QAbstractItemView *list, int row)
{
    const QModelIndex index = list->model()->index(row, 0);
    if (index.isValid())
        list->selectionModel()->setCurrentIndex(
            index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// The first row of `list` made current and selected, as a tap makes it.
void selectFirst(QAbstractItemView *list)
{
    selectTopRow(list, 0);
}

// Answers rate and catalogue requests on 127.0.0.1 as the rate service does, one answer per
// connection.
class RatePages : public QTcpServer
{
public:
    RatePages()
    {
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [socket] { answer(socket); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }
    QByteArray address() const { return "http://127.0.0.1:" + QByteArray::number(serverPort()); }

private:
    static void answer(QTcpSocket *socket)
    {
        const QByteArray request = socket->readAll();
        if (!request.contains("\r\n\r\n"))
            return;
        const QByteArray target = request.split(' ').value(1);
        QByteArray body;
        if (target.startsWith("/v1/currencies")) {
            body = "{\"CHF\":\"Swiss Franc\",\"CZK\":\"Czech Koruna\",\"EUR\":\"Euro\","
                   "\"GBP\":\"British Pound\",\"JPY\":\"Japanese Yen\",\"NOK\":\"Norwegian "
                   "Krone\",\"PLN\":\"Polish Zloty\",\"USD\":\"United States Dollar\"}";
        } else {
            const QByteArray to = target.mid(target.indexOf("to=") + 3);
            const QByteArray rate = to == "CHF" ? "0.9321" : to == "USD" ? "1.0542" : "11.45";
            body = "{\"amount\":1.0,\"base\":\"EUR\",\"date\":\"2026-11-20\",\"rates\":{\"" + to
                + "\":" + rate + "}}";
        }
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: "
                      + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }
};

RatePages *ratePages = nullptr;

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
                         + ";\nLAST=wayfern.last;\nTEMPLATE=template.wfn;\n\n[HTMLSYNC]\nSYNCFILE="
                           "rate.html;\nSERVER="
                         + ratePages->address()
                         + ";\nFROMPREFIX=/v1/latest?from=;\nTOPREFIX=&to=;\nPOSTFIX=;\nCATALOGUE="
                         + ratePages->address() + "/v1/currencies;\n\n#end\n")
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
    selectTopRow(view->CostsListView, 1);
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

// The user list as the window's user action opens it, with the first traveller selected;
// through its buttons that traveller's editor, a deposit with an amount typed (dated from
// the calendar that comes first) and his account. Nothing is stored: the deposit is
// cancelled, which takes its line out again.
void shootUserDialogs(WayfernApp &window)
{
    WayfernView *view = window.view;
    userListEdit *list = view->userListInput;
    userEdit *user = list->userInput;
    userCashEdit *cash = list->userCash;
    userKtoEdit *account = list->userKto;
    calenderEdit *calendar = view->calendar;
    whenModal(list, "user list", [=] {
        maximise(list);
        selectFirst(list->ListView);
        shoot(list, "userlist");

        whenModal(user, "user editor", [=] {
            maximise(user);
            // Every group open, the traveller's first row selected.
            user->ListView->expandAll();
            if (QTreeWidgetItem *common = user->ListView->topLevelItem(0))
                if (QTreeWidgetItem *first = common->child(0))
                    user->ListView->setCurrentItem(first);
            shoot(user, "user");
            user->reject();
        });
        list->ChangeButton->click();

        selectFirst(list->ListView);
        whenModal(calendar, "calendar", [=] {
            calendar->setDate(QStringLiteral("02.06.2002"));
            calendar->slotOK();
        });
        whenModal(cash, "deposit dialog", [=] {
            cash->LineEdit->setText(QStringLiteral("50"));
            shoot(cash, "deposit");
            cash->reject();
        });
        list->EinzahlButton->click();

        selectFirst(list->ListView);
        whenModal(account, "account", [=] {
            maximise(account);
            shoot(account, "account");
            account->accept();
        });
        list->KtoButton->click();

        list->CloseButton->click();
    });
    window.openUser->trigger();
}

// The tip editor on the first tip whose type has fields of its own, as the tips' change
// button opens it, with every group open and the first field of its own selected.
void shootTipEditor(WayfernApp &window)
{
    WayfernView *view = window.view;
    tipEdit *tip = view->tipInput;
    int row = 0;
    while (row < view->tipModel->rowCount() && view->tipModel->tipAt(row)->customs.count() == 0)
        ++row;
    if (row == view->tipModel->rowCount()) {
        fprintf(stderr, "wayfern-screenshot: the journey has no tip with fields of its own\n");
        ++failures;
        return;
    }
    view->TabWidget2->setCurrentIndex(2);
    selectTopRow(view->TipListView, row);
    whenModal(tip, "tip editor", [=] {
        maximise(tip);
        tip->ListView->expandAll();
        const QList<QTreeWidgetItem *> custom =
            tip->ListView->findItems(tip->rowCustom, Qt::MatchExactly, 0);
        if (!custom.isEmpty() && custom.first()->childCount() > 0) {
            tip->ListView->setCurrentItem(custom.first()->child(0));
            tip->ListView->scrollToItem(custom.first()->child(0));
        }
        shoot(tip, "tip");
        tip->reject();
    });
    view->TChangeButton->click();
}

// The currency list as the window's currency action opens it; a synchronisation of all
// rates against the page server, while it runs and after it; the currency editor on the
// second currency; the catalogue, fetched first, with two currencies marked. Nothing is
// stored: the dialogs are left with reject(), the list with accept().
void shootCurrencyDialogs(WayfernApp &window)
{
    currListEdit *list = window.view->currListInput;
    currEdit *curr = list->currDlg;
    syncListEdit *catalogue = list->syncListDlg;
    whenModal(list, "currency list", [=] {
        maximise(list);
        shoot(list, "currlist");
        list->SyncButton->click();
        when(
            list, "second rate request",
            [list] { return list->StatusTextLabel->text().contains(QStringLiteral("USD")); },
            [=] {
                shoot(list, "currlist-sync");
                when(
                    list, "end of the synchronisation",
                    [list] { return list->SyncButton->isEnabled(); },
                    [=] {
                        selectFirst(list->CurrListView);
                        shoot(list, "currlist-synced");

                        if (QTreeWidgetItem *second = list->CurrListView->topLevelItem(1)) {
                            list->CurrListView->setCurrentItem(second);
                            second->setSelected(true);
                        }
                        whenModal(curr, "currency editor", [=] {
                            maximise(curr);
                            selectFirst(curr->ListView);
                            shoot(curr, "curr");
                            curr->reject();
                        });
                        list->ChangeButton->click();

                        whenModal(catalogue, "catalogue", [=] {
                            maximise(catalogue);
                            for (int row : {2, 5})
                                if (QTreeWidgetItem *item = catalogue->ListView->topLevelItem(row))
                                    item->setSelected(true);
                            shoot(catalogue, "catalogue");
                            catalogue->QDialog::reject();
                            list->accept();
                        });
                        list->SyncListButton->click();
                    });
            });
    });
    window.openCurr->trigger();
}

// Clicks `button` of the next message box.
void answerNextBox(QObject *context, QMessageBox::StandardButton button);

// The share dialog of the first cost after its amount was changed in the costs dialog: the
// new amount divided among the same travellers in the same proportions. Nothing is stored.
void shootRedividedShare(WayfernApp &window)
{
    WayfernView *view = window.view;
    costsEdit *costs = view->costsInput;
    userPayEdit *share = costs->userPay;
    view->TabWidget2->setCurrentIndex(1);
    selectFirst(view->CostsListView);
    whenModal(costs, "costs dialog for a new amount", [=] {
        maximise(costs);
        selectRow(costs->ListView, costs->rowForeign);
        costs->LineEdit->setText(QStringLiteral("97.40"));
        whenModal(share, "share dialog of the new amount", [=] {
            maximise(share);
            shoot(share, "share-redivided");
            share->reject();
        });
        costs->UserButton->click();
        costs->reject();
    });
    view->ChangeButton->click();
}

// The question of the user list's delete button for the first traveller, who has deposits
// and shares of costs; answered with Cancel.
void shootDeleteTraveller(WayfernApp &window)
{
    userListEdit *list = window.view->userListInput;
    whenModal(list, "user list for the delete question", [=] {
        maximise(list);
        // A fresh selection, as a tap makes it, switches the row buttons on.
        list->ListView->clearSelection();
        list->ListView->setCurrentItem(nullptr);
        selectFirst(list->ListView);
        when(
            list, "delete question",
            [] {
                return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr;
            },
            [list] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                shoot(box, "delete-traveller");
                if (QAbstractButton *cancel = box->button(QMessageBox::Cancel))
                    cancel->click();
                list->CloseButton->click();
            });
        list->DeleteButton->click();
    });
    window.openUser->trigger();
}

void answerNextBox(QObject *context, QMessageBox::StandardButton button)
{
    when(
        context, "question",
        [] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr; },
        [button] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (QAbstractButton *b = box->button(button))
                b->click();
        });
}

// The undo button's tool tip after a cost was deleted; the deletion is then undone.
void shootUndoTip(WayfernApp &window)
{
    WayfernView *view = window.view;
    view->TabWidget2->setCurrentIndex(1);
    if (view->costModel->rowCount() < 2)
        return;
    selectTopRow(view->CostsListView, 1);
    answerNextBox(&window, QMessageBox::Yes);
    view->DeleteButton->click();
    // On a small screen the button may sit behind the toolbar's extension arrow.
    QWidget *button = window.toolBar->widgetForAction(window.editUndo);
    QWidget *anchor = button && button->isVisible() ? button : window.toolBar;
    const QPoint at = anchor == button ? QPoint(0, button->height())
                                       : QPoint(anchor->width() / 3, anchor->height());
    settle(&window);
    // The pointer rests on the button, as when a tip comes up by itself.
    QCursor::setPos(anchor->mapToGlobal(anchor->rect().center()));
    QToolTip::showText(anchor->mapToGlobal(at), window.editUndo->toolTip(), anchor);
    QElapsedTimer shown;
    shown.start();
    while (shown.elapsed() < 1500) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
        if (!QToolTip::isVisible())
            QToolTip::showText(anchor->mapToGlobal(at), window.editUndo->toolTip(), anchor);
    }
    fprintf(stderr, "wayfern-screenshot: tool tip shown: %d, %s\n", int(QToolTip::isVisible()),
            qPrintable(QToolTip::text()));
    shoot(&window, "undo");
    QToolTip::hideText();
    window.editUndo->trigger();
}

// A second window asked to open the journey that the first one holds: its warning names
// the process and the host that hold the lock.
void shootLockMessage(WayfernApp &window)
{
    when(
        &window, "lock message",
        [] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr; },
        [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            shoot(box, "journey-locked");
            if (QAbstractButton *ok = box->button(QMessageBox::Ok))
                ok->click();
        });
    WayfernApp second(nullptr, nullptr, {}, window.fileName);
    second.doc->setModified(false);
}

// Settling up through its toolbar action, before and after the plan is booked.
void shootSettleUp(WayfernApp &window)
{
    settleEdit *settle = window.view->settleInput;
    whenModal(settle, "settle-up dialog", [=] {
        maximise(settle);
        shoot(settle, "settle");
        answerNextBox(settle, QMessageBox::Yes);
        settle->BookButton->click();
        // Without a window manager the screen kept showing the balances from before the
        // question in every try, though the dialog holds and paints the new ones: this
        // picture is the dialog's own painting, which fills the screen all the same.
        QTimer::singleShot(200, settle, [settle] {
            const QString path =
                outDir + QStringLiteral("/settle-booked") + suffix + QStringLiteral(".png");
            if (!settle->grab().save(path)) {
                fprintf(stderr, "wayfern-screenshot: could not save %s\n", qPrintable(path));
                ++failures;
            }
            settle->CloseButton->click();
        });
    });
    window.settleUp->trigger();
}

// The question at the start when a crash left a recovery file of the journey; the
// question comes before the window is on the screen, so the picture is the box alone. Yes
// brings the (same) journey back.
void shootRecoveryQuestion(const QTemporaryDir &scratch, const QString &journey)
{
    const QString name = QFileInfo(journey).fileName();
    QFile::copy(scratch.filePath(name), JourneyRecovery::pathFor(scratch.path(), name));
    when(
        qApp, "recovery question",
        [] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr; },
        [] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            settle(box);
            const QString path =
                outDir + QStringLiteral("/recovery") + suffix + QStringLiteral(".png");
            if (!box->grab().save(path)) {
                fprintf(stderr, "wayfern-screenshot: could not save %s\n", qPrintable(path));
                ++failures;
            }
            if (QAbstractButton *yes = box->button(QMessageBox::Yes))
                yes->click();
        });
    WayfernApp window;
    window.doc->setModified(false);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    (void)TranslationLoader::install(&app, QLocale::system());
    if (argc < 2) {
        fprintf(stderr, "usage: wayfern-screenshot DIR [JOURNEY [SUFFIX]]\n");
        return 1;
    }
    outDir = QString::fromLocal8Bit(argv[1]);
    suffix = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
    RatePages pages;
    ratePages = &pages;
    if (!pages.listen(QHostAddress::LocalHost)) {
        fprintf(stderr, "wayfern-screenshot: no page server\n");
        return 1;
    }
    // The pictures need no two-second polls.
    currSync::setIntervals(100, 30000, 1000);
    QTemporaryDir scratch;
    if (argc > 2 && !prepareJourney(scratch, QString::fromLocal8Bit(argv[2]))) {
        fprintf(stderr, "wayfern-screenshot: could not prepare %s\n", argv[2]);
        return 1;
    }
    QDir().mkpath(outDir);

    auto window = std::make_unique<WayfernApp>();
    window->show();
    maximise(window.get());
    QTimer::singleShot(0, window.get(), [&] {
        shootMainWindow(*window);
        shootCostDialogs(*window);
        shootBaseSettings(*window);
        shootUserDialogs(*window);
        shootTipEditor(*window);
        shootCurrencyDialogs(*window);
        shootRedividedShare(*window);
        shootDeleteTraveller(*window);
        shootUndoTip(*window);
        shootLockMessage(*window);
        shootSettleUp(*window);
        // Nothing of the journey is saved: the window goes without the question, and with
        // it the lock, so that the next start opens the journey again.
        window->doc->setModified(false);
        window.reset();
        if (argc > 2)
            shootRecoveryQuestion(scratch, QString::fromLocal8Bit(argv[2]));
        QCoreApplication::exit(failures ? 1 : 0);
    });
    return app.exec();
}
