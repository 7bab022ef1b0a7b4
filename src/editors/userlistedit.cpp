#include "editors/userlistedit.h"

#include "data/journeyhistory.h"
#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/editorkeys.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userktoedit.h"
#include "settle/settlement.h"

#include <QList>
#include <QMessageBox>
#include <QStringList>
#include <QTreeWidgetItem>

userListEdit::userListEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : UserListDlg(parent, name, modal)
{
    // Callers always pass a name: the form's caption stays, the name is the object's.
    if (!name)
        setWindowTitle(QString());
    document = doc;
    ListView->setSortingEnabled(false);
    ListView->setAllColumnsShowFocus(true);
    addDeleteKey(ListView, DeleteButton);

    userInput = new userEdit(this, "Input user", true, doc);
    userInput->hide();
    userCash = new userCashEdit(this, "User cash", true, doc);
    userCash->hide();
    showMaximized();
    userKto = new userKtoEdit(this, "User account", true, doc);
    userKto->hide();
}

userListEdit::~userListEdit() = default;

void userListEdit::setRowButtons(bool on)
{
    EinzahlButton->setEnabled(on);
    AuszahlButton->setEnabled(on);
    DeleteButton->setEnabled(on);
    ChangeButton->setEnabled(on);
}

void userListEdit::prepare(calenderEdit *cal)
{
    calendar = cal;
    fillList();
    // The selection shows whom the list worked on last; a new tap on a row switches the
    // buttons on again.
    setRowButtons(false);
}

void userListEdit::fillList()
{
    ListView->clear();
    rowRecords.clear();
    // The traveller last worked on may have left with a journey that was replaced since;
    // a new record may even sit where he was, so any change of the list that was not made
    // here forgets him.
    if (document->users.generation() != usersSeen || !document->users.contains(currentUser))
        currentUser = nullptr;
    QList<QTreeWidgetItem *> rows;
    QTreeWidgetItem *current = nullptr;
    for (UserData *user : document->users) {
        // The heading "name" stands over the first name and "first n." over the surname.
        auto *row = new QTreeWidgetItem(QStringList{user->short_, user->firstname, user->name,
                                                    QString::asprintf("%.2f", user->value)});
        rowRecords.insert(row, user);
        if (user == currentUser)
            current = row;
        rows.append(row);
    }
    ListView->addTopLevelItems(rows);
    usersSeen = document->users.generation();
    if (current) {
        // Selected and current alike, so that the buttons act on the row that is shown.
        ListView->scrollToItem(current);
        ListView->setCurrentItem(current);
    }
}

UserData *userListEdit::findByItem(QTreeWidgetItem *row) const
{
    // A row of an earlier filling, or one whose record has left since, finds nothing.
    UserData *record = rowRecords.value(row);
    return document->users.contains(record) ? record : nullptr;
}

void userListEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    setRowButtons(item != nullptr);
}

void userListEdit::slotAppend()
{
    JourneyStep step(document, ChangeScope::everyAccount());
    currentUser = document->users.append();
    usersSeen = document->users.generation();
    userInput->prepare(currentUser, calendar);
    userInput->exec();
    userInput->hide();
    if (userInput->result() == QDialog::Accepted) {
        step.setText(tr("new traveller %1").arg(currentUser->short_));
        emit overChanged();
    } else {
        document->users.remove(currentUser);
        usersSeen = document->users.generation();
        currentUser = document->users.first();
    }
    fillList();
}

void userListEdit::slotChange()
{
    if (QTreeWidgetItem *row = ListView->currentItem()) {
        currentUser = findByItem(row);
        if (currentUser) {
            JourneyStep step(document, ChangeScope());
            userInput->prepare(currentUser, calendar);
            userInput->exec();
            userInput->hide();
            step.setText(tr("change traveller %1").arg(currentUser->short_));
            emit overChanged();
        }
    }
    fillList();
}

void userListEdit::slotDoubleClicked(QTreeWidgetItem *)
{
    slotChange();
}

QString userListEdit::leaveText(const TravellerLeave &leave) const
{
    const QString &base = document->basecurrency;
    const auto money = [&base](qint64 cents) {
        return Settlement::centsText(cents) + QLatin1Char(' ') + base;
    };
    QStringList lines;
    lines << tr("Balance: %1").arg(money(leave.balanceCents));
    if (leave.deposits > 0)
        lines << tr("Deposits leaving with the traveller: %1 (%2)")
                     .arg(money(leave.depositCents))
                     .arg(leave.deposits);
    if (leave.payOffs > 0)
        lines << tr("Pay-offs leaving with the traveller: %1 (%2)")
                     .arg(money(leave.payOffCents))
                     .arg(leave.payOffs);
    if (!leave.costs.isEmpty()) {
        lines << tr("Shared costs divided again among the others: %1").arg(leave.costs.size());
        // A handful of them by name; the box must stay readable on a small screen.
        constexpr int shown = 4;
        for (int i = 0; i < leave.costs.size() && i < shown; ++i) {
            const CostsData *cost = leave.costs.at(i).cost;
            QStringList parts{cost->date, cost->typeletter,
                              Settlement::centsText(leave.costs.at(i).valueCents)};
            parts.removeAll(QString());
            lines << QStringLiteral("  ") + parts.join(QLatin1Char(' '));
        }
        if (leave.costs.size() > shown)
            lines << QStringLiteral("  ") + tr("and %1 more").arg(leave.costs.size() - shown);
    }
    return lines.join(QLatin1Char('\n'));
}

void userListEdit::slotDelete()
{
    QTreeWidgetItem *row = ListView->currentItem();
    if (!row)
        return;
    currentUser = findByItem(row);
    if (!currentUser)
        return;
    const TravellerLeave leave = TravellerLeave::of(*document, currentUser);
    QString text = tr("Delete user entry") + QLatin1Char('\n') + currentUser->firstname
        + QLatin1Char('\n') + currentUser->name + QStringLiteral("\n\n");
    // With an account, the question says what leaves with the traveller and what the
    // others take over.
    if (leave.hasLines)
        text += leaveText(leave) + QStringLiteral("\n\n");
    text += tr("confirm with yes !");
    JourneyStep step(document, ChangeScope::everyAccount());
    step.setText(tr("delete traveller %1").arg(currentUser->short_));
    const auto answer = QMessageBox::information(this, tr("Delete item"), text,
                                                 QMessageBox::Yes | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) {
        // Listeners see the traveller still present. His shares of costs go to those who
        // shared them with him, so every shared cost stays fully booked; his deposits and
        // pay-offs leave with him.
        emit overChanged();
        TravellerLeave::remove(*document, currentUser);
        usersSeen = document->users.generation();
        currentUser = document->users.first();
    }
    fillList();
}

void userListEdit::bookCash(int magic, const QString &type)
{
    QTreeWidgetItem *row = ListView->currentItem();
    if (row)
        currentUser = findByItem(row);
    if (row && currentUser) {
        JourneyStep step(document, ChangeScope::lines(magic));
        step.setText(magic == -2 ? tr("deposit of %1").arg(currentUser->short_)
                                 : tr("pay-off of %1").arg(currentUser->short_));
        currentUser->addKto(magic);
        KtoData *line = currentUser->kto.last();
        // The empty date opens the calendar before the dialog.
        userCash->prepare(type, QString(), currentUser, line, calendar);
        userCash->exec();
        userCash->hide();
        if (userCash->result() == QDialog::Accepted)
            emit overChanged();
        else
            currentUser->removeKto(line);
    }
    fillList();
}

void userListEdit::slotEinzahl()
{
    // The type words are stored in the file, so they stay untranslated.
    bookCash(-2, QStringLiteral("deposit"));
}

void userListEdit::slotAuszahl()
{
    bookCash(-3, QStringLiteral("pay off"));
}

void userListEdit::slotKonto()
{
    QTreeWidgetItem *row = ListView->currentItem();
    if (!row)
        return;
    if (UserData *user = findByItem(row)) {
        userKto->prepare(user);
        userKto->exec();
        userKto->hide();
    }
}

void userListEdit::slotClose()
{
    accept();
}
