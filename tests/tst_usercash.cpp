// The deposit and pay-off dialog and the account list of one traveller.

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/usercashedit.h"
#include "editors/userktoedit.h"
#include "formcheck.h"
#include "forms/usercashdlg.h"
#include "forms/userktodlg.h"
#include "modalhelper.h"
#include "paytestutil.h"
#include "widgetreaders.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <cmath>

using PayTest::cancelWhatsThis;
using PayTest::okWhatsThis;
using WidgetReaders::treeRows;

namespace {

// The deposit and pay-off form as designed; the first row is the form itself.
const FormCheck::WidgetRow cashFormWidgets[] = {
    {"UserCashDlg", "UserCashDlg", "Form1"},
    {"ComboBox", "QComboBox", "", "select the box, if enabled",
     "ComboBox used for different purposes.\nIf e.g. the currency type has to be\nentered, "
     "this combobox will show\nthe possibilities."},
    {"OkButton", "QToolButton", "", "OKButton", okWhatsThis, ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancelButton", cancelWhatsThis, ":/pixmaps/cancel.xpm"},
    {"LineEdit", "QLineEdit", "", "EditLine",
     "Enter the data for the\nselected listviewitem here."},
    {"TextLabel", "QLabel", "TextLabel", "DateLabel",
     "This label shows the date witch\nis stored into the users account."},
    {"DateButton", "QToolButton", "...", "SelectButton",
     "This button is used for different\npurposes.\nE.g. in case of date input, the button\n"
     "opens a calendar for date input."},
};

const FormCheck::StubRow cashFormStubs[] = {
    {"slotSelectButton()", "UserCashDlg::slotSelectButton(): Not implemented yet!"},
    {"slotCancel()", "UserCashDlg::slotCancel(): Not implemented yet!"},
    {"slotComboChanged(QString)",
     "UserCashDlg::slotComboChanged( const QString & ): Not implemented yet!"},
    {"slotOk()", "UserCashDlg::slotOk(): Not implemented yet!"},
};

// The account form as designed; the first row is the form itself.
const FormCheck::WidgetRow ktoFormWidgets[] = {
    {"UserKtoDlg", "UserKtoDlg", "Form1"},
    {"ValTextLabel", "QLabel", "value", "Shows the users amount of money.",
     "Shows the users amount of money."},
    {"CloseButton", "QToolButton", "", "CloseButton", "This button closes the form.",
     ":/pixmaps/close.xpm"},
    {"ListView", "QTreeView", "date|change|total", "show the users aacount",
     "The list shows the user account."},
};

const FormCheck::StubRow ktoFormStubs[] = {
    {"slotClose()", "UserKtoDlg::slotClose(): Not implemented yet!"},
};

// A journey with travellers, as the user list makes them.
struct Journey
{
    WayFernData doc;
    Journey() { doc.basecurrency = QStringLiteral("EUR"); }
    UserData *addUser(const QString &shortName)
    {
        UserData *user = doc.users.append();
        user->short_ = shortName;
        return user;
    }
};

// The dialogs as their owners make them: named, built once, hidden at once.
struct CashSetup
{
    Journey journey;
    calenderEdit calendar{nullptr, "Calendar", true, &journey.doc};
    userCashEdit dlg{nullptr, "User cash", true, &journey.doc};
    UserData *user = nullptr;
    KtoData *line = nullptr;
    CashSetup()
    {
        calendar.hide();
        dlg.hide();
        user = journey.addUser(QStringLiteral("XY"));
        // The user list appends the line before the dialog opens.
        line = user->addKto(-2);
        user->actukto = line;
    }
    void open(const QString &type, const QString &date = QStringLiteral("03.05.2002"))
    {
        if (type == QLatin1String("pay off")) {
            line->magic = -3;
        }
        dlg.prepare(type, date, user, line, &calendar);
        dlg.show();
    }
    // Opens the dialog, types the amount and presses OK.
    void book(const QString &type, const QString &typed)
    {
        open(type);
        QTest::keyClicks(dlg.LineEdit, typed);
        QTest::mouseClick(dlg.OkButton, Qt::LeftButton);
    }
    // Types `typed`, presses CancelButton and answers the question that it asks.
    void cancelAnswering(QMessageBox::StandardButton answer, const QString &typed = QString())
    {
        QTest::keyClicks(dlg.LineEdit, typed);
        ModalTicket box = ModalHelper::answerNextMessageBox(answer);
        QTest::mouseClick(dlg.CancelButton, Qt::LeftButton);
        PayTest::checkSaveQuestion(box);
    }
    // The line as the user list appended it: nothing booked, the journey unchanged.
    void checkLineUntouched() const
    {
        QCOMPARE(line->change, 0.0);
        QCOMPARE(line->percentage, 0.0);
        QCOMPARE(line->type, QString(""));
        QCOMPARE(line->date, QString(""));
        QCOMPARE(user->value, 0.0);
        QVERIFY(!journey.doc.isModified());
    }
};

// Records which slot a signal of the form reached.
class CashRecorder : public UserCashDlg
{
public:
    QStringList calls;
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotCancel() override { calls << "slotCancel"; }
    void slotComboChanged(const QString &text) override { calls << "slotComboChanged " + text; }
    void slotOk() override { calls << "slotOk"; }
};

class KtoRecorder : public UserKtoDlg
{
public:
    QStringList calls;
    void slotClose() override { calls << "slotClose"; }
};

} // namespace

class TestUserCash : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The deposit and pay-off form.
    void cashFormHasItsWidgetsInOrder();
    void cashFormWidgetsCarryTheirNamesTextsTipsAndPictures();
    void cashEditorKeepsTheFormsNamesTextsAndTips();
    void cashFormLayout();
    void cashFormFrames();
    void cashFormStubsSayNotImplemented();
    void cashFormConnections();
    void cashFormKeepsTheDateLabelBigOnAFontChange();

    // Booking.
    void payOffOf50StoresMinus50AndPercentage100();
    void depositOf50Stores50AndPercentage100();
    void typingANegativePayOffStoresAPositiveChange();
    void okWithAnEmptyLineBooksZero();
    void captionShowsTypeAndShortName();
    void prepareEnablesLineAndDateButtonAndDisablesTheBox();
    void prepareWithoutUserOrLineChangesNothing();
    void emptyDateOpensTheCalendarFirst();
    void calendarLeftWithoutDateBooksAnEmptyDateAndKeepsTheLabel();
    void dateButtonOpensTheCalendarWithTheBookingDate();
    void comboBoxDoesNothing();
    void textThatIsNoNumberIsRefusedAndBooksNothing();
    void tenThousandCharacterAmountBooksWithoutCrash();
    void typedMinusZeroDepositBooksANegatedZero();
    void typedMinusZeroPayOffBooksAPlainZero();

    // The question on Cancel and on closing.
    void cancelAsksTheSaveQuestion();
    void cancelQuestionYesBooksAndAccepts();
    void cancelQuestionNoLeavesTheLineAndRejects();
    void cancelQuestionCancelOrEscapeKeepsTheDialogOpen();
    void closingTheWindowAsksAndAnswersAsCancelDoes_data();
    void closingTheWindowAsksAndAnswersAsCancelDoes();
    void lineRemovedByTheCallerAfterwardsIsNeverReachedAgain();

    // The account list.
    void ktoFormHasItsWidgetsInOrder();
    void ktoFormWidgetsCarryTheirNamesTextsTipsAndPictures();
    void ktoEditorKeepsTheFormsNamesTextsAndTips();
    void ktoFormFramesAndAlignment();
    void ktoFormLayoutAndHeaders();
    void ktoFormStubSaysNotImplemented();
    void ktoFormConnection();
    void ktoFormKeepsTheBalanceLabelBigOnAFontChange();
    void ktoPrepareWithNullShowsNothingAndKeepsTheFormsTexts();
    void ktoAccountWithNoLinesShowsAnEmptyListAndZeroBalance();
    void ktoNewestLineOnTopWithRunningTotal();
    void ktoLinesOfAllKindsAndZeroChangesShowAlike();
    void ktoCloseAcceptsAndChangesNothing();
    void ktoClosingTheWindowAccepts();
};

void TestUserCash::init()
{
    QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
}

void TestUserCash::cleanup()
{
    ModalHelper::cancelPending();
}

void TestUserCash::cashFormHasItsWidgetsInOrder()
{
    UserCashDlg form;
    QCOMPARE(form.objectName(), QString("UserCashDlg"));
    QCOMPARE(FormCheck::childWidgets(&form),
             QStringList({"ComboBox:QComboBox", "OkButton:QToolButton", "CancelButton:QToolButton",
                          "LineEdit:QLineEdit", "TextLabel:QLabel", "DateButton:QToolButton"}));
    QCOMPARE(form.windowTitle(), QString("Form1"));
    QVERIFY(!form.ComboBox->isEditable());

    UserCashDlg named(nullptr, "User cash", true);
    QCOMPARE(named.objectName(), QString("User cash"));
    QVERIFY(named.isModal());
}

void TestUserCash::cashFormWidgetsCarryTheirNamesTextsTipsAndPictures()
{
    UserCashDlg form;
    FormCheck::checkWidgets(&form, cashFormWidgets);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(form.OkButton->iconSize(), QSize(24, 16));
    QCOMPARE(form.CancelButton->iconSize(), QSize(24, 16));
}

void TestUserCash::cashEditorKeepsTheFormsNamesTextsAndTips()
{
    CashSetup s;
    PayTest::checkEditorWidgets(&s.dlg, cashFormWidgets, {"User cash", "userCashEdit", "Form1"});
}

void TestUserCash::cashFormLayout()
{
    UserCashDlg form;
    QCOMPARE(FormCheck::layoutOutline(form.layout()),
             (QStringList{"QVBoxLayout margins 11 spacing 6", "  QHBoxLayout margins 0 spacing 6",
                          "    ComboBox", "    spacer 20x20 Expanding", "    OkButton",
                          "    CancelButton", "  QHBoxLayout margins 0 spacing 6", "    LineEdit",
                          "    TextLabel", "    DateButton"}));
    QCOMPARE(form.DateButton->minimumSize(), QSize(20, 0));
}

void TestUserCash::cashFormFrames()
{
    UserCashDlg form;
    QCOMPARE(form.TextLabel->frameShape(), QFrame::StyledPanel);
    QCOMPARE(form.TextLabel->frameShadow(), QFrame::Raised);
}

void TestUserCash::cashFormStubsSayNotImplemented()
{
    UserCashDlg form;
    FormCheck::checkStubs(&form, UserCashDlg::staticMetaObject, cashFormStubs);
}

void TestUserCash::cashFormConnections()
{
    CashRecorder form;
    form.show();
    QTest::mouseClick(form.OkButton, Qt::LeftButton);
    QTest::mouseClick(form.CancelButton, Qt::LeftButton);
    QTest::mouseClick(form.DateButton, Qt::LeftButton);
    form.ComboBox->addItems({"one", "two"});
    form.ComboBox->setFocus();
    QTest::keyClick(form.ComboBox, Qt::Key_Down);
    QCOMPARE(form.calls,
             QStringList({"slotOk", "slotCancel", "slotSelectButton", "slotComboChanged two"}));
    // Typing reaches no slot.
    QTest::keyClicks(form.LineEdit, "12");
    QCOMPARE(form.calls.size(), 4);
}

void TestUserCash::cashFormKeepsTheDateLabelBigOnAFontChange()
{
    UserCashDlg form;
    PayTest::checkLabelsStayBigOnAFontChange(&form, {form.TextLabel});
}

void TestUserCash::payOffOf50StoresMinus50AndPercentage100()
{
    CashSetup s;
    s.book("pay off", "50");
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line->change, -50.0);
    QCOMPARE(s.line->percentage, 100.0);
    QCOMPARE(s.line->type, QString("pay off"));
    QCOMPARE(s.line->date, QString("03.05.2002"));
    QCOMPARE(s.line->magic, -3);
    // The balances follow at once.
    QCOMPARE(s.user->value, -50.0);
    QVERIFY(s.journey.doc.isModified());
}

void TestUserCash::depositOf50Stores50AndPercentage100()
{
    CashSetup s;
    s.book("deposit", "50");
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line->change, 50.0);
    QCOMPARE(s.line->percentage, 100.0);
    QCOMPARE(s.line->type, QString("deposit"));
    QCOMPARE(s.line->magic, -2);
    QCOMPARE(s.user->value, 50.0);
    QVERIFY(s.journey.doc.isModified());
}

void TestUserCash::typingANegativePayOffStoresAPositiveChange()
{
    CashSetup s;
    s.book("pay off", "-20.5");
    QCOMPARE(s.line->change, 20.5);
    QCOMPARE(s.user->value, 20.5);
}

void TestUserCash::okWithAnEmptyLineBooksZero()
{
    CashSetup s;
    s.open("deposit");
    QCOMPARE(s.dlg.LineEdit->text(), QString());
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line->change, 0.0);
    // The fresh line had percentage 0.0, so even this counts as a booking.
    QCOMPARE(s.line->percentage, 100.0);
    QCOMPARE(s.line->type, QString("deposit"));
    QVERIFY(s.journey.doc.isModified());
}

void TestUserCash::captionShowsTypeAndShortName()
{
    CashSetup s;
    QCOMPARE(s.dlg.windowTitle(), QString("Form1"));
    s.open("deposit");
    QCOMPARE(s.dlg.windowTitle(), QString("deposit-XY"));
    s.dlg.hide();
    s.open("pay off");
    QCOMPARE(s.dlg.windowTitle(), QString("pay off-XY"));
    QCOMPARE(s.dlg.objectName(), QString("User cash"));
}

void TestUserCash::prepareEnablesLineAndDateButtonAndDisablesTheBox()
{
    CashSetup s;
    s.dlg.LineEdit->setText("left over");
    s.dlg.LineEdit->setEnabled(false);
    s.dlg.DateButton->setEnabled(false);
    s.open("deposit");
    QVERIFY(s.dlg.LineEdit->isEnabled());
    QVERIFY(s.dlg.DateButton->isEnabled());
    QVERIFY(!s.dlg.ComboBox->isEnabled());
    QCOMPARE(s.dlg.LineEdit->text(), QString());
    QCOMPARE(s.dlg.TextLabel->text(), QString("03.05.2002"));
    // Not maximised: it is a small box over the list.
    QVERIFY(!s.dlg.isMaximized());
}

void TestUserCash::prepareWithoutUserOrLineChangesNothing()
{
    CashSetup s;
    s.dlg.prepare("deposit", "01.01.2002", nullptr, s.line, &s.calendar);
    QCOMPARE(s.dlg.windowTitle(), QString("Form1"));
    QCOMPARE(s.dlg.TextLabel->text(), QString("TextLabel"));
    s.dlg.prepare("deposit", "01.01.2002", s.user, nullptr, &s.calendar);
    QCOMPARE(s.dlg.windowTitle(), QString("Form1"));
    QCOMPARE(s.dlg.TextLabel->text(), QString("TextLabel"));
    // OK on such a dialog books nothing into any line.
    s.dlg.show();
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line->change, 0.0);
    QCOMPARE(s.line->percentage, 0.0);
    QCOMPARE(s.line->type, QString(""));
}

void TestUserCash::emptyDateOpensTheCalendarFirst()
{
    CashSetup s;
    ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 14));
    s.dlg.prepare("deposit", QString(), s.user, s.line, &s.calendar);
    // The calendar came and went inside prepare, while the dialog was still hidden.
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(cal->objectName, QString("Calendar"));
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.TextLabel->text(), QString("14.06.2002"));
    s.dlg.show();
    QTest::keyClicks(s.dlg.LineEdit, "10");
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line->date, QString("14.06.2002"));
}

void TestUserCash::calendarLeftWithoutDateBooksAnEmptyDateAndKeepsTheLabel()
{
    CashSetup s;
    s.open("deposit", "01.02.2002");
    s.dlg.hide();
    ModalTicket cal = ModalHelper::cancelNextCalendar();
    s.open("deposit", QString());
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(s.dlg.TextLabel->text(), QString("01.02.2002"));
    QTest::keyClicks(s.dlg.LineEdit, "10");
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line->date, QString(""));
    QCOMPARE(s.line->change, 10.0);
}

void TestUserCash::dateButtonOpensTheCalendarWithTheBookingDate()
{
    CashSetup s;
    s.open("deposit", "03.05.2002");
    QDate shown;
    ModalTicket seen = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<calenderEdit *>(w) != nullptr; },
        [&shown](QWidget *w, ModalOutcome &) {
            auto *c = static_cast<calenderEdit *>(w);
            shown = QDate::fromString(c->dateText(), "dd.MM.yyyy");
            c->reject();
        });
    QTest::mouseClick(s.dlg.DateButton, Qt::LeftButton);
    QVERIFY2(seen->handled, qPrintable(seen->error));
    QCOMPARE(shown, QDate(2002, 5, 3));
    QCOMPARE(s.dlg.TextLabel->text(), QString("03.05.2002"));

    ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 5, 20));
    QTest::mouseClick(s.dlg.DateButton, Qt::LeftButton);
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(s.dlg.TextLabel->text(), QString("20.05.2002"));
    QVERIFY(s.dlg.isVisible());
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line->date, QString("20.05.2002"));
}

void TestUserCash::comboBoxDoesNothing()
{
    CashSetup s;
    s.open("deposit");
    s.dlg.ComboBox->addItem("anything");
    // The override has an empty body: no stub message, no change.
    s.dlg.slotComboChanged("anything");
    QCOMPARE(s.dlg.windowTitle(), QString("deposit-XY"));
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(s.line->type, QString(""));
}

void TestUserCash::textThatIsNoNumberIsRefusedAndBooksNothing()
{
    CashSetup s;
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
    s.book("deposit", "ten");
    QVERIFY2(box->handled, qPrintable(box->error));
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->text,
             QStringLiteral("deposit: \"ten\" is no number.\n"
                            "Nothing was stored; please correct the entry."));
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(s.dlg.LineEdit->text(), QStringLiteral("ten"));
    s.checkLineUntouched();
}

void TestUserCash::tenThousandCharacterAmountBooksWithoutCrash()
{
    CashSetup s;
    s.open("pay off");
    // Typed key by key at first; the rest arrives as one paste, as a finger would not type it.
    const QString huge = QStringLiteral("0.") + QString(9998, QLatin1Char('5'));
    QTest::keyClicks(s.dlg.LineEdit, huge.left(50));
    s.dlg.LineEdit->setText(huge);
    QCOMPARE(s.dlg.LineEdit->text().size(), qsizetype(10000));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line->change, -0.5555555555555556);
    QCOMPARE(s.user->value, -0.5555555555555556);
    QCOMPARE(s.line->percentage, 100.0);
}

void TestUserCash::typedMinusZeroDepositBooksANegatedZero()
{
    CashSetup s;
    s.book("deposit", "-0.00");
    QCOMPARE(s.dlg.result(), 1);
    QVERIFY(std::signbit(s.line->change));
    QCOMPARE(s.line->change, 0.0);
    QCOMPARE(s.line->percentage, 100.0);
    // The account shows the line as it is stored; the sum with it is a plain zero.
    userKtoEdit account(nullptr, "User account", true, &s.journey.doc);
    account.hide();
    account.prepare(s.user);
    QCOMPARE(account.ValTextLabel->text(), QString("0.00 EUR"));
    QCOMPARE(treeRows(account.ListView), QStringList({"03.05.2002|-0.00|0.00"}));
}

void TestUserCash::typedMinusZeroPayOffBooksAPlainZero()
{
    CashSetup s;
    s.book("pay off", "-0.00");
    // The pay-off sign turns the negated zero back.
    QVERIFY(!std::signbit(s.line->change));
    QCOMPARE(s.line->change, 0.0);
    QCOMPARE(s.line->type, QString("pay off"));
    QVERIFY(s.journey.doc.isModified());
}

void TestUserCash::cancelAsksTheSaveQuestion()
{
    CashSetup s;
    s.open("deposit");
    s.cancelAnswering(QMessageBox::No);
}

void TestUserCash::cancelQuestionYesBooksAndAccepts()
{
    CashSetup s;
    s.open("pay off");
    s.cancelAnswering(QMessageBox::Yes, "12.25");
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line->change, -12.25);
    QCOMPARE(s.line->percentage, 100.0);
    QCOMPARE(s.line->type, QString("pay off"));
    QCOMPARE(s.user->value, -12.25);
    QVERIFY(s.journey.doc.isModified());
}

void TestUserCash::cancelQuestionNoLeavesTheLineAndRejects()
{
    CashSetup s;
    s.open("deposit");
    s.cancelAnswering(QMessageBox::No, "12");
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 0);
    s.checkLineUntouched();
}

void TestUserCash::cancelQuestionCancelOrEscapeKeepsTheDialogOpen()
{
    CashSetup s;
    s.open("deposit");
    s.cancelAnswering(QMessageBox::Cancel, "12");
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(s.dlg.LineEdit->text(), QString("12"));
    s.checkLineUntouched();
    // A box closed without a choice answers Cancel.
    ModalTicket box = PayTest::escapeNextMessageBox();
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    PayTest::checkSaveQuestion(box);
    QVERIFY(s.dlg.isVisible());
    s.checkLineUntouched();
    // Then OK books what was typed.
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line->change, 12.0);
}

void TestUserCash::closingTheWindowAsksAndAnswersAsCancelDoes_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("open");
    QTest::addColumn<int>("result");
    QTest::addColumn<double>("booked");
    QTest::newRow("Cancel keeps it open") << int(QMessageBox::Cancel) << true << 0 << 0.0;
    QTest::newRow("No rejects") << int(QMessageBox::No) << false << 0 << 0.0;
    QTest::newRow("Yes books and accepts") << int(QMessageBox::Yes) << false << 1 << 7.0;
}

void TestUserCash::closingTheWindowAsksAndAnswersAsCancelDoes()
{
    QFETCH(int, answer);
    QFETCH(bool, open);
    QFETCH(int, result);
    QFETCH(double, booked);
    CashSetup s;
    s.open("deposit");
    QTest::keyClicks(s.dlg.LineEdit, "7");
    ModalTicket box =
        ModalHelper::answerNextMessageBox(static_cast<QMessageBox::StandardButton>(answer));
    // The close event is ignored while the dialog stays.
    QCOMPARE(s.dlg.close(), !open);
    PayTest::checkSaveQuestion(box);
    QCOMPARE(s.dlg.isVisible(), open);
    if (open) {
        s.checkLineUntouched();
        return;
    }
    QCOMPARE(s.dlg.result(), result);
    QCOMPARE(s.line->change, booked);
    QCOMPARE(s.user->value, booked);
    QCOMPARE(s.journey.doc.isModified(), result == 1);
}

void TestUserCash::lineRemovedByTheCallerAfterwardsIsNeverReachedAgain()
{
    CashSetup s;
    s.open("deposit");
    s.cancelAnswering(QMessageBox::No, "9");
    // The user list removes a rejected line again.
    s.user->removeKto(s.line);
    s.line = nullptr;
    QCOMPARE(s.user->kto.count(), 0);
    // A slot reached once more, as a stray signal would, reads and books nothing and asks
    // nothing: a box would be answered Yes here.
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 200);
    s.dlg.slotCancel();
    QVERIFY(!box->handled);
    QCOMPARE(s.dlg.result(), 0);
    s.dlg.slotOk();
    QVERIFY(!s.journey.doc.isModified());
    QCOMPARE(s.user->kto.count(), 0);
    QCOMPARE(s.user->value, 0.0);
}

void TestUserCash::ktoFormHasItsWidgetsInOrder()
{
    UserKtoDlg form;
    QCOMPARE(form.objectName(), QString("UserKtoDlg"));
    QCOMPARE(
        FormCheck::childWidgets(&form),
        QStringList({"ValTextLabel:QLabel", "CloseButton:QToolButton", "ListView:QTreeView"}));
    QCOMPARE(form.windowTitle(), QString("Form1"));
}

void TestUserCash::ktoFormWidgetsCarryTheirNamesTextsTipsAndPictures()
{
    UserKtoDlg form;
    FormCheck::checkWidgets(&form, ktoFormWidgets);
}

void TestUserCash::ktoEditorKeepsTheFormsNamesTextsAndTips()
{
    Journey j;
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    PayTest::checkEditorWidgets(&dlg, ktoFormWidgets, {"User account", "userKtoEdit", "Form1"});
}

void TestUserCash::ktoFormFramesAndAlignment()
{
    UserKtoDlg form;
    QCOMPARE(form.ValTextLabel->frameShape(), QFrame::StyledPanel);
    QCOMPARE(form.ValTextLabel->frameShadow(), QFrame::Sunken);
    QCOMPARE(form.ValTextLabel->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

void TestUserCash::ktoFormLayoutAndHeaders()
{
    UserKtoDlg form;
    QCOMPARE(FormCheck::layoutOutline(form.layout()),
             (QStringList{"QVBoxLayout margins 11 spacing 6", "  QHBoxLayout margins 0 spacing 6",
                          "    ValTextLabel", "    spacer 20x20 Expanding", "    CloseButton",
                          "  ListView"}));
    QCOMPARE(WidgetReaders::headerTexts(form.ListView), (QStringList{"date", "change", "total"}));
    QVERIFY(!form.ListView->header()->sectionsClickable());
}

void TestUserCash::ktoFormStubSaysNotImplemented()
{
    UserKtoDlg form;
    FormCheck::checkStubs(&form, UserKtoDlg::staticMetaObject, ktoFormStubs);
}

void TestUserCash::ktoFormConnection()
{
    KtoRecorder form;
    form.show();
    QTest::mouseClick(form.CloseButton, Qt::LeftButton);
    QCOMPARE(form.calls, QStringList({"slotClose"}));
}

void TestUserCash::ktoFormKeepsTheBalanceLabelBigOnAFontChange()
{
    UserKtoDlg form;
    PayTest::checkLabelsStayBigOnAFontChange(&form, {form.ValTextLabel});
}

void TestUserCash::ktoPrepareWithNullShowsNothingAndKeepsTheFormsTexts()
{
    Journey j;
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    // The constructor ran prepare(0) already; so does this.
    dlg.prepare(nullptr);
    QCOMPARE(dlg.windowTitle(), QString("Form1"));
    QCOMPARE(dlg.ValTextLabel->text(), QString("value"));
    QCOMPARE(WidgetReaders::rowCount(dlg.ListView), 0);
    QCOMPARE(dlg.objectName(), QString("User account"));
    QVERIFY(dlg.ListView->allColumnsShowFocus());
    QVERIFY(!dlg.ListView->isSortingEnabled());
}

void TestUserCash::ktoAccountWithNoLinesShowsAnEmptyListAndZeroBalance()
{
    Journey j;
    UserData *user = j.addUser("AB");
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    dlg.prepare(user);
    QCOMPARE(dlg.ValTextLabel->text(), QString("0.00 EUR"));
    QCOMPARE(dlg.windowTitle(), QString("account : AB"));
    QCOMPARE(WidgetReaders::rowCount(dlg.ListView), 0);
}

void TestUserCash::ktoNewestLineOnTopWithRunningTotal()
{
    Journey j;
    UserData *user = j.addUser("AB");
    auto book = [user](const char *date, double change) {
        KtoData *line = user->addKto(-2);
        line->date = date;
        line->change = change;
    };
    book("01.05.2002", 100.0);
    book("02.05.2002", -33.333);
    book("03.05.2002", -10.0);
    j.doc.recalcUsers();
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    dlg.prepare(user);
    QCOMPARE(dlg.ValTextLabel->text(), QString("56.67 EUR"));
    QCOMPARE(treeRows(dlg.ListView),
             QStringList({"03.05.2002|-10.00|56.67", "02.05.2002|-33.33|66.67",
                          "01.05.2002|100.00|100.00"}));

    // A second traveller replaces the rows of the first.
    UserData *other = j.addUser("CD");
    KtoData *line = other->addKto(-3);
    line->date = "04.05.2002";
    line->change = -5.0;
    j.doc.recalcUsers();
    dlg.prepare(other);
    QCOMPARE(dlg.windowTitle(), QString("account : CD"));
    QCOMPARE(dlg.ValTextLabel->text(), QString("-5.00 EUR"));
    QCOMPARE(treeRows(dlg.ListView), QStringList({"04.05.2002|-5.00|-5.00"}));
}

void TestUserCash::ktoLinesOfAllKindsAndZeroChangesShowAlike()
{
    Journey j;
    UserData *user = j.addUser("AB");
    KtoData *share = user->addKto(7);
    share->type = "share";
    share->date = "01.05.2002";
    // A share of nothing was stored as the negated zero.
    share->change = -0.0;
    KtoData *deposit = user->addKto(-2);
    deposit->type = "deposit";
    deposit->date = "02.05.2002";
    deposit->change = 20.0;
    KtoData *payoff = user->addKto(-3);
    payoff->type = "pay off";
    payoff->date = "03.05.2002";
    payoff->change = -5.0;
    j.doc.recalcUsers();
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    dlg.prepare(user);
    QCOMPARE(
        treeRows(dlg.ListView),
        QStringList({"03.05.2002|-5.00|15.00", "02.05.2002|20.00|20.00", "01.05.2002|-0.00|0.00"}));
}

void TestUserCash::ktoCloseAcceptsAndChangesNothing()
{
    Journey j;
    UserData *user = j.addUser("AB");
    user->addKto(-2)->change = 4.0;
    j.doc.recalcUsers();
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.hide();
    dlg.prepare(user);
    ModalTicket shown = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
    const int result = dlg.exec();
    QVERIFY2(shown->handled && shown->error.isEmpty(), qPrintable(shown->error));
    QCOMPARE(shown->title, QString("account : AB"));
    QCOMPARE(result, 1);
    QVERIFY(!j.doc.isModified());
    QCOMPARE(user->kto.count(), 1);
    QCOMPARE(user->value, 4.0);
}

void TestUserCash::ktoClosingTheWindowAccepts()
{
    Journey j;
    userKtoEdit dlg(nullptr, "User account", true, &j.doc);
    dlg.show();
    QVERIFY(dlg.close());
    QVERIFY(!dlg.isVisible());
    QCOMPARE(dlg.result(), 1);
}

QTEST_MAIN(TestUserCash)
#include "tst_usercash.moc"
