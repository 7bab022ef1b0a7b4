// Amounts and dates as a person types them, through every editor that takes one and
// through the main window: a comma is a decimal mark, text that is no number and a day that
// does not exist are refused with a warning box, the dialog stays with what was typed, and
// nothing is stored.

#include "editortestutil.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/datetext.h"
#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/costsedit.h"
#include "editors/curredit.h"
#include "editors/usercashedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>

namespace {

QString noNumber(const QString &field, const QString &text)
{
    return field + QStringLiteral(": \"") + text
        + QStringLiteral("\" is no number.\nNothing was stored; please correct the entry.");
}

QString noDate(const QString &field, const QString &text)
{
    return field + QStringLiteral(": \"") + text
        + QStringLiteral("\" is no date.\nNothing was stored; please pick a date.");
}

// Answers the next save-changes question with Yes and arms `refusal` for the box that the
// refused Yes then shows.
ModalTicket answerYesExpectingRefusal(ModalTicket &refusal)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
        [&refusal](QWidget *w, ModalOutcome &out) {
            auto *box = static_cast<QMessageBox *>(w);
            out.text = box->text();
            refusal = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
            box->button(QMessageBox::Yes)->click();
        });
}

// One costs editor on the small journey, with the shared calendar.
struct CostsFixture
{
    explicit CostsFixture(bool users = false)
    {
        fillJourney(doc, users);
        calendar.hide();
    }
    // 20.00 CHF of Food on 03.06.2002, opened in the editor.
    CostsData *open(const QString &date = QStringLiteral("03.06.2002"))
    {
        cost = doc.costs.append();
        cost->date = date;
        cost->type = QStringLiteral("Food");
        cost->typeletter = QStringLiteral("F");
        cost->ctype = QStringLiteral("CHF");
        cost->fval = QStringLiteral("20.00");
        cost->bval = QStringLiteral("13.33");
        cost->exchange = QStringLiteral("1.50");
        cost->comment = QStringLiteral("Dinner");
        cost->id = 7;
        ed.prepare(cost, &calendar);
        ed.show();
        return cost;
    }
    bool tap(const QString &label)
    {
        return ModalHelper::tapItem(ed.ListView, WidgetReaders::topLevelItem(ed.ListView, label));
    }
    // Types `text` into the row in place of what it holds.
    bool type(const QString &label, const QString &text)
    {
        if (!tap(label))
            return false;
        ed.LineEdit->clear();
        QTest::keyClicks(ed.LineEdit, text);
        return row(label) == text;
    }
    QString row(const QString &label) { return contentOf(ed.ListView, label); }
    // The cost as opened: nothing stored, nothing marked.
    void checkUntouched(const QString &date = QStringLiteral("03.06.2002"))
    {
        QCOMPARE(cost->date, date);
        QCOMPARE(cost->fval, QStringLiteral("20.00"));
        QCOMPARE(cost->exchange, QStringLiteral("1.50"));
        QCOMPARE(cost->comment, QStringLiteral("Dinner"));
        QVERIFY(!doc.isModified());
        QVERIFY(!ed.modified);
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    costsEdit ed{nullptr, "Input costs", true, &doc};
    CostsData *cost = nullptr;
};

// One cash dialog on a traveller XY whose line the user list has just appended.
struct CashFixture
{
    CashFixture()
    {
        doc.basecurrency = QStringLiteral("EUR");
        calendar.hide();
        dlg.hide();
        user = doc.users.append();
        user->short_ = QStringLiteral("XY");
        line = user->addKto(-2);
        user->actukto = line;
    }
    void open(const QString &type)
    {
        if (type == QLatin1String("pay off"))
            line->magic = -3;
        dlg.prepare(type, QStringLiteral("03.05.2002"), user, line, &calendar);
        dlg.show();
        QTest::keyClicks(dlg.LineEdit, QString());
    }
    void checkUntouched()
    {
        QCOMPARE(line->change, 0.0);
        QCOMPARE(line->percentage, 0.0);
        QCOMPARE(line->type, QString(""));
        QCOMPARE(user->value, 0.0);
        QVERIFY(!doc.isModified());
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    userCashEdit dlg{nullptr, "User cash", true, &doc};
    UserData *user = nullptr;
    KtoData *line = nullptr;
};

} // namespace

class TestAmountInput : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    // The costs editor.
    void baseValueFollowsAForeignValueTypedWithACommaAndTheNumberIsStored()
    {
        CostsFixture f;
        f.open();
        QVERIFY(f.tap("foreign value"));
        f.ed.LineEdit->clear();
        QStringList steps;
        for (const QChar key : QStringLiteral("1.234,50")) {
            QTest::keyClicks(f.ed.LineEdit, QString(key));
            steps << f.row("foreign value") + u'|' + f.row("base value");
        }
        // 1.50 francs to the euro; "1." and "1.2" still read with the point as decimal mark.
        QCOMPARE(steps,
                 (QStringList{"1|0.67", "1.|0.67", "1.2|0.80", "1.23|0.82", "1.234|0.82",
                              "1.234,|822.67", "1.234,5|823.00", "1.234,50|823.00"}));
        f.ed.OkButton->click();
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.cost->fval, QStringLiteral("1234.50"));
        QCOMPARE(f.cost->bval, QStringLiteral("823.00"));
        QVERIFY(f.doc.isModified());
    }

    void textThatIsNoNumberYetShowsABaseValueOfZero()
    {
        CostsFixture f;
        f.open();
        QVERIFY(f.type("foreign value", "12abc"));
        QCOMPARE(f.row("base value"), QStringLiteral("0.00"));
        QVERIFY(f.type("foreign value", "12,"));
        QCOMPARE(f.row("base value"), QStringLiteral("8.00"));
    }

    void aRateTypedWithACommaIsStoredAsTheNumber()
    {
        CostsFixture f;
        f.open();
        QVERIFY(f.type("exch. rate", "1,60"));
        f.ed.OkButton->click();
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.cost->exchange, QStringLiteral("1.60"));
        // The rate does not enter the base value.
        QCOMPARE(f.cost->bval, QStringLiteral("13.33"));
    }

    void aForeignValueThatIsNoNumberIsRefusedAndTheDialogKeepsIt_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("number then letters") << "12abc";
        QTest::newRow("letters") << "abc";
        QTest::newRow("empty") << "";
        QTest::newRow("overflow") << "1e400";
    }
    void aForeignValueThatIsNoNumberIsRefusedAndTheDialogKeepsIt()
    {
        QFETCH(QString, typed);
        CostsFixture f;
        f.open();
        QVERIFY(f.type("foreign value", typed));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.ed.OkButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->title, QStringLiteral("Input refused"));
        QCOMPARE(box->text, noNumber(QStringLiteral("foreign value"), typed));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("foreign value"), typed);
        QCOMPARE(f.ed.LineEdit->text(), typed);
        f.checkUntouched();
    }

    void aRateThatIsNoNumberIsRefused()
    {
        CostsFixture f;
        f.open();
        QVERIFY(f.type("exch. rate", "1,6x"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.ed.OkButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text, noNumber(QStringLiteral("exch. rate"), QStringLiteral("1,6x")));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("exch. rate"), QStringLiteral("1,6x"));
        f.checkUntouched();
    }

    void okWithAnEmptyOrImpossibleDateIsRefused_data()
    {
        QTest::addColumn<QString>("date");
        QTest::newRow("empty") << "";
        QTest::newRow("31 February") << "31.02.2026";
    }
    void okWithAnEmptyOrImpossibleDateIsRefused()
    {
        QFETCH(QString, date);
        CostsFixture f;
        f.open(date);
        QVERIFY(f.type("comment", "Lunch"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.ed.OkButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text, noDate(QStringLiteral("date"), date));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("comment"), QStringLiteral("Lunch"));
        QCOMPARE(f.row("date"), date);
        f.checkUntouched(date);
        // A date from the calendar lets it pass.
        QVERIFY(f.tap("date"));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2026, 2, 28));
        f.ed.ToolButton->click();
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        f.ed.OkButton->click();
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.cost->date, QStringLiteral("28.02.2026"));
        QCOMPARE(f.cost->comment, QStringLiteral("Lunch"));
    }

    void yesInTheCancelQuestionIsRefusedLikeOk()
    {
        CostsFixture f;
        f.open();
        QVERIFY(f.type("foreign value", "12abc"));
        ModalTicket refusal;
        ModalTicket question = answerYesExpectingRefusal(refusal);
        f.ed.CancelButton->click();
        QVERIFY2(question->handled, qPrintable(question->error));
        QCOMPARE(question->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QVERIFY(refusal);
        QVERIFY2(refusal->handled, qPrintable(refusal->error));
        QCOMPARE(refusal->text, noNumber(QStringLiteral("foreign value"), QStringLiteral("12abc")));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("foreign value"), QStringLiteral("12abc"));
        f.checkUntouched();
        // Fixed, Yes stores the number.
        QVERIFY(f.type("foreign value", "12,50"));
        ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.ed.CancelButton->click();
        QVERIFY2(yes->handled, qPrintable(yes->error));
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.cost->fval, QStringLiteral("12.50"));
    }

    void theCalendarsDateGoesIntoTheCostAndTheShareDialog()
    {
        CostsFixture f(true);
        f.open();
        QVERIFY(f.tap("date"));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 5));
        f.ed.ToolButton->click();
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        QString shareDate;
        ModalTicket share = ModalHelper::rejectNextDialog(
            [&shareDate](QDialog *d) {
                shareDate = static_cast<userPayEdit *>(d)->TextLabel->text();
            },
            "userPayEdit");
        f.ed.OkButton->click();
        QVERIFY2(share->handled && share->error.isEmpty(), qPrintable(share->error));
        QCOMPARE(shareDate, QStringLiteral("05.06.2002"));
        QCOMPARE(f.cost->date, QStringLiteral("05.06.2002"));
    }

    void aCostWithoutADateTakesTheCalendarsDateBeforeItIsShared()
    {
        CostsFixture f(true);
        f.open(QString());
        QVERIFY(f.tap("comment"));
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 7));
        QString shareDate;
        ModalTicket share = ModalHelper::rejectNextDialog(
            [&shareDate](QDialog *d) {
                shareDate = static_cast<userPayEdit *>(d)->TextLabel->text();
            },
            "userPayEdit");
        f.ed.UserButton->click();
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        QVERIFY2(share->handled && share->error.isEmpty(), qPrintable(share->error));
        QCOMPARE(shareDate, QStringLiteral("07.06.2002"));
        QCOMPARE(f.row("date"), QStringLiteral("07.06.2002"));
        // The share was not confirmed: OK on the changed cost offers it once more.
        share = ModalHelper::rejectNextDialog({}, "userPayEdit");
        f.ed.OkButton->click();
        QVERIFY2(share->handled && share->error.isEmpty(), qPrintable(share->error));
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.cost->date, QStringLiteral("07.06.2002"));
    }

    // Deposits and pay-offs.
    void aDepositAndAPayOffTypedWithACommaAreBookedAsTheNumber()
    {
        CashFixture f;
        f.open(QStringLiteral("deposit"));
        QTest::keyClicks(f.dlg.LineEdit, QStringLiteral("12,50"));
        QTest::mouseClick(f.dlg.OkButton, Qt::LeftButton);
        QVERIFY(!f.dlg.isVisible());
        QCOMPARE(f.line->change, 12.5);
        QCOMPARE(f.user->value, 12.5);

        KtoData *payOff = f.user->addKto(-3);
        f.line = payOff;
        f.open(QStringLiteral("pay off"));
        QTest::keyClicks(f.dlg.LineEdit, QStringLiteral("1.234,50"));
        QTest::mouseClick(f.dlg.OkButton, Qt::LeftButton);
        QVERIFY(!f.dlg.isVisible());
        QCOMPARE(payOff->change, -1234.5);
        QCOMPARE(f.user->value, -1222.0);
    }

    void aCashAmountThatIsNoNumberIsRefused_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("typed");
        QTest::newRow("deposit letters") << "deposit"
                                         << "abc";
        QTest::newRow("deposit number then letters") << "deposit"
                                                     << "12abc";
        QTest::newRow("pay off with a blank inside") << "pay off"
                                                     << "1 000";
    }
    void aCashAmountThatIsNoNumberIsRefused()
    {
        QFETCH(QString, type);
        QFETCH(QString, typed);
        CashFixture f;
        f.open(type);
        QTest::keyClicks(f.dlg.LineEdit, typed);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        QTest::mouseClick(f.dlg.OkButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text, noNumber(type, typed));
        QVERIFY(f.dlg.isVisible());
        QCOMPARE(f.dlg.LineEdit->text(), typed);
        f.checkUntouched();

        // Yes in the question on Cancel stores, and so is refused too.
        ModalTicket refusal;
        ModalTicket question = answerYesExpectingRefusal(refusal);
        QTest::mouseClick(f.dlg.CancelButton, Qt::LeftButton);
        QVERIFY2(question->handled, qPrintable(question->error));
        QVERIFY(refusal && refusal->handled);
        QCOMPARE(refusal->text, noNumber(type, typed));
        QVERIFY(f.dlg.isVisible());
        QCOMPARE(f.dlg.LineEdit->text(), typed);
        f.checkUntouched();
    }

    // The currency editor.
    void yesInTheCurrencyCancelQuestionRefusesAFactorThatIsNoNumber()
    {
        WayFernData doc;
        fillJourney(doc, false);
        CurrData *chf = doc.findCurrency(QStringLiteral("CHF"));
        currEdit ed(nullptr, "Input currency", true, &doc);
        ed.setData(chf);
        ed.show();
        QTreeWidgetItem *factor = WidgetReaders::topLevelItem(ed.ListView, "factor");
        QVERIFY(ModalHelper::tapItem(ed.ListView, factor));
        ed.LineEdit->clear();
        QTest::keyClicks(ed.LineEdit, QStringLiteral("1,5,5"));
        ModalTicket refusal;
        ModalTicket question = answerYesExpectingRefusal(refusal);
        ed.CancelButton->click();
        QVERIFY2(question->handled, qPrintable(question->error));
        QVERIFY(refusal && refusal->handled);
        QCOMPARE(refusal->text, noNumber(QStringLiteral("factor"), QStringLiteral("1,5,5")));
        QVERIFY(ed.isVisible());
        QCOMPARE(factor->text(1), QStringLiteral("1,5,5"));
        QCOMPARE(chf->factor, QStringLiteral("1.50"));
        QVERIFY(!doc.isModified());
        QVERIFY(!ed.modified);
    }

    // Through the main window.
    void aDepositWithACommaIsBookedAndSavedAndTextThatIsNoNumberIsRefused()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        double balanceBefore = 0.0;
        int linesBefore = 0;
        QString refusedText;
        bool refusedStayed = false;
        {
            WayfernApp app;
            app.show();
            QVERIFY(QTest::qWaitForWindowExposed(&app));
            UserData *ab = app.doc->users.first();
            QCOMPARE(ab->short_, QStringLiteral("AB"));
            balanceBefore = ab->value;
            linesBefore = ab->kto.count();
            QString rowAfter;
            ModalTicket list = ModalHelper::onNextModal(
                [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
                [&](QWidget *w, ModalOutcome &out) {
                    auto *l = static_cast<userListEdit *>(w);
                    auto tapAb = [l, &out] {
                        QTreeWidgetItem *row = WidgetReaders::topLevelItem(l->ListView, "AB");
                        if (!ModalHelper::tapItem(l->ListView, row))
                            out.error += QStringLiteral("AB not tapped; ");
                    };
                    // "abc": refused, the dialog stays; then left with No.
                    tapAb();
                    ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 3));
                    ModalTicket cash = ModalHelper::onNextModal(
                        [](QWidget *d) { return qobject_cast<userCashEdit *>(d) != nullptr; },
                        [&](QWidget *d, ModalOutcome &cashOut) {
                            auto *c = static_cast<userCashEdit *>(d);
                            QTest::keyClicks(c->LineEdit, QStringLiteral("abc"));
                            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
                            c->OkButton->click();
                            if (!box->handled)
                                cashOut.error += box->error;
                            refusedText = box->text;
                            refusedStayed = c->isVisible() && c->LineEdit->text() == "abc";
                            ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
                            c->CancelButton->click();
                            if (!no->handled)
                                cashOut.error += no->error;
                        });
                    l->EinzahlButton->click();
                    if (!cal->handled || !cash->handled || !cash->error.isEmpty())
                        out.error += QStringLiteral("refused deposit: ") + cash->error;
                    // "12,50": booked.
                    tapAb();
                    cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 4));
                    cash = ModalHelper::clickInNextDialog(
                        QStringLiteral("OkButton"),
                        [](QDialog *d) {
                            QTest::keyClicks(static_cast<userCashEdit *>(d)->LineEdit,
                                             QStringLiteral("12,50"));
                        },
                        "userCashEdit");
                    l->EinzahlButton->click();
                    if (!cal->handled || !cash->handled || !cash->error.isEmpty())
                        out.error += QStringLiteral("deposit: ") + cash->error;
                    rowAfter = WidgetReaders::topLevelItem(l->ListView, "AB")->text(3);
                    l->CloseButton->click();
                });
            app.openUser->trigger();
            QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
            QCOMPARE(refusedText, noNumber(QStringLiteral("deposit"), QStringLiteral("abc")));
            QVERIFY(refusedStayed);
            QCOMPARE(ab->kto.count(), linesBefore + 1);
            QCOMPARE(ab->kto.last()->change, 12.5);
            QCOMPARE(ab->kto.last()->date, QStringLiteral("04.06.2002"));
            QCOMPARE(ab->value, balanceBefore + 12.5);
            QCOMPARE(rowAfter, QString::asprintf("%.2f", balanceBefore + 12.5));
            app.fileSave->trigger();
            QVERIFY(!app.doc->isModified());
        }
        QFile saved(fx.dataFile(QStringLiteral("sample.wfn")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QString text = QString::fromLatin1(saved.readAll());
        const QString line = QStringLiteral("[AB_%1]\nDATE=04.06.2002;\nTYPE=deposit;\nMAGIC=-2;\n"
                                            "PERCENTAGE=100.00;\nCHANGE=12.5000;\n")
                                 .arg(linesBefore);
        QVERIFY2(text.contains(line), qPrintable(text));

        // Opened again, the account holds the deposit as the number.
        WayfernApp again;
        UserData *ab = again.doc->users.first();
        QCOMPARE(ab->kto.count(), linesBefore + 1);
        QCOMPARE(ab->kto.last()->change, 12.5);
        QCOMPARE(ab->value, balanceBefore + 12.5);
    }

    void aNewCostStartsOnTheSelectedCostsDateAndACostThatIsNoNumberIsRefused()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        app.show();
        v->TabWidget2->setCurrentIndex(1);
        QVERIFY(QTest::qWaitForWindowExposed(&app));
        QTreeView *list = v->CostsListView;
        QCOMPARE(WidgetReaders::rowTexts(list, 3).value(0), QStringLiteral("01.06"));
        QVERIFY(ModalHelper::tapRow(list, 3));
        const int before = app.doc->costs.count();

        QString openedDate, refusedText, keptText;
        bool stayed = false;
        ModalTicket costs = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<costsEdit *>(w) != nullptr; },
            [&](QWidget *w, ModalOutcome &out) {
                auto *ed = static_cast<costsEdit *>(w);
                openedDate = contentOf(ed->ListView, "date");
                QTreeWidgetItem *foreign =
                    WidgetReaders::topLevelItem(ed->ListView, "foreign value");
                if (!ModalHelper::tapItem(ed->ListView, foreign))
                    out.error += QStringLiteral("foreign value not tapped; ");
                QTest::keyClicks(ed->LineEdit, QStringLiteral("12abc"));
                ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
                ed->OkButton->click();
                if (!box->handled)
                    out.error += box->error;
                refusedText = box->text;
                stayed = ed->isVisible();
                keptText = foreign->text(1);
                ed->LineEdit->clear();
                QTest::keyClicks(ed->LineEdit, QStringLiteral("12,50"));
                // Sharing is on: the share dialog comes, and the cost is stored whatever it
                // answers.
                ModalTicket share = ModalHelper::rejectNextDialog({}, "userPayEdit");
                ed->OkButton->click();
                if (!share->handled)
                    out.error += share->error;
            });
        QTest::mouseClick(v->InsertButton, Qt::LeftButton);
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QCOMPARE(openedDate, QStringLiteral("01.06.2002"));
        QCOMPARE(refusedText, noNumber(QStringLiteral("foreign value"), QStringLiteral("12abc")));
        QVERIFY(stayed);
        QCOMPARE(keptText, QStringLiteral("12abc"));
        QCOMPARE(app.doc->costs.count(), before + 1);
        const CostsData *added = v->actucost;
        QVERIFY(added);
        QCOMPARE(added->date, QStringLiteral("01.06.2002"));
        QCOMPARE(added->fval, QStringLiteral("12.50"));
        for (const CostsData *cost : app.doc->costs)
            QVERIFY2(DateText::isDate(cost->date), qPrintable(cost->date));

        app.fileSave->trigger();
        QFile saved(fx.dataFile(QStringLiteral("sample.wfn")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QString text = QString::fromLatin1(saved.readAll());
        QVERIFY(text.contains(QStringLiteral("DATE=01.06.2002;\nTYPE=Food;\nFVAL=12.50;\n")));
        QVERIFY(!text.contains(QStringLiteral("FVAL=12abc;")));
    }

    void aNewCostLeftWithTheCancelQuestionIsGoneAndNothingIsStored()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const int before = app.doc->costs.count();
        ModalTicket costs = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<costsEdit *>(w) != nullptr; },
            [&](QWidget *w, ModalOutcome &out) {
                auto *ed = static_cast<costsEdit *>(w);
                ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
                ed->OkButton->click(); // no foreign value yet
                if (!box->handled)
                    out.error += box->error;
                out.text = box->text;
                ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
                ed->CancelButton->click();
                if (!no->handled)
                    out.error += no->error;
            });
        app.view->InsertButton->click();
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QCOMPARE(costs->text, noNumber(QStringLiteral("foreign value"), QString()));
        QCOMPARE(app.doc->costs.count(), before);
        QVERIFY(!app.doc->isModified());
    }
};

QTEST_MAIN(TestAmountInput)
#include "tst_amountinput.moc"
