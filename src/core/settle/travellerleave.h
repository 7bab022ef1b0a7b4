#pragma once

#include <QList>
#include <QString>

class WayFernData;
struct CostsData;
struct UserData;

// A traveller who leaves the journey takes his account with him: his deposits and pay-offs
// go, and so does his balance. His shares of costs do not: each cost he shared is divided
// again among those who shared it with him, so that every shared cost stays fully booked.
// Works on a journey whose figures are fresh (the costs' base values computed).
class TravellerLeave
{
public:
    struct Cost
    {
        const CostsData *cost = nullptr;
        qint64 valueCents = 0; // the cost's base value as shown (bval)
        qint64 shareCents = 0; // the leaving traveller's share of it
    };

    // What leaves with `user` and which costs are divided again.
    static TravellerLeave of(const WayFernData &doc, const UserData *user);

    // Divides each of the traveller's shared costs again among its remaining sharers (the
    // others holding a line for it, alike when none of them had a share), removes the
    // traveller with his account, recomputes the balances and marks the journey modified.
    static void remove(WayFernData &doc, UserData *user);

    bool hasLines = false;
    qint64 balanceCents = 0;
    int deposits = 0;
    qint64 depositCents = 0; // as booked: positive
    int payOffs = 0;
    qint64 payOffCents = 0; // the amounts paid off: positive
    QList<Cost> costs;      // in the order of the costs list
};
