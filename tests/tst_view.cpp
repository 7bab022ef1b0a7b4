#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/userpayedit.h"
#include "lists/journeylistmodels.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"
#include "storage/scqtutil.h"

#include <QDate>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>

namespace {

using WidgetReaders::itemTexts;

// The day number of a date as a plain, pairwise exchanging sort compares it.
qint64 referenceDay(ScQtUtil &util, const QString &date)
{
    const QDate d(util.dateYear(date), util.dateMonth(date), util.dateDay(date));
    return d.isValid() ? d.toJulianDay() : 0;
}

// The bubble sort that the view's sort must agree with, exchanging through the document.
template <class Record>
void bubbleSort(WayFernData &doc, RecordList<Record> &list,
                void (WayFernData::*exchange)(Record *, Record *))
{
    ScQtUtil util;
    const int n = list.count();
    for (int outer = 0; outer < n; ++outer) {
        bool changed = false;
        for (int a = 0; a + 1 < n; ++a) {
            Record *x = list.at(a);
            Record *y = list.at(a + 1);
            if (referenceDay(util, y->date) - referenceDay(util, x->date) < 0) {
                (doc.*exchange)(x, y);
                changed = true;
            }
        }
        if (!changed)
            break;
    }
}

void bubbleSortCosts(WayFernData &doc)
{
    bubbleSort(doc, doc.costs, &WayFernData::swapCosts);
}

void bubbleSortTips(WayFernData &doc)
{
    bubbleSort(doc, doc.tips, &WayFernData::swapTips);
}

QString randomDate(QRandomGenerator &rng)
{
    switch (rng.bounded(12)) {
    case 0:
        return QStringLiteral("someday"); // no "." at all: not a valid date
    case 1:
        return QStringLiteral("31.02.2002"); // no such day
    default:
        return QString::asprintf("%02d.%02d.%04d", rng.bounded(1, 29), rng.bounded(1, 13),
                                 rng.bounded(2000, 2004));
    }
}

// The main window on the costs tab, shown, so that rows can be tapped.
void showCosts(WayfernApp &app)
{
    app.show();
    app.view->TabWidget2->setCurrentIndex(1);
    QVERIFY(QTest::qWaitForWindowExposed(&app));
}

bool tapCost(WayfernView *v, int row)
{
    return ModalHelper::tapRow(v->CostsListView, row);
}

// Acts in the next costs dialog; `act` ends it (OK, Cancel, close).
ModalTicket inNextCostsDialog(std::function<void(costsEdit *, ModalOutcome &)> act)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<costsEdit *>(w) != nullptr; },
        [act](QWidget *w, ModalOutcome &out) { act(static_cast<costsEdit *>(w), out); });
}

// Taps a row of a costs dialog, noting a failure in `out`.
void tapRow(costsEdit *ed, const char *label, ModalOutcome &out)
{
    if (!ModalHelper::tapItem(ed->ListView, WidgetReaders::topLevelItem(ed->ListView, label)))
        out.error += QStringLiteral("can't tap %1; ").arg(QLatin1String(label));
}

// Ticks every row of the next share dialog and confirms it.
ModalTicket shareAmongAllInNextShareDialog()
{
    return ModalHelper::clickInNextDialog(
        QStringLiteral("OkButton"),
        [](QDialog *d) {
            auto *pay = static_cast<userPayEdit *>(d);
            for (int i = 0; i < pay->ListView->topLevelItemCount(); ++i)
                ModalHelper::tapItem(pay->ListView, pay->ListView->topLevelItem(i), 0);
        },
        "userPayEdit");
}

// The account lines of all travellers that belong to the cost `id`.
int linesOf(WayFernData &doc, int id)
{
    int n = 0;
    for (UserData *user : doc.users)
        for (KtoData *line : user->kto)
            n += line->magic == id ? 1 : 0;
    return n;
}

// sample.wfn without the US dollar.
QByteArray sampleWithoutDollar()
{
    QFile f(ShellFixture::fixture(QStringLiteral("sample.wfn")));
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    QByteArray text = f.readAll();
    const int at = text.indexOf("[CURRENCY_2]");
    const int end = text.indexOf("\n\n", at);
    text.remove(at, end + 2 - at);
    text.replace("CURRCOUNT=3;", "CURRCOUNT=2;");
    return text;
}

} // namespace

class TestView : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void costListShowsRowsIconsAndBaseCurrencyHead()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeView *list = app.view->CostsListView;
        QCOMPARE(WidgetReaders::headerTexts(list).value(2), QStringLiteral("EUR"));
        QCOMPARE(WidgetReaders::rowCount(list), 5);
        // Sorted by date, the year left out, amounts as the document holds them.
        QCOMPARE(WidgetReaders::rowTexts(list, 0),
                 (QStringList{"30.05", "H", "90.00", "90.00", "EUR"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 1),
                 (QStringList{"30.05", "F", "24.00", "36.00", "CHF"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 2),
                 (QStringList{"31.05", "T", "50.00", "45.00", "USD"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 3),
                 (QStringList{"01.06", "M", "12.00", "18.00", "CHF"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 4),
                 (QStringList{"02.06", "F", "30.00", "27.00", "USD"}));
        QVERIFY(list->model()->index(0, 2).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        QVERIFY(list->model()->index(0, 3).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        // Row i shows cost i.
        for (int i = 0; i < 5; ++i)
            QCOMPARE(app.view->costModel->costAt(i), app.doc->costs.at(i));
        QCOMPARE(app.view->costModel->costAt(5), nullptr);
    }

    void sortedCostsLeaveTheSharedIconAtItsListPosition()
    {
        // In the file the unshared museum cost (01.06) stands before the shared boat (31.05).
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeView *list = app.view->CostsListView;
        const bool expected[] = {true, true, false, true, true};
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(app.doc->costs.at(i)->shared, expected[i]);
            QVERIFY(FormCheck::showsPicture(WidgetReaders::rowIcon(list, i),
                                            expected[i] ? *app.view->sharedPixmap
                                                        : *app.view->unsharedPixmap));
        }
        QCOMPARE(app.doc->costs.at(2)->type, QStringLiteral("Transport"));
        QCOMPARE(app.doc->costs.at(3)->type, QStringLiteral("Museum"));
    }

    void withoutUsersNoIconsAndAccountsStayUntouched()
    {
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        WayfernApp app;
        QTreeView *list = app.view->CostsListView;
        for (int i = 0; i < WidgetReaders::rowCount(list); ++i)
            QVERIFY(WidgetReaders::rowIcon(list, i).isNull());
        UserData *user = app.doc->users.first();
        user->value = 999.0;
        user->kto.first()->change = -1.0;
        app.view->refreshView();
        QCOMPARE(user->value, 999.0);
        QCOMPARE(user->kto.first()->change, -1.0);
    }

    void emptyCostListStillGetsTheBaseCurrencyHead()
    {
        ShellFixture fx;
        WayfernApp app;
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 0);
        QCOMPARE(WidgetReaders::headerTexts(app.view->CostsListView).value(2), QStringLiteral("EUR"));
        app.doc->basecurrency = QStringLiteral("");
        app.view->refreshView();
        QCOMPARE(WidgetReaders::headerTexts(app.view->CostsListView).value(2), QString());
    }

    void tipListShowsLetterNameAndQualityInDateOrder()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeView *list = app.view->TipListView;
        QCOMPARE(WidgetReaders::rowCount(list), 3);
        QCOMPARE(WidgetReaders::rowTexts(list, 0), (QStringList{"H", "Lakeside hostel", "fair"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 1), (QStringList{"R", "Zum Anker", "good"}));
        QCOMPARE(WidgetReaders::rowTexts(list, 2), (QStringList{"S", "Glacier garden", "good"}));
        QCOMPARE(app.doc->tips.at(1)->typeletter, QStringLiteral("R"));
        QCOMPARE(app.view->tipModel->tipAt(2), app.doc->tips.at(2));
        QCOMPARE(app.view->tipModel->tipAt(-1), nullptr);
        QCOMPARE(app.view->tipModel->tipAt(3), nullptr);
    }

    void selectionEnablesButtonsForGoodAndIsRestoredByRefresh()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(v->InsertButton->isEnabled());
        QVERIFY(v->TInsertButton->isEnabled());
        for (QToolButton *b : {v->ChangeButton, v->DeleteButton, v->CopyButton, v->PasteButton,
                               v->TChangeButton, v->TDeleteButton, v->TCopyButton, v->TPasteButton})
            QVERIFY(!b->isEnabled());

        v->show();
        v->TabWidget2->setCurrentIndex(1);
        QTreeView *list = v->CostsListView;
        const QRect rect = list->visualRect(list->model()->index(3, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QCOMPARE(v->actucost, app.doc->costs.at(3));
        QVERIFY(v->ChangeButton->isEnabled());
        QVERIFY(v->DeleteButton->isEnabled());
        QVERIFY(v->CopyButton->isEnabled());
        QVERIFY(!v->PasteButton->isEnabled());
        QVERIFY(!v->TChangeButton->isEnabled());

        list->clearSelection();
        QVERIFY(v->ChangeButton->isEnabled());
        QCOMPARE(v->actucost, app.doc->costs.at(3));

        // The refresh restores the selection through the current record. The sort moves
        // contents between list positions, and the selection follows the cost to the top.
        app.doc->costs.at(3)->date = QStringLiteral("29.05.2002");
        v->refreshView();
        QCOMPARE(v->actucost, app.doc->costs.at(0));
        QCOMPARE(app.doc->costs.at(0)->date, QStringLiteral("29.05.2002"));
        QCOMPARE(app.doc->costs.at(0)->type, QStringLiteral("Museum"));
        QCOMPARE(WidgetReaders::selectedRows(list), QList<int>{0});
        QCOMPARE(WidgetReaders::currentRow(list), 0);
        QCOMPARE(v->currentCost(), v->actucost);

        v->TabWidget2->setCurrentIndex(2);
        QVERIFY(ModalHelper::selectRow(v->TipListView, 1));
        QCOMPARE(v->actutip, app.doc->tips.at(1));
        QVERIFY(v->TChangeButton->isEnabled());
        QVERIFY(v->TDeleteButton->isEnabled());
        QVERIFY(v->TCopyButton->isEnabled());
        QVERIFY(!v->TPasteButton->isEnabled());
    }

    void replacedJourneyForgetsTheCurrentRecords()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(ModalHelper::selectRow(v->CostsListView, 2));
        QVERIFY(ModalHelper::selectRow(v->TipListView, 2));
        QVERIFY(v->actucost);
        QVERIFY(v->actutip);
        v->loadView(fx.dataFile(QStringLiteral("sample-nousers.wfn")));
        QVERIFY(!v->actucost || app.doc->costs.contains(v->actucost));
        QVERIFY(!v->actutip || app.doc->tips.contains(v->actutip));
        QVERIFY(WidgetReaders::selectedRows(v->CostsListView).isEmpty());

        // New empties the journey; when the template cannot be read the lists stay, but no
        // pointer leads into the records that are gone.
        QVERIFY(ModalHelper::selectRow(v->CostsListView, 1));
        QVERIFY(v->actucost);
        QFile::remove(fx.dataFile(QStringLiteral("template.wfn")));
        app.slotFileNew();
        QCOMPARE(app.doc->costs.count(), 0);
        QCOMPARE(v->actucost, nullptr);
        v->refreshView();
        QCOMPARE(WidgetReaders::rowCount(v->CostsListView), 0);
    }

    void sortAgreesWithTheBubbleSortOnRandomJourneys()
    {
        ShellFixture fx;
        WayfernApp app;
        QRandomGenerator rng(20020526);
        for (int round = 0; round < 40; ++round) {
            WayFernData &doc = *app.doc;
            doc.clearAll();
            const int n = rng.bounded(0, 120);
            for (int i = 0; i < n; ++i) {
                CostsData *c = doc.costs.append();
                c->date = randomDate(rng);
                c->type = QString::number(i);
                c->fval = QString::number(rng.bounded(1000));
                c->id = i + 1;
                c->shared = rng.bounded(2) == 1;
                TipData *t = doc.tips.append();
                t->date = randomDate(rng);
                t->name = QString::number(i);
                t->customs.append()->text = QString::number(i);
            }
            WayFernData reference;
            for (const CostsData *c : doc.costs)
                *reference.costs.append() = *c;
            for (const TipData *t : doc.tips)
                *reference.tips.append() = *t;
            bubbleSortCosts(reference);
            bubbleSortTips(reference);

            app.view->sortCosts();
            app.view->sortTips();
            for (int i = 0; i < n; ++i) {
                const CostsData *got = doc.costs.at(i);
                const CostsData *want = reference.costs.at(i);
                QCOMPARE(got->id, want->id);
                QCOMPARE(got->date, want->date);
                QCOMPARE(got->type, want->type);
                QCOMPARE(got->fval, want->fval);
                QCOMPARE(got->shared, want->shared);
                QCOMPARE(doc.tips.at(i)->name, reference.tips.at(i)->name);
                QCOMPARE(doc.tips.at(i)->date, reference.tips.at(i)->date);
                QCOMPARE(doc.tips.at(i)->customs.first()->text,
                         reference.tips.at(i)->customs.first()->text);
            }
        }
    }

    void sortKeepsSharedFlagsAtTheirPositions()
    {
        ShellFixture fx;
        WayfernApp app;
        WayFernData &doc = *app.doc;
        doc.clearAll();
        const char *dates[] = {"03.06.2002", "01.06.2002", "nodate", "02.06.2002"};
        const bool shared[] = {true, false, false, true};
        for (int i = 0; i < 4; ++i) {
            CostsData *c = doc.costs.append();
            c->date = QString::fromLatin1(dates[i]);
            c->shared = shared[i];
            c->id = i + 1;
        }
        app.view->sortCosts();
        const int ids[] = {3, 2, 4, 1};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(doc.costs.at(i)->id, ids[i]);
            QCOMPARE(doc.costs.at(i)->shared, shared[i]);
        }
    }

    void printedLinesOfTheFileOperations()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        const QString missing = fx.dataFile(QStringLiteral("missing.wfn"));
        {
            StdoutCapture out;
            QVERIFY(!v->loadView(missing));
            QCOMPARE(out.text(),
                     QStringLiteral("\nWayfernIO::ReadFile - file not found (%1)\n"
                                    "\nWayfernView::loadView - not able to read %1")
                         .arg(missing));
        }
        // A failed read changes nothing.
        QCOMPARE(app.doc->costs.count(), 5);
        QCOMPARE(WidgetReaders::rowCount(v->CostsListView), 5);

        app.doc->config.datapath = fx.dataDir() + QStringLiteral("/gone");
        {
            StdoutCapture out;
            QVERIFY(!v->saveLast());
            QVERIFY(out.text().endsWith(
                QStringLiteral("\nWayfernView::saveLast - not able to write %1/gone/wayfern.last")
                    .arg(fx.dataDir())));
        }
        {
            StdoutCapture out;
            QVERIFY(!v->loadLast());
            QCOMPARE(
                out.text(),
                QStringLiteral("\nWayfernIOLast::ReadFile - file not found (%1/gone/wayfern.last)\n"
                               "\nWayfernView::loadLast - not able to read %1/gone/wayfern.last")
                    .arg(fx.dataDir()));
        }
        app.doc->config.cfgpath = fx.dataDir() + QStringLiteral("/nocfg");
        {
            StdoutCapture out;
            QVERIFY(!v->loadCfg());
            QVERIFY(out.text().endsWith(
                QStringLiteral("\nWayfernView::loadCfg - not able to read %1/nocfg/wayfern.cfg")
                    .arg(fx.dataDir())));
        }
        // A save that could not write leaves the journey modified.
        app.doc->setModified(true);
        {
            StdoutCapture out;
            QVERIFY(!v->saveView(fx.dataDir() + QStringLiteral("/gone/x.wfn")));
            QCOMPARE(out.text(),
                     QStringLiteral("\nWayfernIO::WriteFile(%1/gone/x.wfn) : file not open\n")
                         .arg(fx.dataDir()));
        }
        QVERIFY(app.doc->isModified());
        QVERIFY(!v->fileProblem.isEmpty());
        QVERIFY(v->saveView(fx.dataFile(QStringLiteral("saved.wfn"))));
        QVERIFY(!app.doc->isModified());
        QVERIFY(v->fileProblem.isEmpty());
    }

    void baseCurrencyChangeRebasesAndRefreshes()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.doc->basecurrency = QStringLiteral("CHF");
        app.doc->currencies.at(0)->factorvalue = 1.0 / 1.5;
        app.doc->currencies.at(0)->factor = QStringLiteral("0.6667");
        app.doc->currencies.at(0)->type = app.doc->currencies.at(0)->floating;
        app.view->slotBCurrChanged();
        QCOMPARE(WidgetReaders::headerTexts(app.view->CostsListView).value(2), QStringLiteral("CHF"));
        app.view->slotTabViewChanged(nullptr);
        app.view->slotTabViewChanged(app.view->tab);
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 5);
    }
    // A new base currency gives every cost a new base value: the shares go with it, and
    // the balances stay what the costs add up to, now in the new currency.
    void aNewBaseCurrencyTakesTheSharesAlong()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayFernData *doc = app.doc;
        const CostsData *hotel = doc->costs.at(0);
        QCOMPARE(hotel->bval, QStringLiteral("90.00"));
        QCOMPARE(doc->users.at(0)->findKto(hotel->id)->change, -30.0);
        ModalTicket base = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<baseEdit *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *ed = qobject_cast<baseEdit *>(w);
                if (!ModalHelper::tapItem(ed->ListView, WidgetReaders::topLevelItem(
                                                            ed->ListView, "base currency"))
                    || !chooseInCombo(ed->ComboBox, QStringLiteral("CHF")))
                    out.error += QStringLiteral("CHF not chosen; ");
                ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                ed->OkButton->click();
                if (!box->handled)
                    out.error += QStringLiteral("no question; ");
            });
        app.openBase->trigger();
        QVERIFY2(base->handled && base->error.isEmpty(), qPrintable(base->error));
        QCOMPARE(doc->basecurrency, QStringLiteral("CHF"));
        // The euro's rate becomes 0.6667 CHF: 90.00 EUR are 134.99 CHF, shared alike as
        // before, the odd cent off the last.
        QCOMPARE(hotel->bval, QStringLiteral("134.99"));
        QCOMPARE(doc->users.at(0)->findKto(hotel->id)->change, -45.0);
        QCOMPARE(doc->users.at(1)->findKto(hotel->id)->change, -45.0);
        QCOMPARE(doc->users.at(2)->findKto(hotel->id)->change, -44.99);
        QVERIFY(app.statusBar()->currentMessage().startsWith(QStringLiteral("The shares of ")));
    }

    void theCostsAndBaseDialogsAreBuiltOnceHiddenAndInOrder()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernView *v = app.view;
        QStringList dialogs;
        for (QDialog *d : v->findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
            dialogs << d->objectName() + u':' + QString::fromLatin1(d->metaObject()->className());
        QCOMPARE(dialogs,
                 (QStringList{"Input costs:costsEdit", "Tip:tipEdit", "base settings:baseEdit",
                              "Currency List:currListEdit", "User List:userListEdit",
                              "Calendar:calenderEdit", "Settle up:settleEdit"}));
        QCOMPARE(v->costsInput->windowTitle(), QStringLiteral("Costs"));
        QCOMPARE(v->baseInput->windowTitle(), QStringLiteral("Base Info"));
        for (QDialog *d :
             std::initializer_list<QDialog *>{v->costsInput, v->baseInput, v->calendar}) {
            QVERIFY(d->isHidden());
            QVERIFY(d->isModal());
        }
        // The costs dialog reaches the overview through its signal.
        app.doc->journeyname = QStringLiteral("Renamed");
        emit v->costsInput->overChanged();
        QCOMPARE(v->OverListView->topLevelItem(0)->child(1)->text(1), QStringLiteral("Renamed"));
    }

    // The cost actions.
    void aNewCostRejectedInTheDialogDisappearsWithItsAccountLines()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        ModalTicket share, question;
        int id = 0;
        ModalTicket dialog = inNextCostsDialog([&](costsEdit *ed, ModalOutcome &out) {
            id = ed->tmp.id;
            // With a date the share dialog opens without the calendar first.
            tapRow(ed, "date", out);
            ModalTicket calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 1));
            ed->ToolButton->click();
            if (!calendar->handled)
                out.error += QStringLiteral("no calendar; ");
            tapRow(ed, "comment", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("Ferry"));
            // Shared in the dialog, then abandoned with No.
            share = shareAmongAllInNextShareDialog();
            ed->UserButton->click();
            if (linesOf(*ed->document, id) != 3)
                out.error += QStringLiteral("the share left no lines; ");
            question = ModalHelper::answerNextMessageBox(QMessageBox::No);
            ed->CancelButton->click();
        });
        QTest::mouseClick(v->InsertButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QVERIFY2(share && share->handled, share ? qPrintable(share->error) : "no share");
        QVERIFY2(question && question->handled, question ? qPrintable(question->error) : "");
        QCOMPARE(id, 6);
        QCOMPARE(app.doc->costs.count(), 5);
        QCOMPARE(linesOf(*app.doc, 6), 0);
        QCOMPARE(WidgetReaders::rowCount(v->CostsListView), 5);
        QCOMPARE(v->actucost, app.doc->costs.first());
        // The confirmed share had marked the journey.
        QVERIFY(app.doc->isModified());
    }

    void aCostRedatedEarlierThanAllOthersMovesToTheTopAndStaysSelected()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QTreeView *list = v->CostsListView;
        QCOMPARE(WidgetReaders::rowTexts(list, 3),
                 (QStringList{"01.06", "M", "12.00", "18.00", "CHF"}));
        ModalTicket calendar, share;
        ModalTicket dialog = inNextCostsDialog([&](costsEdit *ed, ModalOutcome &out) {
            if (ed->actu != app.doc->costs.at(3))
                out.error += QStringLiteral("not the double-clicked cost; ");
            tapRow(ed, "date", out);
            calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 5, 29));
            ed->ToolButton->click();
            share = ModalHelper::rejectNextDialog({}, "userPayEdit");
            ed->OkButton->click();
        });
        // A double click on the row is the change action.
        const QRect rect = list->visualRect(list->model()->index(3, 0));
        // As a finger does it: a tap, then the second press, which is the double click.
        // The last release belongs to the dialog that opened, not to the list.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mousePress(list->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QVERIFY2(calendar && calendar->handled && calendar->error.isEmpty(),
                 calendar ? qPrintable(calendar->error) : "no calendar");
        QVERIFY2(share && share->handled, share ? qPrintable(share->error) : "no share");
        QCOMPARE(WidgetReaders::rowTexts(list, 0),
                 (QStringList{"29.05", "M", "12.00", "18.00", "CHF"}));
        QCOMPARE(WidgetReaders::selectedRows(list), QList<int>{0});
        QCOMPARE(WidgetReaders::currentRow(list), 0);
        QCOMPARE(v->actucost, app.doc->costs.at(0));
        QCOMPARE(app.doc->costs.at(0)->comment, QStringLiteral("Glacier museum"));
        QVERIFY(app.doc->isModified());
    }

    void changeWithoutACurrentRowDoesNothing()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QCOMPARE(WidgetReaders::currentRow(v->CostsListView), -1);
        ModalTicket dialog = inNextCostsDialog([](costsEdit *ed, ModalOutcome &) { ed->reject(); });
        v->slotCostsChange();
        v->slotCostsDelete();
        QVERIFY(!dialog->handled);
        QCOMPARE(app.doc->costs.count(), 5);
    }

    void deleteAsksWithTheAmountsAndCancelKeepsTheCostAndItsSelection()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QVERIFY(tapCost(v, 2));
        CostsData *boat = app.doc->costs.at(2);
        QCOMPARE(boat->comment, QStringLiteral("Boat"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QTest::mouseClick(v->DeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text,
                 QStringLiteral("Delete entry\n45.00 USD\nor 50.00 EUR\n\nconfirm with yes !"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->icon, QMessageBox::Information);
        QCOMPARE(app.doc->costs.count(), 5);
        QCOMPARE(v->actucost, boat);
        QCOMPARE(WidgetReaders::selectedRows(v->CostsListView), QList<int>{2});
        QCOMPARE(WidgetReaders::currentRow(v->CostsListView), 2);
        QCOMPARE(linesOf(*app.doc, 3), 3);
        QVERIFY(!app.doc->isModified());
    }

    void deleteAfterARefreshTakesTheRememberedRowAndYesRemovesItsAccountLinesAndMarksTheJourney()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QVERIFY(tapCost(v, 2));
        // The refresh refills the list: the remembered row must be current again.
        v->refreshView();
        QCOMPARE(WidgetReaders::currentRow(v->CostsListView), 2);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(v->DeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(app.doc->costs.count(), 4);
        for (const CostsData *cost : app.doc->costs)
            QVERIFY(cost->comment != QStringLiteral("Boat"));
        QCOMPARE(linesOf(*app.doc, 3), 0);
        QCOMPARE(v->actucost, app.doc->costs.first());
        QCOMPARE(WidgetReaders::rowCount(v->CostsListView), 4);
        // Each traveller's balance lost the 16.6667 of the boat.
        QCOMPARE(app.doc->users.at(1)->value, -48.0);
        // A deletion is a change: Quit must ask before it is lost.
        QVERIFY(app.doc->isModified());
    }

    void aPastedCostStandsAboveTheSelectedOneOnlyOnTheSameDateAndMarksTheJourney()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QTreeView *list = v->CostsListView;
        QVERIFY(!v->PasteButton->isEnabled());
        QVERIFY(tapCost(v, 1)); // 30.05 Food 36 CHF, shared, id 2
        QTest::mouseClick(v->CopyButton, Qt::LeftButton);
        QVERIFY(v->PasteButton->isEnabled());

        // Pasted onto its own day: above the selected cost.
        QTest::mouseClick(v->PasteButton, Qt::LeftButton);
        QCOMPARE(app.doc->costs.count(), 6);
        QCOMPARE(app.doc->costs.at(1)->id, 6);
        QCOMPARE(app.doc->costs.at(2)->id, 2);
        QCOMPARE(WidgetReaders::rowTexts(list, 1), WidgetReaders::rowTexts(list, 2));
        QVERIFY(!app.doc->costs.at(1)->shared);
        QCOMPARE(linesOf(*app.doc, 6), 0);
        QCOMPARE(v->actucost, app.doc->costs.at(1));
        QVERIFY(FormCheck::showsPicture(WidgetReaders::rowIcon(list, 1), *v->unsharedPixmap));

        // Pasted onto a later day: the sort puts it back among the costs of its own date.
        QVERIFY(tapCost(v, 4)); // 01.06 Museum
        QCOMPARE(app.doc->costs.at(4)->type, QStringLiteral("Museum"));
        QTest::mouseClick(v->PasteButton, Qt::LeftButton);
        QCOMPARE(app.doc->costs.count(), 7);
        QCOMPARE(app.doc->costs.at(3)->id, 7);
        QCOMPARE(app.doc->costs.at(3)->date, QStringLiteral("30.05.2002"));
        // The selection went with the pasted cost.
        QCOMPARE(v->actucost, app.doc->costs.at(3));
        QCOMPARE(WidgetReaders::selectedRows(list), QList<int>{3});
        QCOMPARE(WidgetReaders::currentRow(list), 3);
        QCOMPARE(app.doc->costs.at(5)->type, QStringLiteral("Museum"));
        QCOMPARE(WidgetReaders::columnTexts(list, 0),
                 (QStringList{"30.05", "30.05", "30.05", "30.05", "31.05", "01.06", "02.06"}));
        QVERIFY(app.doc->isModified());
    }

    void aCostCopiedIntoAJourneyWithoutItsCurrencyKeepsItAndShowsNoBaseAmount()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        {
            QFile f(fx.dataFile(QStringLiteral("nodollar.wfn")));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(sampleWithoutDollar());
        }
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QVERIFY(tapCost(v, 2)); // 31.05 Boat, 45 USD
        QTest::mouseClick(v->CopyButton, Qt::LeftButton);
        QVERIFY(v->loadView(fx.dataFile(QStringLiteral("nodollar.wfn"))));
        QCOMPARE(app.doc->currencies.count(), 2);
        QVERIFY(v->PasteButton->isEnabled());
        QVERIFY(tapCost(v, 0));
        QTest::mouseClick(v->PasteButton, Qt::LeftButton);
        QCOMPARE(app.doc->costs.count(), 6);
        CostsData *pasted = v->actucost;
        QVERIFY(pasted);
        QCOMPARE(pasted->ctype, QStringLiteral("USD"));
        QCOMPARE(pasted->fval, QStringLiteral("45.00"));
        QCOMPARE(pasted->bval, QStringLiteral("0.0"));
        QCOMPARE(pasted->bvalue, 0.0);
        QCOMPARE(WidgetReaders::rowTexts(v->CostsListView, v->costModel->rowOf(pasted)),
                 (QStringList{"31.05", "T", "0.0", "45.00", "USD"}));
    }

    void aNewCostStartsOnTheDateOfTheSelectedCostAndIsSortedByIt()
    {
        // No sharing here, so OK asks nothing further.
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QVERIFY(tapCost(v, 2));
        QCOMPARE(v->actucost->date, QStringLiteral("31.05.2002"));
        QString opened;
        ModalTicket dialog = inNextCostsDialog([&opened](costsEdit *ed, ModalOutcome &out) {
            opened = contentOf(ed->ListView, "date");
            tapRow(ed, "foreign value", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("5"));
            ed->OkButton->click();
        });
        QTest::mouseClick(v->InsertButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QCOMPARE(opened, QStringLiteral("31.05.2002"));
        QCOMPARE(app.doc->costs.count(), 6);
        // Among the costs of its day, the new one comes last.
        QCOMPARE(app.doc->costs.at(3)->date, QStringLiteral("31.05.2002"));
        QCOMPARE(app.doc->costs.at(3)->fval, QStringLiteral("5"));
        QCOMPARE(WidgetReaders::columnTexts(v->CostsListView, 0),
                 (QStringList{"30.05", "30.05", "31.05", "31.05", "01.06", "02.06"}));
        QCOMPARE(v->actucost, app.doc->costs.at(3));
        QCOMPARE(WidgetReaders::selectedRows(v->CostsListView), QList<int>{3});
        QVERIFY(app.doc->isModified());
    }

    void aNewCostInAJourneyWithoutCurrenciesTypesOrTravellersIsStoredOnToday()
    {
        ShellFixture fx;
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        WayFernData &doc = *app.doc;
        doc.clearAll();
        doc.userflag = true;
        v->refreshView();
        QVERIFY(doc.currencies.isEmpty() && doc.ctypes.isEmpty() && doc.users.isEmpty());
        QStringList opened;
        QString shareDate;
        ModalTicket share;
        ModalTicket dialog = inNextCostsDialog([&](costsEdit *ed, ModalOutcome &out) {
            opened = WidgetReaders::treeRows(ed->ListView);
            tapRow(ed, "currency type", out);
            tapRow(ed, "type", out);
            tapRow(ed, "exch. rate", out);
            tapRow(ed, "foreign value", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("12"));
            // The cost has today's date: the share dialog opens without the calendar.
            share = ModalHelper::clickInNextDialog(
                QStringLiteral("OkButton"),
                [&shareDate](QDialog *d) {
                    shareDate = static_cast<userPayEdit *>(d)->TextLabel->text();
                },
                "userPayEdit");
            ed->OkButton->click();
        });
        const QDate dayBefore = QDate::currentDate();
        QTest::mouseClick(v->InsertButton, Qt::LeftButton);
        const QDate dayAfter = QDate::currentDate();
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QVERIFY2(share && share->handled, share ? qPrintable(share->error) : "");
        QVERIFY(!opened.isEmpty());
        const QString today = opened.first().mid(5);
        QVERIFY2(today == dayBefore.toString(QStringLiteral("dd.MM.yyyy"))
                     || today == dayAfter.toString(QStringLiteral("dd.MM.yyyy")),
                 qPrintable(today));
        QCOMPARE(shareDate, today);
        QCOMPARE(opened,
                 (QStringList{"date|" + today, "type|", "short|", "currency type|",
                              "foreign value|", "base value|", "exch. rate|", "comment|"}));
        QCOMPARE(doc.costs.count(), 1);
        QCOMPARE(doc.costs.first()->date, today);
        QCOMPARE(doc.costs.first()->fval, QStringLiteral("12"));
        QCOMPARE(WidgetReaders::treeRows(v->CostsListView),
                 (QStringList{today.left(5) + QStringLiteral("||0.0|12|")}));
        QCOMPARE(doc.totaltext, QStringLiteral("0.00"));
    }

    void aCurrencyAndACostTypeDeletedUnderACostLeaveNoStalePointer()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        showCosts(app);
        WayfernView *v = app.view;
        QVERIFY(tapCost(v, 1)); // 36 CHF of Food
        // The editor looks the currency up once; both go while the journey stays.
        ModalTicket first = inNextCostsDialog([](costsEdit *ed, ModalOutcome &out) {
            tapRow(ed, "foreign value", out);
            ed->ClearButton->click();
            QTest::keyClicks(ed->LineEdit, QStringLiteral("360"));
            if (contentOf(ed->ListView, "base value") != QStringLiteral("240.00"))
                out.error += QStringLiteral("no recalculation; ");
            ed->reject();
        });
        QTest::mouseClick(v->ChangeButton, Qt::LeftButton);
        QVERIFY2(first->handled && first->error.isEmpty(), qPrintable(first->error));
        app.doc->currencies.remove(app.doc->findCurrency(QStringLiteral("CHF")));
        app.doc->ctypes.remove(app.doc->ctypes.first());
        v->refreshView();
        QCOMPARE(WidgetReaders::rowTexts(v->CostsListView, 1),
                 (QStringList{"30.05", "F", "0.0", "36.00", "CHF"}));
        ModalTicket second = inNextCostsDialog([](costsEdit *ed, ModalOutcome &out) {
            tapRow(ed, "exch. rate", out);
            tapRow(ed, "currency type", out);
            tapRow(ed, "type", out);
            tapRow(ed, "foreign value", out);
            ed->ClearButton->click();
            QTest::keyClicks(ed->LineEdit, QStringLiteral("360"));
            // The currency is gone: a fresh lookup finds nothing and the value stays.
            if (contentOf(ed->ListView, "base value") != QStringLiteral("0.0"))
                out.error += QStringLiteral("base value moved: %1; ")
                                 .arg(contentOf(ed->ListView, "base value"));
            ed->reject();
        });
        QTest::mouseClick(v->ChangeButton, Qt::LeftButton);
        QVERIFY2(second->handled && second->error.isEmpty(), qPrintable(second->error));
    }
};

QTEST_MAIN(TestView)
#include "tst_view.moc"
