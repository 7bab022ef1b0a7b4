#include "editors/userktoedit.h"

#include "data/journeyrecords.h"
#include "data/wayferndata.h"
#include "editors/numbertext.h"
#include "lists/journeylistmodels.h"

#include <QCloseEvent>

userKtoEdit::userKtoEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : UserKtoDlg(parent, name, modal)
{
    // Callers always pass a name; the caption of the form is then kept.
    if (!name)
        setWindowTitle(QString());
    document = doc;

    ListView->setSortingEnabled(false);
    ListView->setAllColumnsShowFocus(true);
    showMaximized();
    prepare(nullptr);
}

userKtoEdit::~userKtoEdit() = default;

void userKtoEdit::prepare(UserData *u)
{
    user = u;
    if (!user)
        return;
    ValTextLabel->setText(numberText("%.2f", user->value) + QLatin1Char(' ')
                          + document->basecurrency);
    setWindowTitle(tr("account : %1").arg(user->short_));

    accountModel->reload(user);
}

void userKtoEdit::slotClose()
{
    accept();
}

void userKtoEdit::done(int result)
{
    user = nullptr;
    // The rows read the account: they must not outlive the traveller.
    accountModel->reload(nullptr);
    UserKtoDlg::done(result);
}

void userKtoEdit::closeEvent(QCloseEvent *event)
{
    slotClose();
    event->accept();
}
