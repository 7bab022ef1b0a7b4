// The cost sharing dialog: the temporary list of travellers, the ticks, the division in
// whole cents, the share button, typed values and what reaches the accounts.

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/userktoedit.h"
#include "editors/userpayedit.h"
#include "formcheck.h"
#include "forms/userpaydlg.h"
#include "modalhelper.h"
#include "paytestutil.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace {

using PayTest::cancelWhatsThis;
using PayTest::okWhatsThis;

const char *const shareQuestion = "Would you like to share the costs \namoung all users ?";

// The share form as designed; the first row is the form itself.
const FormCheck::WidgetRow payFormWidgets[] = {
    {"UserPayDlg", "UserPayDlg", "Form1"},
    {"ValTextLabel", "QLabel", "value", "", "Amount of money to share\nbetween users"},
    {"OkButton", "QToolButton", "", "OKButton", okWhatsThis, ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancelButton", cancelWhatsThis, ":/pixmaps/cancel.xpm"},
    {"ShareButton", "QToolButton", "", "ShareButton",
     "shares the value (in the valuefield)\namong all users.\nThe user is asked to confirm this.",
     ":/pixmaps/share.xpm"},
    {"LineEdit", "QLineEdit", "", "EditorLine for selected entries", "EditLine"},
    {"TextLabel", "QLabel", "TextLabel1", "DateLabel",
     "This label shows the date witch\nis stored into the users account."},
    {"ToolButton", "QToolButton", "...", "SelectButton",
     "This button is used to open the calendar\nfor date input."},
    {"ListView", "QTreeWidget", "sel|user|perc|val|total", "select an item to edit",
     "ListView with TipData"},
};

const FormCheck::StubRow payFormStubs[] = {
    {"slotSelectButton()", "UserPayDlg::slotSelectButton(): Not implemented yet!"},
    {"slotCancel()", "UserPayDlg::slotCancel(): Not implemented yet!"},
    {"slotClicked(QTreeWidgetItem*,int)",
     "UserPayDlg::slotClicked( QTreeWidgetItem *, int ): Not implemented yet!"},
    {"slotDoubleClicked(QTreeWidgetItem*)",
     "UserPayDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotKonto()", "UserPayDlg::slotKonto(): Not implemented yet!"},
    {"slotOk()", "UserPayDlg::slotOk(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "UserPayDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotShare()", "UserPayDlg::slotShare(): Not implemented yet!"},
    {"slotTextChanged(QString)",
     "UserPayDlg::slotTextChanged( const QString & ): Not implemented yet!"},
};

// The sharing dialog as costsEdit owns it, with the view's calendar, on a journey whose
// travellers the test makes.
struct PaySetup
{
    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    userPayEdit dlg{nullptr, "User costs", true, &doc};

    PaySetup()
    {
        calendar.hide();
        dlg.hide();
        doc.basecurrency = QStringLiteral("EUR");
    }
    explicit PaySetup(const QStringList &shorts) : PaySetup()
    {
        for (const QString &s : shorts)
            addUser(s);
    }
    UserData *addUser(const QString &shortName)
    {
        UserData *user = doc.users.append();
        user->short_ = shortName;
        return user;
    }
    // What costsEdit does before it opens the dialog for a cost shared for the first time.
    // Returns what prepare printed; the capture ends before the dialog shows, so that
    // nothing the test framework logs about showing it mixes in.
    QString open(double amount, int id, const QString &date = QStringLiteral("03.05.2002"),
                 bool firstShare = true)
    {
        if (firstShare)
            doc.addAllKto(id);
        StdoutCapture out;
        dlg.prepare(amount, date, &calendar, id);
        const QString printed = out.text();
        dlg.show();
        return printed;
    }
    // Opens the share of a cost again, as costsEdit does for a cost already shared.
    QString reopen(double amount, int id)
    {
        return open(amount, id, QStringLiteral("03.05.2002"), false);
    }
    QTreeWidgetItem *row(int i) const { return dlg.ListView->topLevelItem(i); }
    bool tap(int i, int column = 0) const
    {
        return ModalHelper::tapItem(dlg.ListView, row(i), column);
    }
    // Taps the tick boxes of these rows, one after the other.
    bool tick(std::initializer_list<int> rows) const
    {
        for (int i : rows)
            if (!tap(i))
                return false;
        return true;
    }
    // Selects a row by its value and types `text` over the value in the edit line.
    bool typeInRow(int i, const QString &text) const
    {
        if (!tap(i, 3))
            return false;
        dlg.LineEdit->selectAll();
        QTest::keyClicks(dlg.LineEdit, text);
        return true;
    }
    KtoData *line(int user, int id) const { return doc.users.at(user)->findKto(id); }
    // Presses CancelButton and answers the question that it asks.
    void cancelAnswering(QMessageBox::StandardButton answer)
    {
        ModalTicket box = ModalHelper::answerNextMessageBox(answer);
        QTest::mouseClick(dlg.CancelButton, Qt::LeftButton);
        PayTest::checkSaveQuestion(box);
    }
};

// "short|perc|val|total" of each row, top to bottom.
QStringList rowTexts(const QTreeWidget *view)
{
    QStringList rows;
    for (int i = 0; i < view->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = view->topLevelItem(i);
        rows << QStringList({item->text(1), item->text(2), item->text(3), item->text(4)})
                    .join(QLatin1Char('|'));
    }
    return rows;
}

QImage resourceImage(const char *name)
{
    return QPixmap(QStringLiteral(":/pixmaps/") + QLatin1String(name)).toImage();
}

// What column 0 of a row shows: "tick", "box" or something else.
QString picture(const QTreeWidgetItem *item)
{
    const QPixmap shown = item->data(0, Qt::DecorationRole).value<QPixmap>();
    if (shown.isNull())
        return QStringLiteral("none");
    if (shown.toImage() == resourceImage("sel.xpm"))
        return QStringLiteral("tick");
    if (shown.toImage() == resourceImage("unsel.xpm"))
        return QStringLiteral("box");
    return QStringLiteral("other");
}

QStringList pictures(const QTreeWidget *view)
{
    QStringList list;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        list << picture(view->topLevelItem(i));
    return list;
}

// What "%p" makes of a pointer.
QString pointerText(const void *pointer)
{
    char text[64];
    std::snprintf(text, sizeof text, "%p", pointer);
    return QString::fromLatin1(text);
}

// The lines that copyActuToTmp prints for one traveller and his line.
QString copyTrace(const QString &shortName, const KtoData *line, const char *val, const char *perc,
                  const QString &date)
{
    return QStringLiteral("\nuserPayEdit::copyActuToTmp - user = ") + shortName
        + QStringLiteral("\n                           - actukto  = ") + pointerText(line)
        + QStringLiteral("\n                           - val  = ") + QLatin1String(val)
        + QStringLiteral("\n                           - perc = ") + QLatin1String(perc)
        + QStringLiteral("\n                           - date = ") + date;
}

// Records which slot a signal of the form reached.
class PayRecorder : public UserPayDlg
{
public:
    QStringList calls;
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotCancel() override { calls << "slotCancel"; }
    void slotClicked(QTreeWidgetItem *item, int column) override
    {
        calls << QString("slotClicked %1 %2").arg(item ? item->text(1) : "null").arg(column);
    }
    void slotDoubleClicked(QTreeWidgetItem *item) override
    {
        calls << "slotDoubleClicked " + (item ? item->text(1) : QString("null"));
    }
    void slotKonto() override { calls << "slotKonto"; }
    void slotOk() override { calls << "slotOk"; }
    void slotSelectionChanged(QTreeWidgetItem *item) override
    {
        calls << "slotSelectionChanged " + (item ? item->text(1) : QString("null"));
    }
    void slotShare() override { calls << "slotShare"; }
    void slotTextChanged(const QString &text) override { calls << "slotTextChanged " + text; }
};

} // namespace

class TestUserPay : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The form.
    void formHasItsWidgetsInOrder();
    void formWidgetsCarryTheirNamesTextsTipsAndPictures();
    void editorKeepsTheFormsNamesTextsAndTips();
    void formLayout();
    void formFramesAndAlignment();
    void formListColumnsAndSettings();
    void formStubsSayNotImplemented();
    void formConnections();
    void formKeepsBothLabelsBigOnAFontChange();
    void editorKeepsTheCaptionAndBuildsItsAccountList();
    void shareListFitsA240By320Screen();

    // Loading.
    void prepareShowsAmountAndDateAndDisablesTheLine();
    void preparePrintsAmountIdAndEveryLine();
    void preparePrintsTheSharedLinesAsStored();
    void freshLinesShowUntickedRowsInUserOrder();
    void emptyDateOpensTheCalendarBeforeTheDialog();
    void calendarLeftWithoutDateKeepsShareDateEmptyAndTheLabelText();
    void selectButtonOpensTheCalendarWithTheShareDate();

    // Ticks and the even division.
    void hundredSharedByThreeGivesTheOddCentToTheFirstAndBooksTheWholeAmount_data();
    void hundredSharedByThreeGivesTheOddCentToTheFirstAndBooksTheWholeAmount();
    void tickingOneRowGivesItTheWholeAmount();
    void ninetyTwo63AmongThreeAddsUpWithTheOddCentsInListOrder();
    void aRefundIsDividedInWholeCentsThatAddUp();
    void aChangedAmountIsDividedAgainInTheSameProportionsWhenTheShareOpens();
    void sharesThatAddUpOpenAsStored();
    void untickingTheLastTickedRowSetsEveryRowToZeroWithoutDivision();
    void tapOutsideTheTickColumnTicksNothing();
    void zeroAmountGivesNegatedZeroShownAsMinus0_00AndReopensUnticked();
    void reopeningShowsTheTicksItWasLeftWith();
    void handEnteredZeroShowsUntickedAtReopeningWhileTheOthersCarryTheAmount();

    // The share button.
    void shareButtonAsksBeforeSharing();
    void shareButtonCancelOrEscapeChangesNothing();
    void shareButtonDividesAmongAllUsersAndTicksEveryRow();
    void shareButtonDividesAmongTheRowsShownSoTheSharesAddUp();
    void shareButtonWithNoUsersDoesNothing();

    // The edit line.
    void selectingARowPutsItsValueIntoTheEditLine();
    void doubleClickingARowPutsItsValueIntoTheEditLine();
    void afterATickTheEditLineStillShowsTheValueFromBefore();
    void typedValueIsStoredAsTypedLeavingPercentageAndTick();
    void typedValueWithoutMinusIsBookedAsACredit();
    void aLaterTickOverwritesHandEnteredValuesOfAllRows();
    void tenThousandCharacterValueTooLargeForADoubleIsRefusedAndOneThatFitsIsBooked();
    void typedTextThatIsNoNumberIsRefusedAndBooksNothing();
    void typedMinusZeroIsBookedAsANegatedZeroAndItsSharerCarriesTheAmountAtReopening();

    // Odd journeys.
    void noUsersLeavesTheListEmptyAndOkAcceptsWithoutChange();
    void duplicateShortNamesMapOntoTheFirstRow();
    void travellerWithoutLineEndsTheRows();
    void travellerAddedAfterSharingLeavesOthersWithTheirLastLine();
    void travellerDeletedAfterSharingLeavesTheOthersRowsSharingTheWholeAmount();
    void travellerDeletedWhileTheDialogIsOpenBooksTheOthers();

    // OK, Cancel and closing.
    void okBooksShareDateAndTheWordShareAndRecalculatesBalances();
    void okWithoutChangeOnASharedCostLeavesTheDocumentUnmodified();
    void firstShareAlwaysAsksOnCancelEvenWithoutATick();
    void cancelWithoutChangeRejectsWithoutAsking();
    void cancelQuestionYesBooksAndAccepts();
    void cancelQuestionNoLeavesTheAccountsAndRejects();
    void cancelQuestionCancelOrEscapeKeepsTheDialogAndTheTemporaryList();
    void closingTheWindowAsksAndAnswersAsCancelDoes();
    void oldLineWithMoreDigitsIsDividedInWholeCentsAndCountsAsAChange();

    // The account list behind slotKonto.
    void kontoShowsTheAccountOfTheSelectedRow();
    void kontoWithoutSelectionDoesNothing();
    void kontoOfADeletedTravellerDoesNothing();
};

void TestUserPay::init()
{
    QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
}

void TestUserPay::cleanup()
{
    ModalHelper::cancelPending();
}

void TestUserPay::formHasItsWidgetsInOrder()
{
    UserPayDlg form;
    QCOMPARE(form.objectName(), QString("UserPayDlg"));
    QCOMPARE(FormCheck::childWidgets(&form),
             QStringList({"ValTextLabel:QLabel", "OkButton:QToolButton", "CancelButton:QToolButton",
                          "ShareButton:QToolButton", "LineEdit:QLineEdit", "TextLabel:QLabel",
                          "ToolButton:QToolButton", "ListView:QTreeWidget"}));
    QCOMPARE(form.windowTitle(), QString("Form1"));
    UserPayDlg named(nullptr, "User costs", true);
    QCOMPARE(named.objectName(), QString("User costs"));
    QVERIFY(named.isModal());
}

void TestUserPay::formWidgetsCarryTheirNamesTextsTipsAndPictures()
{
    UserPayDlg form;
    FormCheck::checkWidgets(&form, payFormWidgets);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(form.OkButton->iconSize(), QSize(24, 16));
    QCOMPARE(form.CancelButton->iconSize(), QSize(24, 16));
    QCOMPARE(form.ShareButton->iconSize(), QSize(16, 16));
}

void TestUserPay::editorKeepsTheFormsNamesTextsAndTips()
{
    PaySetup s;
    PayTest::checkEditorWidgets(&s.dlg, payFormWidgets, {"User costs", "userPayEdit", "Form1"});
}

void TestUserPay::formLayout()
{
    UserPayDlg form;
    QCOMPARE(
        FormCheck::layoutOutline(form.layout()),
        (QStringList{"QVBoxLayout margins 11 spacing 6", "  QHBoxLayout margins 0 spacing 6",
                     "    ValTextLabel", "    spacer 20x20 Expanding", "    OkButton",
                     "    CancelButton", "  QHBoxLayout margins 0 spacing 6", "    ShareButton",
                     "    LineEdit", "    TextLabel", "    ToolButton", "  ListView"}));
}

void TestUserPay::formFramesAndAlignment()
{
    UserPayDlg form;
    QCOMPARE(form.ValTextLabel->frameShape(), QFrame::StyledPanel);
    QCOMPARE(form.ValTextLabel->frameShadow(), QFrame::Sunken);
    QCOMPARE(form.ValTextLabel->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(form.TextLabel->frameShape(), QFrame::StyledPanel);
    QCOMPARE(form.TextLabel->frameShadow(), QFrame::Raised);
}

void TestUserPay::formListColumnsAndSettings()
{
    UserPayDlg form;
    QTreeWidget *list = form.ListView;
    QCOMPARE(list->columnCount(), 5);
    QVERIFY(!list->header()->sectionsClickable());
    QVERIFY(list->allColumnsShowFocus());
    QVERIFY(list->header()->isSortIndicatorShown());
    QVERIFY(list->rootIsDecorated());
}

void TestUserPay::formStubsSayNotImplemented()
{
    UserPayDlg form;
    FormCheck::checkStubs(&form, UserPayDlg::staticMetaObject, payFormStubs);
}

void TestUserPay::formConnections()
{
    PayRecorder form;
    form.resize(240, 320);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QTest::mouseClick(form.OkButton, Qt::LeftButton);
    QTest::mouseClick(form.CancelButton, Qt::LeftButton);
    QTest::mouseClick(form.ShareButton, Qt::LeftButton);
    QTest::mouseClick(form.ToolButton, Qt::LeftButton);
    QCOMPARE(form.calls, QStringList({"slotOk", "slotCancel", "slotShare", "slotSelectButton"}));

    form.calls.clear();
    QTest::keyClicks(form.LineEdit, "5");
    QCOMPARE(form.calls, QStringList({"slotTextChanged 5"}));

    form.calls.clear();
    auto *item = new QTreeWidgetItem(QStringList({"", "AB", "0.0", "0.00", ""}));
    form.ListView->addTopLevelItem(item);
    QVERIFY(ModalHelper::tapItem(form.ListView, item, 1));
    QCOMPARE(form.calls, QStringList({"slotSelectionChanged AB", "slotClicked AB 1"}));

    form.calls.clear();
    const QRect cell = form.ListView->visualRect(form.ListView->indexFromItem(item, 1));
    QTest::mouseDClick(form.ListView->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QVERIFY2(form.calls.contains("slotDoubleClicked AB"), qPrintable(form.calls.join(", ")));

    // Losing the selection passes no row.
    form.calls.clear();
    form.ListView->clearSelection();
    QCOMPARE(form.calls, QStringList({"slotSelectionChanged null"}));
    // No widget reaches slotKonto.
    QVERIFY(!form.calls.contains("slotKonto"));
}

void TestUserPay::formKeepsBothLabelsBigOnAFontChange()
{
    UserPayDlg form;
    PayTest::checkLabelsStayBigOnAFontChange(&form, {form.ValTextLabel, form.TextLabel});
}

void TestUserPay::editorKeepsTheCaptionAndBuildsItsAccountList()
{
    PaySetup s;
    QCOMPARE(s.dlg.windowTitle(), QString("Form1"));
    QCOMPARE(s.dlg.objectName(), QString("User costs"));
    QVERIFY(s.dlg.isModal());
    QVERIFY(!s.dlg.ListView->isSortingEnabled());
    QVERIFY(s.dlg.ListView->allColumnsShowFocus());
    QCOMPARE(s.dlg.ListView->focusProxy(), static_cast<QWidget *>(s.dlg.LineEdit));
    // The account list is the dialog's own, built once and hidden.
    auto *account = s.dlg.findChild<userKtoEdit *>("User account");
    QVERIFY(account);
    QVERIFY(account->isModal());
    QVERIFY(!account->isVisible());
    s.open(10.0, 1);
    QVERIFY(s.dlg.isMaximized());
}

void TestUserPay::shareListFitsA240By320Screen()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(1234.56, 1);
    QVERIFY(s.tap(0));
    s.dlg.showNormal();
    s.dlg.resize(240, 320);
    QTRY_COMPARE(s.dlg.size(), QSize(240, 320));
    QTreeWidget *list = s.dlg.ListView;
    QTRY_VERIFY(list->header()->length() <= list->viewport()->width());
    QVERIFY(!list->horizontalScrollBar()->isVisible());
    // The value column is wide enough for its text, the tick column for its picture.
    const QFontMetrics fm(list->font());
    QVERIFY2(list->columnWidth(3) >= fm.horizontalAdvance("-1234.56"),
             qPrintable(QString::number(list->columnWidth(3))));
    QVERIFY(list->columnWidth(0) >= 16);
    QVERIFY(s.dlg.LineEdit->isVisible());
    QVERIFY(s.dlg.OkButton->geometry().right() < 240);
}

void TestUserPay::prepareShowsAmountAndDateAndDisablesTheLine()
{
    PaySetup s({"AB"});
    s.dlg.LineEdit->setEnabled(true);
    s.dlg.LineEdit->setText("left over");
    s.dlg.ShareButton->setEnabled(false);
    s.open(100.0, 3, "07.08.2002");
    QCOMPARE(s.dlg.ValTextLabel->text(), QString("100.00 EUR"));
    QCOMPARE(s.dlg.TextLabel->text(), QString("07.08.2002"));
    QVERIFY(!s.dlg.LineEdit->isEnabled());
    QCOMPARE(s.dlg.LineEdit->text(), QString());
    QVERIFY(s.dlg.ShareButton->isEnabled());
    QCOMPARE(s.dlg.windowTitle(), QString("Form1"));
}

void TestUserPay::preparePrintsAmountIdAndEveryLine()
{
    PaySetup s({"AB", "CD"});
    s.doc.addAllKto(7);
    KtoData *cd = s.line(1, 7);
    cd->change = -12.5;
    cd->percentage = 50.0;
    cd->date = "01.02.2002";
    StdoutCapture out;
    s.dlg.prepare(25.125, "01.02.2002", &s.calendar, 7);
    QCOMPARE(out.text(),
             QStringLiteral("\nuserPayEdit::prepare - shareval = 25.1250"
                            "\n                       ID = 7")
                 + copyTrace("AB", s.line(0, 7), "0.0000", "0.0000", "")
                 + copyTrace("CD", cd, "-12.5000", "50.0000", "01.02.2002"));
}

void TestUserPay::preparePrintsTheSharedLinesAsStored()
{
    PaySetup s({"Zo\u00eb", "CD", "EF"});
    s.open(100.0, 12, "24.12.2002");
    QVERIFY(s.tick({0, 1, 2}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);

    const QString printed = s.open(-7.5, 12, "24.12.2002", false);
    QCOMPARE(printed,
             QStringLiteral("\nuserPayEdit::prepare - shareval = -7.5000"
                            "\n                       ID = 12")
                 + copyTrace("Zo\u00eb", s.line(0, 12), "-33.3400", "33.3000", "24.12.2002")
                 + copyTrace("CD", s.line(1, 12), "-33.3300", "33.3000", "24.12.2002")
                 + copyTrace("EF", s.line(2, 12), "-33.3300", "33.3000", "24.12.2002"));
    QCOMPARE(s.dlg.ValTextLabel->text(), QString("-7.50 EUR"));
}

void TestUserPay::freshLinesShowUntickedRowsInUserOrder()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(100.0, 1);
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|0.0|0.00|", "CD|0.0|0.00|", "EF|0.0|0.00|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"box", "box", "box"}));
    QCOMPARE(s.row(0)->text(0), QString());
}

void TestUserPay::emptyDateOpensTheCalendarBeforeTheDialog()
{
    PaySetup s({"AB"});
    ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 9, 2));
    s.doc.addAllKto(1);
    s.dlg.prepare(10.0, QString(), &s.calendar, 1);
    // The calendar came and went inside prepare, while the dialog was still hidden.
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(cal->objectName, QString("Calendar"));
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.TextLabel->text(), QString("02.09.2002"));
    s.dlg.show();
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->date, QString("02.09.2002"));
}

void TestUserPay::calendarLeftWithoutDateKeepsShareDateEmptyAndTheLabelText()
{
    PaySetup s({"AB"});
    s.open(10.0, 1, "05.05.2002");
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    ModalTicket cal = ModalHelper::cancelNextCalendar();
    s.open(10.0, 2, QString());
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(s.dlg.TextLabel->text(), QString("05.05.2002"));
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 2)->date, QString(""));
    QCOMPARE(s.line(0, 2)->change, -10.0);
}

void TestUserPay::selectButtonOpensTheCalendarWithTheShareDate()
{
    PaySetup s({"AB"});
    s.open(10.0, 1, "03.05.2002");
    QString shown;
    ModalTicket seen = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<calenderEdit *>(w) != nullptr; },
        [&shown](QWidget *w, ModalOutcome &) {
            auto *c = static_cast<calenderEdit *>(w);
            shown = c->dateText();
            c->reject();
        });
    QTest::mouseClick(s.dlg.ToolButton, Qt::LeftButton);
    QVERIFY2(seen->handled, qPrintable(seen->error));
    QCOMPARE(shown, QString("03.05.2002"));
    QCOMPARE(s.dlg.TextLabel->text(), QString("03.05.2002"));

    ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 5, 9));
    QTest::mouseClick(s.dlg.ToolButton, Qt::LeftButton);
    QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
    QCOMPARE(s.dlg.TextLabel->text(), QString("09.05.2002"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->date, QString("09.05.2002"));
}

void TestUserPay::hundredSharedByThreeGivesTheOddCentToTheFirstAndBooksTheWholeAmount_data()
{
    QTest::addColumn<bool>("shareButton");
    QTest::newRow("ticked one by one") << false;
    QTest::newRow("share button") << true;
}

void TestUserPay::hundredSharedByThreeGivesTheOddCentToTheFirstAndBooksTheWholeAmount()
{
    QFETCH(bool, shareButton);
    PaySetup s({"AB", "CD", "EF"});
    s.open(100.0, 4);
    if (shareButton) {
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    } else {
        for (int i = 0; i < 3; ++i)
            QVERIFY(s.tap(i));
    }
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "tick", "tick"}));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|33.3|-33.34|", "CD|33.3|-33.33|", "EF|33.3|-33.33|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    double booked = 0.0;
    double balances = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double share = i == 0 ? -33.34 : -33.33;
        const KtoData *line = s.line(i, 4);
        QCOMPARE(line->change, share);
        QCOMPARE(line->percentage, 33.3);
        QCOMPARE(line->type, QString("share"));
        QCOMPARE(line->date, QString("03.05.2002"));
        QCOMPARE(line->magic, 4);
        QCOMPARE(s.doc.users.at(i)->value, share);
        booked += line->change;
        balances += s.doc.users.at(i)->value;
    }
    // No cent is left over: the shares add up to the amount.
    QCOMPARE(QString::asprintf("%.2f", booked), QString("-100.00"));
    QCOMPARE(QString::asprintf("%.2f", balances), QString("-100.00"));
    QVERIFY(s.doc.isModified());
}

void TestUserPay::ninetyTwo63AmongThreeAddsUpWithTheOddCentsInListOrder()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(92.63, 1);
    QVERIFY(s.tick({2, 0, 1}));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|33.3|-30.88|", "CD|33.3|-30.88|", "EF|33.3|-30.87|"}));
    // Two ticked: 46.32 and 46.31, the odd cent to the first in the list.
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|0.0|0.00|", "CD|50.0|-46.32|", "EF|50.0|-46.31|"}));
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change + s.line(1, 1)->change + s.line(2, 1)->change, -92.63);
    QCOMPARE(s.line(2, 1)->change, -30.87);
}

void TestUserPay::aRefundIsDividedInWholeCentsThatAddUp()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(-10.0, 1);
    QVERIFY(s.tick({0, 1, 2}));
    // A refund is a credit for each: minus a negative share. The percentage is the part
    // of each share, 3.34 of 10.00.
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|33.4|3.34|", "CD|33.3|3.33|", "EF|33.3|3.33|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.doc.users.at(0)->value, 3.34);
    QCOMPARE(s.doc.users.at(1)->value, 3.33);
}

void TestUserPay::aChangedAmountIsDividedAgainInTheSameProportionsWhenTheShareOpens()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(100.0, 1);
    QVERIFY(s.tick({0, 1}));
    // AB takes 75.00 by hand, CD 25.00; EF has no part.
    QVERIFY(s.typeInRow(0, "-75.00"));
    QVERIFY(s.typeInRow(1, "-25.00"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);

    // The cost became 150.01: 3 : 1, the odd cent to the larger remainder.
    s.reopen(150.01, 1);
    QCOMPARE(s.dlg.ValTextLabel->text(), QString("150.01 EUR"));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|75.0|-112.51|", "CD|25.0|-37.50|", "EF|0.0|0.00|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "tick", "box"}));
    // What is shown is a change of the stored shares: Cancel asks, Yes stores it.
    s.cancelAnswering(QMessageBox::Yes);
    QCOMPARE(s.line(0, 1)->change, -112.51);
    QCOMPARE(s.line(1, 1)->change, -37.5);
    QCOMPARE(s.line(2, 1)->change, 0.0);
    QCOMPARE(s.line(0, 1)->percentage, 75.0);

    // A refund of the whole: the same proportions, as credits.
    s.reopen(-40.0, 1);
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|75.0|30.00|", "CD|25.0|10.00|", "EF|0.0|0.00|"}));
}

void TestUserPay::sharesThatAddUpOpenAsStored()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tick({0, 1}));
    QVERIFY(s.typeInRow(0, "-9.99"));
    QVERIFY(s.typeInRow(1, "-0.01"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.reopen(10.0, 1);
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-9.99|", "CD|50.0|-0.01|"}));
    // Nothing changed: Cancel asks nothing.
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 0);
}

void TestUserPay::tickingOneRowGivesItTheWholeAmount()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(60.0, 1);
    QVERIFY(s.tap(1));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|0.0|0.00|", "CD|100.0|-60.00|", "EF|0.0|0.00|"}));
    QVERIFY(s.tap(2));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|0.0|0.00|", "CD|50.0|-30.00|", "EF|50.0|-30.00|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"box", "tick", "tick"}));
}

void TestUserPay::untickingTheLastTickedRowSetsEveryRowToZeroWithoutDivision()
{
    PaySetup s({"AB", "CD"});
    s.open(60.0, 1);
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-60.00|", "CD|0.0|0.00|"}));
    QVERIFY(s.tap(0));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"box", "box"}));
    // No division by zero: no "nan" and no "inf" anywhere.
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|0.0|0.00|", "CD|0.0|0.00|"}));
}

void TestUserPay::tapOutsideTheTickColumnTicksNothing()
{
    PaySetup s({"AB", "CD"});
    s.open(60.0, 1);
    QVERIFY(s.tap(0, 1));
    QVERIFY(s.tap(1, 3));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"box", "box"}));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|0.0|0.00|", "CD|0.0|0.00|"}));
}

void TestUserPay::zeroAmountGivesNegatedZeroShownAsMinus0_00AndReopensUnticked()
{
    PaySetup s({"AB", "CD"});
    s.open(0.0, 1);
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-0.00|", "CD|0.0|0.00|"}));
    QCOMPARE(picture(s.row(0)), QString("tick"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change, 0.0);
    QVERIFY(std::signbit(s.line(0, 1)->change));
    QCOMPARE(s.line(0, 1)->percentage, 100.0);

    // At the next opening the negated zero equals 0.0: the row shows no tick.
    s.reopen(0.0, 1);
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"box", "box"}));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-0.00|", "CD|0.0|0.00|"}));
}

void TestUserPay::reopeningShowsTheTicksItWasLeftWith()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(90.0, 2);
    QVERIFY(s.tap(0));
    QVERIFY(s.tap(2));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.reopen(90.0, 2);
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "box", "tick"}));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|50.0|-45.00|", "CD|0.0|0.00|", "EF|50.0|-45.00|"}));
}

void TestUserPay::handEnteredZeroShowsUntickedAtReopeningWhileTheOthersCarryTheAmount()
{
    PaySetup s({"AB", "CD"});
    s.open(40.0, 1);
    QVERIFY(s.tick({0, 1}));
    // CD's value typed over with 0.
    QVERIFY(s.typeInRow(1, "0"));
    QCOMPARE(picture(s.row(1)), QString("tick"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.reopen(40.0, 1);
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "box"}));
    // The 20.00 booked do not add up to the 40.00 of the cost: the traveller who still has
    // a share takes the whole amount, and the row typed over with 0 stays without a share.
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-40.00|", "CD|50.0|0.00|"}));
}

void TestUserPay::shareButtonAsksBeforeSharing()
{
    PaySetup s({"AB"});
    s.open(10.0, 1);
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(box->title, QString("Share costs"));
    QCOMPARE(box->text, QString(shareQuestion));
    QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
    QCOMPARE(box->icon, QMessageBox::Information);
}

void TestUserPay::shareButtonCancelOrEscapeChangesNothing()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(0));
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    // A box closed without a choice answers Cancel.
    ModalTicket escaped = PayTest::escapeNextMessageBox();
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(escaped->handled && escaped->error.isEmpty(), qPrintable(escaped->error));
    QCOMPARE(escaped->title, QString("Share costs"));
    QCOMPARE(escaped->text, QString(shareQuestion));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "box"}));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-10.00|", "CD|0.0|0.00|"}));
    QVERIFY(s.dlg.isVisible());
}

void TestUserPay::shareButtonDividesAmongAllUsersAndTicksEveryRow()
{
    PaySetup s({"AB", "CD", "EF", "GH"});
    s.open(50.0, 1);
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "tick", "tick", "tick"}));
    QCOMPARE(
        rowTexts(s.dlg.ListView),
        QStringList({"AB|25.0|-12.50|", "CD|25.0|-12.50|", "EF|25.0|-12.50|", "GH|25.0|-12.50|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(s.line(i, 1)->change, -12.5);
}

void TestUserPay::shareButtonDividesAmongTheRowsShownSoTheSharesAddUp()
{
    PaySetup s({"AB", "CD", "EF"});
    s.doc.addAllKto(1);
    // CD loses the line: the rows end in front of him.
    s.doc.users.at(1)->removeKto(s.line(1, 1));
    s.reopen(90.0, 1);
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|0.0|0.00|"}));
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-90.00|"}));
}

void TestUserPay::shareButtonWithNoUsersDoesNothing()
{
    PaySetup s;
    s.open(90.0, 1);
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(s.dlg.ListView->topLevelItemCount(), 0);
    QVERIFY(s.dlg.isVisible());
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QVERIFY(!s.doc.isModified());
}

void TestUserPay::selectingARowPutsItsValueIntoTheEditLine()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(1));
    QVERIFY(s.tap(0, 2));
    QVERIFY(s.dlg.LineEdit->isEnabled());
    QCOMPARE(s.dlg.LineEdit->text(), QString("0.00"));
    QVERIFY(s.tap(1, 2));
    QCOMPARE(s.dlg.LineEdit->text(), QString("-10.00"));
}

void TestUserPay::doubleClickingARowPutsItsValueIntoTheEditLine()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(1));
    // Select the first row, then empty the line without a selected row behind it.
    QVERIFY(s.tap(0, 2));
    QCOMPARE(s.dlg.LineEdit->text(), QString("0.00"));
    const QRect cell = s.dlg.ListView->visualRect(s.dlg.ListView->indexFromItem(s.row(1), 3));
    QTest::mouseDClick(s.dlg.ListView->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    QCOMPARE(s.dlg.LineEdit->text(), QString("-10.00"));
    QCOMPARE(s.dlg.ListView->currentItem(), s.row(1));
}

void TestUserPay::afterATickTheEditLineStillShowsTheValueFromBefore()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(0));
    // The tap selected the row before it ticked it: the line shows the old value.
    QCOMPARE(s.row(0)->text(3), QString("-10.00"));
    QCOMPARE(s.dlg.LineEdit->text(), QString("0.00"));
    QVERIFY(s.tap(1));
    QCOMPARE(s.row(1)->text(3), QString("-5.00"));
    QCOMPARE(s.dlg.LineEdit->text(), QString("0.00"));
    // Selecting the row again brings its value.
    QVERIFY(s.tap(0, 1));
    QVERIFY(s.tap(1, 1));
    QCOMPARE(s.dlg.LineEdit->text(), QString("-5.00"));
}

void TestUserPay::typedValueIsStoredAsTypedLeavingPercentageAndTick()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tick({0, 1}));
    QVERIFY(s.typeInRow(1, "-7.125"));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-5.00|", "CD|50.0|-7.125|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "tick"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    // The sum is not compared with the amount.
    QCOMPARE(s.line(0, 1)->change, -5.0);
    QCOMPARE(s.line(1, 1)->change, -7.125);
    QCOMPARE(s.line(1, 1)->percentage, 50.0);
    QCOMPARE(s.doc.users.at(1)->value, -7.125);
}

void TestUserPay::typedValueWithoutMinusIsBookedAsACredit()
{
    PaySetup s({"AB"});
    s.open(10.0, 1);
    QVERIFY(s.typeInRow(0, "8"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change, 8.0);
    QCOMPARE(s.line(0, 1)->percentage, 0.0);
    QCOMPARE(s.doc.users.at(0)->value, 8.0);
}

void TestUserPay::aLaterTickOverwritesHandEnteredValuesOfAllRows()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(30.0, 1);
    QVERIFY(s.tap(0));
    QVERIFY(s.typeInRow(0, "-1"));
    QVERIFY(s.typeInRow(2, "-2"));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-1|", "CD|0.0|0.00|", "EF|0.0|-2|"}));
    QVERIFY(s.tap(1));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|50.0|-15.00|", "CD|50.0|-15.00|", "EF|0.0|0.00|"}));
}

void TestUserPay::tenThousandCharacterValueTooLargeForADoubleIsRefusedAndOneThatFitsIsBooked()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(1, 2));
    QTest::keyClicks(s.dlg.LineEdit, "x");
    const QString huge = QString(9999, QLatin1Char('9')).prepend(QLatin1Char('-'));
    s.dlg.LineEdit->setText(huge);
    QCOMPARE(s.row(1)->text(3).size(), qsizetype(10000));
    // Too large for a double: refused, the dialog stays, nothing is booked.
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY2(box->handled, qPrintable(box->error));
    QVERIFY(box->text.startsWith(QStringLiteral("share of CD: \"-999")));
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(s.row(1)->text(3), huge);
    QCOMPARE(s.line(1, 1)->change, 0.0);
    QCOMPARE(s.doc.users.at(1)->value, 0.0);
    QCOMPARE(s.line(0, 1)->change, 0.0);
    QCOMPARE(s.doc.users.at(0)->value, 0.0);

    // A long text that a double holds is booked as its number.
    s.open(10.0, 2);
    QVERIFY(s.tap(0, 2));
    s.dlg.LineEdit->setText(QStringLiteral("-0.") + QString(9997, QLatin1Char('5')));
    QCOMPARE(s.row(0)->text(3).size(), qsizetype(10000));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 2)->change, -0.5555555555555556);
}

void TestUserPay::typedTextThatIsNoNumberIsRefusedAndBooksNothing()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tick({0, 1}));
    QVERIFY(s.typeInRow(0, "five"));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|five|", "CD|50.0|-5.00|"}));
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY2(box->handled, qPrintable(box->error));
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->text,
             QStringLiteral("share of AB: \"five\" is no number.\n"
                            "Nothing was stored; please correct the entry."));
    // The dialog stays with what was typed; nothing reached the accounts.
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|five|", "CD|50.0|-5.00|"}));
    QCOMPARE(s.line(0, 1)->change, 0.0);
    QCOMPARE(s.line(1, 1)->change, 0.0);
    QCOMPARE(s.doc.users.at(0)->value, 0.0);
    QVERIFY(!s.doc.isModified());
    // Typed with a comma, the share is booked as the number.
    QVERIFY(s.typeInRow(0, "-5,00"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.line(0, 1)->change, -5.0);
    QCOMPARE(s.line(1, 1)->change, -5.0);
}

void TestUserPay::typedMinusZeroIsBookedAsANegatedZeroAndItsSharerCarriesTheAmountAtReopening()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    QVERIFY(s.tap(0));
    QVERIFY(s.typeInRow(0, "-0.00"));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY(std::signbit(s.line(0, 1)->change));
    QCOMPARE(s.line(0, 1)->change, 0.0);
    QCOMPARE(s.line(0, 1)->percentage, 100.0);
    QCOMPARE(s.doc.users.at(0)->value, 0.0);
    // Nothing of the 10.00 is booked; the negated zero still marks AB as the sharer, so he
    // takes the amount when the share opens again.
    s.reopen(10.0, 1);
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "box"}));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-10.00|", "CD|0.0|0.00|"}));
}

void TestUserPay::noUsersLeavesTheListEmptyAndOkAcceptsWithoutChange()
{
    PaySetup s;
    StdoutCapture out;
    s.dlg.prepare(25.0, "03.05.2002", &s.calendar, 9);
    QCOMPARE(out.text(),
             QString("\nuserPayEdit::prepare - shareval = 25.0000"
                     "\n                       ID = 9"));
    s.dlg.show();
    QCOMPARE(s.dlg.ListView->topLevelItemCount(), 0);
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    QVERIFY(!s.doc.isModified());
    // Cancel does not ask either.
    s.open(25.0, 9);
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 0);
}

void TestUserPay::duplicateShortNamesMapOntoTheFirstRow()
{
    PaySetup s({"AB", "AB", "CD"});
    s.open(90.0, 1);
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|0.0|0.00|", "AB|0.0|0.00|", "CD|0.0|0.00|"}));
    // Ticking the first row counts it twice, once for each of the two travellers.
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|50.0|-45.00|", "AB|0.0|0.00|", "CD|0.0|0.00|"}));
    // The second row is never read or written by the division.
    QVERIFY(s.tap(1));
    QCOMPARE(picture(s.row(1)), QString("tick"));
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|50.0|-45.00|", "AB|0.0|0.00|", "CD|0.0|0.00|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change, -45.0);
    QCOMPARE(s.line(1, 1)->change, -45.0);
    QCOMPARE(s.line(1, 1)->percentage, 50.0);
    QCOMPARE(s.line(2, 1)->change, 0.0);
    QCOMPARE(s.doc.users.at(0)->value, -45.0);
    QCOMPARE(s.doc.users.at(1)->value, -45.0);
}

void TestUserPay::travellerWithoutLineEndsTheRows()
{
    PaySetup s({"AB", "CD", "EF"});
    s.doc.addAllKto(1);
    s.doc.users.at(1)->removeKto(s.line(1, 1));
    const QString printed = s.reopen(30.0, 1);
    // The lookup from the end stops at CD; AB keeps the line that addAllKto gave him.
    QCOMPARE(printed,
             QStringLiteral("\nuserPayEdit::prepare - shareval = 30.0000"
                            "\n                       ID = 1")
                 + copyTrace("AB", s.line(0, 1), "0.0000", "0.0000", ""));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|0.0|0.00|"}));
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-30.00|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change, -30.0);
    QCOMPARE(s.line(2, 1)->change, 0.0);
    QCOMPARE(s.line(2, 1)->type, QString(""));
    QVERIFY(!s.line(1, 1));
}

void TestUserPay::travellerAddedAfterSharingLeavesOthersWithTheirLastLine()
{
    PaySetup s({"AB", "CD"});
    s.open(20.0, 1);
    QVERIFY(s.tick({0, 1}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.open(60.0, 2);
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    // A new traveller has no line for either cost.
    s.addUser("EF");
    s.reopen(20.0, 1);
    // The lookup stopped at EF at once: AB and CD still point at their lines of cost 2.
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|100.0|-60.00|", "CD|0.0|0.00|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "box"}));
    // Cancel without a change asks nothing.
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 0);
    QCOMPARE(s.line(0, 1)->change, -10.0);
    QCOMPARE(s.line(0, 2)->change, -60.0);

    // The share button divides among the rows shown; EF has none.
    s.reopen(20.0, 1);
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(s.dlg.ShareButton, Qt::LeftButton);
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-10.00|", "CD|50.0|-10.00|"}));
    s.cancelAnswering(QMessageBox::No);
    QCOMPARE(s.line(0, 2)->change, -60.0);
    QCOMPARE(s.line(1, 2)->change, 0.0);
}

void TestUserPay::travellerDeletedAfterSharingLeavesTheOthersRowsSharingTheWholeAmount()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(90.0, 1);
    QVERIFY(s.tick({0, 1, 2}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    // The user list deletes CD with his account, his share of the cost with it.
    QVERIFY(s.doc.users.remove(s.doc.users.at(1)));
    s.doc.recalcUsers();

    s.reopen(90.0, 1);
    // The 60.00 left booked do not add up to the cost: the two left share all of it.
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-45.00|", "EF|50.0|-45.00|"}));
    QCOMPARE(pictures(s.dlg.ListView), QStringList({"tick", "tick"}));
    // A tap divides the whole amount anew among the rows left, as before.
    QVERIFY(s.tap(1));
    QVERIFY(s.tap(1));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-45.00|", "EF|50.0|-45.00|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line(0, 1)->change, -45.0);
    QCOMPARE(s.line(1, 1)->change, -45.0);
    QCOMPARE(s.doc.users.at(1)->short_, QString("EF"));
    QCOMPARE(s.doc.users.at(1)->value, -45.0);
}

void TestUserPay::travellerDeletedWhileTheDialogIsOpenBooksTheOthers()
{
    PaySetup s({"AB", "CD", "EF"});
    s.open(90.0, 1);
    QVERIFY(s.tick({0, 1, 2}));
    QVERIFY(s.tap(2, 1));
    // EF goes while his row is still shown and selected.
    QVERIFY(s.doc.users.remove(s.doc.users.at(2)));
    QTest::keyClicks(s.dlg.LineEdit, "1");
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.doc.users.count(), 2);
    QCOMPARE(s.line(0, 1)->change, -30.0);
    QCOMPARE(s.line(1, 1)->change, -30.0);
    QCOMPARE(s.doc.users.at(0)->value, -30.0);
    QCOMPARE(s.doc.users.at(1)->value, -30.0);
    QCOMPARE(s.doc.users.at(1)->short_, QString("CD"));
}

void TestUserPay::okBooksShareDateAndTheWordShareAndRecalculatesBalances()
{
    PaySetup s({"AB", "CD"});
    KtoData *deposit = s.doc.users.at(0)->addKto(-2);
    deposit->change = 100.0;
    deposit->type = "deposit";
    s.open(40.0, 5, "11.11.2002");
    QVERIFY(s.tick({0, 1}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.doc.users.at(0)->value, 80.0);
    QCOMPARE(s.doc.users.at(1)->value, -20.0);
    QCOMPARE(s.line(1, 5)->date, QString("11.11.2002"));
    QCOMPARE(s.line(1, 5)->type, QString("share"));
    QCOMPARE(s.line(1, 5)->percentage, 50.0);
    QCOMPARE(s.doc.users.at(1)->short_, QString("CD"));
    // The temporary list is gone: the rows stay but lead nowhere.
    QVERIFY(s.doc.isModified());
}

void TestUserPay::okWithoutChangeOnASharedCostLeavesTheDocumentUnmodified()
{
    PaySetup s({"AB", "CD"});
    s.open(40.0, 1);
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.doc.setModified(false);
    s.reopen(40.0, 1);
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.dlg.result(), 1);
    QVERIFY(!s.doc.isModified());
    QCOMPARE(s.line(0, 1)->change, -40.0);
}

void TestUserPay::firstShareAlwaysAsksOnCancelEvenWithoutATick()
{
    PaySetup s({"AB"});
    s.open(40.0, 1);
    s.cancelAnswering(QMessageBox::No);
    QCOMPARE(s.dlg.result(), 0);
    QCOMPARE(s.line(0, 1)->type, QString(""));
}

void TestUserPay::cancelWithoutChangeRejectsWithoutAsking()
{
    PaySetup s({"AB"});
    s.open(40.0, 1);
    QVERIFY(s.tap(0));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    s.reopen(40.0, 1);
    // An unanswered question would stay open and fail the test through its time-out.
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 0);
}

void TestUserPay::cancelQuestionYesBooksAndAccepts()
{
    PaySetup s({"AB", "CD"});
    s.open(40.0, 1);
    QVERIFY(s.tap(1));
    s.cancelAnswering(QMessageBox::Yes);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line(1, 1)->change, -40.0);
    QCOMPARE(s.line(0, 1)->type, QString("share"));
    QCOMPARE(s.doc.users.at(1)->value, -40.0);
    QVERIFY(s.doc.isModified());
}

void TestUserPay::cancelQuestionNoLeavesTheAccountsAndRejects()
{
    PaySetup s({"AB", "CD"});
    s.open(40.0, 1);
    QVERIFY(s.tap(1));
    s.cancelAnswering(QMessageBox::No);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 0);
    QCOMPARE(s.line(1, 1)->change, 0.0);
    QCOMPARE(s.line(1, 1)->type, QString(""));
    QCOMPARE(s.doc.users.at(1)->value, 0.0);
    QVERIFY(!s.doc.isModified());
}

void TestUserPay::cancelQuestionCancelOrEscapeKeepsTheDialogAndTheTemporaryList()
{
    PaySetup s({"AB", "CD"});
    s.open(40.0, 1);
    QVERIFY(s.tap(1));
    s.cancelAnswering(QMessageBox::Cancel);
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|0.0|0.00|", "CD|100.0|-40.00|"}));
    QCOMPARE(s.line(1, 1)->change, 0.0);
    // A box closed without a choice answers Cancel.
    ModalTicket box = PayTest::escapeNextMessageBox();
    QTest::mouseClick(s.dlg.CancelButton, Qt::LeftButton);
    PayTest::checkSaveQuestion(box);
    QVERIFY(s.dlg.isVisible());
    QVERIFY(!s.doc.isModified());
    // The temporary list is still there: a tick divides as before, OK books it.
    QVERIFY(s.tap(0));
    QCOMPARE(rowTexts(s.dlg.ListView), QStringList({"AB|50.0|-20.00|", "CD|50.0|-20.00|"}));
    QTest::mouseClick(s.dlg.OkButton, Qt::LeftButton);
    QCOMPARE(s.line(0, 1)->change, -20.0);
    QCOMPARE(s.line(1, 1)->change, -20.0);
}

void TestUserPay::closingTheWindowAsksAndAnswersAsCancelDoes()
{
    PaySetup s({"AB"});
    s.open(40.0, 1);
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
    QVERIFY(!s.dlg.close());
    PayTest::checkSaveQuestion(box);
    QVERIFY(s.dlg.isVisible());
    QCOMPARE(s.dlg.ListView->topLevelItemCount(), 1);

    ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
    QVERIFY(s.dlg.close());
    PayTest::checkSaveQuestion(no);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 0);
    QCOMPARE(s.line(0, 1)->type, QString(""));

    // Yes books what the rows show, as OK would.
    s.reopen(40.0, 1);
    QVERIFY(s.tap(0));
    ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QVERIFY(s.dlg.close());
    PayTest::checkSaveQuestion(yes);
    QVERIFY(!s.dlg.isVisible());
    QCOMPARE(s.dlg.result(), 1);
    QCOMPARE(s.line(0, 1)->change, -40.0);
    QCOMPARE(s.line(0, 1)->type, QString("share"));
    QVERIFY(s.doc.isModified());
}

void TestUserPay::oldLineWithMoreDigitsIsDividedInWholeCentsAndCountsAsAChange()
{
    PaySetup s({"AB", "CD", "EF"});
    s.doc.addAllKto(1);
    for (int i = 0; i < 3; ++i) {
        KtoData *line = s.line(i, 1);
        line->change = -100.0 / 3.0;
        line->percentage = 100.0 / 3.0;
        line->type = "share";
        line->date = "03.05.2002";
    }
    s.reopen(100.0, 1);
    // 3 x 33.33 in whole cents do not add up to 100.00: divided again, evenly.
    QCOMPARE(rowTexts(s.dlg.ListView),
             QStringList({"AB|33.3|-33.34|", "CD|33.3|-33.33|", "EF|33.3|-33.33|"}));
    s.cancelAnswering(QMessageBox::Yes);
    // Yes stores the texts shown.
    QCOMPARE(s.line(0, 1)->change, -33.34);
    QCOMPARE(s.line(1, 1)->change, -33.33);
    QCOMPARE(s.line(0, 1)->percentage, 33.3);
}

void TestUserPay::kontoShowsTheAccountOfTheSelectedRow()
{
    PaySetup s({"AB", "CD"});
    KtoData *deposit = s.doc.users.at(1)->addKto(-2);
    deposit->change = 15.0;
    deposit->date = "01.05.2002";
    s.doc.recalcUsers();
    s.open(10.0, 1);
    QVERIFY(s.tap(1, 1));
    QStringList rows;
    QString balance;
    ModalTicket shown = ModalHelper::clickInNextDialog(
        "CloseButton",
        [&rows, &balance](QDialog *d) {
            auto *kto = static_cast<userKtoEdit *>(d);
            balance = kto->ValTextLabel->text();
            rows = WidgetReaders::treeRows(kto->ListView);
        },
        "userKtoEdit");
    s.dlg.slotKonto();
    QVERIFY2(shown->handled && shown->error.isEmpty(), qPrintable(shown->error));
    QCOMPARE(shown->objectName, QString("User account"));
    QCOMPARE(shown->title, QString("account : CD"));
    QCOMPARE(balance, QString("15.00 EUR"));
    QCOMPARE(rows, QStringList({"|0.00|15.00", "01.05.2002|15.00|15.00"}));
    QVERIFY(s.dlg.isVisible());
}

void TestUserPay::kontoWithoutSelectionDoesNothing()
{
    PaySetup s({"AB"});
    s.open(10.0, 1);
    auto *account = s.dlg.findChild<userKtoEdit *>("User account");
    QVERIFY(account);
    s.dlg.slotKonto();
    QVERIFY(!account->isVisible());
    QCOMPARE(account->windowTitle(), QString("Form1"));
}

void TestUserPay::kontoOfADeletedTravellerDoesNothing()
{
    PaySetup s({"AB", "CD"});
    s.open(10.0, 1);
    auto *account = s.dlg.findChild<userKtoEdit *>("User account");
    QVERIFY(account);
    ModalTicket shown = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
    QVERIFY(s.tap(1, 1));
    s.dlg.slotKonto();
    QVERIFY2(shown->handled && shown->error.isEmpty(), qPrintable(shown->error));
    QCOMPARE(shown->title, QString("account : CD"));

    // CD leaves the journey; his row is still selected. The account list asks the
    // document by name and finds nobody.
    QVERIFY(s.doc.users.remove(s.doc.users.at(1)));
    s.dlg.slotKonto();
    QVERIFY(!account->isVisible());
    QCOMPARE(account->windowTitle(), QString("account : CD"));

    ModalTicket other = ModalHelper::clickInNextDialog("CloseButton", {}, "userKtoEdit");
    QVERIFY(s.tap(0, 1));
    s.dlg.slotKonto();
    QVERIFY2(other->handled && other->error.isEmpty(), qPrintable(other->error));
    QCOMPARE(other->title, QString("account : AB"));
}

QTEST_MAIN(TestUserPay)
#include "tst_userpay.moc"
