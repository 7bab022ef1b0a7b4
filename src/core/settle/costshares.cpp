#include "settle/costshares.h"

#include "data/wayferndata.h"
#include "settle/settlement.h"
#include "settle/sharedivision.h"
#include "storage/fixedtext.h"
#include "storage/scqtutil.h"

#include <QHash>
#include <QList>

#include <utility>

namespace {
// The base value that the next recomputation gives `cost`, in cents of the text its row
// will show, without storing it: the lists show the stored values until their next refresh.
// The currency is looked up as the recomputation does, cost after cost.
qint64 centsAtCurrentRates(WayFernData &doc, const CostsData *cost)
{
    const CurrData *currency = doc.findCurrency(cost->ctype);
    if (!currency)
        return 0;
    const double value = ScQtUtil::toDouble(QStringView(cost->fval)) * currency->invfactor;
    return Settlement::toCents(fixedText(value, 2).toDouble());
}
} // namespace

CostShares::BaseCents CostShares::baseCents(WayFernData &doc)
{
    doc.recalcFactors();
    BaseCents cents;
    cents.reserve(doc.costs.count());
    for (const CostsData *cost : doc.costs)
        cents.insert(cost, centsAtCurrentRates(doc, cost));
    return cents;
}

int CostShares::followBaseValues(WayFernData &doc, const BaseCents &before)
{
    doc.recalcFactors();
    // The costs whose value moved, with their new value; mostly none.
    QList<std::pair<const CostsData *, qint64>> moved;
    for (const CostsData *cost : doc.costs) {
        const qint64 cents = centsAtCurrentRates(doc, cost);
        const auto was = before.constFind(cost);
        // Costs from old files carry no id of their own and have no shares.
        if (cost->id > 0 && was != before.cend() && *was != cents)
            moved.append({cost, cents});
    }
    if (moved.isEmpty())
        return 0;
    // The lines of each cost, one per traveller, in the travellers' order.
    QHash<int, QList<KtoData *>> linesOf;
    for (UserData *user : doc.users) {
        QHash<int, KtoData *> last;
        for (KtoData *line : user->kto)
            last.insert(line->magic, line);
        for (auto it = last.cbegin(); it != last.cend(); ++it)
            linesOf[it.key()].append(it.value());
    }
    int divided = 0;
    for (const auto &[cost, cents] : moved) {
        const auto found = linesOf.constFind(cost->id);
        if (found == linesOf.cend())
            continue;
        const QList<KtoData *> &lines = *found;
        QList<double> changes;
        QList<double> percentages;
        for (const KtoData *line : lines) {
            changes.append(line->change);
            percentages.append(line->percentage);
        }
        if (!ShareDivision::divideAnew(cents, changes, percentages))
            continue;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            lines.at(i)->change = changes.at(i);
            lines.at(i)->percentage = percentages.at(i);
        }
        ++divided;
    }
    if (divided > 0)
        doc.recalcUsers();
    return divided;
}
