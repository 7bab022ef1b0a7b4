#include "forms/userlistdlg.h"

#include "forms/formsupport.h"

#include <QHeaderView>

UserListDlg::UserListDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    // The headings only label the columns: a tap on them sorts nothing.
    ListView->header()->setSectionsClickable(false);
    // Each column as wide as its entries, so that the balance still shows on a 240 pixel
    // screen.
    ListView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    connect(AppendButton, &QToolButton::clicked, this, [this] { slotAppend(); });
    connect(ChangeButton, &QToolButton::clicked, this, [this] { slotChange(); });
    connect(DeleteButton, &QToolButton::clicked, this, [this] { slotDelete(); });
    connect(CloseButton, &QToolButton::clicked, this, [this] { slotClose(); });
    connect(EinzahlButton, &QToolButton::clicked, this, [this] { slotEinzahl(); });
    connect(AuszahlButton, &QToolButton::clicked, this, [this] { slotAuszahl(); });
    connect(KtoButton, &QToolButton::clicked, this, [this] { slotKonto(); });
    connect(ListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotSelectionChanged(ListView->selectedItems().value(0)); });
    connect(ListView, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item, int) { slotDoubleClicked(item); });
}

UserListDlg::~UserListDlg()
{
    disconnectChildren(this);
}

void UserListDlg::slotKonto()
{
    qWarning("UserListDlg::slotKonto(): Not implemented yet!");
}

void UserListDlg::slotAppend()
{
    qWarning("UserListDlg::slotAppend(): Not implemented yet!");
}

void UserListDlg::slotAuszahl()
{
    qWarning("UserListDlg::slotAuszahl(): Not implemented yet!");
}

void UserListDlg::slotChange()
{
    qWarning("UserListDlg::slotChange(): Not implemented yet!");
}

void UserListDlg::slotClose()
{
    qWarning("UserListDlg::slotClose(): Not implemented yet!");
}

void UserListDlg::slotDelete()
{
    qWarning("UserListDlg::slotDelete(): Not implemented yet!");
}

void UserListDlg::slotDoubleClicked(QTreeWidgetItem *)
{
    qWarning("UserListDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!");
}

void UserListDlg::slotEinzahl()
{
    qWarning("UserListDlg::slotEinzahl(): Not implemented yet!");
}

void UserListDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("UserListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}
