// Dividing an amount among the sharers of a cost in whole cents, and what a leaving
// traveller takes with him.

#include "data/wayferndata.h"
#include "settle/costshares.h"
#include "settle/settlement.h"
#include "settle/sharedivision.h"
#include "settle/travellerleave.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

using Parts = QList<qint64>;

UserData *addTraveller(WayFernData &doc, const QString &name)
{
    UserData *user = doc.users.append();
    user->short_ = name;
    return user;
}

KtoData *addLine(UserData *user, int magic, const char *type, double change)
{
    KtoData *line = user->addKto(magic);
    line->type = QString::fromLatin1(type);
    line->change = change;
    return line;
}

CostsData *addCost(WayFernData &doc, const char *date, const char *letter, double value)
{
    CostsData *cost = doc.costs.append();
    cost->id = doc.nextCostId();
    cost->date = QString::fromLatin1(date);
    cost->typeletter = QString::fromLatin1(letter);
    cost->bvalue = value;
    cost->bval = QString::asprintf("%.2f", value);
    cost->shared = true;
    return cost;
}

CurrData *addCurrency(WayFernData &doc, const char *name, const char *factor)
{
    CurrData *currency = doc.currencies.append();
    currency->short_ = QString::fromLatin1(name);
    currency->factor = QString::fromLatin1(factor);
    return currency;
}

// A cost of `amount` in `currency`, its base value computed at the rates of now.
CostsData *addForeignCost(WayFernData &doc, const char *amount, const char *currency)
{
    CostsData *cost = addCost(doc, "12.06.2002", "F", 0.0);
    cost->fval = QString::fromLatin1(amount);
    cost->ctype = QString::fromLatin1(currency);
    doc.recalcFactors();
    doc.recalcCosts();
    return cost;
}

} // namespace

class TestShareDivision : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }

    void hundredAmongThreeGivesTheOddCentToTheFirst()
    {
        QCOMPARE(ShareDivision::evenly(10000, 3), (Parts{3334, 3333, 3333}));
        QCOMPARE(ShareDivision::evenly(9263, 3), (Parts{3088, 3088, 3087}));
        QCOMPARE(ShareDivision::evenly(7540, 3), (Parts{2514, 2513, 2513}));
        QCOMPARE(ShareDivision::evenly(2, 3), (Parts{1, 1, 0}));
    }

    void aRefundIsDividedAsItsSizeAndNegated()
    {
        QCOMPARE(ShareDivision::evenly(-10000, 3), (Parts{-3334, -3333, -3333}));
        QCOMPARE(ShareDivision::byWeights(-1000, {1, 3}), (Parts{-250, -750}));
    }

    void nothingDividedGivesZerosAndNobodyGivesAnEmptyList()
    {
        QCOMPARE(ShareDivision::evenly(0, 3), (Parts{0, 0, 0}));
        QCOMPARE(ShareDivision::evenly(500, 0), Parts());
        QCOMPARE(ShareDivision::byWeights(500, {0, 0}), (Parts{0, 0}));
    }

    void aSharerOfWeightZeroGetsNoCent()
    {
        QCOMPARE(ShareDivision::byWeights(10001, {1, 0, 1, 0}), (Parts{5001, 0, 5000, 0}));
        QCOMPARE(ShareDivision::byWeights(1, {0, 0, 5}), (Parts{0, 0, 1}));
    }

    void weightsKeepTheirProportionWithTheLargestRemainderFirst()
    {
        // 100.00 as 50 : 25 : 25 becomes 120.00 as 60 : 30 : 30.
        QCOMPARE(ShareDivision::byWeights(12000, {5000, 2500, 2500}), (Parts{6000, 3000, 3000}));
        // 10.00 as 1 : 2 : 3 is 1.666.., 3.333.., 5.0: the larger remainder takes the cent.
        QCOMPARE(ShareDivision::byWeights(1000, {1, 2, 3}), (Parts{167, 333, 500}));
    }

    void hugeAmountsAndWeightsDoNotOverflow()
    {
        const qint64 big = Q_INT64_C(4000000000000000000);
        const Parts parts = ShareDivision::byWeights(big, {big, big, big});
        QCOMPARE(ShareDivision::sum(parts), big);
        QVERIFY(parts.at(0) - parts.at(2) <= 1);
    }

    void randomAmountsAmongOneToThirtyAddUpExactlyAndDifferByAtMostACent()
    {
        QRandomGenerator random(20261124);
        for (int round = 0; round < 20000; ++round) {
            const int n = 1 + int(random.bounded(30));
            qint64 cents = qint64(random.bounded(100000000));
            if (random.bounded(4) == 0)
                cents = -cents;
            const Parts parts = ShareDivision::evenly(cents, n);
            QCOMPARE(parts.size(), n);
            QCOMPARE(ShareDivision::sum(parts), cents);
            const auto [low, high] = std::minmax_element(parts.cbegin(), parts.cend());
            QVERIFY2(*high - *low <= 1, qPrintable(QString::number(cents)));
            // The odd cents sit in front: the parts never grow along the list.
            for (int i = 1; i < n; ++i)
                QVERIFY(std::llabs(parts.at(i)) <= std::llabs(parts.at(i - 1)));
        }
    }

    void randomWeightedDivisionsAddUpExactlyAndStayNearTheirProportion()
    {
        QRandomGenerator random(4711);
        for (int round = 0; round < 20000; ++round) {
            const int n = 1 + int(random.bounded(30));
            Parts weights;
            qint64 total = 0;
            for (int i = 0; i < n; ++i) {
                const qint64 w = random.bounded(3) == 0 ? 0 : qint64(random.bounded(100000));
                weights << w;
                total += w;
            }
            qint64 cents = qint64(random.bounded(100000000));
            if (random.bounded(4) == 0)
                cents = -cents;
            const Parts parts = ShareDivision::byWeights(cents, weights);
            QCOMPARE(parts.size(), n);
            if (total == 0) {
                QCOMPARE(parts, Parts(n, 0));
                continue;
            }
            QCOMPARE(ShareDivision::sum(parts), cents);
            for (int i = 0; i < n; ++i) {
                const double exact = double(cents) * double(weights.at(i)) / double(total);
                QVERIFY(std::fabs(double(parts.at(i)) - exact) < 1.0);
                if (weights.at(i) == 0)
                    QCOMPARE(parts.at(i), 0);
            }
        }
    }

    void sharesOfAnEvenDivisionStayEvenForANewAmount()
    {
        // 92.63 shared evenly, then the cost becomes 100.00.
        const Parts weights = ShareDivision::proportionsOf({3088, 3088, 3087});
        QCOMPARE(weights, (Parts{1, 1, 1}));
        QCOMPARE(ShareDivision::byWeights(10000, weights), (Parts{3334, 3333, 3333}));
        // An old even division that left a cent unbooked counts as even too.
        QCOMPARE(ShareDivision::proportionsOf({-2333, 0, -2333, -2333}), (Parts{1, 0, 1, 1}));
    }

    void sharesEditedByHandKeepTheirProportion()
    {
        QCOMPARE(ShareDivision::proportionsOf({5000, 2500, 2500}), (Parts{5000, 2500, 2500}));
        QCOMPARE(ShareDivision::proportionsOf({0, 0}), (Parts{0, 0}));
    }

    void sharersOfANothingShareAlikeWhenTheAmountComes()
    {
        // Ticked rows of a 0.00 cost book a negated zero; an unticked row a plain zero.
        const Parts weights = ShareDivision::proportionsOfChanges({-0.0, 0.0, -0.0});
        QCOMPARE(weights, (Parts{1, 0, 1}));
        QCOMPARE(ShareDivision::byWeights(3001, weights), (Parts{1501, 0, 1500}));
        QCOMPARE(ShareDivision::proportionsOfChanges({0.0, 0.0}), (Parts{0, 0}));
    }

    void changesAreMinusTheShareAndANothingShareIsANegatedZero()
    {
        QCOMPARE(ShareDivision::shareOfChange(-25.14), 2514);
        QCOMPARE(ShareDivision::shareOfChange(10.0), -1000);
        QCOMPARE(ShareDivision::changeOfShare(2514), -25.14);
        QVERIFY(std::signbit(ShareDivision::changeOfShare(0)));
        char text[16];
        std::snprintf(text, sizeof text, "%.2f", ShareDivision::changeOfShare(0));
        QCOMPARE(QByteArray(text), QByteArray("-0.00"));
    }

    void percentagesAreThePartOfEachShare()
    {
        const QList<double> p =
            ShareDivision::percentages({3334, 3333, 3333, 0}, 10000, {1, 1, 1, 0});
        QCOMPARE(QString::asprintf("%.1f %.1f %.1f %.1f", p[0], p[1], p[2], p[3]),
                 QStringLiteral("33.3 33.3 33.3 0.0"));
        // Of nothing, the proportion of the weights.
        const QList<double> z = ShareDivision::percentages({0, 0}, 0, {1, 1});
        QCOMPARE(QString::asprintf("%.1f %.1f", z[0], z[1]), QStringLiteral("50.0 50.0"));
    }

    void aLeavingTravellerNamesBalanceCashAndSharedCosts()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        const CostsData *hotel = addCost(doc, "12.06.2002", "H", 100.0);
        const CostsData *bus = addCost(doc, "13.06.2002", "T", 30.0);
        const CostsData *food = addCost(doc, "14.06.2002", "F", 20.0);
        for (UserData *u : {ann, bob, cid})
            addLine(u, hotel->id, "share", ShareDivision::changeOfShare(u == ann ? 3334 : 3333));
        addLine(ann, bus->id, "share", -15.0);
        addLine(bob, bus->id, "share", 0.0);
        addLine(cid, bus->id, "share", -15.0);
        addLine(ann, food->id, "share", 0.0); // no part of it
        addLine(bob, food->id, "share", -20.0);
        addLine(cid, food->id, "share", 0.0);
        addLine(cid, -2, "deposit", 200.0);
        addLine(cid, -2, "deposit", 50.0);
        addLine(cid, -3, "pay off", -40.0);

        const TravellerLeave leave = TravellerLeave::of(doc, cid);
        QVERIFY(leave.hasLines);
        QCOMPARE(leave.balanceCents, 25000 - 4000 - 3333 - 1500);
        QCOMPARE(leave.deposits, 2);
        QCOMPARE(leave.depositCents, 25000);
        QCOMPARE(leave.payOffs, 1);
        QCOMPARE(leave.payOffCents, 4000);
        QCOMPARE(leave.costs.size(), 2);
        QCOMPARE(leave.costs.at(0).cost, hotel);
        QCOMPARE(leave.costs.at(0).shareCents, 3333);
        QCOMPARE(leave.costs.at(1).cost, bus);
        QCOMPARE(leave.costs.at(1).valueCents, 3000);

        TravellerLeave::remove(doc, cid);
        QCOMPARE(doc.users.count(), 2);
        QVERIFY(doc.isModified());
        // The hotel stays even between the two; the bus goes to Ann, the only other sharer;
        // Bob, who had no part of it, keeps none.
        QCOMPARE(ann->findKto(hotel->id)->change, -50.0);
        QCOMPARE(bob->findKto(hotel->id)->change, -50.0);
        QCOMPARE(ann->findKto(hotel->id)->percentage, 50.0);
        QCOMPARE(ann->findKto(bus->id)->change, -30.0);
        QCOMPARE(bob->findKto(bus->id)->change, 0.0);
        QCOMPARE(bob->findKto(food->id)->change, -20.0);
        QCOMPARE(ann->value, -80.0);
        QCOMPARE(bob->value, -70.0);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(s.unbookedCents(), 0);
        QVERIFY(s.openCosts().isEmpty());
    }

    void aTravellerWithoutLinesLeavesNothingAndACostHeBoreAloneGoesToTheOthersAlike()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        QVERIFY(!TravellerLeave::of(doc, cid).hasLines);
        const CostsData *taxi = addCost(doc, "12.06.2002", "T", 10.01);
        addLine(ann, taxi->id, "share", 0.0);
        addLine(bob, taxi->id, "share", 0.0);
        addLine(cid, taxi->id, "share", -10.01);
        TravellerLeave::remove(doc, cid);
        QCOMPARE(ann->findKto(taxi->id)->change, -5.01);
        QCOMPARE(bob->findKto(taxi->id)->change, -5.0);
    }

    void newRatesDivideTheSharesOfTheirCostsAnewInTheSameProportions()
    {
        WayFernData doc;
        addCurrency(doc, "EUR", "1.0");
        CurrData *chf = addCurrency(doc, "CHF", "1.5");
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        // 150 CHF = 100.00 among three; 90 CHF = 60.00 as 2 : 1; 30 EUR among two.
        CostsData *even = addForeignCost(doc, "150", "CHF");
        CostsData *uneven = addForeignCost(doc, "90", "CHF");
        CostsData *euros = addForeignCost(doc, "30", "EUR");
        QCOMPARE(even->bval, QStringLiteral("100.00"));
        for (UserData *user : {ann, bob, cid})
            addLine(user, even->id, "share", user == ann ? -33.34 : -33.33);
        addLine(ann, uneven->id, "share", -40.0);
        addLine(bob, uneven->id, "share", -20.0);
        addLine(ann, euros->id, "share", -15.0);
        addLine(bob, euros->id, "share", -15.0);
        KtoData *deposit = addLine(cid, 9000, "deposit", 50.0);
        // Shares that do not add up to a cost whose value stays are left as they are.
        CostsData *odd = addForeignCost(doc, "10", "EUR");
        addLine(bob, odd->id, "share", -10.01);
        const QString rowBefore = even->bval;

        const CostShares::BaseCents before = CostShares::baseCents(doc);
        chf->factor = QStringLiteral("2.0");
        QCOMPARE(CostShares::followBaseValues(doc, before), 2);
        // 75.00 among three alike, 45.00 as 2 : 1; the euros and the deposit stay.
        QCOMPARE(ann->findKto(even->id)->change, -25.0);
        QCOMPARE(bob->findKto(even->id)->change, -25.0);
        QCOMPARE(cid->findKto(even->id)->change, -25.0);
        QCOMPARE(ann->findKto(uneven->id)->change, -30.0);
        QCOMPARE(bob->findKto(uneven->id)->change, -15.0);
        QCOMPARE(qRound(ann->findKto(uneven->id)->percentage * 100), 6667);
        QCOMPARE(ann->findKto(euros->id)->change, -15.0);
        QCOMPARE(deposit->change, 50.0);
        QCOMPARE(bob->findKto(odd->id)->change, -10.01);
        QCOMPARE(ann->value, -25.0 - 30.0 - 15.0);
        QCOMPARE(cid->value, -25.0 + 50.0);
        // The lists show the stored base values until their next refresh, which gives
        // the values the shares now add up to.
        QCOMPARE(even->bval, rowBefore);
        doc.recalcCosts();
        QCOMPARE(even->bval, QStringLiteral("75.00"));
        QCOMPARE(Settlement::fromJourney(doc, QStringLiteral("kitty")).unbookedCents(), -1);
        // Nothing is divided twice.
        QCOMPARE(CostShares::followBaseValues(doc, CostShares::baseCents(doc)), 0);
    }

    void onlyEachTravellersLastLineOfACostIsItsShare()
    {
        WayFernData doc;
        addCurrency(doc, "EUR", "1.0");
        CurrData *chf = addCurrency(doc, "CHF", "1.0");
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        CostsData *cost = addForeignCost(doc, "10", "CHF");
        KtoData *stale = addLine(ann, cost->id, "share", -7.0);
        KtoData *share = addLine(ann, cost->id, "share", -5.0);
        addLine(bob, cost->id, "share", -5.0);
        const CostShares::BaseCents before = CostShares::baseCents(doc);
        chf->factor = QStringLiteral("0.5");
        QCOMPARE(CostShares::followBaseValues(doc, before), 1);
        QCOMPARE(share->change, -10.0);
        QCOMPARE(bob->findKto(cost->id)->change, -10.0);
        QCOMPARE(stale->change, -7.0);
    }

    void sharesThatDoNotAddUpAreNamedWithTheirCost()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        const CostsData *boat = addCost(doc, "12.06.2002", "H", 75.40);
        const CostsData *ok = addCost(doc, "13.06.2002", "F", 10.0);
        const CostsData *gift = addCost(doc, "14.06.2002", "", 3.0);
        addLine(ann, boat->id, "share", -35.0);
        addLine(bob, boat->id, "share", -35.0);
        addLine(ann, ok->id, "share", -5.0);
        addLine(bob, ok->id, "share", -5.0);
        addLine(ann, gift->id, "share", -4.0);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(s.unbookedCents(), 540 - 100);
        QCOMPARE(s.openCosts().size(), 2);
        QCOMPARE(Settlement::openCostText(s.openCosts().at(0)),
                 QStringLiteral("12.06.2002 H 75.40, shares 70.00"));
        QCOMPARE(Settlement::openCostText(s.openCosts().at(1)),
                 QStringLiteral("14.06.2002 3.00, shares 4.00"));
    }
};

QTEST_MAIN(TestShareDivision)
#include "tst_sharedivision.moc"
