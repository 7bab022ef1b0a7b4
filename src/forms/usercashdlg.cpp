#include "forms/usercashdlg.h"

#include "forms/formsupport.h"

#include <QEvent>
#include <QFont>

UserCashDlg::UserCashDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);

    connect(ComboBox, &QComboBox::textActivated, this,
            [this](const QString &text) { slotComboChanged(text); });
    connect(OkButton, &QToolButton::clicked, this, [this] { slotOk(); });
    connect(CancelButton, &QToolButton::clicked, this, [this] { slotCancel(); });
    connect(DateButton, &QToolButton::clicked, this, [this] { slotSelectButton(); });
}

UserCashDlg::~UserCashDlg()
{
    disconnectChildren(this);
}

bool UserCashDlg::event(QEvent *e)
{
    const bool handled = QDialog::event(e);
    if (e->type() == QEvent::ApplicationFontChange) {
        // The date stays large and bold whatever the application font becomes.
        QFont font = this->font();
        font.setPointSize(11);
        font.setBold(true);
        TextLabel->setFont(font);
    }
    return handled;
}

void UserCashDlg::slotSelectButton()
{
    qWarning("UserCashDlg::slotSelectButton(): Not implemented yet!");
}

void UserCashDlg::slotCancel()
{
    qWarning("UserCashDlg::slotCancel(): Not implemented yet!");
}

void UserCashDlg::slotComboChanged(const QString &)
{
    qWarning("UserCashDlg::slotComboChanged( const QString & ): Not implemented yet!");
}

void UserCashDlg::slotOk()
{
    qWarning("UserCashDlg::slotOk(): Not implemented yet!");
}
