#include "forms/synclistdlg.h"

#include "forms/formsupport.h"

SyncListDlg::SyncListDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    connect(OkButton, &QToolButton::clicked, this, [this] { slotOK(); });
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    connect(ListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotSelectionChanged(ListView->selectedItems().value(0)); });
}

SyncListDlg::~SyncListDlg()
{
    disconnectChildren(this);
}

void SyncListDlg::slotSelectButton()
{
    qWarning("SyncListDlg::slotSelectButton(): Not implemented yet!");
}

void SyncListDlg::slotCancel()
{
    qWarning("SyncListDlg::slotCancel(): Not implemented yet!");
}

void SyncListDlg::slotClearLine()
{
    qWarning("SyncListDlg::slotClearLine(): Not implemented yet!");
}

void SyncListDlg::slotOK()
{
    qWarning("SyncListDlg::slotOK(): Not implemented yet!");
}

void SyncListDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("SyncListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void SyncListDlg::slotTextChanged(const QString &)
{
    qWarning("SyncListDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
