#include "settle/sharedivision.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Amount times weight overflows 64 bits for large amounts with large weights.
__extension__ typedef unsigned __int128 Wide;

quint64 sizeOf(qint64 value)
{
    return value < 0 ? quint64(0) - quint64(value) : quint64(value);
}

} // namespace

namespace ShareDivision {

QList<qint64> evenly(qint64 cents, int n)
{
    if (n <= 0)
        return {};
    return byWeights(cents, QList<qint64>(n, 1));
}

QList<qint64> byWeights(qint64 cents, const QList<qint64> &weights)
{
    const int n = int(weights.size());
    QList<qint64> parts(n, 0);
    Wide total = 0;
    for (qint64 w : weights)
        total += sizeOf(w);
    if (n == 0 || total == 0)
        return parts;

    const quint64 amount = sizeOf(cents);
    QList<Wide> remainder(n, 0);
    quint64 given = 0;
    for (int i = 0; i < n; ++i) {
        const Wide product = Wide(amount) * sizeOf(weights.at(i));
        const quint64 whole = quint64(product / total);
        remainder[i] = product % total;
        parts[i] = qint64(whole);
        given += whole;
    }
    // Fewer cents are left than there are sharers with a remainder, so a sharer of weight 0
    // (remainder 0) never gets one.
    quint64 left = amount - given;
    QList<int> order(n);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&remainder](int a, int b) { return remainder.at(a) > remainder.at(b); });
    for (int i = 0; left > 0 && i < n; ++i, --left)
        ++parts[order.at(i)];

    if (cents < 0)
        for (qint64 &part : parts)
            part = -part;
    return parts;
}

QList<qint64> proportionsOf(const QList<qint64> &shares)
{
    QList<qint64> weights;
    weights.reserve(shares.size());
    QList<int> sharers;
    for (int i = 0; i < shares.size(); ++i) {
        weights.append(qint64(sizeOf(shares.at(i))));
        if (shares.at(i) != 0)
            sharers.append(i);
    }
    if (sharers.isEmpty())
        return weights;
    // Shares that are just what an even division of their sum among the same sharers gives
    // stay even: their rounding is no proportion of their own.
    const QList<qint64> even = evenly(sum(shares), int(sharers.size()));
    for (int k = 0; k < sharers.size(); ++k)
        if (even.at(k) != shares.at(sharers.at(k)))
            return weights;
    for (int i : sharers)
        weights[i] = 1;
    return weights;
}

QList<qint64> proportionsOfChanges(const QList<double> &changes)
{
    QList<qint64> shares;
    shares.reserve(changes.size());
    for (double change : changes)
        shares.append(shareOfChange(change));
    QList<qint64> weights = proportionsOf(shares);
    if (sum(weights) == 0)
        for (int i = 0; i < changes.size(); ++i)
            weights[i] = changes.at(i) == 0.0 && std::signbit(changes.at(i)) ? 1 : 0;
    return weights;
}

qint64 shareOfChange(double change)
{
    return std::llround(-change * 100.0);
}

double changeOfShare(qint64 cents)
{
    return -(double(cents) / 100.0);
}

QList<double> percentages(const QList<qint64> &parts, qint64 cents, const QList<qint64> &weights)
{
    QList<double> result;
    result.reserve(parts.size());
    Wide total = 0;
    for (qint64 w : weights)
        total += sizeOf(w);
    for (int i = 0; i < parts.size(); ++i) {
        const qint64 weight = i < weights.size() ? weights.at(i) : 0;
        if (weight == 0)
            result.append(0.0);
        else if (cents != 0)
            result.append(100.0 * double(parts.at(i)) / double(cents));
        else
            result.append(100.0 * double(sizeOf(weight)) / double(total));
    }
    return result;
}

qint64 sum(const QList<qint64> &parts)
{
    return std::accumulate(parts.cbegin(), parts.cend(), qint64(0));
}

bool divideAnew(qint64 cents, QList<double> &changes, QList<double> &percent)
{
    qint64 booked = 0;
    for (double change : changes)
        booked += shareOfChange(change);
    if (booked == cents)
        return false;
    const QList<qint64> weights = proportionsOfChanges(changes);
    if (sum(weights) == 0)
        return false;
    const QList<qint64> parts = byWeights(cents, weights);
    const QList<double> shares = percentages(parts, cents, weights);
    for (qsizetype i = 0; i < changes.size(); ++i) {
        if (weights.at(i) == 0)
            continue;
        changes[i] = changeOfShare(parts.at(i));
        percent[i] = shares.at(i);
    }
    return true;
}

} // namespace ShareDivision
