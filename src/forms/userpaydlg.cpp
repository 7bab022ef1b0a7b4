#include "forms/userpaydlg.h"

#include "forms/formsupport.h"

#include <QEvent>
#include <QFont>
#include <QHeaderView>

UserPayDlg::UserPayDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    // The headers only label the columns: a tap on them sorts nothing.
    ListView->header()->setSectionsClickable(false);

    connect(OkButton, &QToolButton::clicked, this, [this] { slotOk(); });
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    connect(ShareButton, &QToolButton::clicked, this, [this] { slotShare(); });
    connect(LineEdit, &QLineEdit::textChanged, this,
            [this](const QString &text) { slotTextChanged(text); });
    connect(ListView, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item, int) { slotDoubleClicked(item); });
    connect(ListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotSelectionChanged(ListView->selectedItems().value(0)); });
    connect(ListView, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item, int column) { slotClicked(item, column); });
    connect(ToolButton, &QToolButton::clicked, this, [this] { slotSelectButton(); });
}

UserPayDlg::~UserPayDlg()
{
    disconnectChildren(this);
}

bool UserPayDlg::event(QEvent *e)
{
    const bool handled = QDialog::event(e);
    if (e->type() == QEvent::ApplicationFontChange) {
        // The two labels stay large and bold whatever the application font becomes.
        QFont font = this->font();
        font.setPointSize(11);
        font.setBold(true);
        ValTextLabel->setFont(font);
        TextLabel->setFont(font);
    }
    return handled;
}

void UserPayDlg::slotSelectButton()
{
    qWarning("UserPayDlg::slotSelectButton(): Not implemented yet!");
}

void UserPayDlg::slotCancel()
{
    qWarning("UserPayDlg::slotCancel(): Not implemented yet!");
}

void UserPayDlg::slotClicked(QTreeWidgetItem *, int)
{
    qWarning("UserPayDlg::slotClicked( QTreeWidgetItem *, int ): Not implemented yet!");
}

void UserPayDlg::slotDoubleClicked(QTreeWidgetItem *)
{
    qWarning("UserPayDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!");
}

void UserPayDlg::slotKonto()
{
    qWarning("UserPayDlg::slotKonto(): Not implemented yet!");
}

void UserPayDlg::slotOk()
{
    qWarning("UserPayDlg::slotOk(): Not implemented yet!");
}

void UserPayDlg::slotSelectionChanged(QTreeWidgetItem *)
{
    qWarning("UserPayDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!");
}

void UserPayDlg::slotShare()
{
    qWarning("UserPayDlg::slotShare(): Not implemented yet!");
}

void UserPayDlg::slotTextChanged(const QString &)
{
    qWarning("UserPayDlg::slotTextChanged( const QString & ): Not implemented yet!");
}
