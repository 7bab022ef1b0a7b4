#include "editortestutil.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/costsedit.h"
#include "editors/tipedit.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

namespace {

// Presses `key` where the keyboard is now, as a user does.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QWidget *focus = QApplication::focusWidget();
    QVERIFY2(focus, "nothing has the focus");
    QTest::keyClick(focus, key, modifiers);
}

QString focusName()
{
    QWidget *focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QStringLiteral("<none>");
}

QString selectedLabel(QTreeWidget *list)
{
    const QList<QTreeWidgetItem *> rows = list->selectedItems();
    return rows.size() == 1 ? rows.first()->text(0) : QStringLiteral("<%1 rows>").arg(rows.size());
}

// Shows a dialog and waits until it has the keyboard. The offscreen platform does not give
// a shown-again window or the window below a closed message box the keyboard back by
// itself, so the helper hands it over as a window manager would.
bool showAndActivate(QWidget *dialog)
{
    dialog->show();
    dialog->activateWindow();
    if (!QTest::qWaitForWindowActive(dialog))
        return false;
    if (QApplication::activeWindow() != dialog->window())
        QApplication::setActiveWindow(dialog->window());
    return QApplication::activeWindow() == dialog->window();
}

// The costs editor on 20.00 CHF of Food, in a journey without travellers (so OK asks for
// no shares), shown and active.
struct CostsKeys
{
    CostsKeys()
    {
        fillJourney(doc, false);
        calendar.hide();
        ed.hide();
        cost = doc.costs.append();
        cost->date = QStringLiteral("03.06.2002");
        cost->type = QStringLiteral("Food");
        cost->typeletter = QStringLiteral("F");
        cost->ctype = QStringLiteral("CHF");
        cost->fval = QStringLiteral("20.00");
        cost->bval = QStringLiteral("13.33");
        cost->exchange = QStringLiteral("1.50");
        cost->comment = QStringLiteral("Dinner");
        cost->id = 7;
        ed.prepare(cost, &calendar);
    }
    // Down from the rows until `label` is the selected row; false when it never is.
    bool downTo(const QString &label)
    {
        for (int i = 0; i < 12 && selectedLabel(ed.ListView) != label; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        return selectedLabel(ed.ListView) == label;
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    costsEdit ed{nullptr, "Input costs", true, &doc};
    CostsData *cost = nullptr;
};

// The user editor on Anna Berg, three closed groups.
struct UserKeys
{
    UserKeys()
    {
        fillJourney(doc, false);
        calendar.hide();
        ed.hide();
        user = doc.users.append();
        user->short_ = QStringLiteral("AB");
        user->firstname = QStringLiteral("Anna");
        user->name = QStringLiteral("Berg");
        user->town = QStringLiteral("Dale");
        user->tel = QStringLiteral("0123");
        ed.prepare(user, &calendar);
    }
    QTreeWidgetItem *row(const char *group, const char *label)
    {
        return ed.util.findTreeItem(ed.ListView, QString::fromLatin1(group),
                                    QString::fromLatin1(label), 0);
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    userEdit ed{nullptr, "Input user", true, &doc};
    UserData *user = nullptr;
};

} // namespace

class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }

    void anEditorOpensWithTheKeyboardInItsRows()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(k.ed.ListView));
        // Opened again after it was left from elsewhere, it starts in the rows again.
        k.ed.CancelButton->setFocus();
        k.ed.hide();
        k.ed.prepare(k.cost, &k.calendar);
        QVERIFY(showAndActivate(&k.ed));
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(k.ed.ListView));
    }

    void downAndUpInTheListMoveBetweenRowsAndTheEditWidgetsFollow()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("type"));
        QVERIFY(k.ed.ComboBox->isEnabled());
        QVERIFY(!k.ed.LineEdit->isEnabled());
        QCOMPARE(k.ed.ComboBox->currentText(), QStringLiteral("Food"));
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        press(Qt::Key_Down);
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("short"));
        QVERIFY(!k.ed.ComboBox->isEnabled());
        QVERIFY(!k.ed.LineEdit->isEnabled());
        press(Qt::Key_Up);
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("type"));
        QVERIFY(k.ed.ComboBox->isEnabled());
    }

    void aTypedRowPutsTheKeyboardIntoTheEditLine()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("foreign value"));
        QVERIFY(k.ed.LineEdit->isEnabled());
        QCOMPARE(k.ed.LineEdit->text(), QStringLiteral("20.00"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        // The list keeps the line as its focus proxy while the line is on.
        QCOMPARE(k.ed.ListView->focusProxy(), static_cast<QWidget *>(k.ed.LineEdit));
    }

    void upAndDownInTheEditLineMoveBetweenRows()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("foreign value"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        press(Qt::Key_Up);
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("currency type"));
        QVERIFY(k.ed.ComboBox->isEnabled());
        QVERIFY(!k.ed.LineEdit->isEnabled());
        // The line went off: the rows keep the keyboard.
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        press(Qt::Key_Down);
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("foreign value"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        QCOMPARE(k.ed.LineEdit->text(), QStringLiteral("20.00"));
    }

    void tabGoesFromTheRowsEditLineToOkThenCancelAndBack()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("comment"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
    }

    void tabGoesFromTheListToTheComboBoxThenOkThenCancel()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("type"));
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ComboBox"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        // In the combo box Down chooses the next type, as the pointer would.
        press(Qt::Key_Tab);
        press(Qt::Key_Down);
        QCOMPARE(contentOf(k.ed.ListView, "type"), QStringLiteral("Hotel"));
        QCOMPARE(contentOf(k.ed.ListView, "short"), QStringLiteral("H"));
    }

    void tabOnTheDateRowReachesTheCalendarButtonThenOkThenCancel()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        // The first row is current without being selected when the list gets the keyboard:
        // Down leaves it, Up comes back to it.
        QVERIFY(k.downTo("type"));
        press(Qt::Key_Up);
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("date"));
        QVERIFY(k.ed.ToolButton->isEnabled());
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ToolButton"));
        // Space on the button opens the calendar.
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 5));
        press(Qt::Key_Space);
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        QCOMPARE(contentOf(k.ed.ListView, "date"), QStringLiteral("05.06.2002"));
        QVERIFY(showAndActivate(&k.ed));
        QCOMPARE(focusName(), QStringLiteral("ToolButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
    }

    void tabReachesTheShareButtonBeforeOk()
    {
        CostsKeys k;
        k.doc.userflag = true;
        k.ed.prepare(k.cost, &k.calendar);
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("type"));
        QVERIFY(k.ed.UserButton->isEnabled());
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ComboBox"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("UserButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
    }

    void returnInTheEditLineTakesTheValueAndMovesToTheNextRow()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("foreign value"));
        k.ed.LineEdit->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("30.00"));
        press(Qt::Key_Return);
        QCOMPARE(contentOf(k.ed.ListView, "foreign value"), QStringLiteral("30.00"));
        QCOMPARE(contentOf(k.ed.ListView, "base value"), QStringLiteral("20.00"));
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("base value"));
        // The base value is shown only: its line is off and the rows keep the keyboard.
        QVERIFY(!k.ed.LineEdit->isEnabled());
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        QVERIFY(k.ed.isVisible());
        QCOMPARE(k.cost->fval, QStringLiteral("20.00"));
    }

    void returnInTheEditLineGoesOnToATypedRowWithItsContent()
    {
        UserKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QTreeWidgetItem *first = k.row("common", "first");
        first->parent()->setExpanded(true);
        QVERIFY(ModalHelper::tapItem(k.ed.ListView, first));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        k.ed.LineEdit->selectAll();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Anne"));
        press(Qt::Key_Return);
        QCOMPARE(first->text(1), QStringLiteral("Anne"));
        QCOMPARE(selectedLabel(k.ed.ListView), QStringLiteral("name"));
        QCOMPARE(k.ed.LineEdit->text(), QStringLiteral("Berg"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
    }

    void returnOnTheLastRowOfAGroupOpensTheNextGroupAndTakesItsFirstRow()
    {
        UserKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QTreeWidgetItem *town = k.row("common", "town");
        town->parent()->setExpanded(true);
        QVERIFY(ModalHelper::tapItem(k.ed.ListView, town));
        press(Qt::Key_Return);
        QTreeWidgetItem *phone = k.row("phone", "phone");
        QVERIFY(phone->parent()->isExpanded());
        QCOMPARE(k.ed.ListView->selectedItems(), QList<QTreeWidgetItem *>{phone});
        QCOMPARE(k.ed.LineEdit->text(), QStringLiteral("0123"));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
    }

    void returnInTheTipEditorsLineGoesOnToTheChoiceBelow()
    {
        WayFernData doc;
        fillJourney(doc, false);
        for (const char *type : {"Hotel", "Sight"})
            doc.ttypes.append()->type = QString::fromLatin1(type);
        calenderEdit calendar{nullptr, "Calendar", true, &doc};
        calendar.hide();
        tipEdit ed{nullptr, "Input tip", true, &doc};
        ed.hide();
        TipData *tip = doc.tips.append();
        tip->tiptype = QStringLiteral("Hotel");
        tip->comment = QStringLiteral("quiet");
        ed.prepare(tip, &calendar);
        QVERIFY(showAndActivate(&ed));
        QTreeWidgetItem *comment = ed.util.findTreeItem(ed.ListView, QStringLiteral("common"),
                                                        QStringLiteral("comment"), 0);
        QVERIFY(comment);
        comment->parent()->setExpanded(true);
        QVERIFY(ModalHelper::tapItem(ed.ListView, comment));
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(", nice"));
        press(Qt::Key_Return);
        QCOMPARE(comment->text(1), QStringLiteral("quiet, nice"));
        QCOMPARE(selectedLabel(ed.ListView), QStringLiteral("quality"));
        QVERIFY(ed.ComboBox->isEnabled());
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ComboBox"));
    }

    void ctrlReturnIsOk()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("comment"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" out"));
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!k.ed.isVisible());
        QCOMPARE(k.ed.result(), int(QDialog::Accepted));
        QCOMPARE(k.cost->comment, QStringLiteral("Dinner out"));
        QVERIFY(k.doc.isModified());
    }

    void ctrlReturnIsOkFromTheRowsToo()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("type"));
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!k.ed.isVisible());
        QCOMPARE(k.ed.result(), int(QDialog::Accepted));
        QVERIFY(!k.doc.isModified());
    }

    void escapeIsCancelWithItsQuestion()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QVERIFY(k.downTo("comment"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" out"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        press(Qt::Key_Escape);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        // Cancel in the question keeps the dialog with its edits.
        QVERIFY(k.ed.isVisible());
        QCOMPARE(contentOf(k.ed.ListView, "comment"), QStringLiteral("Dinner out"));
        QVERIFY(showAndActivate(&k.ed));
        ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
        press(Qt::Key_Escape);
        QVERIFY2(no->handled, qPrintable(no->error));
        QVERIFY(!k.ed.isVisible());
        QCOMPARE(k.ed.result(), int(QDialog::Rejected));
        QCOMPARE(k.cost->comment, QStringLiteral("Dinner"));
    }

    void escapeWithNothingChangedLeavesWithoutAQuestion()
    {
        CostsKeys k;
        QVERIFY(showAndActivate(&k.ed));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        press(Qt::Key_Escape);
        QVERIFY(!k.ed.isVisible());
        QCOMPARE(k.ed.result(), int(QDialog::Rejected));
        QTRY_VERIFY(!box->error.isEmpty());
        QVERIFY(!box->handled);
    }

    void escapeYesInTheQuestionStoresLikeOk()
    {
        UserKeys k;
        QVERIFY(showAndActivate(&k.ed));
        QTreeWidgetItem *town = k.row("common", "town");
        town->parent()->setExpanded(true);
        QVERIFY(ModalHelper::tapItem(k.ed.ListView, town));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("n"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        press(Qt::Key_Escape);
        QVERIFY2(box->handled, qPrintable(box->error));
        QVERIFY(!k.ed.isVisible());
        QCOMPARE(k.ed.result(), int(QDialog::Accepted));
        QCOMPARE(k.user->town, QStringLiteral("Dalen"));
    }

    void theShareDialogTakesTabUpDownEscapeAndCtrlReturn()
    {
        WayFernData doc;
        doc.basecurrency = QStringLiteral("EUR");
        for (const char *s : {"AB", "CD", "EF"})
            doc.users.append()->short_ = QString::fromLatin1(s);
        calenderEdit calendar{nullptr, "Calendar", true, &doc};
        calendar.hide();
        userPayEdit dlg{nullptr, "User costs", true, &doc};
        dlg.hide();
        doc.addAllKto(9);
        auto open = [&] {
            StdoutCapture out;
            dlg.prepare(30.0, QStringLiteral("03.05.2002"), &calendar, 9);
        };
        open();
        QVERIFY(showAndActivate(&dlg));
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        // A first share divides the amount, which is a change: Escape asks Cancel's question.
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        press(Qt::Key_Escape);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QVERIFY(dlg.isVisible());
        QVERIFY(showAndActivate(&dlg));
        ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
        press(Qt::Key_Escape);
        QVERIFY2(no->handled, qPrintable(no->error));
        QVERIFY(!dlg.isVisible());
        QCOMPARE(dlg.result(), int(QDialog::Rejected));

        open();
        QVERIFY(showAndActivate(&dlg));
        QCOMPARE(focusName(), QStringLiteral("ListView"));
        // The first row is current without being selected: Down goes to the second.
        press(Qt::Key_Down);
        QCOMPARE(dlg.ListView->selectedItems().value(0), dlg.ListView->topLevelItem(1));
        QVERIFY(dlg.LineEdit->isEnabled());
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        press(Qt::Key_Return);
        QCOMPARE(dlg.ListView->selectedItems().value(0), dlg.ListView->topLevelItem(2));
        QCOMPARE(dlg.LineEdit->text(), dlg.ListView->topLevelItem(2)->text(3));
        press(Qt::Key_Up);
        QCOMPARE(dlg.ListView->selectedItems().value(0), dlg.ListView->topLevelItem(1));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ShareButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("ToolButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!dlg.isVisible());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
    }

    void theCashDialogTakesTabEscapeAndCtrlReturn()
    {
        WayFernData doc;
        fillJourney(doc);
        calenderEdit calendar{nullptr, "Calendar", true, &doc};
        calendar.hide();
        userCashEdit dlg{nullptr, "User cash", true, &doc};
        dlg.hide();
        UserData *user = doc.users.first();
        KtoData *line = user->addKto(-1);
        dlg.prepare(QStringLiteral("deposit"), QStringLiteral("03.05.2002"), user, line, &calendar);
        QVERIFY(showAndActivate(&dlg));
        // The type is fixed by the caller: its box is off, and the keyboard starts in the line.
        QVERIFY(!dlg.ComboBox->isEnabled());
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("DateButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("OkButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("CancelButton"));
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), QStringLiteral("LineEdit"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("25"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        press(Qt::Key_Escape);
        QVERIFY2(box->handled, qPrintable(box->error));
        QVERIFY(dlg.isVisible());
        QVERIFY(showAndActivate(&dlg));
        press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!dlg.isVisible());
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(line->change, 25.0);
    }

    void deleteKeyInTheCostListAsksTheDeleteQuestion()
    {
        ShellFixture fx{{QStringLiteral("sample.wfn")}};
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(showAndActivate(&app));
        v->TabWidget2->setCurrentIndex(1);
        const int before = app.doc->costs.count();
        QVERIFY(before > 1);
        QVERIFY(ModalHelper::tapRow(v->CostsListView, 1));
        v->CostsListView->setFocus();
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(v->CostsListView));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        press(Qt::Key_Delete);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QVERIFY2(box->text.startsWith(QStringLiteral("Delete entry\n")), qPrintable(box->text));
        QVERIFY(box->text.endsWith(QStringLiteral("\n\nconfirm with yes !")));
        QCOMPARE(app.doc->costs.count(), before);
        QVERIFY(showAndActivate(&app));
        QVERIFY(ModalHelper::tapRow(v->CostsListView, 1));
        v->CostsListView->setFocus();
        ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        press(Qt::Key_Delete);
        QVERIFY2(yes->handled, qPrintable(yes->error));
        QCOMPARE(app.doc->costs.count(), before - 1);
    }

    void deleteKeyInTheTipListAsksTheDeleteQuestion()
    {
        ShellFixture fx{{QStringLiteral("sample.wfn")}};
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(showAndActivate(&app));
        v->TabWidget2->setCurrentIndex(2);
        const int before = app.doc->tips.count();
        QVERIFY(ModalHelper::tapRow(v->TipListView, 1));
        v->TipListView->setFocus();
        ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        press(Qt::Key_Delete);
        QVERIFY2(yes->handled, qPrintable(yes->error));
        QCOMPARE(yes->title, QStringLiteral("Delete item"));
        QCOMPARE(yes->text,
                 QStringLiteral("Delete entry\nRestaurant\nZum Anker\n\nconfirm with yes !"));
        QCOMPARE(app.doc->tips.count(), before - 1);
    }

    void deleteKeyWithoutASelectedRowAsksNothing()
    {
        ShellFixture fx{{QStringLiteral("sample.wfn")}};
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(showAndActivate(&app));
        v->TabWidget2->setCurrentIndex(2);
        QVERIFY(!v->TDeleteButton->isEnabled());
        v->TipListView->setFocus();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        press(Qt::Key_Delete);
        QTRY_VERIFY(!box->error.isEmpty());
        QVERIFY(!box->handled);
        QCOMPARE(app.doc->tips.count(), 3);
    }

    void deleteKeyInTheTravellerListAsksTheDeleteQuestion()
    {
        WayFernData doc;
        fillJourney(doc);
        doc.users.first()->firstname = QStringLiteral("Anna");
        doc.users.first()->name = QStringLiteral("Berg");
        calenderEdit calendar{nullptr, "Calendar", true, &doc};
        calendar.hide();
        userListEdit list{nullptr, "User list", true, &doc};
        list.hide();
        list.prepare(&calendar);
        QVERIFY(showAndActivate(&list));
        QVERIFY(ModalHelper::tapItem(list.ListView, list.ListView->topLevelItem(0)));
        list.ListView->setFocus();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        press(Qt::Key_Delete);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text, QStringLiteral("Delete user entry\nAnna\nBerg\n\nconfirm with yes !"));
        QCOMPARE(doc.users.count(), 3);
        QVERIFY(showAndActivate(&list));
        QVERIFY(ModalHelper::tapItem(list.ListView, list.ListView->topLevelItem(0)));
        list.ListView->setFocus();
        ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        press(Qt::Key_Delete);
        QVERIFY2(yes->handled, qPrintable(yes->error));
        QCOMPARE(doc.users.count(), 2);
    }
};

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"
