// A step of the journey's history brings the journey back to the byte: written after an
// undo, the file has the bytes it had before the step, and after a redo those after it.
// Every kind of change that the window makes is done here on the document the way the
// window does it, and so are long random runs of them.

#include "../bench/journeygen.h"
#include "journeybytes.h"

#include "data/journeycalc.h"
#include "data/journeychange.h"
#include "data/wayferndata.h"
#include "settle/settlement.h"
#include "settle/sharedivision.h"
#include "settle/travellerleave.h"
#include "storage/wayfernio.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

namespace {

// What every refresh of the window does after an action: sort, recompute.
void refresh(WayFernData &doc)
{
    DateParts last;
    JourneyCalc::refreshFigures(doc, last);
}

// What the window does after an undo or a redo: recompute, without sorting.
void refreshAfterStep(WayFernData &doc)
{
    DateParts last;
    JourneyCalc::calcSums(doc, [&last](const QString &from, const QString &to) {
        return int(DateText::daysBetween(from, to, last));
    });
    if (doc.userflag)
        doc.recalcUsers();
}

void smallJourney(WayFernData &doc, int costs, quint32 seed)
{
    JourneyShape shape;
    shape.costs = costs;
    shape.tips = 12;
    shape.seed = seed;
    generateJourney(doc, shape);
    // Flags that differ from cost to cost, so that a move that reorders them shows.
    QRandomGenerator random(seed);
    for (CostsData *cost : doc.costs)
        cost->shared = random.bounded(2) == 1;
    refresh(doc);
}

// Divides a cost among every traveller, as the share dialog does.
void share(WayFernData &doc, CostsData *cost)
{
    doc.addAllKto(cost->id);
    QList<UserData *> users;
    for (UserData *user : doc.users)
        users << user;
    const QList<qint64> cents =
        ShareDivision::evenly(qRound64(cost->bvalue * 100), int(users.size()));
    for (int i = 0; i < users.size(); ++i) {
        KtoData *line = users[i]->findKto(cost->id);
        line->date = cost->date;
        line->type = cost->type;
        line->change = ShareDivision::changeOfShare(cents[i]);
        line->percentage = 100.0 / users.size();
    }
    cost->shared = true;
}

CostsData *someCost(WayFernData &doc, QRandomGenerator &random)
{
    return doc.costs.isEmpty() ? nullptr : doc.costs.at(int(random.bounded(doc.costs.count())));
}

QString randomDate(QRandomGenerator &random)
{
    return QString::asprintf("%02d.%02d.%04d", int(random.bounded(1, 29)),
                             int(random.bounded(1, 13)), int(random.bounded(2000, 2004)));
}

} // namespace

class TestJourneyChange : public QObject
{
    Q_OBJECT

    // Runs `act` as one step on `doc` and checks undo and redo to the byte; the journey is
    // left after the step.
    void checkStep(WayFernData &doc, const ChangeScope &scope,
                   const std::function<void(WayFernData &)> &act, bool expectChange = true)
    {
        const QByteArray before = journeyBytes(&doc);
        auto snapshot = JourneyChange::capture(doc, scope);
        act(doc);
        refresh(doc);
        const QByteArray after = journeyBytes(&doc);
        const JourneyChange change = JourneyChange::since(*snapshot, doc);
        QCOMPARE(change.isEmpty(), !expectChange);
        QCOMPARE(change.isEmpty(), before == after);
        change.undo(doc);
        refreshAfterStep(doc);
        QCOMPARE(journeyBytes(&doc), before);
        change.redo(doc);
        refreshAfterStep(doc);
        QCOMPARE(journeyBytes(&doc), after);
    }

private slots:
    void changedCommentComesBack()
    {
        WayFernData doc;
        smallJourney(doc, 40, 1);
        CostsData *cost = doc.costs.at(17);
        checkStep(doc, ChangeScope::costs({cost->id}),
                  [cost](WayFernData &) { cost->comment = QStringLiteral("changed; really"); });
    }

    void costWhoseDateMovesItComesBackWithEveryFlagInPlace()
    {
        WayFernData doc;
        smallJourney(doc, 60, 2);
        // From the end to the start and back: the sort passes every flag between.
        CostsData *late = doc.costs.at(55);
        checkStep(doc, ChangeScope::costs({late->id}),
                  [late](WayFernData &) { late->date = QStringLiteral("01.01.1999"); });
        CostsData *early = doc.costs.at(2);
        checkStep(doc, ChangeScope::costs({early->id}),
                  [early](WayFernData &) { early->date = QStringLiteral("28.12.2005"); });
    }

    void newSharedCostSortedIntoTheMiddleGoesAgain()
    {
        WayFernData doc;
        smallJourney(doc, 50, 3);
        const int id = doc.nextCostId();
        checkStep(doc, ChangeScope::costs({id}), [id](WayFernData &d) {
            CostsData *cost = d.costs.append();
            cost->id = id;
            cost->date = QStringLiteral("15.06.2001");
            cost->type = QStringLiteral("Food");
            cost->fval = QStringLiteral("92.63");
            cost->ctype = QStringLiteral("EUR");
            d.recalcCosts();
            share(d, cost);
        });
    }

    void deletedCostComesBackWithItsAccountLines()
    {
        WayFernData doc;
        smallJourney(doc, 50, 4);
        CostsData *cost = doc.costs.at(20);
        QVERIFY(doc.users.first()->findKto(cost->id));
        checkStep(doc, ChangeScope::costs({cost->id}), [cost](WayFernData &d) {
            d.removeAllKto(cost->id);
            d.costs.remove(cost);
        });
    }

    void pastedCostGoesAgain()
    {
        WayFernData doc;
        smallJourney(doc, 30, 5);
        const int id = doc.nextCostId();
        checkStep(doc, ChangeScope::costs({id}), [id](WayFernData &d) {
            CostsData *source = d.costs.at(25);
            CostsData *cost = d.costs.insert(25);
            *cost = *source;
            cost->id = id;
            cost->shared = false;
            cost->date = QStringLiteral("02.02.2000");
        });
    }

    void sharesDividedAgainComeBack()
    {
        WayFernData doc;
        smallJourney(doc, 30, 6);
        CostsData *cost = doc.costs.at(12);
        checkStep(doc, ChangeScope::costs({cost->id}), [cost](WayFernData &d) {
            cost->fval = QStringLiteral("75.40");
            d.recalcCosts();
            d.removeAllKto(cost->id);
            share(d, cost);
        });
    }

    void cancelledNewCostIsNoStep()
    {
        WayFernData doc;
        smallJourney(doc, 20, 7);
        const int id = doc.nextCostId();
        checkStep(
            doc, ChangeScope::costs({id}),
            [id](WayFernData &d) {
                CostsData *cost = d.costs.append();
                cost->id = id;
                d.addAllKto(id);
                d.removeAllKto(id);
                d.costs.remove(cost);
            },
            false);
    }

    void tipsNewChangedDeletedAndSortedComeBack()
    {
        WayFernData doc;
        smallJourney(doc, 10, 8);
        checkStep(doc, ChangeScope(), [](WayFernData &d) {
            TipData *tip = d.tips.append();
            tip->name = QStringLiteral("Zum Anker");
            tip->date = QStringLiteral("03.03.2000");
            tip->customs.append()->text = QStringLiteral("Rooms");
        });
        checkStep(doc, ChangeScope(), [](WayFernData &d) {
            d.tips.at(3)->comment = QStringLiteral("fish; chips");
            d.tips.at(3)->customs.append()->content = QStringLiteral("12");
        });
        checkStep(doc, ChangeScope(), [](WayFernData &d) { d.tips.remove(d.tips.at(5)); });
    }

    void depositAndPayOffComeBack()
    {
        WayFernData doc;
        smallJourney(doc, 10, 9);
        checkStep(doc, ChangeScope::lines(-2), [](WayFernData &d) {
            KtoData *line = d.users.at(1)->addKto(-2);
            line->type = QStringLiteral("deposit");
            line->date = QStringLiteral("01.02.2001");
            line->change = 12.5;
        });
        checkStep(doc, ChangeScope::lines(-3), [](WayFernData &d) {
            KtoData *line = d.users.at(2)->addKto(-3);
            line->type = QStringLiteral("pay off");
            line->change = -7.25;
        });
    }

    void travellerAddedChangedAndDeletedComeBack()
    {
        WayFernData doc;
        smallJourney(doc, 25, 10);
        checkStep(doc, ChangeScope::everyAccount(), [](WayFernData &d) {
            UserData *user = d.users.append();
            user->short_ = QStringLiteral("NEW");
            user->name = QStringLiteral("Newcomer");
        });
        checkStep(doc, ChangeScope(), [](WayFernData &d) {
            d.users.at(0)->street = QStringLiteral("Harbour street 1; left");
            d.users.at(0)->short_ = QStringLiteral("AB");
        });
        checkStep(doc, ChangeScope::everyAccount(),
                  [](WayFernData &d) { TravellerLeave::remove(d, d.users.at(1)); });
    }

    void currenciesBaseAndTablesComeBack()
    {
        WayFernData doc;
        smallJourney(doc, 25, 11);
        checkStep(doc, ChangeScope(),
                  [](WayFernData &d) { d.currencies.at(2)->factor = QStringLiteral("3.3333"); });
        checkStep(doc, ChangeScope(), [](WayFernData &d) {
            CurrData *curr = d.currencies.append();
            curr->short_ = QStringLiteral("ISK");
            curr->factor = QStringLiteral("150.0");
        });
        checkStep(doc, ChangeScope(),
                  [](WayFernData &d) { d.currencies.remove(d.currencies.at(3)); });
        checkStep(doc, ChangeScope(), [](WayFernData &d) {
            d.basecurrency = QStringLiteral("USD");
            d.rebaseCurrencies();
            d.journeyname = QStringLiteral("Renamed");
            d.ctypes.append()->type = QStringLiteral("Ferry");
            d.qtypes.remove(d.qtypes.first());
            d.ttypes.first()->customs.append()->text = QStringLiteral("Stars");
        });
    }

    void bookedPlanComesBack()
    {
        WayFernData doc;
        smallJourney(doc, 30, 12);
        KtoData *line = doc.users.at(0)->addKto(-2);
        line->change = 300.0;
        refresh(doc);
        const Settlement settlement = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        const auto plan = settlement.fewestTransfers().transfers;
        QVERIFY(!plan.isEmpty());
        checkStep(doc, ChangeScope::everyAccount(), [&plan](WayFernData &d) {
            Settlement::book(d, plan, QStringLiteral("24.11.2026"));
        });
    }

    // Many steps of every kind in a row, then every one undone back to the start and redone
    // to the end: each state on the way has its bytes. With the index of the account lines
    // as the window keeps it, steps and undos also alternate at random.
    void longRunUndoneAndRedoneStateByState_data()
    {
        QTest::addColumn<bool>("indexed");
        QTest::newRow("lines found by walking") << false;
        QTest::newRow("lines found through the index") << true;
    }

    void longRunUndoneAndRedoneStateByState()
    {
        QFETCH(bool, indexed);
        AccountIndex index;
        for (quint32 seed : {21u, 22u, 23u}) {
            WayFernData doc;
            smallJourney(doc, 80, seed);
            QRandomGenerator random(seed);
            std::vector<QByteArray> states{journeyBytes(&doc)};
            std::vector<JourneyChange> steps;
            for (int n = 0; n < 60; ++n) {
                ChangeScope scope;
                std::function<void(WayFernData &)> act;
                const int kind = int(random.bounded(8));
                CostsData *cost = someCost(doc, random);
                const QString date = randomDate(random);
                switch (kind) {
                case 0: {
                    const int id = doc.nextCostId();
                    scope = ChangeScope::costs({id});
                    act = [id, date](WayFernData &d) {
                        CostsData *c = d.costs.append();
                        c->id = id;
                        c->date = date;
                        c->fval = QStringLiteral("10.00");
                        c->ctype = QStringLiteral("EUR");
                        d.recalcCosts();
                        share(d, c);
                    };
                    break;
                }
                case 1:
                    scope = ChangeScope::costs({cost->id});
                    act = [cost, date](WayFernData &) { cost->date = date; };
                    break;
                case 2:
                    scope = ChangeScope::costs({cost->id});
                    act = [cost](WayFernData &d) {
                        d.removeAllKto(cost->id);
                        d.costs.remove(cost);
                    };
                    break;
                case 3:
                    act = [date](WayFernData &d) {
                        TipData *tip = d.tips.append();
                        tip->date = date;
                        tip->name = date;
                    };
                    break;
                case 4:
                    scope = ChangeScope::lines(-2);
                    act = [](WayFernData &d) { d.users.at(0)->addKto(-2)->change = 5.0; };
                    break;
                case 5:
                    act = [date](WayFernData &d) { d.currencies.at(1)->factor = date.left(2); };
                    break;
                case 6:
                    scope = ChangeScope::costs({cost->id});
                    act = [cost](WayFernData &d) {
                        cost->fval = QStringLiteral("33.33");
                        d.recalcCosts();
                        d.removeAllKto(cost->id);
                        share(d, cost);
                    };
                    break;
                default:
                    scope = ChangeScope::everyAccount();
                    act = [](WayFernData &d) {
                        UserData *user = d.users.append();
                        user->short_ = QStringLiteral("X");
                    };
                    break;
                }
                auto snapshot = JourneyChange::capture(doc, scope, indexed ? &index : nullptr);
                act(doc);
                refresh(doc);
                JourneyChange change = JourneyChange::since(*snapshot, doc);
                if (change.isEmpty())
                    continue;
                steps.push_back(std::move(change));
                states.push_back(journeyBytes(&doc));
                // Now and then the step is taken back at once, and the next one starts there.
                if (indexed && random.bounded(4) == 0) {
                    steps.back().undo(doc);
                    refreshAfterStep(doc);
                    steps.pop_back();
                    states.pop_back();
                    QVERIFY2(journeyBytes(&doc) == states.back(), qPrintable(QString::number(n)));
                }
            }
            QVERIFY(steps.size() > 30);
            for (size_t i = steps.size(); i > 0; --i) {
                steps[i - 1].undo(doc);
                refreshAfterStep(doc);
                QVERIFY2(journeyBytes(&doc) == states[i - 1], qPrintable(QString::number(i)));
            }
            for (size_t i = 0; i < steps.size(); ++i) {
                steps[i].redo(doc);
                refreshAfterStep(doc);
                QVERIFY2(journeyBytes(&doc) == states[i + 1], qPrintable(QString::number(i)));
            }
        }
    }

    void stepHoldsWhatChangedNotTheJourney()
    {
        WayFernData doc;
        smallJourney(doc, 5000, 30);
        CostsData *cost = doc.costs.at(doc.costs.count() - 3);
        auto snapshot = JourneyChange::capture(doc, ChangeScope::costs({cost->id}));
        cost->comment = QStringLiteral("changed");
        const JourneyChange change = JourneyChange::since(*snapshot, doc);
        // Two copies of one cost and of its four account lines, and a few flags; the
        // journey itself is over a megabyte.
        QVERIFY2(change.bytes() < 8000, qPrintable(QString::number(change.bytes())));
    }
};

QTEST_GUILESS_MAIN(TestJourneyChange)
#include "tst_journeychange.moc"
