#include "forms/basedlg.h"

#include "forms/formsupport.h"
#include "forms/itemcontentform.h"

BaseDlg::BaseDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    sizeItemContentColumns(this);

    connectItemContentForm(this);
    connectItemContentCombo(this);
    connect(ListView, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item, int column) { slotClicked(item, column); });
}

BaseDlg::~BaseDlg()
{
    disconnectChildren(this);
}

void BaseDlg::slotClicked(QTreeWidgetItem *, int)
{
    qWarning("BaseDlg::slotClicked( QTreeWidgetItem *, int ): Not implemented yet!");
}

void BaseDlg::slotCancel()
{
    qWarning("BaseDlg::slotCancel(): Not implemented yet!");
}

void BaseDlg::slotClearLine()
{
    qWarning("BaseDlg::slotClearLine(): Not implemented yet!");
}

void BaseDlg::slotComboChanged(const QString &)
{
    qWarning("BaseDlg::slotComboChanged( const QString & ): Not implemented yet!");
}

void BaseDlg::slotOK()
{
    qWarning("BaseDlg::slotOK(): Not implemented yet!");
}

void BaseDlg::slotSelectButton()
{
    qWarning("BaseDlg::slotSelectButton(): Not implemented yet!");
}

void BaseDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("BaseDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void BaseDlg::slotTextChanged(const QString &)
{
    qWarning("BaseDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
