#include "formcheck.h"
#include "shellfixture.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"
#include "storage/scqtutil.h"

#include <QDate>
#include <QRandomGenerator>
#include <QRegularExpression>
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
void bubbleSortCosts(WayFernData &doc)
{
    ScQtUtil util;
    const int n = doc.costs.count();
    for (int outer = 0; outer < n; ++outer) {
        bool changed = false;
        for (int a = 0; a + 1 < n; ++a) {
            CostsData *x = doc.costs.at(a);
            CostsData *y = doc.costs.at(a + 1);
            if (referenceDay(util, y->date) - referenceDay(util, x->date) < 0) {
                doc.swapCosts(x, y);
                changed = true;
            }
        }
        if (!changed)
            break;
    }
}

void bubbleSortTips(WayFernData &doc)
{
    ScQtUtil util;
    const int n = doc.tips.count();
    for (int outer = 0; outer < n; ++outer) {
        bool changed = false;
        for (int a = 0; a + 1 < n; ++a) {
            TipData *x = doc.tips.at(a);
            TipData *y = doc.tips.at(a + 1);
            if (referenceDay(util, y->date) - referenceDay(util, x->date) < 0) {
                doc.swapTips(x, y);
                changed = true;
            }
        }
        if (!changed)
            break;
    }
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
        QTreeWidget *list = app.view->CostsListView;
        QCOMPARE(list->headerItem()->text(2), QStringLiteral("EUR"));
        QCOMPARE(list->topLevelItemCount(), 5);
        // Sorted by date, the year left out, amounts as the document holds them.
        QCOMPARE(itemTexts(list->topLevelItem(0)),
                 (QStringList{"30.05", "H", "90.00", "90.00", "EUR"}));
        QCOMPARE(itemTexts(list->topLevelItem(1)),
                 (QStringList{"30.05", "F", "24.00", "36.00", "CHF"}));
        QCOMPARE(itemTexts(list->topLevelItem(2)),
                 (QStringList{"31.05", "T", "50.00", "45.00", "USD"}));
        QCOMPARE(itemTexts(list->topLevelItem(3)),
                 (QStringList{"01.06", "M", "12.00", "18.00", "CHF"}));
        QCOMPARE(itemTexts(list->topLevelItem(4)),
                 (QStringList{"02.06", "F", "30.00", "27.00", "USD"}));
        QVERIFY(list->topLevelItem(0)->textAlignment(2) & Qt::AlignRight);
        QVERIFY(list->topLevelItem(0)->textAlignment(3) & Qt::AlignRight);
        for (int i = 0; i < 5; ++i)
            QCOMPARE(app.doc->costs.at(i)->item, list->topLevelItem(i));
    }

    void sortedCostsLeaveTheSharedIconAtItsListPosition()
    {
        // In the file the unshared museum cost (01.06) stands before the shared boat (31.05).
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeWidget *list = app.view->CostsListView;
        const bool expected[] = {true, true, false, true, true};
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(app.doc->costs.at(i)->shared, expected[i]);
            QVERIFY(FormCheck::showsPicture(list->topLevelItem(i)->icon(0),
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
        QTreeWidget *list = app.view->CostsListView;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            QVERIFY(list->topLevelItem(i)->icon(0).isNull());
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
        QCOMPARE(app.view->CostsListView->topLevelItemCount(), 0);
        QCOMPARE(app.view->CostsListView->headerItem()->text(2), QStringLiteral("EUR"));
        app.doc->basecurrency = QStringLiteral("");
        app.view->refreshView();
        QCOMPARE(app.view->CostsListView->headerItem()->text(2), QString());
    }

    void tipListShowsLetterNameAndQualityInDateOrder()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeWidget *list = app.view->TipListView;
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(itemTexts(list->topLevelItem(0)), (QStringList{"H", "Lakeside hostel", "fair"}));
        QCOMPARE(itemTexts(list->topLevelItem(1)), (QStringList{"R", "Zum Anker", "good"}));
        QCOMPARE(itemTexts(list->topLevelItem(2)), (QStringList{"S", "Glacier garden", "good"}));
        QCOMPARE(app.doc->tips.at(1)->typeletter, QStringLiteral("R"));
        QCOMPARE(app.view->findTip(list->topLevelItem(2)), app.doc->tips.at(2));
        QCOMPARE(app.view->findTip(nullptr), nullptr);
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
                               v->TChangeButton, v->TDeleteButton, v->TCopyButton,
                               v->TPasteButton})
            QVERIFY(!b->isEnabled());

        v->show();
        v->TabWidget2->setCurrentIndex(1);
        QTreeWidget *list = v->CostsListView;
        const QRect rect = list->visualItemRect(list->topLevelItem(3));
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
        QCOMPARE(list->selectedItems().size(), 1);
        QCOMPARE(list->selectedItems().first(), list->topLevelItem(0));
        QCOMPARE(list->currentItem(), list->topLevelItem(0));
        QCOMPARE(v->findCost(list->selectedItems().first()), v->actucost);

        v->TabWidget2->setCurrentIndex(2);
        v->TipListView->topLevelItem(1)->setSelected(true);
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
        v->CostsListView->topLevelItem(2)->setSelected(true);
        v->TipListView->topLevelItem(2)->setSelected(true);
        QVERIFY(v->actucost);
        QVERIFY(v->actutip);
        v->loadView(fx.dataFile(QStringLiteral("sample-nousers.wfn")));
        QVERIFY(!v->actucost || app.doc->costs.contains(v->actucost));
        QVERIFY(!v->actutip || app.doc->tips.contains(v->actutip));
        QVERIFY(v->CostsListView->selectedItems().isEmpty());

        // New empties the journey; when the template cannot be read the lists stay, but no
        // pointer leads into the records that are gone.
        v->CostsListView->topLevelItem(1)->setSelected(true);
        QVERIFY(v->actucost);
        QFile::remove(fx.dataFile(QStringLiteral("template.wfn")));
        app.slotFileNew();
        QCOMPARE(app.doc->costs.count(), 0);
        QCOMPARE(v->actucost, nullptr);
        v->refreshView();
        QCOMPARE(v->CostsListView->topLevelItemCount(), 0);
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

    void sortKeepsSharedFlagsAndItemsAtTheirPositions()
    {
        ShellFixture fx;
        WayfernApp app;
        WayFernData &doc = *app.doc;
        doc.clearAll();
        const char *dates[] = {"03.06.2002", "01.06.2002", "nodate", "02.06.2002"};
        const bool shared[] = {true, false, false, true};
        QTreeWidgetItem items[4];
        for (int i = 0; i < 4; ++i) {
            CostsData *c = doc.costs.append();
            c->date = QString::fromLatin1(dates[i]);
            c->shared = shared[i];
            c->item = &items[i];
            c->id = i + 1;
        }
        app.view->sortCosts();
        const int ids[] = {3, 2, 4, 1};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(doc.costs.at(i)->id, ids[i]);
            QCOMPARE(doc.costs.at(i)->shared, shared[i]);
            QCOMPARE(doc.costs.at(i)->item, &items[i]);
        }
        for (CostsData *c : doc.costs)
            c->item = nullptr;
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
            QVERIFY(v->loadView(missing));
            QCOMPARE(out.text(), QStringLiteral("\nWayfernIO::ReadFile - file not found (%1)\n"
                                                "\nWayfernView::loadView - not able to read %1")
                                     .arg(missing));
        }
        // A failed read changes nothing.
        QCOMPARE(app.doc->costs.count(), 5);
        QCOMPARE(v->CostsListView->topLevelItemCount(), 5);

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
            QCOMPARE(out.text(),
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
        // Saving marks the journey unmodified whatever the writing did.
        app.doc->setModified(true);
        {
            StdoutCapture out;
            QVERIFY(v->saveView(fx.dataDir() + QStringLiteral("/gone/x.wfn")));
        }
        QVERIFY(!app.doc->isModified());
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
        QCOMPARE(app.view->CostsListView->headerItem()->text(2), QStringLiteral("CHF"));
        app.view->slotTabViewChanged(nullptr);
        app.view->slotTabViewChanged(app.view->tab);
        QCOMPARE(app.view->CostsListView->topLevelItemCount(), 5);
    }
};

QTEST_MAIN(TestView)
#include "tst_view.moc"
