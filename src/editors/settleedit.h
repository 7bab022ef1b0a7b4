#pragma once

#include "forms/settledlg.h"
#include "settle/settlement.h"

class QLabel;
class WayFernData;

// Settling up at the end of a journey: shows the balances with the kitty, what the shares
// of shared costs leave unbooked (with the costs whose shares do not add up) and the plan of
// transfers, and books the plan as deposits and pay-offs on request.
class settleEdit : public SettleDlg
{
    Q_OBJECT

public:
    settleEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);

    // Computes the balances and the plan afresh; the caller then runs exec() and hide().
    void setData();
    // The plan as shown.
    const QList<Settlement::Transfer> &plan() const { return shownPlan; }
    // Says whether the plan shown is proven to be the fewest transfers; empty and hidden for
    // a plan around one traveller or when nobody owes anything.
    QLabel *planNote = nullptr;

public slots:
    void slotBook() override;
    void slotClose() override;
    void slotSettleWithChanged() override;

signals:
    // Something was booked: the overview's balances changed.
    void overChanged();

private:
    void fillBalances();
    void fillPlan();

    WayFernData *document;
    Settlement settlement;
    QList<Settlement::Transfer> shownPlan;
};
