// Settling up from the window: the action after the existing ones, the dialog with the
// balances, the kitty, what is unbooked and why, and the plan, and booking the plan.

#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "editors/settleedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAction>
#include <QDate>
#include <QLabel>
#include <QToolBar>
#include <QtTest>

namespace {

QStringList column(QTreeWidget *view, int col = 0)
{
    QStringList texts;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        texts << view->topLevelItem(i)->text(col);
    return texts;
}

QString today()
{
    const QDate d = QDate::currentDate();
    return QString::asprintf("%02d.%02d.%04d", d.day(), d.month(), d.year());
}

// Opens the settle-up dialog through the toolbar action and runs `inside` on it.
ModalTicket inNextSettleDialog(std::function<void(settleEdit *, ModalOutcome &)> inside)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<settleEdit *>(w) != nullptr; },
        [inside](QWidget *w, ModalOutcome &out) {
            auto *dialog = qobject_cast<settleEdit *>(w);
            inside(dialog, out);
            if (dialog->isVisible())
                dialog->CloseButton->click();
        });
}

} // namespace

class TestSettleUp : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("Not implemented yet!")));
    }
    void cleanup() { ModalHelper::cancelPending(); }

    void theActionComesAfterTheExistingOnesOnTheToolbarBeforeUndoAndRedo()
    {
        ShellFixture fx;
        WayfernApp app;
        QVERIFY(app.settleUp);
        QCOMPARE(app.settleUp->text(), QStringLiteral("Settle up"));
        QVERIFY(!app.settleUp->icon().isNull());
        QVERIFY(app.settleUp->whatsThis().startsWith(QStringLiteral("Settle up\n\n")));
        const QList<QAction *> actions = app.toolBar->actions();
        // Only the report, the CSV export, undo and redo come after it.
        QCOMPARE(actions.at(actions.count() - 5), app.settleUp);
        QCOMPARE(actions.at(actions.count() - 4), app.report);
        QCOMPARE(actions.at(actions.count() - 3), app.exportCsv);
        QCOMPARE(actions.at(actions.count() - 2), app.editUndo);
        QCOMPARE(actions.last(), app.editRedo);
        // What stood there before keeps its place: help, then what's this.
        QCOMPARE(actions.at(actions.count() - 7), app.openHelp);
    }

    void theFormCarriesItsNamesTextsAndTips()
    {
        ShellFixture fx;
        WayfernApp app;
        settleEdit *d = app.view->settleInput;
        QVERIFY(d);
        QCOMPARE(d->objectName(), QStringLiteral("Settle up"));
        QCOMPARE(d->windowTitle(), QStringLiteral("Settle up"));
        QVERIFY(d->isModal());
        QCOMPARE(d->BalanceListView->headerItem()->text(0), QStringLiteral("traveller"));
        QCOMPARE(d->BalanceListView->headerItem()->text(1), QStringLiteral("balance"));
        QCOMPARE(d->PlanListView->headerItem()->text(0), QStringLiteral("transfer"));
        QCOMPARE(d->SettleWithCheckBox->text(), QStringLiteral("Settle with one traveller"));
        QCOMPARE(d->BookButton->text(), QStringLiteral("Book the plan"));
        QCOMPARE(d->CloseButton->text(), QStringLiteral("Close"));
        QCOMPARE(d->BookButton->toolTip(), QStringLiteral("BookButton"));
        QCOMPARE(d->UnbookedLabel->whatsThis(),
                 QStringLiteral("What the shares of shared costs\nleave to nobody. Shares add up "
                                "to their cost;\ncosts whose shares do not are listed here."));
    }

    void theDialogShowsBalancesKittyTheCostWhoseSharesDoNotAddUpAndThePlan()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QStringList names, balances, plan;
        QString unbooked, note;
        bool bookOn = false, noteShown = false;
        ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
            names = column(d->BalanceListView, 0);
            balances = column(d->BalanceListView, 1);
            plan = column(d->PlanListView);
            unbooked = d->UnbookedLabel->text();
            bookOn = d->BookButton->isEnabled();
            note = d->planNote->text();
            noteShown = !d->planNote->isHidden();
        });
        app.settleUp->trigger();
        QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
        QCOMPARE(names, QStringList({"AB", "CD", "EF", "kitty"}));
        // 100.00 and 12.50 paid in, 64.67 spent by each: the kitty lacks 81.51.
        QCOMPARE(balances, QStringList({"35.33 EUR", "-64.67 EUR", "-52.17 EUR", "81.51 EUR"}));
        // Three shares of 16.67 booked for a cost of 50.00 in a file from elsewhere: one cent
        // too many, named with its cost.
        QCOMPARE(unbooked,
                 QStringLiteral("Left unbooked because the shares of these costs do not add up "
                                "to them: -0.01 EUR\n31.05.2002 T 50.00, shares 50.01"));
        QCOMPARE(plan,
                 QStringList({"CD pays kitty 64.67 EUR", "EF pays AB 35.33 EUR",
                              "EF pays kitty 16.84 EUR"}));
        QVERIFY(bookOn);
        QCOMPARE(note, QStringLiteral("These are the fewest transfers possible."));
        QVERIFY(noteShown);
    }

    void thePlanNoteSitsUnderThePlanAndCarriesItsName()
    {
        ShellFixture fx;
        WayfernApp app;
        settleEdit *d = app.view->settleInput;
        QVERIFY(d->planNote);
        QCOMPARE(d->planNote->objectName(), QStringLiteral("PlanNoteLabel"));
        QCOMPARE(d->planNote->toolTip(), QStringLiteral("PlanNoteLabel"));
        QCOMPARE(d->planNote->whatsThis(),
                 QStringLiteral("Whether the plan is proven to need the fewest transfers."));
        QCOMPARE(d->SettleDlgLayout->indexOf(d->planNote),
                 d->SettleDlgLayout->indexOf(d->PlanListView) + 1);
    }

    void moreThanTwentyTravellersOwingGetAPlanThatMayNotBeTheFewest()
    {
        for (const int travellers : {20, 21}) {
            ShellFixture fx;
            WayfernApp app;
            // Everybody but the last deposited 1.00 to 20.00; the last paid all that out, so
            // the kitty holds nothing and `travellers` parties owe or are owed.
            double paidIn = 0.0;
            for (int i = 0; i < travellers; ++i) {
                UserData *user = app.doc->users.append();
                user->short_ = QStringLiteral("T%1").arg(i, 2, 10, QLatin1Char('0'));
                KtoData *line = user->addKto(i + 1 < travellers ? -2 : -3);
                line->type = QLatin1String(i + 1 < travellers ? "deposit" : "pay off");
                line->change = i + 1 < travellers ? double(i + 1) : -paidIn;
                paidIn += line->change;
            }
            app.doc->recalcUsers();
            QString note;
            int transfers = 0;
            bool noteShown = false;
            ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
                note = d->planNote->text();
                noteShown = !d->planNote->isHidden();
                transfers = d->PlanListView->topLevelItemCount();
            });
            app.settleUp->trigger();
            QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
            QCOMPARE(transfers, travellers - 1);
            QVERIFY(noteShown);
            if (travellers > 20)
                QCOMPARE(note,
                         QStringLiteral("The plan may not be the fewest transfers "
                                        "possible: too many travellers owe or are owed to "
                                        "prove it."));
            else
                QCOMPARE(note, QStringLiteral("These are the fewest transfers possible."));
        }
    }

    void settlingWithOneTravellerLetsEverybodyPayOrBePaidByHim()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QStringList plan, back;
        QString noteWith, noteBack;
        bool comboOff = false, comboOn = false, noteHidden = false;
        ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
            comboOff = !d->SettleWithComboBox->isEnabled();
            QTest::mouseClick(d->SettleWithCheckBox, Qt::LeftButton, {},
                              QPoint(4, d->SettleWithCheckBox->height() / 2));
            comboOn = d->SettleWithComboBox->isEnabled();
            d->SettleWithComboBox->setCurrentIndex(2);
            emit d->SettleWithComboBox->activated(2);
            plan = column(d->PlanListView);
            noteWith = d->planNote->text();
            noteHidden = d->planNote->isHidden();
            d->SettleWithCheckBox->setChecked(false);
            back = column(d->PlanListView);
            noteBack = d->planNote->text();
        });
        app.settleUp->trigger();
        QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
        QVERIFY(comboOff);
        QVERIFY(comboOn);
        QCOMPARE(plan,
                 QStringList(
                     {"EF pays AB 35.33 EUR", "CD pays EF 64.67 EUR", "EF pays kitty 81.51 EUR"}));
        QCOMPARE(back.count(), 3);
        QCOMPARE(back.first(), QStringLiteral("CD pays kitty 64.67 EUR"));
        // Around one traveller the plan claims nothing about its length.
        QCOMPARE(noteWith, QString());
        QVERIFY(noteHidden);
        QCOMPARE(noteBack, QStringLiteral("These are the fewest transfers possible."));
    }

    void bookingAskedAndAnsweredNoChangesNothing()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const int lines = app.doc->users.at(0)->kto.count();
        ModalTicket box;
        ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
            box = ModalHelper::answerNextMessageBox(QMessageBox::No);
            d->BookButton->click();
        });
        app.settleUp->trigger();
        QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
        QVERIFY2(box && box->handled, box ? qPrintable(box->error) : "no box armed");
        QCOMPARE(box->title, QStringLiteral("Book the plan"));
        QCOMPARE(box->text,
                 QStringLiteral("Book 3 transfers as deposits and pay-offs dated %1 "
                                "?\n\nAfterwards every balance is 0.00.")
                     .arg(today()));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No);
        QVERIFY(!app.doc->isModified());
        QCOMPARE(app.doc->users.at(0)->kto.count(), lines);
    }

    void bookingThePlanLeavesEveryBalanceAtZeroAndTheJourneyModified()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QStringList after, planAfter;
        bool bookOffAfter = false;
        ModalTicket box;
        ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
            box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            d->BookButton->click();
            after = column(d->BalanceListView, 1);
            planAfter = column(d->PlanListView);
            bookOffAfter = !d->BookButton->isEnabled();
        });
        app.settleUp->trigger();
        QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
        QVERIFY2(box && box->handled, box ? qPrintable(box->error) : "no box armed");
        QCOMPARE(after, QStringList({"0.00 EUR", "0.00 EUR", "0.00 EUR", "0.00 EUR"}));
        QCOMPARE(planAfter, QStringList({"Nobody owes anybody anything."}));
        QVERIFY(bookOffAfter);
        QVERIFY(app.doc->isModified());

        // EF paid twice: two deposits; AB received: one pay-off; the kitty has no account.
        const UserData *ab = app.doc->users.at(0);
        const UserData *ef = app.doc->users.at(2);
        QCOMPARE(ab->kto.last()->type, QStringLiteral("pay off"));
        QCOMPARE(ab->kto.last()->magic, -3);
        QCOMPARE(ab->kto.last()->date, today());
        QCOMPARE(ef->kto.at(ef->kto.count() - 2)->type, QStringLiteral("deposit"));
        QCOMPARE(ef->kto.at(ef->kto.count() - 2)->change, 35.33);
        QCOMPARE(ef->kto.last()->magic, -2);
        for (const UserData *user : app.doc->users)
            QCOMPARE(user->value, 0.0);

        // The overview shows the new balances after the dialog.
        const QList<QTreeWidgetItem *> rows =
            app.view->OverListView->findItems(QStringLiteral("AB"), Qt::MatchRecursive);
        QCOMPARE(rows.count(), 1);
        QCOMPARE(rows.first()->text(1), QStringLiteral("0.00"));
    }

    void aJourneyWithoutTravellersHasNothingToSettle()
    {
        // A new journey from the template, which has no travellers.
        ShellFixture fx;
        WayfernApp app;
        QVERIFY(app.doc->users.isEmpty());
        QStringList balances, plan;
        bool bookOff = false, checkOff = false, noteHidden = false;
        ModalTicket t = inNextSettleDialog([&](settleEdit *d, ModalOutcome &) {
            balances = column(d->BalanceListView, 1);
            plan = column(d->PlanListView);
            noteHidden = d->planNote->isHidden() && d->planNote->text().isEmpty();
            bookOff = !d->BookButton->isEnabled();
            checkOff = !d->SettleWithCheckBox->isEnabled();
        });
        app.settleUp->trigger();
        QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
        QCOMPARE(balances, QStringList({"0.00 EUR"}));
        QCOMPARE(plan, QStringList({"Nobody owes anybody anything."}));
        QVERIFY(bookOff);
        QVERIFY(checkOff);
        QVERIFY(noteHidden);
        QVERIFY(!app.doc->isModified());
    }
};

QTEST_MAIN(TestSettleUp)
#include "tst_settleup.moc"
