#include "forms/currdlg.h"

#include "forms/formsupport.h"
#include "forms/itemcontentform.h"

CurrDlg::CurrDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    sizeItemContentColumns(this);

    // The item-and-content connections without the select button: a currency has no date.
    connect(ClearButton, &QToolButton::clicked, this, [this] { slotClearLine(); });
    connect(OkButton, &QToolButton::clicked, this, [this] { slotOK(); });
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    connect(ListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotSelectionChanged(ListView->selectedItems().value(0)); });
    connect(LineEdit, &QLineEdit::textChanged, this,
            [this](const QString &text) { slotTextChanged(text); });
    connectItemContentCombo(this);
}

CurrDlg::~CurrDlg()
{
    disconnectChildren(this);
}

void CurrDlg::slotComboChanged(const QString &)
{
    qWarning("CurrDlg::slotComboChanged( const QString & ): Not implemented yet!");
}

void CurrDlg::slotCancel()
{
    qWarning("CurrDlg::slotCancel(): Not implemented yet!");
}

void CurrDlg::slotClearLine()
{
    qWarning("CurrDlg::slotClearLine(): Not implemented yet!");
}

void CurrDlg::slotOK()
{
    qWarning("CurrDlg::slotOK(): Not implemented yet!");
}

void CurrDlg::slotSelectButton()
{
    qWarning("CurrDlg::slotSelectButton(): Not implemented yet!");
}

void CurrDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("CurrDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void CurrDlg::slotTextChanged(const QString &)
{
    qWarning("CurrDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
