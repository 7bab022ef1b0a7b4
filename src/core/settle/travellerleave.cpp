#include "settle/travellerleave.h"

#include "data/wayferndata.h"
#include "settle/settlement.h"
#include "settle/sharedivision.h"

#include <QHash>
#include <QSet>

namespace {

constexpr int DepositLine = -2;
constexpr int PayOffLine = -3;

// The costs by id; among equal ids the last in the list counts, as the lookups find it.
QHash<int, const CostsData *> costsById(const WayFernData &doc)
{
    QHash<int, const CostsData *> byId;
    for (const CostsData *cost : doc.costs)
        byId.insert(cost->id, cost);
    return byId;
}

// The base value as the cost list and the share dialog show it.
qint64 valueCents(const CostsData &cost)
{
    return cost.bval.isEmpty() ? Settlement::toCents(cost.bvalue)
                               : Settlement::toCents(cost.bval.toDouble());
}

} // namespace

TravellerLeave TravellerLeave::of(const WayFernData &doc, const UserData *user)
{
    TravellerLeave leave;
    if (!user)
        return leave;
    leave.hasLines = !user->kto.isEmpty();
    double balance = 0.0;
    QSet<int> sharedIds;
    for (const KtoData *line : user->kto) {
        balance += line->change;
        if (line->magic == DepositLine) {
            ++leave.deposits;
            leave.depositCents += Settlement::toCents(line->change);
        } else if (line->magic == PayOffLine) {
            ++leave.payOffs;
            leave.payOffCents -= Settlement::toCents(line->change);
        }
    }
    leave.balanceCents = Settlement::toCents(balance);
    // His share of a cost is his last line for it, as the share dialog finds it.
    for (const KtoData *line : user->kto) {
        if (line->magic < 0 || sharedIds.contains(line->magic))
            continue;
        const KtoData *last = user->findKto(line->magic);
        if (last && last->change != 0.0)
            sharedIds.insert(line->magic);
    }
    if (sharedIds.isEmpty())
        return leave;
    const QHash<int, const CostsData *> byId = costsById(doc);
    for (const CostsData *cost : doc.costs) {
        if (!sharedIds.contains(cost->id) || byId.value(cost->id) != cost)
            continue;
        const KtoData *line = user->findKto(cost->id);
        leave.costs.append(
            Cost{cost, valueCents(*cost), ShareDivision::shareOfChange(line->change)});
    }
    return leave;
}

void TravellerLeave::remove(WayFernData &doc, UserData *user)
{
    if (!doc.users.contains(user))
        return;
    const TravellerLeave leave = of(doc, user);
    for (const Cost &c : leave.costs) {
        QList<KtoData *> lines;
        QList<double> changes;
        for (UserData *other : doc.users) {
            if (other == user)
                continue;
            if (KtoData *line = other->findKto(c.cost->id)) {
                lines.append(line);
                changes.append(line->change);
            }
        }
        if (lines.isEmpty())
            continue;
        QList<qint64> weights = ShareDivision::proportionsOfChanges(changes);
        // He bore the cost alone: those who hold a line for it take it over alike.
        if (ShareDivision::sum(weights) == 0)
            weights = QList<qint64>(lines.size(), 1);
        const QList<qint64> parts = ShareDivision::byWeights(c.valueCents, weights);
        const QList<double> percent = ShareDivision::percentages(parts, c.valueCents, weights);
        for (int i = 0; i < lines.size(); ++i) {
            if (weights.at(i) == 0)
                continue;
            lines.at(i)->change = ShareDivision::changeOfShare(parts.at(i));
            // Stored as the share dialog reads its percentages back, so that opening the
            // dialog afterwards shows no change.
            lines.at(i)->percentage = QString::asprintf("%.1f", percent.at(i)).toDouble();
        }
    }
    doc.users.remove(user);
    doc.recalcUsers();
    doc.setModified(true);
}
