#include "forms/scqtfiledlg.h"

#include "forms/formsupport.h"

ScQtFileDlg::ScQtFileDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    connect(OkButton, &QToolButton::clicked, this, [this] { slotOK(); });
    connect(DirComboBox, &QComboBox::activated, this, &ScQtFileDlg::slotDirComboBoxChanged);
    connect(TypeComboBox, &QComboBox::activated, this, &ScQtFileDlg::slotTypeComboBoxChanged);
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    // Return on an item, and a change of the selection, hand the item now selected.
    connect(ListView, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem *item, int) { slotSelectionChanged(item); });
    connect(ListView, &QTreeWidget::itemSelectionChanged, this, [this] {
        const QList<QTreeWidgetItem *> items = ListView->selectedItems();
        slotSelectionChanged(items.isEmpty() ? nullptr : items.first());
    });
    connect(ListView, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item, int) { slotDoubleClicked(item); });
    connect(FNameLineEdit, &QLineEdit::textChanged, this, &ScQtFileDlg::slotFileTextChanged);
    connect(FNameLineEdit, &QLineEdit::returnPressed, this, [this] { slotOK(); });
    connect(MkDirButton, &QToolButton::clicked, this, [this] { slotMkDir(); });
}

ScQtFileDlg::~ScQtFileDlg()
{
    disconnectChildren(this);
}

void ScQtFileDlg::slotCancel()
{
    qWarning("ScQtFileDlg::slotCancel(): Not implemented yet!");
}

void ScQtFileDlg::slotDirComboBoxChanged(int)
{
    qWarning("ScQtFileDlg::slotDirComboBoxChanged( int ): Not implemented yet!");
}

void ScQtFileDlg::slotDoubleClicked(QTreeWidgetItem *)
{
    qWarning("ScQtFileDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!");
}

void ScQtFileDlg::slotFileTextChanged(const QString &)
{
    qWarning("ScQtFileDlg::slotFileTextChanged( const QString & ): Not implemented yet!");
}

void ScQtFileDlg::slotMkDir()
{
    qWarning("ScQtFileDlg::slotMkDir(): Not implemented yet!");
}

void ScQtFileDlg::slotOK()
{
    qWarning("ScQtFileDlg::slotOK(): Not implemented yet!");
}

void ScQtFileDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("ScQtFileDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void ScQtFileDlg::slotTypeComboBoxChanged(int)
{
    qWarning("ScQtFileDlg::slotTypeComboBoxChanged( int ): Not implemented yet!");
}
