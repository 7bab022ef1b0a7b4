#include "editors/usercashedit.h"

#include "data/amountreader.h"
#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "dialogs/refusal.h"
#include "dialogs/savechangesquestion.h"
#include "editors/editorkeys.h"

#include <QCloseEvent>
#include <QMessageBox>

userCashEdit::userCashEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : UserCashDlg(parent, name, modal)
{
    // Callers always pass a name; the caption of the form is then kept.
    if (!name)
        setWindowTitle(QString());
    document = doc;
    // No pointer needed: Tab reaches every field and button, Ctrl+Return is OK and Escape is
    // Cancel with its question.
    takeTabFocus({DateButton, OkButton, CancelButton});
    chainTabOrder({ComboBox, LineEdit, DateButton, OkButton, CancelButton});
    addOkCancelKeys(
        this, [this] { slotOk(); }, [this] { slotCancel(); });
}

userCashEdit::~userCashEdit() = default;

void userCashEdit::prepare(QString type, QString date, UserData *u, KtoData *line,
                           calenderEdit *cal)
{
    calendar = cal;
    user = u;
    actu = line;
    if (!user || !line)
        return;
    cashDate = date;
    cashType = type;
    if (cashDate.isEmpty())
        slotSelectButton();
    else
        TextLabel->setText(cashDate);
    tmp = *line;
    // The stored word stays as it is; the caption shows it in the user's language.
    shownType = cashType == QLatin1String("deposit") ? tr("deposit")
        : cashType == QLatin1String("pay off")       ? tr("pay off")
                                                     : cashType;
    setWindowTitle(shownType + QLatin1Char('-') + user->short_);

    modified = false;
    DateButton->setEnabled(true);
    LineEdit->setEnabled(true);
    ComboBox->setEnabled(false);
    LineEdit->clear();
}

bool userCashEdit::amountAccepted()
{
    const QString text = LineEdit->text();
    return text.trimmed().isEmpty() || Refusal::amount(this, shownType, text).ok;
}

void userCashEdit::readEntry()
{
    tmp.date = cashDate;
    tmp.type = cashType;
    // Read again after the check; text that is no number only gets here before the question
    // on Cancel, where it counts as 0.0 until Yes refuses it.
    tmp.change = AmountReader::read(LineEdit->text()).value;
    tmp.percentage = 100.0;
    // The stored word decides, never its translation.
    if (tmp.type == QLatin1String("pay off"))
        tmp.change = -tmp.change;
}

void userCashEdit::checkChanges()
{
    if (!actu)
        return;
    if (tmp.date != actu->date || tmp.type != actu->type || tmp.change != actu->change
        || tmp.percentage != actu->percentage)
        modified = true;
}

void userCashEdit::store()
{
    if (actu) {
        actu->magic = tmp.magic;
        actu->date = tmp.date;
        actu->type = tmp.type;
        actu->change = tmp.change;
        actu->percentage = tmp.percentage;
    }
    document->recalcUsers();
    document->setModified(true);
    modified = false;
}

void userCashEdit::slotOk()
{
    if (!amountAccepted())
        return;
    readEntry();
    checkChanges();
    if (modified)
        store();
    accept();
}

void userCashEdit::slotCancel()
{
    const bool modifiedBefore = modified;
    readEntry();
    checkChanges();
    if (!modified) {
        reject();
        return;
    }
    switch (askSaveChanges(this, tr("Cancel"))) {
    case QMessageBox::Yes:
        // Yes stores, so it is refused like OK.
        if (!amountAccepted()) {
            modified = modifiedBefore;
            break;
        }
        store();
        accept();
        break;
    case QMessageBox::No:
        modified = false;
        reject();
        break;
    default:
        // The dialog stays open with what was typed.
        break;
    }
}

void userCashEdit::done(int result)
{
    user = nullptr;
    actu = nullptr;
    UserCashDlg::done(result);
}

void userCashEdit::closeEvent(QCloseEvent *event)
{
    slotCancel();
    // accept() and reject() hide the dialog; while it is still shown the answer kept it open.
    if (isVisible())
        event->ignore();
    else
        event->accept();
}

void userCashEdit::slotSelectButton()
{
    if (!calendar)
        return;
    calendar->setDate(cashDate);
    calendar->exec();
    calendar->hide();
    if (calendar->result() == 1) {
        cashDate = calendar->dateText();
        TextLabel->setText(cashDate);
    }
}

void userCashEdit::slotComboChanged(const QString &)
{
    // The box is kept in the form but never used here.
}
