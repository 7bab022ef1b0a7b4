// The cost, tip and account lists are models over the journey's records. Qt's model tester
// watches them while a journey is opened, edited, sorted, undone and cleared through the
// window; after every step the rows say what the records say.

#include "modalhelper.h"
#include "samplewindow.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/journeyrecords.h"
#include "editors/userktoedit.h"
#include "lists/journeylistmodels.h"
#include "storage/scqtutil.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

namespace {

using Tester = QAbstractItemModelTester;

// Each row as the records say it should read.
QStringList expectedCostRows(const WayFernData &doc)
{
    QStringList rows;
    for (const CostsData *cost : doc.costs)
        rows << QStringList{ScQtUtil::fileBaseName(cost->date), cost->typeletter, cost->bval,
                            cost->fval, cost->ctype}
                    .join(u'|');
    return rows;
}

QStringList expectedTipRows(const WayFernData &doc)
{
    QStringList rows;
    for (const TipData *tip : doc.tips)
        rows << QStringList{tip->typeletter, tip->name, tip->qualitytype}.join(u'|');
    return rows;
}

} // namespace

class TestListModels : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void theWindowsListsAreViewsOfTheirModels()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        SampleWindow w(fx);
        QCOMPARE(w.v->CostsListView->model(), w.v->costModel);
        QCOMPARE(w.v->TipListView->model(), w.v->tipModel);
        QVERIFY(w.v->CostsListView->uniformRowHeights());
        QVERIFY(w.v->TipListView->uniformRowHeights());
    }

    void costAndTipModelsPassTheTesterThroughOpenEditSortUndoAndClear()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        SampleWindow w(fx);
        Tester costs(w.v->costModel, Tester::FailureReportingMode::QtTest);
        Tester tips(w.v->tipModel, Tester::FailureReportingMode::QtTest);
        const auto rowsAgree = [&] {
            QCOMPARE(WidgetReaders::treeRows(w.v->CostsListView), expectedCostRows(*w.doc));
            QCOMPARE(WidgetReaders::treeRows(w.v->TipListView), expectedTipRows(*w.doc));
        };
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 5);

        // Edited and sorted: the museum moves to the top and stays current.
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 3));
        w.v->actucost->date = QStringLiteral("29.05.2002");
        w.v->refreshView();
        rowsAgree();
        QCOMPARE(WidgetReaders::currentRow(w.v->CostsListView), 0);
        QCOMPARE(w.v->currentCost()->type, QStringLiteral("Museum"));

        // Copied, pasted and deleted through the buttons.
        QTest::mouseClick(w.v->CopyButton, Qt::LeftButton);
        QTest::mouseClick(w.v->PasteButton, Qt::LeftButton);
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 6);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 5);

        // Undone and redone.
        w.app->editUndo->trigger();
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 6);
        w.app->editRedo->trigger();
        rowsAgree();

        // A tip deleted.
        w.v->TabWidget2->setCurrentIndex(2);
        QVERIFY(ModalHelper::tapRow(w.v->TipListView, 1));
        box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->TDeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->TipListView), 2);

        // Another journey opened, then a new one without a template: empty lists.
        QVERIFY(w.v->loadView(fx.dataFile(QStringLiteral("sample-nousers.wfn"))));
        rowsAgree();
        QCOMPARE(WidgetReaders::currentRow(w.v->CostsListView), -1);
        QFile::remove(fx.dataFile(QStringLiteral("template.wfn")));
        // Nothing to save: new asks no question.
        w.doc->setModified(false);
        w.app->slotFileNew();
        w.v->refreshView();
        rowsAgree();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 0);
        QCOMPARE(WidgetReaders::rowCount(w.v->TipListView), 0);
    }

    void rowsReadTheRecordsThemselves()
    {
        // Nothing is copied into the list: a record changed shows as it is at the next paint.
        ShellFixture fx({QStringLiteral("sample.wfn")});
        SampleWindow w(fx);
        w.doc->costs.at(2)->fval = QStringLiteral("46.50");
        QCOMPARE(WidgetReaders::rowTexts(w.v->CostsListView, 2).value(3), QStringLiteral("46.50"));
        QCOMPARE(w.v->costModel->rowOf(w.doc->costs.at(2)), 2);
        QCOMPARE(w.v->costModel->rowOf(nullptr), -1);
    }

    void aCostAddedBeforeTheRefreshIsNotARowYet()
    {
        // While a dialog for a new cost is open the list still counts the rows of the last
        // refresh, and a row never reads past the records.
        ShellFixture fx({QStringLiteral("sample.wfn")});
        SampleWindow w(fx);
        Tester costs(w.v->costModel, Tester::FailureReportingMode::QtTest);
        w.doc->costs.append();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 5);
        w.doc->costs.remove(w.doc->costs.at(0));
        w.doc->costs.remove(w.doc->costs.at(0));
        QCOMPARE(w.v->costModel->costAt(4), nullptr);
        QCOMPARE(w.v->costModel->index(4, 0).data(), QVariant());
        w.v->refreshView();
        QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 4);
    }

    void accountModelPassesTheTesterAcrossTravellers()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        SampleWindow w(fx, 0);
        userKtoEdit account(nullptr, "User account", true, w.doc);
        account.hide();
        Tester lines(account.accountModel, Tester::FailureReportingMode::QtTest);
        for (UserData *user : w.doc->users) {
            account.prepare(user);
            QCOMPARE(WidgetReaders::rowCount(account.ListView), user->kto.count());
            // The newest line on top, the running total summed oldest first.
            double total = 0.0;
            for (const KtoData *line : user->kto)
                total += line->change;
            if (user->kto.count() > 0)
                QCOMPARE(WidgetReaders::rowTexts(account.ListView, 0),
                         (QStringList{user->kto.last()->date,
                                      QString::asprintf("%.2f", user->kto.last()->change),
                                      QString::asprintf("%.2f", total)}));
        }
        account.done(QDialog::Accepted);
        QCOMPARE(WidgetReaders::rowCount(account.ListView), 0);
    }
};

QTEST_MAIN(TestListModels)
#include "tst_listmodels.moc"
