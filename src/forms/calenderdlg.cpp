#include "forms/calenderdlg.h"

#include "forms/formsupport.h"

CalenderDlg::CalenderDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    connect(OkButton, &QToolButton::clicked, this, [this] { slotOK(); });
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    connect(YearSpinBox, &QSpinBox::valueChanged, this, &CalenderDlg::slotSpinBoxChanged);
    connect(MonthComboBox, &QComboBox::activated, this, &CalenderDlg::slotComboChanged);
    connect(Table, &QTableWidget::currentCellChanged, this,
            [this](int row, int col, int, int) { slotTableCurrentChanged(row, col); });
}

CalenderDlg::~CalenderDlg()
{
    disconnectChildren(this);
}

void CalenderDlg::slotCancel()
{
    qWarning("CalenderDlg::slotCancel(): Not implemented yet!");
}

void CalenderDlg::slotComboChanged(int)
{
    qWarning("CalenderDlg::slotComboChanged( int ): Not implemented yet!");
}

void CalenderDlg::slotOK()
{
    qWarning("CalenderDlg::slotOK(): Not implemented yet!");
}

void CalenderDlg::slotSpinBoxChanged(int)
{
    qWarning("CalenderDlg::slotSpinBoxChanged( int ): Not implemented yet!");
}

void CalenderDlg::slotTableCurrentChanged(int, int)
{
    qWarning("CalenderDlg::slotTableCurrentChanged( int, int ): Not implemented yet!");
}
