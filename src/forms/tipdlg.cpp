#include "forms/tipdlg.h"

#include "forms/formsupport.h"
#include "forms/itemcontentform.h"

TipDlg::TipDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    sizeItemContentColumns(this);

    connectItemContentForm(this);
    connectItemContentCombo(this);
}

TipDlg::~TipDlg()
{
    disconnectChildren(this);
}

void TipDlg::slotComboChanged(const QString &)
{
    qWarning("TipDlg::slotComboChanged( const QString & ): Not implemented yet!");
}

void TipDlg::slotCancel()
{
    qWarning("TipDlg::slotCancel(): Not implemented yet!");
}

void TipDlg::slotClearLine()
{
    qWarning("TipDlg::slotClearLine(): Not implemented yet!");
}

void TipDlg::slotOK()
{
    qWarning("TipDlg::slotOK(): Not implemented yet!");
}

void TipDlg::slotSelectButton()
{
    qWarning("TipDlg::slotSelectButton(): Not implemented yet!");
}

void TipDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("TipDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void TipDlg::slotTextChanged(const QString &)
{
    qWarning("TipDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
