#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "usertestutil.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userktoedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "forms/userlistdlg.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QFile>
#include <QHeaderView>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

class RecordingUserListDlg : public UserListDlg
{
public:
    QStringList calls;
    void slotKonto() override { calls << "slotKonto"; }
    void slotAppend() override { calls << "slotAppend"; }
    void slotAuszahl() override { calls << "slotAuszahl"; }
    void slotChange() override { calls << "slotChange"; }
    void slotClose() override { calls << "slotClose"; }
    void slotDelete() override { calls << "slotDelete"; }
    void slotDoubleClicked(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotDoubleClicked %1").arg(i ? i->text(0) : "null");
    }
    void slotEinzahl() override { calls << "slotEinzahl"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
};

// The list on the small journey: AB (Anna Berg), CD (Carl Dorn), EF (Eva Fell), and one
// cost of 30.00 EUR shared among the three, 10.00 each.
struct Fixture
{
    explicit Fixture(bool users = true)
    {
        fillJourney(doc, users);
        const char *const names[][2] = {{"Anna", "Berg"}, {"Carl", "Dorn"}, {"Eva", "Fell"}};
        int i = 0;
        for (UserData *user : doc.users) {
            user->firstname = QString::fromLatin1(names[i][0]);
            user->name = QString::fromLatin1(names[i][1]);
            ++i;
        }
        if (users) {
            CostsData *cost = doc.costs.append();
            cost->date = QStringLiteral("03.06.2002");
            cost->type = QStringLiteral("Food");
            cost->ctype = QStringLiteral("EUR");
            cost->fval = QStringLiteral("30.00");
            cost->bval = QStringLiteral("30.00");
            cost->shared = true;
            cost->id = 7;
            for (UserData *user : doc.users) {
                KtoData *line = user->addKto(7);
                line->change = -10.0;
                line->percentage = 33.3333;
                line->type = QStringLiteral("cost");
                line->date = cost->date;
            }
            doc.recalcUsers();
        }
        calendar.hide();
        list.hide();
        list.prepare(&calendar);
    }

    QTreeWidgetItem *rowOf(const QString &shortName)
    {
        return WidgetReaders::topLevelItem(list.ListView, shortName);
    }
    bool tap(const QString &shortName)
    {
        return ModalHelper::tapItem(list.ListView, rowOf(shortName));
    }
    bool rowButtons(bool on) const
    {
        return list.EinzahlButton->isEnabled() == on && list.AuszahlButton->isEnabled() == on
            && list.DeleteButton->isEnabled() == on && list.ChangeButton->isEnabled() == on;
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    userListEdit list{nullptr, "User List", true, &doc};
};

const FormCheck::WidgetRow listFormWidgets[] = {
    {"UserListDlg", "UserListDlg", "User List"},
    {"AppendButton", "QToolButton", "", "AppendButton",
     "appends a new user to\nthe user list.\nThis will open an empty user dialog\nto fill in the "
     "data.",
     ":/pixmaps/useradd.xpm"},
    {"ChangeButton", "QToolButton", "", "ChangeButton",
     "changes the data of an existing user.\nThe user to be changed has to be selected.",
     ":/pixmaps/userchange.xpm"},
    {"DeleteButton", "QToolButton", "", "DeleteButton",
     "deletes the selected user from the list.\nThe user is asked to confirm the\naction.",
     ":/pixmaps/userdelete.xpm"},
    {"KtoButton", "QToolButton", "", "AccountButton",
     "opens a dialog with the users\nactual account.", ":/pixmaps/useraccount.xpm"},
    {"EinzahlButton", "QToolButton", "", "DepositButton",
     "opens a dialog for a users cash deposit into his account.", ":/pixmaps/userdeposit.xpm"},
    {"AuszahlButton", "QToolButton", "", "PayOffButton",
     "opens a dialog for a users \ncash pay off from his account.", ":/pixmaps/userpayoff.xpm"},
    {"CloseButton", "QToolButton", "", "CloseButton", "closes the form and stores\nthe changes",
     ":/pixmaps/close.xpm"},
    {"ListView", "QTreeWidget", "short|name|first n.|value", "",
     "This list shows the users available."},
};

const FormCheck::StubRow listFormStubs[] = {
    {"slotKonto()", "UserListDlg::slotKonto(): Not implemented yet!"},
    {"slotAppend()", "UserListDlg::slotAppend(): Not implemented yet!"},
    {"slotAuszahl()", "UserListDlg::slotAuszahl(): Not implemented yet!"},
    {"slotChange()", "UserListDlg::slotChange(): Not implemented yet!"},
    {"slotClose()", "UserListDlg::slotClose(): Not implemented yet!"},
    {"slotDelete()", "UserListDlg::slotDelete(): Not implemented yet!"},
    {"slotDoubleClicked(QTreeWidgetItem*)",
     "UserListDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotEinzahl()", "UserListDlg::slotEinzahl(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "UserListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
};

} // namespace

class TestUserList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        UserListDlg dlg(nullptr, "User List", true);
        QVERIFY(dlg.isModal());
        QCOMPARE(FormCheck::childWidgets(&dlg),
                 (QStringList{"AppendButton:QToolButton", "ChangeButton:QToolButton",
                              "DeleteButton:QToolButton", "KtoButton:QToolButton",
                              "EinzahlButton:QToolButton", "AuszahlButton:QToolButton",
                              "CloseButton:QToolButton", "ListView:QTreeWidget"}));
        // The headings only label the columns.
        QVERIFY(!dlg.ListView->header()->sectionsClickable());
        QCOMPARE(dlg.ListView->columnCount(), 4);
        // Every column as wide as its entries: the balance shows on a small screen.
        for (int column = 0; column < 4; ++column)
            QCOMPARE(dlg.ListView->header()->sectionResizeMode(column),
                     QHeaderView::ResizeToContents);
        UserListDlg form;
        FormCheck::checkWidgets(&form, listFormWidgets);
    }

    void formLayoutHasTheButtonRowAboveTheList()
    {
        UserListDlg dlg;
        QCOMPARE(
            FormCheck::layoutOutline(dlg.layout()),
            (QStringList{"QVBoxLayout margins 11 spacing 6", "  QHBoxLayout margins 0 spacing 6",
                         "    AppendButton", "    ChangeButton", "    DeleteButton",
                         "    spacer 20x20 Expanding", "    KtoButton", "    EinzahlButton",
                         "    AuszahlButton", "    CloseButton", "  ListView"}));
    }

    void formStubSlotsWarnNotImplemented()
    {
        UserListDlg dlg;
        FormCheck::checkStubs(&dlg, UserListDlg::staticMetaObject, listFormStubs);
    }

    void formConnectsItsButtonsAndListToTheSlots()
    {
        RecordingUserListDlg dlg;
        dlg.show();
        for (QToolButton *b :
             {dlg.AppendButton, dlg.ChangeButton, dlg.DeleteButton, dlg.CloseButton,
              dlg.EinzahlButton, dlg.AuszahlButton, dlg.KtoButton})
            b->click();
        QCOMPARE(dlg.calls,
                 (QStringList{"slotAppend", "slotChange", "slotDelete", "slotClose", "slotEinzahl",
                              "slotAuszahl", "slotKonto"}));
        dlg.calls.clear();
        auto *item = new QTreeWidgetItem(dlg.ListView, QStringList{"AB"});
        QVERIFY(ModalHelper::tapItem(dlg.ListView, item));
        const QRect rect = dlg.ListView->visualItemRect(item);
        QTest::mouseDClick(dlg.ListView->viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY(dlg.calls.contains("slotDoubleClicked AB"));
        QCOMPARE(dlg.calls.first(), QStringLiteral("slotSelectionChanged AB"));
    }

    void theListOwnsItsThreeDialogsBuiltModalAndHidden()
    {
        Fixture f;
        QCOMPARE(f.list.windowTitle(), QStringLiteral("User List"));
        QCOMPARE(f.list.objectName(), QStringLiteral("User List"));
        QStringList dialogs;
        for (QDialog *d : f.list.findChildren<QDialog *>(Qt::FindDirectChildrenOnly)) {
            dialogs << d->objectName() + u':' + QString::fromLatin1(d->metaObject()->className());
            QVERIFY(d->isHidden());
            QVERIFY(d->isModal());
        }
        QCOMPARE(dialogs,
                 (QStringList{"Input user:userEdit", "User cash:userCashEdit",
                              "User account:userKtoEdit"}));
    }

    void rowsKeepTheSwappedHeadingsAndTheListsOrder()
    {
        Fixture f;
        QCOMPARE(WidgetReaders::headerTexts(f.list.ListView),
                 (QStringList{"short", "name", "first n.", "value"}));
        // "name" stands over the first name, "first n." over the surname.
        QCOMPARE(WidgetReaders::treeRows(f.list.ListView),
                 (QStringList{"AB|Anna|Berg|-10.00", "CD|Carl|Dorn|-10.00", "EF|Eva|Fell|-10.00"}));
        QCOMPARE(f.list.findByItem(f.rowOf("CD")), f.doc.users.at(1));
    }

    void withNoUsersTheListIsEmptyAndTheRowButtonsStayOff()
    {
        Fixture f(false);
        QCOMPARE(f.list.ListView->topLevelItemCount(), 0);
        QVERIFY(f.rowButtons(false));
        QVERIFY(f.list.KtoButton->isEnabled());
        QVERIFY(f.list.AppendButton->isEnabled());
        // Nothing to act on: the buttons' slots do nothing.
        f.list.slotKonto();
        f.list.slotDelete();
        f.list.slotChange();
        f.list.slotEinzahl();
        QCOMPARE(f.doc.users.count(), 0);
        QVERIFY(!f.doc.isModified());
    }

    void selectingARowSwitchesTheRowButtonsOn()
    {
        Fixture f;
        QVERIFY(f.rowButtons(false));
        QVERIFY(f.tap("CD"));
        QVERIFY(f.rowButtons(true));
        f.list.ListView->clearSelection();
        QVERIFY(f.rowButtons(false));
    }

    void aConfirmedNewUserIsAppendedSelectedAndAnnounced()
    {
        Fixture f;
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        ModalTicket ed = inNextUserEditor("OkButton", [](userEdit *e, ModalOutcome &out) {
            if (e->ListView->topLevelItemCount() != 3 || !e->LineEdit->text().isEmpty())
                out.error += QStringLiteral("not an empty user; ");
            typeInto(e, "common", "short", "GH", out);
            typeInto(e, "common", "first", "Gil", out);
            typeInto(e, "common", "name", "Hart", out);
        });
        f.list.AppendButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(ed->title, QStringLiteral("User"));
        QCOMPARE(ed->objectName, QStringLiteral("Input user"));
        QCOMPARE(over.count(), 1);
        QCOMPARE(f.doc.users.count(), 4);
        QCOMPARE(f.doc.users.last()->short_, QStringLiteral("GH"));
        QCOMPARE(f.list.currentUser, f.doc.users.last());
        QCOMPARE(WidgetReaders::treeRows(f.list.ListView).last(),
                 QStringLiteral("GH|Gil|Hart|0.00"));
        QVERIFY(f.rowOf("GH")->isSelected());
        QVERIFY(f.rowButtons(true));
        QVERIFY(f.doc.isModified());
    }

    void aRejectedNewUserLeavesNoTrace()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        ModalTicket ed = inNextUserEditor("CancelButton");
        f.list.AppendButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(over.count(), 0);
        QCOMPARE(f.doc.users.count(), 3);
        QCOMPARE(f.list.ListView->topLevelItemCount(), 3);
        // The first traveller becomes the current one.
        QCOMPARE(f.list.currentUser, f.doc.users.first());
        QVERIFY(f.rowOf("AB")->isSelected());
        QVERIFY(!f.doc.isModified());
    }

    void aNewUserConfirmedEmptyStaysAndLeavesTheDocumentUnmodified()
    {
        Fixture f;
        ModalTicket ed = inNextUserEditor("OkButton");
        f.list.AppendButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(f.doc.users.count(), 4);
        QCOMPARE(WidgetReaders::treeRows(f.list.ListView).last(), QStringLiteral("|||0.00"));
        QVERIFY(!f.doc.isModified());
    }

    void changeOpensTheEditorOnTheSelectedUserAndAnnouncesEvenACancel()
    {
        Fixture f;
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        QVERIFY(f.tap("CD"));
        ModalTicket ed = inNextUserEditor("OkButton", [](userEdit *e, ModalOutcome &out) {
            if (e->actu == nullptr || e->actu->short_ != QStringLiteral("CD"))
                out.error += QStringLiteral("not CD; ");
            typeInto(e, "common", "name", "Dale", out);
        });
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(f.doc.users.at(1)->name, QStringLiteral("Dale"));
        QCOMPARE(f.rowOf("CD")->text(2), QStringLiteral("Dale"));
        QCOMPARE(over.count(), 1);
        QCOMPARE(f.list.currentUser, f.doc.users.at(1));

        ModalTicket cancel = inNextUserEditor("CancelButton");
        f.list.ChangeButton->click();
        QVERIFY2(cancel->handled && cancel->error.isEmpty(), qPrintable(cancel->error));
        QCOMPARE(over.count(), 2);
    }

    void aChangedUserKeepsHisAccount()
    {
        Fixture f;
        UserData *cd = f.doc.users.at(1);
        cd->count = 4;
        QVERIFY(f.tap("CD"));
        ModalTicket ed = inNextUserEditor("OkButton", [](userEdit *e, ModalOutcome &out) {
            typeInto(e, "common", "short", "CX", out);
        });
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(cd->short_, QStringLiteral("CX"));
        QCOMPARE(cd->value, -10.0);
        QCOMPARE(cd->count, 4);
        QCOMPARE(cd->kto.count(), 1);
        QCOMPARE(cd->kto.at(0)->magic, 7);
    }

    void doubleClickingARowOpensTheSameDialogAsChange()
    {
        Fixture f;
        f.list.show();
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        QString shown;
        ModalTicket ed = inNextUserEditor("OkButton", [&shown](userEdit *e, ModalOutcome &) {
            shown = e->actu ? e->actu->short_ : QStringLiteral("none");
        });
        QTreeWidgetItem *row = f.rowOf("EF");
        QVERIFY(ModalHelper::tapItem(f.list.ListView, row));
        QTest::mouseDClick(f.list.ListView->viewport(), Qt::LeftButton, {},
                           f.list.ListView->visualItemRect(row).center());
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(ed->objectName, QStringLiteral("Input user"));
        QCOMPARE(shown, QStringLiteral("EF"));
        QCOMPARE(over.count(), 1);
    }

    void deleteAsksNamingBalanceAndCostsAndYesDividesHisShareAmongTheOthers()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        int usersSeen = -1;
        connect(&f.list, &userListEdit::overChanged, this,
                [&] { usersSeen = f.doc.users.count(); });
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text,
                 QStringLiteral("Delete user entry\nCarl\nDorn\n\n"
                                "Balance: -10.00 EUR\n"
                                "Shared costs divided again among the others: 1\n"
                                "  03.06.2002 30.00\n\n"
                                "confirm with yes !"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->icon, QMessageBox::Information);
        // The signal goes out while the traveller is still there.
        QCOMPARE(usersSeen, 3);
        QCOMPARE(f.doc.users.count(), 2);
        QCOMPARE(WidgetReaders::columnTexts(f.list.ListView), (QStringList{"AB", "EF"}));
        QCOMPARE(f.list.currentUser, f.doc.users.first());
        // The cost stays shared and fully booked: the two left share it.
        QVERIFY(f.doc.costs.first()->shared);
        for (UserData *user : f.doc.users) {
            QCOMPARE(user->kto.count(), 1);
            QCOMPARE(user->kto.at(0)->change, -15.0);
            QCOMPARE(user->kto.at(0)->percentage, 50.0);
            QCOMPARE(user->value, -15.0);
        }
        QCOMPARE(WidgetReaders::columnTexts(f.list.ListView, 3), (QStringList{"-15.00", "-15.00"}));
        // A deletion is a change of the journey.
        QVERIFY(f.doc.isModified());
    }

    void aTravellerWithoutAccountLinesIsAskedThePlainQuestion()
    {
        Fixture f;
        UserData *gus = f.doc.users.append();
        gus->short_ = QStringLiteral("GH");
        gus->firstname = QStringLiteral("Gus");
        gus->name = QStringLiteral("Hale");
        f.list.prepare(&f.calendar);
        QVERIFY(f.tap("GH"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text, QStringLiteral("Delete user entry\nGus\nHale\n\nconfirm with yes !"));
        QCOMPARE(f.doc.users.count(), 3);
        for (UserData *user : f.doc.users)
            QCOMPARE(user->kto.at(0)->change, -10.0);
        QVERIFY(f.doc.isModified());
    }

    void aLongListOfSharedCostsIsCutShortInTheQuestion()
    {
        Fixture f;
        for (int id = 8; id < 14; ++id) {
            CostsData *cost = f.doc.costs.append();
            cost->date = QStringLiteral("%1.06.2002").arg(id, 2, 10, QLatin1Char('0'));
            cost->typeletter = QStringLiteral("F");
            cost->bval = QStringLiteral("%1.00").arg(id);
            cost->id = id;
            for (UserData *user : f.doc.users)
                user->addKto(id)->change = user->short_ == QLatin1String("AB") ? -double(id) : 0.0;
        }
        KtoData *payOff = f.doc.users.at(0)->addKto(-3);
        payOff->change = -20.0;
        KtoData *deposit = f.doc.users.at(0)->addKto(-2);
        deposit->change = 100.0;
        f.doc.recalcUsers();
        f.list.prepare(&f.calendar);
        QVERIFY(f.tap("AB"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->text,
                 QStringLiteral("Delete user entry\nAnna\nBerg\n\n"
                                "Balance: 7.00 EUR\n"
                                "Deposits leaving with the traveller: 100.00 EUR (1)\n"
                                "Pay-offs leaving with the traveller: 20.00 EUR (1)\n"
                                "Shared costs divided again among the others: 7\n"
                                "  03.06.2002 30.00\n"
                                "  08.06.2002 F 8.00\n"
                                "  09.06.2002 F 9.00\n"
                                "  10.06.2002 F 10.00\n"
                                "  and 3 more\n\n"
                                "confirm with yes !"));
        QCOMPARE(f.doc.users.count(), 3);
        QVERIFY(!f.doc.isModified());
    }

    void cancelInTheDeleteQuestionKeepsTheUser()
    {
        Fixture f;
        QVERIFY(f.tap("EF"));
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(over.count(), 0);
        QCOMPARE(f.doc.users.count(), 3);
        QCOMPARE(f.list.currentUser, f.doc.users.at(2));
        QVERIFY(f.rowOf("EF")->isSelected());
    }

    void deletingTheLastUserLeavesCurrentUserNull()
    {
        Fixture f;
        while (!f.doc.users.isEmpty()) {
            QVERIFY(f.tap(f.doc.users.last()->short_));
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            f.list.DeleteButton->click();
            QVERIFY2(box->handled, qPrintable(box->error));
        }
        QVERIFY(f.list.currentUser == nullptr);
        QCOMPARE(f.list.ListView->topLevelItemCount(), 0);
        QVERIFY(f.rowButtons(false));
    }

    void aDepositOpensTheCalendarFirstThenBooksAndShowsTheNewBalance()
    {
        Fixture f;
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        QVERIFY(f.tap("AB"));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 5));
        ModalTicket cash = bookInNextCashDialog(QStringLiteral("50"));
        f.list.EinzahlButton->click();
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        QVERIFY2(cash->handled && cash->error.isEmpty(), qPrintable(cash->error));
        QCOMPARE(cash->title, QStringLiteral("deposit-AB"));
        UserData *ab = f.doc.users.first();
        QCOMPARE(ab->kto.count(), 2);
        const KtoData *line = ab->kto.last();
        QCOMPARE(line->magic, -2);
        QCOMPARE(line->type, QStringLiteral("deposit"));
        QCOMPARE(line->change, 50.0);
        QCOMPARE(line->date, QStringLiteral("05.06.2002"));
        QCOMPARE(over.count(), 1);
        QCOMPARE(f.rowOf("AB")->text(3), QStringLiteral("40.00"));
        QVERIFY(f.doc.isModified());
    }

    void aPayOffBooksMagicMinus3AndANegativeChange()
    {
        Fixture f;
        QVERIFY(f.tap("EF"));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 6));
        ModalTicket cash = bookInNextCashDialog(QStringLiteral("20"));
        f.list.AuszahlButton->click();
        QVERIFY2(cash->handled && cash->error.isEmpty(), qPrintable(cash->error));
        QCOMPARE(cash->title, QStringLiteral("pay off-EF"));
        const KtoData *line = f.doc.users.at(2)->kto.last();
        QCOMPARE(line->magic, -3);
        QCOMPARE(line->type, QStringLiteral("pay off"));
        QCOMPARE(line->change, -20.0);
        QCOMPARE(f.rowOf("EF")->text(3), QStringLiteral("-30.00"));
    }

    void aRejectedDepositLeavesNoNewLine()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        QSignalSpy over(&f.list, &userListEdit::overChanged);
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 5));
        ModalTicket cash = ModalHelper::clickInNextDialog(
            QStringLiteral("CancelButton"),
            [](QDialog *d) { QTest::keyClicks(qobject_cast<userCashEdit *>(d)->LineEdit, "5"); },
            "userCashEdit");
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.list.EinzahlButton->click();
        QVERIFY2(cash->handled && cash->error.isEmpty(), qPrintable(cash->error));
        QVERIFY2(question->handled, qPrintable(question->error));
        UserData *cd = f.doc.users.at(1);
        QCOMPARE(cd->kto.count(), 1);
        QCOMPARE(cd->kto.at(0)->magic, 7);
        QCOMPARE(cd->value, -10.0);
        QCOMPARE(over.count(), 0);
        QVERIFY(!f.doc.isModified());
        QCOMPARE(f.rowOf("CD")->text(3), QStringLiteral("-10.00"));
    }

    void theAccountButtonShowsTheAccountAndKeepsTheList()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        f.list.currentUser = f.doc.users.first();
        QTreeWidgetItem *before = f.rowOf("CD");
        ModalTicket kto = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
        f.list.KtoButton->click();
        QVERIFY2(kto->handled && kto->error.isEmpty(), qPrintable(kto->error));
        QCOMPARE(kto->title, QStringLiteral("account : CD"));
        QCOMPARE(kto->objectName, QStringLiteral("User account"));
        // Neither the current user nor the rows change.
        QCOMPARE(f.list.currentUser, f.doc.users.first());
        QCOMPARE(f.rowOf("CD"), before);
    }

    void closeAcceptsWithoutAQuestion()
    {
        Fixture f;
        f.list.show();
        f.list.CloseButton->click();
        QVERIFY(!f.list.isVisible());
        QCOMPARE(f.list.result(), int(QDialog::Accepted));
    }

    void aReopenedListSelectsTheLastUserWithTheRowButtonsOff()
    {
        Fixture f;
        QVERIFY(f.tap("EF"));
        ModalTicket ed = inNextUserEditor("OkButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled, qPrintable(ed->error));
        f.list.prepare(&f.calendar);
        QVERIFY(f.rowOf("EF")->isSelected());
        QCOMPARE(f.list.ListView->currentItem(), f.rowOf("EF"));
        QVERIFY(f.rowButtons(false));
        QVERIFY(f.tap("AB"));
        QVERIFY(f.rowButtons(true));
    }

    // Bad input.
    void deletingTheTravellerWhoseAccountWasShownLastIsSafe()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        ModalTicket kto = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
        f.list.KtoButton->click();
        QVERIFY2(kto->handled, qPrintable(kto->error));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.doc.users.count(), 2);
        // The account dialog shown again, and closed by the window, reaches no freed record.
        f.list.userKto->show();
        f.list.userKto->close();
        QVERIFY(f.tap("EF"));
        ModalTicket again = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
        f.list.KtoButton->click();
        QVERIFY2(again->handled, qPrintable(again->error));
        QCOMPARE(again->title, QStringLiteral("account : EF"));
    }

    void deletingEveryUserThenOpeningASharedCostsShareDialogShowsNoRows()
    {
        Fixture f;
        CostsData *cost = f.doc.costs.first();
        QVERIFY(cost->shared);
        // The share dialog has shown the travellers once before they leave.
        userPayEdit pay(nullptr, "User costs", true, &f.doc);
        pay.hide();
        pay.prepare(30.0, cost->date, &f.calendar, cost->id);
        QCOMPARE(pay.ListView->topLevelItemCount(), 3);
        while (!f.doc.users.isEmpty()) {
            QVERIFY(f.tap(f.doc.users.first()->short_));
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            f.list.DeleteButton->click();
            QVERIFY2(box->handled, qPrintable(box->error));
        }
        QVERIFY(cost->shared);
        pay.prepare(30.0, cost->date, &f.calendar, cost->id);
        QCOMPARE(pay.ListView->topLevelItemCount(), 0);
        ModalTicket ok = ModalHelper::clickInNextDialog("OkButton", {}, "userPayEdit");
        pay.exec();
        QVERIFY2(ok->handled, qPrintable(ok->error));
        QCOMPARE(f.doc.users.count(), 0);
    }

    void twoTravellersWithTheSameShortNameAreToldApartByTheirRows()
    {
        Fixture f;
        f.doc.users.at(2)->short_ = QStringLiteral("AB");
        f.list.prepare(&f.calendar);
        QTreeWidgetItem *second = f.list.ListView->topLevelItem(2);
        QCOMPARE(second->text(0), QStringLiteral("AB"));
        QVERIFY(ModalHelper::tapItem(f.list.ListView, second));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 7));
        ModalTicket cash = bookInNextCashDialog(QStringLiteral("5"));
        f.list.EinzahlButton->click();
        QVERIFY2(cash->handled && cash->error.isEmpty(), qPrintable(cash->error));
        QCOMPARE(f.doc.users.at(0)->kto.count(), 1);
        QCOMPARE(f.doc.users.at(2)->kto.count(), 2);
        QCOMPARE(f.list.currentUser, f.doc.users.at(2));
        QCOMPARE(f.list.ListView->topLevelItem(2)->text(1), QStringLiteral("Eva"));
        // Deleting the second one leaves the first.
        QVERIFY(ModalHelper::tapItem(f.list.ListView, f.list.ListView->topLevelItem(2)));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text,
                 QStringLiteral("Delete user entry\nEva\nFell\n\n"
                                "Balance: -5.00 EUR\n"
                                "Deposits leaving with the traveller: 5.00 EUR (1)\n"
                                "Shared costs divided again among the others: 1\n"
                                "  03.06.2002 30.00\n\n"
                                "confirm with yes !"));
        QCOMPARE(f.doc.users.count(), 2);
        QCOMPARE(f.doc.users.at(0)->firstname, QStringLiteral("Anna"));
    }

    void aCurrentUserWhoLeftWithHisJourneyIsForgotten()
    {
        Fixture f;
        QVERIFY(f.tap("CD"));
        ModalTicket ed = inNextUserEditor("OkButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled, qPrintable(ed->error));
        f.doc.users.clear();
        f.doc.users.append()->short_ = QStringLiteral("ZZ");
        f.list.prepare(&f.calendar);
        QVERIFY(f.list.currentUser == nullptr);
        QVERIFY(f.list.ListView->selectedItems().isEmpty());
    }

    void threeTravellersWithADepositEachReachTheFileThroughTheWindowOnly()
    {
        ShellFixture fx;
        WayfernApp app;
        ModalTicket list = enterCrewInNextUserList();
        app.openUser->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QVERIFY(app.doc->isModified());

        ModalTicket name = ModalHelper::typeNameInNextFileDialog(QStringLiteral("crew.wfn"));
        app.fileSaveAs->trigger();
        QVERIFY2(name->handled, qPrintable(name->error));
        QFile file(fx.dataFile(QStringLiteral("crew.wfn")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(file.readAll()).split(u'\n');
        QVERIFY(lines.contains(QStringLiteral("USERCOUNT=3;")));
        const int from = lines.indexOf(QStringLiteral("[USER_0]"));
        QVERIFY(from >= 0);
        const QStringList expected = crewSections();
        QCOMPARE(lines.mid(from, expected.count()), expected);
    }

    // The view.

    void aReopenedJourneyLeavesNoTravellerSelected()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QCOMPARE(app.doc->users.count(), 3);
        ModalTicket first = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<userListEdit *>(w);
                if (!ModalHelper::tapItem(l->ListView, l->ListView->topLevelItem(1)))
                    out.error += QStringLiteral("row not tapped; ");
                ModalTicket kto = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
                l->KtoButton->click();
                ModalTicket ed = inNextUserEditor("OkButton");
                l->ChangeButton->click();
                if (!ed->handled || !kto->handled)
                    out.error += QStringLiteral("no editor or account; ");
                l->CloseButton->click();
            });
        app.openUser->trigger();
        QVERIFY2(first->handled && first->error.isEmpty(), qPrintable(first->error));
        QVERIFY(app.view->userListInput->currentUser == app.doc->users.at(1));

        ModalTicket name = ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample.wfn"));
        app.fileOpen->trigger();
        QVERIFY2(name->handled, qPrintable(name->error));
        QCOMPARE(app.doc->users.count(), 3);
        QStringList selected;
        ModalTicket second = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
            [&selected](QWidget *w, ModalOutcome &) {
                auto *l = qobject_cast<userListEdit *>(w);
                for (QTreeWidgetItem *row : l->ListView->selectedItems())
                    selected << row->text(0);
                l->CloseButton->click();
            });
        app.openUser->trigger();
        QVERIFY2(second->handled && second->error.isEmpty(), qPrintable(second->error));
        QCOMPARE(selected, QStringList());
        QVERIFY(app.view->userListInput->currentUser == nullptr);
    }
    void theViewBuildsTheUserListAfterTheBaseSettings()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernView *v = app.view;
        QStringList dialogs;
        for (QDialog *d : v->findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
            dialogs << d->objectName();
        const int base = dialogs.indexOf("base settings");
        const int users = dialogs.indexOf("User List");
        QVERIFY(base >= 0);
        // The currency list stands between them.
        QCOMPARE(dialogs.indexOf("Currency List"), base + 1);
        QCOMPARE(users, base + 2);
        // The calendar closes the journey's own dialogs; settling up follows them.
        QCOMPARE(dialogs.indexOf("Calendar"), dialogs.indexOf("Settle up") - 1);
        QVERIFY(v->userListInput->isHidden());
        QVERIFY(v->userListInput->isModal());
        QCOMPARE(v->userListInput->windowTitle(), QStringLiteral("User List"));
    }

    void openUserShowsTheListAndTheViewRefreshesAfterIt()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernView *v = app.view;
        app.doc->userflag = true;
        ModalTicket list = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<userListEdit *>(w);
                out.title = l->windowTitle();
                ModalTicket ed = inNextUserEditor("OkButton", [](userEdit *e, ModalOutcome &o) {
                    typeInto(e, "common", "short", "QR", o);
                });
                l->AppendButton->click();
                if (!ed->handled || !ed->error.isEmpty())
                    out.error += QStringLiteral("editor: ") + ed->error;
                l->CloseButton->click();
            });
        v->openUser();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(list->title, QStringLiteral("User List"));
        QVERIFY(!v->userListInput->isVisible());
        QCOMPARE(app.doc->users.last()->short_, QStringLiteral("QR"));
        QTreeWidgetItem *usersGroup = WidgetReaders::topLevelItem(v->OverListView, "user account");
        QVERIFY(usersGroup);
        QCOMPARE(usersGroup->child(usersGroup->childCount() - 1)->text(0), QStringLiteral("QR"));
    }
};

QTEST_MAIN(TestUserList)
#include "tst_userlist.moc"
