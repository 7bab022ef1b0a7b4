#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

namespace {

// The rows of the overview, top to bottom, children indented by two blanks.
QStringList overviewRows(QTreeWidget *list)
{
    return WidgetReaders::treeRows(list);
}

QString content(QTreeWidget *list, const QString &branch, const QString &row)
{
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *top = list->topLevelItem(i);
        if (top->text(0) != branch)
            continue;
        for (int j = 0; j < top->childCount(); ++j)
            if (top->child(j)->text(0) == row)
                return top->child(j)->text(1);
    }
    return QStringLiteral("<none>");
}

CostsData *addCost(WayFernData &doc, const QString &date, const QString &type, const QString &fval,
                   const QString &currency)
{
    CostsData *c = doc.costs.append();
    c->date = date;
    c->type = type;
    c->fval = fval;
    c->ctype = currency;
    c->id = doc.nextCostId();
    return c;
}

} // namespace

class TestOverview : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void overviewOfAJourneyAcrossAMonthEnd()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeWidget *list = app.view->OverListView;
        // 206.00 over 30.05. to 02.06.: a span of 3 days, both ends counted.
        QCOMPARE(overviewRows(list),
                 (QStringList{
                     "common|",
                     "  base currency|EUR",
                     "  journey|Lakes and Passes",
                     "costs|",
                     "  total|206.00",
                     "  perday|51.50",
                     "costs by category|",
                     "  Food|54.00",
                     "  Hotel|90.00",
                     "  Transport|50.00",
                     "  Museum|12.00",
                     "user account|",
                     "  AB|35.33",
                     "  CD|-64.67",
                     "  EF|-52.17",
                 }));
        QCOMPARE(app.doc->total, 206.0);
        QCOMPARE(app.doc->perday, 206.0 / 4);
        QCOMPARE(app.doc->totaltext, QStringLiteral("206.00"));
        QCOMPARE(app.doc->perdaytext, QStringLiteral("51.50"));
        QCOMPARE(app.view->categorySum(QStringLiteral("Food")), 54.0);
        QCOMPARE(app.view->categorySum(QStringLiteral("food")), 0.0);
    }

    void branchesComeBackOpenOrClosedAtEachRefresh()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTreeWidget *list = app.view->OverListView;
        auto check = [list] {
            QVERIFY(list->topLevelItem(0)->isExpanded());
            QVERIFY(list->topLevelItem(1)->isExpanded());
            QVERIFY(!list->topLevelItem(2)->isExpanded());
            QVERIFY(!list->topLevelItem(3)->isExpanded());
        };
        check();
        list->topLevelItem(0)->setExpanded(false);
        list->topLevelItem(3)->setExpanded(true);
        app.view->refreshView();
        check();
    }

    void noCostsShowZeroEverywhere()
    {
        ShellFixture fx;
        WayfernApp app;
        QTreeWidget *list = app.view->OverListView;
        QCOMPARE(content(list, "costs", "total"), QStringLiteral("0.00"));
        QCOMPARE(content(list, "costs", "perday"), QStringLiteral("0.00"));
        for (const char *type : {"Food", "Hotel", "Transport", "Museum"})
            QCOMPARE(content(list, "costs by category", type), QStringLiteral("0.00"));
        QCOMPARE(content(list, "common", "journey"), QStringLiteral("Template"));
    }

    void costsOnOneDayGivePerdayEqualToTotal()
    {
        ShellFixture fx;
        WayfernApp app;
        addCost(*app.doc, "04.06.2002", "Food", "10.00", "EUR");
        app.view->refreshView();
        QCOMPARE(content(app.view->OverListView, "costs", "perday"), QStringLiteral("10.00"));
        addCost(*app.doc, "04.06.2002", "Hotel", "15.00", "CHF");
        app.view->refreshView();
        QCOMPARE(content(app.view->OverListView, "costs", "total"), QStringLiteral("20.00"));
        QCOMPARE(content(app.view->OverListView, "costs", "perday"), QStringLiteral("20.00"));
    }

    void spanOfThreeDaysDividesByFour()
    {
        ShellFixture fx;
        WayfernApp app;
        addCost(*app.doc, "02.06.2002", "Food", "10.00", "EUR");
        addCost(*app.doc, "30.05.2002", "Food", "30.00", "EUR");
        app.view->refreshView();
        QCOMPARE(app.doc->perday, 40.0 / 4);
        QCOMPARE(content(app.view->OverListView, "costs", "perday"), QStringLiteral("10.00"));
        // The first and last cost after the sort make the span, whatever the order before.
        QCOMPARE(app.doc->costs.first()->date, QStringLiteral("30.05.2002"));
    }

    void invalidDateGivesAHugeDivisorAndNoError()
    {
        ShellFixture fx;
        WayfernApp app;
        addCost(*app.doc, "no date", "Food", "100.00", "EUR");
        addCost(*app.doc, "02.06.2002", "Food", "10.00", "EUR");
        app.view->refreshView();
        QVERIFY(app.doc->perday > 0.0);
        // "no date" counts as day 0: the span is the whole calendar up to the second cost.
        const qint64 days = QDate(2002, 6, 2).toJulianDay();
        QCOMPARE(app.doc->perday, 110.0 / double(days + 1));
        QCOMPARE(content(app.view->OverListView, "costs", "total"), QStringLiteral("110.00"));
    }

    void withoutUsersTheAccountBranchIsMissing()
    {
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        WayfernApp app;
        QTreeWidget *list = app.view->OverListView;
        QCOMPARE(list->topLevelItemCount(), 3);
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            QVERIFY(list->topLevelItem(i)->text(0) != QLatin1String("user account"));
        app.doc->users.first()->value = 12345.0;
        app.view->fillOverview();
        QVERIFY(!overviewRows(list).join(u'\n').contains(QStringLiteral("12345")));
    }

    void costInAnUnknownCurrencyCountsNothing()
    {
        ShellFixture fx;
        WayfernApp app;
        addCost(*app.doc, "01.06.2002", "Food", "10.00", "EUR");
        addCost(*app.doc, "01.06.2002", "Food", "99.00", "XYZ");
        addCost(*app.doc, "01.06.2002", "Souvenir", "5.00", "EUR");
        app.view->refreshView();
        QTreeWidget *list = app.view->OverListView;
        QCOMPARE(content(list, "costs by category", "Food"), QStringLiteral("10.00"));
        // A category without a row counts in the total only.
        QCOMPARE(content(list, "costs", "total"), QStringLiteral("15.00"));
        QCOMPARE(content(list, "costs by category", "Souvenir"), QStringLiteral("<none>"));
        QCOMPARE(WidgetReaders::rowTexts(app.view->CostsListView, 1).value(2), QStringLiteral("0.0"));
    }

    void negativeBalanceShowsTwoDecimals()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        UserData *user = app.doc->users.at(1);
        user->value = -12.5;
        app.view->fillOverview();
        QCOMPARE(content(app.view->OverListView, "user account", "CD"), QStringLiteral("-12.50"));
    }

    void overChangedShowsBaseSettingsAtOnceAndSumsLater()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.doc->journeyname = QStringLiteral("Renamed");
        app.doc->costs.first()->fval = QStringLiteral("190.00");
        app.view->slotOverChanged();
        QTreeWidget *list = app.view->OverListView;
        QCOMPARE(content(list, "common", "journey"), QStringLiteral("Renamed"));
        QCOMPARE(content(list, "costs", "total"), QStringLiteral("206.00"));
        app.view->refreshView();
        QCOMPARE(content(list, "costs", "total"), QStringLiteral("306.00"));
    }
};

QTEST_MAIN(TestOverview)
#include "tst_overview.moc"
