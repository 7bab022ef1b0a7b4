#pragma once

#include <QHash>
#include <QList>

#include <vector>

class WayFernData;

// Each traveller's share line of each cost, found by the cost's id: the last line with the
// id counts, as the document's lookups find it. Built once in one pass over the accounts,
// so that walking 100,000 costs asks in constant time.
class ShareLines
{
public:
    explicit ShareLines(const WayFernData &doc);

    // The change of traveller `user`'s line for cost `id`; false when there is none.
    bool find(int user, int id, double *change) const;

private:
    int firstId = 0;
    // Dense per traveller when the ids lie close together (they are handed out one by
    // one); a hash per traveller for files with ids scattered far apart.
    bool dense = true;
    struct Dense
    {
        std::vector<double> change;
        std::vector<unsigned char> present;
    };
    std::vector<Dense> byPosition;
    QList<QHash<int, double>> byHash;
};
