#include "settle/sharelines.h"

#include "data/wayferndata.h"

#include <limits>

ShareLines::ShareLines(const WayFernData &doc)
{
    qint64 lines = 0;
    int lowest = std::numeric_limits<int>::max();
    int highest = -1;
    for (const UserData *user : doc.users) {
        for (const KtoData *line : user->kto) {
            if (line->magic < 0)
                continue;
            ++lines;
            lowest = std::min(lowest, line->magic);
            highest = std::max(highest, line->magic);
        }
    }
    if (highest < 0)
        return;
    firstId = lowest;
    const qint64 range = qint64(highest) - lowest + 1;
    dense = range <= 2 * lines + 1024;

    for (const UserData *user : doc.users) {
        if (dense) {
            Dense shares{std::vector<double>(size_t(range)),
                         std::vector<unsigned char>(size_t(range), 0)};
            for (const KtoData *line : user->kto) {
                if (line->magic < 0)
                    continue;
                const size_t at = size_t(line->magic - firstId);
                shares.change[at] = line->change;
                shares.present[at] = 1;
            }
            byPosition.push_back(std::move(shares));
        } else {
            QHash<int, double> shares;
            for (const KtoData *line : user->kto)
                if (line->magic >= 0)
                    shares.insert(line->magic, line->change);
            byHash.append(shares);
        }
    }
}

bool ShareLines::find(int user, int id, double *change) const
{
    if (dense) {
        if (user < 0 || size_t(user) >= byPosition.size() || id < firstId)
            return false;
        const Dense &shares = byPosition[size_t(user)];
        const qint64 at = qint64(id) - firstId;
        if (at >= qint64(shares.present.size()) || !shares.present[size_t(at)])
            return false;
        *change = shares.change[size_t(at)];
        return true;
    }
    if (user < 0 || user >= byHash.count())
        return false;
    const auto it = byHash.at(user).constFind(id);
    if (it == byHash.at(user).constEnd())
        return false;
    *change = it.value();
    return true;
}
