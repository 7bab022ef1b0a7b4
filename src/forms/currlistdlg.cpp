#include "forms/currlistdlg.h"

#include "forms/formsupport.h"

#include <QHeaderView>

CurrListDlg::CurrListDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    // The headings only label the columns: a tap on them sorts nothing.
    CurrListView->header()->setSectionsClickable(false);

    connect(AppendButton, &QToolButton::clicked, this, [this] { slotAppend(); });
    connect(ChangeButton, &QToolButton::clicked, this, [this] { slotChange(); });
    connect(DeleteButton, &QToolButton::clicked, this, [this] { slotDelete(); });
    connect(CloseButton, &QToolButton::clicked, this, [this] { slotClose(); });
    connect(SyncButton, &QToolButton::clicked, this, [this] { slotSynchronize(); });
    connect(SyncListButton, &QToolButton::clicked, this, [this] { slotSyncList(); });
    connect(CurrListView, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem *, int) { slotChange(); });
    connect(CurrListView, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *, int) { slotChange(); });
    connect(CurrListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotSelectionChanged(CurrListView->selectedItems().value(0)); });
}

CurrListDlg::~CurrListDlg()
{
    disconnectChildren(this);
}

void CurrListDlg::slotSyncList()
{
    qWarning("CurrListDlg::slotSyncList(): Not implemented yet!");
}

void CurrListDlg::slotAppend()
{
    qWarning("CurrListDlg::slotAppend(): Not implemented yet!");
}

void CurrListDlg::slotChange()
{
    qWarning("CurrListDlg::slotChange(): Not implemented yet!");
}

void CurrListDlg::slotClose()
{
    qWarning("CurrListDlg::slotClose(): Not implemented yet!");
}

void CurrListDlg::slotDelete()
{
    qWarning("CurrListDlg::slotDelete(): Not implemented yet!");
}

void CurrListDlg::slotInsert()
{
    qWarning("CurrListDlg::slotInsert(): Not implemented yet!");
}

void CurrListDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("CurrListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void CurrListDlg::slotSynchronize()
{
    qWarning("CurrListDlg::slotSynchronize(): Not implemented yet!");
}
