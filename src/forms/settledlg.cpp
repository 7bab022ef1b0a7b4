#include "forms/settledlg.h"

#include "forms/formsupport.h"

#include <QHeaderView>

SettleDlg::SettleDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    BalanceListView->header()->setSectionsClickable(false);
    BalanceListView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    PlanListView->header()->setSectionsClickable(false);

    connect(BookButton, &QPushButton::clicked, this, [this] { slotBook(); });
    connect(CloseButton, &QPushButton::clicked, this, [this] { slotClose(); });
    connect(SettleWithCheckBox, &QCheckBox::toggled, this, [this] { slotSettleWithChanged(); });
    connect(SettleWithComboBox, &QComboBox::activated, this, [this] { slotSettleWithChanged(); });
}

SettleDlg::~SettleDlg()
{
    disconnectChildren(this);
}

void SettleDlg::slotBook()
{
    qWarning("SettleDlg::slotBook(): Not implemented yet!");
}

void SettleDlg::slotClose()
{
    qWarning("SettleDlg::slotClose(): Not implemented yet!");
}

void SettleDlg::slotSettleWithChanged()
{
    qWarning("SettleDlg::slotSettleWithChanged(): Not implemented yet!");
}
