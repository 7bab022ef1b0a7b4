#include "settle/settlement.h"

#include "data/wayferndata.h"
#include "settle/sharelines.h"

#include <QHash>
#include <QtAlgorithms>

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <vector>

namespace {

// Sums the account as the balances are summed: first line to last, from 0.0.
double accountSum(const UserData &user)
{
    double sum = 0.0;
    for (const KtoData *line : user.kto)
        sum += line->change;
    return sum;
}

} // namespace

qint64 Settlement::toCents(double value)
{
    return std::llround(value * 100.0);
}

QString Settlement::centsText(qint64 cents)
{
    const qint64 whole = cents < 0 ? -cents : cents;
    return QString::asprintf("%s%lld.%02lld", cents < 0 ? "-" : "", whole / 100, whole % 100);
}

QString Settlement::transferText(const Transfer &transfer, const QString &currency,
                                 const QString &pattern)
{
    return pattern.arg(transfer.fromName, transfer.toName, centsText(transfer.cents), currency);
}

QString Settlement::openCostText(const OpenCost &cost, const QString &pattern)
{
    QString text = pattern.arg(cost.date, cost.letter, centsText(cost.valueCents),
                               centsText(cost.sharesCents));
    if (cost.letter.isEmpty())
        text.replace(QStringLiteral("  "), QStringLiteral(" "));
    return text.trimmed();
}

Settlement Settlement::fromBalances(const QList<Party> &travellers, const QString &kittyName)
{
    Settlement s;
    qint64 sum = 0;
    for (const Party &p : travellers) {
        s.all.append(p);
        sum += p.cents;
    }
    s.all.append(Party{Kitty, kittyName, -sum});
    return s;
}

Settlement Settlement::fromJourney(const WayFernData &doc, const QString &kittyName)
{
    QList<Party> travellers;
    travellers.reserve(doc.users.count());
    for (int i = 0; i < doc.users.count(); ++i) {
        const UserData *user = doc.users.at(i);
        travellers.append(Party{i, user->short_, toCents(accountSum(*user))});
    }
    Settlement s = fromBalances(travellers, kittyName);

    // A cost counts as shared when an account holds a line for it: the record's own flag
    // stays with the list position when the costs are sorted by date.
    const ShareLines shares(doc);
    for (const CostsData *cost : doc.costs) {
        qint64 booked = 0;
        bool shared = false;
        for (int user = 0; user < doc.users.count(); ++user) {
            double change = 0.0;
            if (shares.find(user, cost->id, &change)) {
                booked += toCents(-change);
                shared = true;
            }
        }
        if (!shared)
            continue;
        const qint64 value = toCents(cost->bvalue);
        if (value == booked)
            continue;
        s.unbooked += value - booked;
        s.open.append(OpenCost{cost->date, cost->typeletter, value, booked});
    }
    return s;
}

namespace {

// Largest debtor pays largest creditor until all are settled; ties go by name, then by
// index. On parties summing to zero this takes at most one transfer less than their count.
QList<Settlement::Transfer> greedyPlan(const QList<const Settlement::Party *> &parties)
{
    // Ordered so that the first element is the largest amount, the smaller name first
    // among equal amounts.
    using Key = std::tuple<qint64, QString, int>; // (-amount, name, index into parties)
    std::set<Key> debtors;
    std::set<Key> creditors;
    for (int i = 0; i < parties.count(); ++i) {
        const Settlement::Party &p = *parties.at(i);
        if (p.cents < 0)
            debtors.insert({p.cents, p.name, i});
        else if (p.cents > 0)
            creditors.insert({-p.cents, p.name, i});
    }

    QList<Settlement::Transfer> plan;
    while (!debtors.empty() && !creditors.empty()) {
        const Key debtor = *debtors.begin();
        const Key creditor = *creditors.begin();
        debtors.erase(debtors.begin());
        creditors.erase(creditors.begin());
        const qint64 owes = -std::get<0>(debtor);
        const qint64 owed = -std::get<0>(creditor);
        const qint64 amount = std::min(owes, owed);
        const Settlement::Party &from = *parties.at(std::get<2>(debtor));
        const Settlement::Party &to = *parties.at(std::get<2>(creditor));
        plan.append(Settlement::Transfer{from.user, to.user, from.name, to.name, amount});
        if (owes > amount)
            debtors.insert({-(owes - amount), from.name, std::get<2>(debtor)});
        if (owed > amount)
            creditors.insert({-(owed - amount), to.name, std::get<2>(creditor)});
    }
    return plan;
}

// Splits `cents` (summing to zero, at most MaxProvenParties of them) into the most groups
// that each sum to zero, as bit masks over the positions.
//
// most[mask] is the largest number of zero-sum blocks that the members of `mask` can be
// cut into when they are taken away one at a time: a block ends wherever what is left sums
// to zero. Every split into zero-sum groups is such a sequence, so most[full] is the most
// groups there are. O(2^n * n) time.
QList<quint32> zeroSumGroups(const std::vector<qint64> &cents)
{
    const int n = int(cents.size());
    const quint32 full = n == 0 ? 0 : (quint32(1) << n) - 1;
    std::vector<qint64> sum(size_t(full) + 1, 0);
    std::vector<quint8> most(size_t(full) + 1, 0);
    for (quint32 mask = 1; mask <= full; ++mask) {
        const int low = qCountTrailingZeroBits(mask);
        sum[mask] = sum[mask & (mask - 1)] + cents[size_t(low)];
        quint8 best = 0;
        for (quint32 rest = mask; rest != 0; rest &= rest - 1) {
            const quint32 without = mask & ~(rest & (~rest + 1));
            best = std::max(best, most[without]);
        }
        most[mask] = best + (sum[mask] == 0 ? 1 : 0);
    }

    // Walk back from the full set, always taking away the first member (in the order of
    // `cents`) that keeps the most groups: the split depends only on that order.
    QList<quint32> groups;
    quint32 mask = full;
    quint32 groupStart = full;
    while (mask != 0) {
        const quint8 keep = most[mask] - (sum[mask] == 0 ? 1 : 0);
        for (int i = 0; i < n; ++i) {
            const quint32 bit = quint32(1) << i;
            if ((mask & bit) != 0 && most[mask & ~bit] == keep) {
                mask &= ~bit;
                break;
            }
        }
        if (sum[mask] == 0) {
            groups.append(groupStart & ~mask);
            groupStart = mask;
        }
    }
    return groups;
}

} // namespace

Settlement::Plan Settlement::fewestTransfers() const
{
    // The parties owing or owed in an order that does not depend on the travellers' order.
    QList<const Party *> owing;
    for (const Party &p : all)
        if (p.cents != 0)
            owing.append(&p);
    std::stable_sort(owing.begin(), owing.end(), [](const Party *a, const Party *b) {
        return std::tie(a->name, a->cents) < std::tie(b->name, b->cents);
    });

    Plan plan;
    if (owing.count() > MaxProvenParties) {
        plan.transfers = greedyPlan(owing);
        plan.provenFewest = false;
    } else {
        std::vector<qint64> cents;
        for (const Party *p : owing)
            cents.push_back(p->cents);
        for (const quint32 group : zeroSumGroups(cents)) {
            QList<const Party *> members;
            for (int i = 0; i < owing.count(); ++i)
                if ((group & (quint32(1) << i)) != 0)
                    members.append(owing.at(i));
            plan.transfers += greedyPlan(members);
        }
    }
    std::stable_sort(plan.transfers.begin(), plan.transfers.end(),
                     [](const Transfer &a, const Transfer &b) {
                         return std::make_tuple(-a.cents, a.fromName, a.toName)
                             < std::make_tuple(-b.cents, b.fromName, b.toName);
                     });
    return plan;
}

QList<Settlement::Transfer> Settlement::settleWith(int user) const
{
    const auto hub =
        std::find_if(all.cbegin(), all.cend(), [user](const Party &p) { return p.user == user; });
    if (hub == all.cend())
        return {};
    QList<const Party *> others;
    for (const Party &p : all)
        if (&p != &*hub && p.cents != 0)
            others.append(&p);
    std::stable_sort(others.begin(), others.end(),
                     [](const Party *a, const Party *b) { return a->name < b->name; });

    QList<Transfer> plan;
    for (const Party *p : others) {
        if (p->cents < 0)
            plan.append(Transfer{p->user, hub->user, p->name, hub->name, -p->cents});
        else
            plan.append(Transfer{hub->user, p->user, hub->name, p->name, p->cents});
    }
    return plan;
}

void Settlement::book(WayFernData &doc, const QList<Transfer> &plan, const QString &date)
{
    QHash<int, int> linesLeft;
    for (const Transfer &t : plan) {
        if (t.from != Kitty)
            ++linesLeft[t.from];
        if (t.to != Kitty)
            ++linesLeft[t.to];
    }
    auto bookLine = [&](int user, int magic, const char *type, double change) {
        if (user == Kitty || user < 0 || user >= doc.users.count())
            return;
        UserData *traveller = doc.users.at(user);
        // The last line leaves exactly nothing, also of fractions of a cent.
        const bool last = --linesLeft[user] == 0;
        const double amount = last ? -accountSum(*traveller) : change;
        KtoData *line = traveller->addKto(magic);
        line->type = QString::fromLatin1(type);
        line->date = date;
        line->percentage = 100.0;
        line->change = amount;
        traveller->actukto = line;
    };
    for (const Transfer &t : plan) {
        const double amount = double(t.cents) / 100.0;
        bookLine(t.from, -2, "deposit", amount);
        bookLine(t.to, -3, "pay off", -amount);
    }
    doc.recalcUsers();
    doc.setModified(true);
}
