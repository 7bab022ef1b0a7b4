#include "forms/userktodlg.h"

#include "forms/formsupport.h"
#include "lists/journeylistmodels.h"

#include <QEvent>
#include <QFont>
#include <QHeaderView>

UserKtoDlg::UserKtoDlg(QWidget *parent, const char *name, bool modal, Qt::WindowFlags fl)
    : QDialog(parent, fl)
{
    setUpDialogForm(this, name, modal);
    accountModel = new AccountListModel(this);
    ListView->setModel(accountModel);

    // The headers only label the columns: a tap on them sorts nothing.
    ListView->header()->setSectionsClickable(false);
    // Each column takes the width it needs, so that the running total stays in view on a
    // small screen.
    ListView->header()->setStretchLastSection(false);
    ListView->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    connect(CloseButton, &QToolButton::clicked, this, [this] { slotClose(); });
}

UserKtoDlg::~UserKtoDlg()
{
    disconnectChildren(this);
}

bool UserKtoDlg::event(QEvent *e)
{
    const bool handled = QDialog::event(e);
    if (e->type() == QEvent::ApplicationFontChange) {
        // The balance stays large and bold whatever the application font becomes.
        QFont font = this->font();
        font.setPointSize(11);
        font.setBold(true);
        ValTextLabel->setFont(font);
    }
    return handled;
}

void UserKtoDlg::slotClose()
{
    qWarning("UserKtoDlg::slotClose(): Not implemented yet!");
}
