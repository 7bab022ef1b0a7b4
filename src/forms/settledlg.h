#pragma once

#include "ui_settledlg.h"

#include <QDialog>

// The form of settling up: the balances with the kitty, the cents left unbooked, the plan
// of transfers, and the choice of settling with one traveller.
class SettleDlg : public QDialog, public Ui::SettleDlg
{
    Q_OBJECT

public:
    explicit SettleDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                       Qt::WindowFlags fl = {});
    ~SettleDlg() override;

public slots:
    virtual void slotBook();
    virtual void slotClose();
    virtual void slotSettleWithChanged();
};
