#include "forms/costsdlg.h"

#include "forms/formsupport.h"
#include "forms/itemcontentform.h"

CostsDlg::CostsDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    sizeItemContentColumns(this);

    connectItemContentForm(this);
    connectItemContentCombo(this);
    connect(UserButton, &QToolButton::clicked, this, [this] { slotUserPay(); });
}

CostsDlg::~CostsDlg()
{
    disconnectChildren(this);
}

void CostsDlg::slotUserPay()
{
    qWarning("CostsDlg::slotUserPay(): Not implemented yet!");
}

void CostsDlg::slotCancel()
{
    qWarning("CostsDlg::slotCancel(): Not implemented yet!");
}

void CostsDlg::slotClearLine()
{
    qWarning("CostsDlg::slotClearLine(): Not implemented yet!");
}

void CostsDlg::slotComboChanged(const QString &)
{
    qWarning("CostsDlg::slotComboChanged( const QString & ): Not implemented yet!");
}

void CostsDlg::slotOK()
{
    qWarning("CostsDlg::slotOK(): Not implemented yet!");
}

void CostsDlg::slotSelectButton()
{
    qWarning("CostsDlg::slotSelectButton(): Not implemented yet!");
}

void CostsDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("CostsDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void CostsDlg::slotTextChanged(const QString &)
{
    qWarning("CostsDlg::slotTextChanged( const QString & ): Not implemented yet!");
}

void CostsDlg::slotTip()
{
    qWarning("CostsDlg::slotTip(): Not implemented yet!");
}
