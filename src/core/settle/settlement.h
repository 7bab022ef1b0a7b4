#pragma once

#include <QList>
#include <QString>

class WayFernData;

// Who pays whom at the end of a journey. Money that must add up is counted in whole cents:
// the balances of the travellers and the kitty always sum to zero exactly.
//
// A traveller's balance is the sum of his account lines (deposits raise it, shares of
// costs and pay-offs lower it). The kitty is the common purse: deposits went into it,
// costs and pay-offs came out of it, so it holds what the travellers are owed together.
// As a party of the plan it stands against them: it pays out what it holds and collects
// what it lacks.
class Settlement
{
public:
    // Stands for the kitty where a traveller's position in `users` would.
    static constexpr int Kitty = -1;

    struct Party
    {
        int user = Kitty; // position in `users`, or Kitty
        QString name;     // short name; the kitty's name as given to fromJourney
        qint64 cents = 0; // positive: is owed money; negative: owes money
    };

    struct Transfer
    {
        int from = Kitty; // who pays: position in `users`, or Kitty
        int to = Kitty;   // who receives
        QString fromName;
        QString toName;
        qint64 cents = 0; // always positive
    };

    // The balances of the journey's travellers (recomputed from their accounts) and the
    // kitty, named `kittyName`, in cents.
    static Settlement fromJourney(const WayFernData &doc, const QString &kittyName);
    // Parties as given, e.g. for tests; the kitty is whatever makes the sum zero.
    static Settlement fromBalances(const QList<Party> &travellers, const QString &kittyName);

    // Travellers in list order, then the kitty.
    const QList<Party> &parties() const { return all; }
    qint64 kittyCents() const { return all.isEmpty() ? 0 : all.last().cents; }
    // A shared cost whose shares do not add up to its base value.
    struct OpenCost
    {
        QString date;
        QString letter;         // the cost's type letter
        qint64 valueCents = 0;  // its base value
        qint64 sharesCents = 0; // what its shares booked
    };

    // Shared costs minus what their shares booked: what is in no balance, so shown apart.
    // Shares add up to their cost, so anything but 0 comes from costs listed by openCosts():
    // a journey written elsewhere, or a cost changed since it was shared.
    qint64 unbookedCents() const { return unbooked; }
    // Those costs, in the order of the list.
    const QList<OpenCost> &openCosts() const { return open; }
    // "12.06.2002 H 75.40, shares 70.00", or the four pieces (date, letter, value, shares)
    // put into `pattern`; a missing letter leaves no gap.
    static QString openCostText(const OpenCost &cost,
                                const QString &pattern = QStringLiteral("%1 %2 %3, shares %4"));

    // Up to this many parties owing or owed, the plan is proven to be the fewest transfers.
    static constexpr int MaxProvenParties = 20;

    struct Plan
    {
        QList<Transfer> transfers; // the largest amount first, then by payer and receiver
        // False only beyond MaxProvenParties: a plan with fewer transfers may exist.
        bool provenFewest = true;
    };

    // The fewest transfers that settle every balance and the kitty. The parties owing or
    // owed are split into the most groups that settle among themselves; a group of k then
    // needs k - 1 transfers, its largest debtor paying its largest creditor first. Beyond
    // MaxProvenParties that split is skipped (one group). Ties go by name and amount, so
    // the travellers' order does not change the plan.
    Plan fewestTransfers() const;
    // Every other party settles with the traveller at position `user` alone.
    QList<Transfer> settleWith(int user) const;

    // Books each transfer as a deposit ("deposit", -2) of the paying traveller and a
    // pay-off ("pay off", -3) of the receiving one, dated `date`; the kitty has no
    // account. The last line booked for a traveller takes his balance to exactly zero.
    // Recomputes the balances and marks the journey modified.
    static void book(WayFernData &doc, const QList<Transfer> &plan, const QString &date);

    // "12.30", "-0.05"
    static QString centsText(qint64 cents);
    // "XY pays AB 12.30 EUR", or the same four pieces (payer, receiver, amount, currency)
    // put into `pattern`, e.g. a translation of it.
    static QString transferText(const Transfer &transfer, const QString &currency,
                                const QString &pattern = QStringLiteral("%1 pays %2 %3 %4"));
    static qint64 toCents(double value);

private:
    QList<Party> all;
    qint64 unbooked = 0;
    QList<OpenCost> open;
};
