#pragma once

#include <QHash>
#include <QtGlobal>

class WayFernData;
struct CostsData;

namespace CostShares {

// The base value of every cost at the rates of now, in cents of the text its row will show
// after the next recomputation.
using BaseCents = QHash<const CostsData *, qint64>;
BaseCents baseCents(WayFernData &doc);

// After the rates or the base currency changed: the shares of every cost whose base value
// moved since `before` are divided anew among the same travellers in the same proportions,
// as the cost's share dialog would on opening, so that they add up to the cost as it is
// now. Costs whose value stayed keep their shares, whether or not they add up. Each
// traveller's line of a cost is the last one with its id. Nothing is stored in the costs
// themselves: the lists show their values until the next refresh. Returns how many costs
// got new shares; the travellers' balances follow.
int followBaseValues(WayFernData &doc, const BaseCents &before);

} // namespace CostShares
