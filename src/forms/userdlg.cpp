#include "forms/userdlg.h"

#include "forms/formsupport.h"
#include "forms/itemcontentform.h"

UserDlg::UserDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    sizeItemContentColumns(this);

    connectItemContentForm(this);
}

UserDlg::~UserDlg()
{
    disconnectChildren(this);
}

void UserDlg::slotSelectButton()
{
    qWarning("UserDlg::slotSelectButton(): Not implemented yet!");
}

void UserDlg::slotCancel()
{
    qWarning("UserDlg::slotCancel(): Not implemented yet!");
}

void UserDlg::slotClearLine()
{
    qWarning("UserDlg::slotClearLine(): Not implemented yet!");
}

void UserDlg::slotOK()
{
    qWarning("UserDlg::slotOK(): Not implemented yet!");
}

void UserDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("UserDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void UserDlg::slotTextChanged(const QString &)
{
    qWarning("UserDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
