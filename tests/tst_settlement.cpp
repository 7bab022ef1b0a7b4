// Settling up: who pays whom, in whole cents, from the travellers' accounts and the kitty.

#include "data/wayferndata.h"
#include "settle/settlement.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

using Party = Settlement::Party;
using Transfer = Settlement::Transfer;

UserData *addTraveller(WayFernData &doc, const QString &name)
{
    UserData *user = doc.users.append();
    user->short_ = name;
    return user;
}

void addLine(UserData *user, int magic, const char *type, double change)
{
    KtoData *line = user->addKto(magic);
    line->type = QString::fromLatin1(type);
    line->change = change;
}

// A cost of `value` shared evenly (in cents, the rest unbooked) by all travellers.
void shareCost(WayFernData &doc, double value)
{
    CostsData *cost = doc.costs.append();
    cost->id = doc.nextCostId();
    cost->bvalue = value;
    cost->shared = true;
    const qint64 each = Settlement::toCents(value) / doc.users.count();
    for (UserData *user : doc.users)
        addLine(user, cost->id, "share", -double(each) / 100.0);
}

// The balances after the plan has been carried out, by name.
QMap<QString, qint64> afterPlan(const Settlement &s, const QList<Transfer> &plan)
{
    QMap<QString, qint64> balance;
    for (const Party &p : s.parties())
        balance[p.name] += p.cents;
    for (const Transfer &t : plan) {
        balance[t.fromName] += t.cents;
        balance[t.toName] -= t.cents;
    }
    return balance;
}

QStringList planLines(const QList<Transfer> &plan)
{
    QStringList lines;
    for (const Transfer &t : plan)
        lines << Settlement::transferText(t, QStringLiteral("EUR"));
    return lines;
}

int partiesOwingOrOwed(const Settlement &s)
{
    return int(std::count_if(s.parties().cbegin(), s.parties().cend(),
                             [](const Party &p) { return p.cents != 0; }));
}

// The fewest transfers that settle `cents` (summing to zero), by trying every way for the
// first party owing or owed to settle with one of the other side.
int fewestByTrying(std::vector<qint64> &cents, size_t first = 0)
{
    while (first < cents.size() && cents[first] == 0)
        ++first;
    if (first == cents.size())
        return 0;
    int best = std::numeric_limits<int>::max();
    for (size_t other = first + 1; other < cents.size(); ++other) {
        if ((cents[other] > 0) == (cents[first] > 0) || cents[other] == 0)
            continue;
        cents[other] += cents[first];
        best = std::min(best, 1 + fewestByTrying(cents, first + 1));
        cents[other] -= cents[first];
    }
    return best;
}

// Largest debtor pays largest creditor until nobody owes anything: how many transfers.
int transfersLargestFirst(QList<qint64> cents)
{
    int transfers = 0;
    for (;;) {
        const auto debtor = std::min_element(cents.begin(), cents.end());
        const auto creditor = std::max_element(cents.begin(), cents.end());
        if (*debtor == 0)
            return transfers;
        const qint64 amount = std::min(-*debtor, *creditor);
        *debtor += amount;
        *creditor -= amount;
        ++transfers;
    }
}

// A random journey's travellers whose balances fall into `groups` that each settle among
// themselves, `parties` in all. With `kittyInAGroup`, the last of them is left out, so that
// the kitty takes its place.
QList<Party> plantedGroups(QRandomGenerator &random, int parties, int *groups, bool kittyInAGroup)
{
    QList<qint64> cents;
    *groups = 0;
    while (cents.count() < parties) {
        const int left = parties - int(cents.count());
        int size = 2 + int(random.bounded(4));
        if (size > left || left - size == 1)
            size = left;
        // Round amounts now and then, so that more than the planted groups may settle.
        const bool round = random.bounded(3) == 0;
        QList<qint64> group;
        qint64 sum = 0;
        do {
            group.clear();
            sum = 0;
            for (int i = 0; i < size - 1; ++i) {
                qint64 amount = 1 + qint64(random.bounded(round ? 6 : 20000));
                if (round)
                    amount *= 500;
                if (random.bounded(2) == 0)
                    amount = -amount;
                group << amount;
                sum += amount;
            }
        } while (sum == 0);
        group << -sum;
        cents << group;
        ++*groups;
    }
    // Names in an order unrelated to the groups.
    QStringList names;
    for (int i = 0; i < parties; ++i)
        names << QStringLiteral("T%1").arg(i, 2, 10, QLatin1Char('0'));
    std::shuffle(names.begin(), names.end(), random);
    QList<Party> travellers;
    const int count = kittyInAGroup ? parties - 1 : parties;
    for (int i = 0; i < count; ++i)
        travellers.append(Party{i, names.at(i), cents.at(i)});
    return travellers;
}

} // namespace

class TestSettlement : public QObject
{
    Q_OBJECT

private slots:
    void threeTravellersAndAKittyHoldingMoney()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        addLine(ann, -2, "deposit", 100.0);
        addLine(bob, -2, "deposit", 50.0);
        addLine(cid, -2, "deposit", 20.0);
        shareCost(doc, 90.0); // 30.00 each
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));

        QCOMPARE(s.parties().count(), 4);
        QCOMPARE(s.parties().at(0).cents, 7000);
        QCOMPARE(s.parties().at(1).cents, 2000);
        QCOMPARE(s.parties().at(2).cents, -1000);
        // The purse holds 170 - 90 = 80.00 that belongs to the travellers.
        QCOMPARE(s.kittyCents(), -8000);
        QCOMPARE(s.parties().last().name, QStringLiteral("kitty"));
        QCOMPARE(s.unbookedCents(), 0);

        QCOMPARE(planLines(s.fewestTransfers().transfers),
                 QStringList({"kitty pays AN 70.00 EUR", "CI pays BO 10.00 EUR",
                              "kitty pays BO 10.00 EUR"}));
        QCOMPARE(planLines(s.settleWith(1)),
                 QStringList(
                     {"BO pays AN 70.00 EUR", "CI pays BO 10.00 EUR", "kitty pays BO 80.00 EUR"}));
    }

    void aKittyThatLacksMoneyCollectsIt()
    {
        const Settlement s = Settlement::fromBalances(
            {Party{0, QStringLiteral("AN"), -1500}, Party{1, QStringLiteral("BO"), 500}},
            QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), 1000);
        QCOMPARE(planLines(s.fewestTransfers().transfers),
                 QStringList({"AN pays kitty 10.00 EUR", "AN pays BO 5.00 EUR"}));
    }

    void aJourneyWithOneTravellerSettlesWithTheKittyOnly()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        addLine(ann, -2, "deposit", 40.0);
        shareCost(doc, 25.5);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(planLines(s.fewestTransfers().transfers),
                 QStringList({"kitty pays AN 14.50 EUR"}));
        QCOMPARE(planLines(s.settleWith(0)), QStringList({"kitty pays AN 14.50 EUR"}));
    }

    void aJourneyWithoutSharedCostsSettlesTheDepositsAndPayOffs()
    {
        WayFernData doc;
        addLine(addTraveller(doc, QStringLiteral("AN")), -2, "deposit", 30.0);
        addLine(addTraveller(doc, QStringLiteral("BO")), -3, "pay off", -30.0);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), 0);
        QCOMPARE(s.unbookedCents(), 0);
        QCOMPARE(planLines(s.fewestTransfers().transfers), QStringList({"BO pays AN 30.00 EUR"}));
    }

    void balancesOfAFewCentsAreSettledToTheCent()
    {
        const Settlement s = Settlement::fromBalances({Party{0, QStringLiteral("AN"), 1},
                                                       Party{1, QStringLiteral("BO"), -2},
                                                       Party{2, QStringLiteral("CI"), 1}},
                                                      QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), 0);
        // Equal creditors: the smaller name is paid first.
        QCOMPARE(planLines(s.fewestTransfers().transfers),
                 QStringList({"BO pays AN 0.01 EUR", "BO pays CI 0.01 EUR"}));
    }

    void everybodySettledLeavesNoPlan()
    {
        WayFernData doc;
        addTraveller(doc, QStringLiteral("AN"));
        addTraveller(doc, QStringLiteral("BO"));
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QVERIFY(s.fewestTransfers().transfers.isEmpty());
        QVERIFY(s.settleWith(0).isEmpty());
        QVERIFY(Settlement::fromJourney(WayFernData(), QStringLiteral("kitty"))
                    .fewestTransfers()
                    .transfers.isEmpty());
    }

    void theCentsAnEvenDivisionLeftAreShownApart()
    {
        WayFernData doc;
        for (const char *name : {"AN", "BO", "CI"})
            addTraveller(doc, QString::fromLatin1(name));
        shareCost(doc, 100.0); // 33.33 each: 99.99 booked
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(s.unbookedCents(), 1);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(s.parties().at(i).cents, -3333);
        // The kitty paid 100.00 but the balances only owe it 99.99: the cent is not hidden
        // in anybody's balance.
        QCOMPARE(s.kittyCents(), 9999);
    }

    void aCostThatIsNotSharedBooksNothingAndLeavesNothingUnbooked()
    {
        WayFernData doc;
        addTraveller(doc, QStringLiteral("AN"));
        CostsData *cost = doc.costs.append();
        cost->id = 0;
        cost->bvalue = 12.34;
        QCOMPARE(Settlement::fromJourney(doc, QStringLiteral("kitty")).unbookedCents(), 0);
    }

    void sharesAreFoundByCostIdsCloseTogetherOrFarApart()
    {
        for (const int farId : {9, 2000000000}) {
            WayFernData doc;
            UserData *ann = addTraveller(doc, QStringLiteral("AN"));
            UserData *bob = addTraveller(doc, QStringLiteral("BO"));
            for (const int id : {3, farId}) {
                CostsData *cost = doc.costs.append();
                cost->id = id;
                cost->bvalue = 10.0;
                addLine(ann, id, "share", -4.0);
            }
            // A second line for the same cost: the later one counts, as lookups find it.
            addLine(ann, farId, "share", -5.0);
            addLine(bob, farId, "share", -5.0);
            const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
            // Cost 3 booked 4.00 of 10.00, the far one 5.00 + 5.00 of 10.00.
            QCOMPARE(s.unbookedCents(), 600);
        }
    }

    void centsAreWrittenWithTwoDecimalsAndTheirSign()
    {
        QCOMPARE(Settlement::centsText(1230), QStringLiteral("12.30"));
        QCOMPARE(Settlement::centsText(-5), QStringLiteral("-0.05"));
        QCOMPARE(Settlement::centsText(0), QStringLiteral("0.00"));
        QCOMPARE(Settlement::toCents(-33.3333), -3333);
        QCOMPARE(Settlement::toCents(0.105 + 1e-9), 11);
    }

    void randomJourneysGetPlansThatAddUpAreShortAndStable()
    {
        QRandomGenerator random(20261123);
        for (int round = 0; round < 300; ++round) {
            const int count = 1 + int(random.bounded(30));
            QList<Party> travellers;
            for (int i = 0; i < count; ++i) {
                // Some equal amounts and names, so that ties are exercised.
                const qint64 cents = qint64(random.bounded(4001)) - 2000;
                travellers.append(Party{i, QStringLiteral("T%1").arg(random.bounded(count * 2)),
                                        random.bounded(4) == 0 ? (cents / 500) * 500 : cents});
            }
            const Settlement s = Settlement::fromBalances(travellers, QStringLiteral("kitty"));

            qint64 sum = 0;
            for (const Party &p : s.parties())
                sum += p.cents;
            QCOMPARE(sum, 0);

            const QList<Transfer> plan = s.fewestTransfers().transfers;
            for (qint64 left : afterPlan(s, plan))
                QCOMPARE(left, 0);
            for (const Transfer &t : plan)
                QVERIFY(t.cents > 0);
            QVERIFY(plan.count() <= std::max(0, partiesOwingOrOwed(s) - 1));
            if (s.kittyCents() == 0)
                QVERIFY(plan.count() <= count - 1);

            const int hub = int(random.bounded(count));
            for (qint64 left : afterPlan(s, s.settleWith(hub)))
                QCOMPARE(left, 0);

            // The same travellers in another order give the same plan, when names differ.
            QSet<QString> names;
            for (const Party &p : travellers)
                names.insert(p.name);
            if (names.count() == travellers.count()) {
                QList<Party> shuffled = travellers;
                std::shuffle(shuffled.begin(), shuffled.end(), random);
                const Settlement again =
                    Settlement::fromBalances(shuffled, QStringLiteral("kitty"));
                QCOMPARE(planLines(again.fewestTransfers().transfers), planLines(plan));
            }
        }
    }

    void groupsThatSettleAmongThemselvesAreSettledApart()
    {
        // AN and BO settle between them; CI, DO and the kitty too. Letting the largest
        // debtor pay the largest creditor across the groups takes one transfer more.
        const Settlement s = Settlement::fromBalances(
            {Party{0, QStringLiteral("AN"), 800}, Party{1, QStringLiteral("BO"), -800},
             Party{2, QStringLiteral("CI"), -500}, Party{3, QStringLiteral("DO"), -700}},
            QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), 1200);
        QCOMPARE(transfersLargestFirst({800, -800, -500, -700, 1200}), 4);
        const Settlement::Plan plan = s.fewestTransfers();
        QVERIFY(plan.provenFewest);
        QCOMPARE(planLines(plan.transfers),
                 QStringList(
                     {"BO pays AN 8.00 EUR", "DO pays kitty 7.00 EUR", "CI pays kitty 5.00 EUR"}));
        std::vector<qint64> cents{800, -800, -500, -700, 1200};
        QCOMPARE(fewestByTrying(cents), 3);
    }

    void pairsThatCancelOutPayEachOtherDirectly()
    {
        // Two pairs that cancel out, and a group of three with the kitty.
        const Settlement s = Settlement::fromBalances(
            {Party{0, QStringLiteral("AN"), 1000}, Party{1, QStringLiteral("BO"), 600},
             Party{2, QStringLiteral("CI"), -1000}, Party{3, QStringLiteral("DO"), -600},
             Party{4, QStringLiteral("EV"), 250}, Party{5, QStringLiteral("FI"), 150}},
            QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), -400);
        const Settlement::Plan plan = s.fewestTransfers();
        QVERIFY(plan.provenFewest);
        QCOMPARE(planLines(plan.transfers),
                 QStringList({"CI pays AN 10.00 EUR", "DO pays BO 6.00 EUR",
                              "kitty pays EV 2.50 EUR", "kitty pays FI 1.50 EUR"}));
    }

    void randomGroupJourneysGetTheFewestTransfersWhateverTheOrder()
    {
        QRandomGenerator random(20261124);
        int tried = 0;
        for (int round = 0; round < 400; ++round) {
            const int parties = 2 + int(random.bounded(19)); // 2 to 20
            const bool kittyInAGroup = random.bounded(2) == 0;
            int groups = 0;
            const QList<Party> travellers = plantedGroups(random, parties, &groups, kittyInAGroup);
            const Settlement s = Settlement::fromBalances(travellers, QStringLiteral("kitty"));
            QCOMPARE(partiesOwingOrOwed(s), parties);
            QCOMPARE(s.kittyCents() != 0, kittyInAGroup);

            const Settlement::Plan plan = s.fewestTransfers();
            QVERIFY(plan.provenFewest);
            for (qint64 left : afterPlan(s, plan.transfers))
                QCOMPARE(left, 0);
            for (const Transfer &t : plan.transfers) {
                QVERIFY(t.cents > 0);
                QVERIFY(t.fromName != t.toName);
            }
            // The planted groups settle apart: at most one transfer less than each has
            // members. More groups may settle by chance.
            QVERIFY2(plan.transfers.count() <= parties - groups,
                     qPrintable(QStringLiteral("%1 parties in %2 groups: %3 transfers")
                                    .arg(parties)
                                    .arg(groups)
                                    .arg(plan.transfers.count())));
            if (parties <= 9) {
                std::vector<qint64> cents;
                for (const Party &p : s.parties())
                    if (p.cents != 0)
                        cents.push_back(p.cents);
                QCOMPARE(int(plan.transfers.count()), fewestByTrying(cents));
                ++tried;
            }

            for (int again = 0; again < 3; ++again) {
                QList<Party> shuffled = travellers;
                std::shuffle(shuffled.begin(), shuffled.end(), random);
                for (int i = 0; i < shuffled.count(); ++i)
                    shuffled[i].user = i;
                const Settlement other =
                    Settlement::fromBalances(shuffled, QStringLiteral("kitty"));
                QCOMPARE(planLines(other.fewestTransfers().transfers), planLines(plan.transfers));
            }
        }
        QVERIFY(tried > 100);
    }

    void twentyPartiesAreProvenFewestAndMoreAreNot()
    {
        QRandomGenerator random(7);
        for (const int parties : {20, 21, 30}) {
            int groups = 0;
            const QList<Party> travellers = plantedGroups(random, parties, &groups, true);
            const Settlement s = Settlement::fromBalances(travellers, QStringLiteral("kitty"));
            QCOMPARE(partiesOwingOrOwed(s), parties);
            const Settlement::Plan plan = s.fewestTransfers();
            QCOMPARE(plan.provenFewest, parties <= Settlement::MaxProvenParties);
            for (qint64 left : afterPlan(s, plan.transfers))
                QCOMPARE(left, 0);
            QVERIFY(plan.transfers.count() <= parties - 1);
            if (plan.provenFewest)
                QVERIFY(plan.transfers.count() <= parties - groups);
        }
    }

    void bookingTwoTransfersToOneTravellerBooksBothAsPayOffs()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        UserData *dan = addTraveller(doc, QStringLiteral("DO"));
        UserData *eve = addTraveller(doc, QStringLiteral("EV"));
        addLine(ann, -2, "deposit", 12.0);
        addLine(bob, -3, "pay off", -5.0);
        addLine(cid, -3, "pay off", -7.0);
        addLine(dan, -2, "deposit", 8.0);
        addLine(eve, -3, "pay off", -8.0);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        QCOMPARE(s.kittyCents(), 0);
        const QList<Transfer> plan = s.fewestTransfers().transfers;
        QCOMPARE(
            planLines(plan),
            QStringList({"EV pays DO 8.00 EUR", "CI pays AN 7.00 EUR", "BO pays AN 5.00 EUR"}));

        Settlement::book(doc, plan, QStringLiteral("24.11.2026"));

        // AN receives twice: a pay-off of 7.00, then one of 5.00 that leaves him at zero.
        QCOMPARE(ann->kto.count(), 3);
        for (int i = 1; i < 3; ++i) {
            const KtoData *line = ann->kto.at(i);
            QCOMPARE(line->magic, -3);
            QCOMPARE(line->type, QStringLiteral("pay off"));
            QCOMPARE(line->date, QStringLiteral("24.11.2026"));
            QCOMPARE(line->percentage, 100.0);
        }
        QCOMPARE(ann->kto.at(1)->change, -7.0);
        QCOMPARE(ann->kto.at(2)->change, -5.0);
        const struct
        {
            UserData *user;
            int magic;
            const char *type;
            double change;
        } single[] = {{bob, -2, "deposit", 5.0},
                      {cid, -2, "deposit", 7.0},
                      {dan, -3, "pay off", -8.0},
                      {eve, -2, "deposit", 8.0}};
        for (const auto &expected : single) {
            QCOMPARE(expected.user->kto.count(), 2);
            const KtoData *line = expected.user->kto.last();
            QCOMPARE(line->magic, expected.magic);
            QCOMPARE(line->type, QString::fromLatin1(expected.type));
            QCOMPARE(line->change, expected.change);
            QCOMPARE(line->date, QStringLiteral("24.11.2026"));
        }
        for (const UserData *user : doc.users)
            QCOMPARE(user->value, 0.0);
    }

    void bookingThePlanLeavesEveryBalanceAtZero()
    {
        WayFernData doc;
        UserData *ann = addTraveller(doc, QStringLiteral("AN"));
        UserData *bob = addTraveller(doc, QStringLiteral("BO"));
        UserData *cid = addTraveller(doc, QStringLiteral("CI"));
        addLine(ann, -2, "deposit", 100.0);
        shareCost(doc, 100.0);
        addLine(bob, 7, "share", -0.3333); // a fraction of a cent, as a hand-edited share
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        const QList<Transfer> plan = s.fewestTransfers().transfers;
        QVERIFY(!plan.isEmpty());
        const int linesBefore = ann->kto.count() + bob->kto.count() + cid->kto.count();

        Settlement::book(doc, plan, QStringLiteral("23.11.2026"));

        QVERIFY(doc.isModified());
        for (const UserData *user : doc.users)
            QCOMPARE(user->value, 0.0);
        int travellerLines = 0;
        for (const Transfer &t : plan)
            travellerLines += (t.from != Settlement::Kitty) + (t.to != Settlement::Kitty);
        QCOMPARE(ann->kto.count() + bob->kto.count() + cid->kto.count(),
                 linesBefore + travellerLines);
        const KtoData *last = bob->kto.last();
        QCOMPARE(last->date, QStringLiteral("23.11.2026"));
        QCOMPARE(last->percentage, 100.0);
        QVERIFY(
            (last->magic == -2 && last->type == QLatin1String("deposit") && last->change > 0)
            || (last->magic == -3 && last->type == QLatin1String("pay off") && last->change < 0));
        QVERIFY(Settlement::fromJourney(doc, QStringLiteral("kitty"))
                    .fewestTransfers()
                    .transfers.isEmpty());
    }

    void bookingAPaymentToAnotherTravellerIsADepositAndAPayOff()
    {
        WayFernData doc;
        addLine(addTraveller(doc, QStringLiteral("AN")), -2, "deposit", 30.0);
        addLine(addTraveller(doc, QStringLiteral("BO")), -3, "pay off", -30.0);
        const Settlement s = Settlement::fromJourney(doc, QStringLiteral("kitty"));
        Settlement::book(doc, s.fewestTransfers().transfers, QStringLiteral("01.02.2003"));
        const KtoData *paid = doc.users.at(1)->kto.last();
        const KtoData *received = doc.users.at(0)->kto.last();
        QCOMPARE(paid->magic, -2);
        QCOMPARE(paid->type, QStringLiteral("deposit"));
        QCOMPARE(paid->change, 30.0);
        QCOMPARE(received->magic, -3);
        QCOMPARE(received->type, QStringLiteral("pay off"));
        QCOMPARE(received->change, -30.0);
    }
};

QTEST_GUILESS_MAIN(TestSettlement)
#include "tst_settlement.moc"
