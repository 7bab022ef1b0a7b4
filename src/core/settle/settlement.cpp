#include "settle/settlement.h"

#include "data/wayferndata.h"
#include "settle/sharelines.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

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

QList<Settlement::Transfer> Settlement::fewestTransfers() const
{
    // Ordered so that the first element is the largest amount, the smaller name first
    // among equal amounts: the plan does not depend on the order of the travellers.
    using Key = std::tuple<qint64, QString, int>; // (-amount, name, index into all)
    std::set<Key> debtors;
    std::set<Key> creditors;
    for (int i = 0; i < all.count(); ++i) {
        const Party &p = all.at(i);
        if (p.cents < 0)
            debtors.insert({p.cents, p.name, i});
        else if (p.cents > 0)
            creditors.insert({-p.cents, p.name, i});
    }

    QList<Transfer> plan;
    while (!debtors.empty() && !creditors.empty()) {
        const Key debtor = *debtors.begin();
        const Key creditor = *creditors.begin();
        debtors.erase(debtors.begin());
        creditors.erase(creditors.begin());
        const qint64 owes = -std::get<0>(debtor);
        const qint64 owed = -std::get<0>(creditor);
        const qint64 amount = std::min(owes, owed);
        const Party &from = all.at(std::get<2>(debtor));
        const Party &to = all.at(std::get<2>(creditor));
        plan.append(Transfer{from.user, to.user, from.name, to.name, amount});
        if (owes > amount)
            debtors.insert({-(owes - amount), from.name, std::get<2>(debtor)});
        if (owed > amount)
            creditors.insert({-(owed - amount), to.name, std::get<2>(creditor)});
    }
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
