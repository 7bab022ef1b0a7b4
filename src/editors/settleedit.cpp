#include "editors/settleedit.h"

#include "data/wayferndata.h"

#include <QDate>
#include <QLabel>
#include <QMessageBox>
#include <QStringList>

settleEdit::settleEdit(QWidget *parent, const char *name, bool modal, WayFernData *document)
    : SettleDlg(parent, name, modal), document(document)
{
    // Under the plan: whether it is proven to be the fewest transfers.
    planNote = new QLabel(this);
    planNote->setObjectName(QStringLiteral("PlanNoteLabel"));
    planNote->setToolTip(QStringLiteral("PlanNoteLabel"));
    planNote->setWordWrap(true);
    planNote->setWhatsThis(tr("Whether the plan is proven to need the fewest transfers."));
    SettleDlgLayout->insertWidget(SettleDlgLayout->indexOf(PlanListView) + 1, planNote);
    showMaximized();
}

void settleEdit::setData()
{
    settlement = Settlement::fromJourney(*document, tr("kitty"));
    const QString current = SettleWithComboBox->currentText();
    SettleWithComboBox->clear();
    for (const UserData *user : document->users)
        SettleWithComboBox->addItem(user->short_);
    const int keep = SettleWithComboBox->findText(current);
    SettleWithComboBox->setCurrentIndex(keep >= 0 ? keep : 0);
    const bool travellers = !document->users.isEmpty();
    SettleWithCheckBox->setEnabled(travellers);
    if (!travellers)
        SettleWithCheckBox->setChecked(false);
    SettleWithComboBox->setEnabled(travellers && SettleWithCheckBox->isChecked());
    fillBalances();
    fillPlan();
}

void settleEdit::fillBalances()
{
    const QString &base = document->basecurrency;
    BalanceListView->clear();
    QList<QTreeWidgetItem *> rows;
    for (const Settlement::Party &party : settlement.parties()) {
        rows.append(new QTreeWidgetItem(
            {party.name, Settlement::centsText(party.cents) + QLatin1Char(' ') + base}));
        rows.last()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    BalanceListView->addTopLevelItems(rows);
    const QList<Settlement::OpenCost> &open = settlement.openCosts();
    if (open.isEmpty()) {
        UnbookedLabel->setText(tr("Left unbooked by the division of shared costs: %1 %2")
                                   .arg(Settlement::centsText(settlement.unbookedCents()), base));
        return;
    }
    // Shares that do not add up to their cost are no rounding: they are named, so that the
    // person can open those costs and share them again.
    QStringList lines{
        tr("Left unbooked because the shares of these costs do not add up to them: %1 %2")
            .arg(Settlement::centsText(settlement.unbookedCents()), base)};
    const QString pattern = tr("%1 %2 %3, shares %4");
    constexpr int shown = 5; // a small screen
    for (int i = 0; i < open.size() && i < shown; ++i)
        lines << Settlement::openCostText(open.at(i), pattern);
    if (open.size() > shown)
        lines << tr("and %1 more").arg(open.size() - shown);
    UnbookedLabel->setText(lines.join(QLatin1Char('\n')));
}

void settleEdit::fillPlan()
{
    if (SettleWithCheckBox->isChecked() && SettleWithComboBox->currentIndex() >= 0) {
        shownPlan = settlement.settleWith(SettleWithComboBox->currentIndex());
        planNote->clear();
    } else {
        const Settlement::Plan plan = settlement.fewestTransfers();
        shownPlan = plan.transfers;
        if (shownPlan.isEmpty())
            planNote->clear();
        else if (plan.provenFewest)
            planNote->setText(tr("These are the fewest transfers possible."));
        else
            planNote->setText(tr("The plan may not be the fewest transfers possible: too many "
                                 "travellers owe or are owed to prove it."));
    }
    planNote->setVisible(!planNote->text().isEmpty());
    PlanListView->clear();
    QList<QTreeWidgetItem *> rows;
    for (const Settlement::Transfer &transfer : shownPlan)
        rows.append(new QTreeWidgetItem(
            {Settlement::transferText(transfer, document->basecurrency, tr("%1 pays %2 %3 %4"))}));
    if (rows.isEmpty())
        rows.append(new QTreeWidgetItem({tr("Nobody owes anybody anything.")}));
    PlanListView->addTopLevelItems(rows);
    BookButton->setEnabled(!shownPlan.isEmpty());
}

void settleEdit::slotSettleWithChanged()
{
    SettleWithComboBox->setEnabled(SettleWithCheckBox->isChecked());
    fillPlan();
}

void settleEdit::slotBook()
{
    if (shownPlan.isEmpty())
        return;
    const QDate today = QDate::currentDate();
    const QString date =
        QString::asprintf("%02d.%02d.%04d", today.day(), today.month(), today.year());
    const QString question =
        tr("Book %1 transfers as deposits and pay-offs dated %2 ?\n\nAfterwards every "
           "balance is 0.00.")
            .arg(shownPlan.count())
            .arg(date);
    if (QMessageBox::question(this, tr("Book the plan"), question,
                              QMessageBox::Yes | QMessageBox::No)
        != QMessageBox::Yes)
        return;
    Settlement::book(*document, shownPlan, date);
    setData();
    emit overChanged();
}

void settleEdit::slotClose()
{
    accept();
}
