#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"

#include "data/wayferndata.h"
#include "editors/curredit.h"
#include "forms/currdlg.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPalette>
#include <QRegularExpression>
#include <QTest>

namespace {

class RecordingCurrDlg : public CurrDlg
{
public:
    QStringList calls;
    void slotComboChanged(const QString &t) override { calls << "slotComboChanged " + t; }
    void slotCancel() override { calls << "slotCancel"; }
    void slotClearLine() override { calls << "slotClearLine"; }
    void slotOK() override { calls << "slotOK"; }
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
    void slotTextChanged(const QString &t) override { calls << "slotTextChanged " + t; }
};

// The small journey (EUR base, CHF floating 1.50, USD floating 0.90), editing CHF.
struct Fixture
{
    Fixture()
    {
        fillJourney(doc, false);
        curr = doc.findCurrency(QStringLiteral("CHF"));
        curr->fullname = QStringLiteral("Swiss Franc");
        ed.hide();
        ed.setData(curr);
    }

    QTreeWidgetItem *rowItem(const QString &label)
    {
        return WidgetReaders::topLevelItem(ed.ListView, label);
    }
    bool tap(const QString &label) { return ModalHelper::tapItem(ed.ListView, rowItem(label)); }
    QString row(const QString &label) { return contentOf(ed.ListView, label); }
    // Types `text` into the row in place of what it holds.
    bool type(const QString &label, const QString &text)
    {
        if (!tap(label))
            return false;
        ed.ClearButton->click();
        QTest::keyClicks(ed.LineEdit, text);
        return row(label) == text;
    }

    WayFernData doc;
    currEdit ed{nullptr, "Input currency", true, &doc};
    CurrData *curr = nullptr;
};

const FormCheck::WidgetRow currFormWidgets[] = {
    {"CurrDlg", "CurrDlg", "Currency"},
    {"ComboBox", "QComboBox", "", "select the box, if enabled",
     "ComboBox used for different purposes.\nIf e.g. the currency type has to be\n"
     "entered, this combobox will show\nthe possibilities."},
    {"OkButton", "QToolButton", "", "OKButton",
     "confirms the changes.\nIf pressed, all changed will be stored.", ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancleButton",
     "all changes will be lost,\nif this button is pressed.\n\nThe user is asked to confirm\n"
     "the cancellation.",
     ":/pixmaps/cancel.xpm"},
    {"ClearButton", "QToolButton", "", "ClearButton", "This button clears the EditLine.",
     ":/pixmaps/clear.xpm"},
    {"LineEdit", "QLineEdit", "", "EditLine",
     "Enter the data for the\nselected listviewitem here."},
    {"ToolButton", "QToolButton", "...", "SelectButton",
     "This button is used for different\npurposes.\nE.g. in case of date input, the button\n"
     "opens a calendar for date input."},
    {"BaseLineEdit", "QLineEdit", "", "BaseLineEdit", "shows the base currency type."},
    {"BaseCurLabel_2_2", "QLabel", "Base", "", ""},
    {"ListView", "QTreeWidget", "entry|content", "select an item to edit",
     "ListView with the currency \nrelated data."},
};

const FormCheck::StubRow currFormStubs[] = {
    {"slotComboChanged(QString)",
     "CurrDlg::slotComboChanged( const QString & ): Not implemented yet!"},
    {"slotCancel()", "CurrDlg::slotCancel(): Not implemented yet!"},
    {"slotClearLine()", "CurrDlg::slotClearLine(): Not implemented yet!"},
    {"slotOK()", "CurrDlg::slotOK(): Not implemented yet!"},
    {"slotSelectButton()", "CurrDlg::slotSelectButton(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "CurrDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotTextChanged(QString)",
     "CurrDlg::slotTextChanged( const QString & ): Not implemented yet!"},
};

bool editWidgets(currEdit &ed, bool line, bool clear, bool combo, bool tool)
{
    return ed.LineEdit->isEnabled() == line && ed.ClearButton->isEnabled() == clear
        && ed.ComboBox->isEnabled() == combo && ed.ToolButton->isEnabled() == tool;
}

} // namespace

class TestCurrEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        CurrDlg dlg(nullptr, "Input currency", true);
        QCOMPARE(dlg.objectName(), QStringLiteral("Input currency"));
        QVERIFY(dlg.isModal());
        QCOMPARE(FormCheck::childWidgets(&dlg),
                 (QStringList{
                     "ComboBox:QComboBox", "OkButton:QToolButton", "CancelButton:QToolButton",
                     "ClearButton:QToolButton", "LineEdit:QLineEdit", "ToolButton:QToolButton",
                     "BaseLineEdit:QLineEdit", "BaseCurLabel_2_2:QLabel", "ListView:QTreeWidget"}));
        QVERIFY(!dlg.ComboBox->isEditable());
        for (QToolButton *b : {dlg.OkButton, dlg.CancelButton, dlg.ClearButton})
            QCOMPARE(b->iconSize(), QSize(24, 16));
        checkItemContentList(dlg.ListView);
        CurrDlg form;
        FormCheck::checkWidgets(&form, currFormWidgets);
    }

    void formLayoutPutsTheBaseRowBetweenTheEditLineAndTheList()
    {
        CurrDlg dlg;
        QStringList expected = itemContentOutline();
        expected.insert(expected.size() - 1, QStringLiteral("    QHBoxLayout margins 0 spacing 6"));
        expected.insert(expected.size() - 1, QStringLiteral("      BaseLineEdit"));
        expected.insert(expected.size() - 1, QStringLiteral("      BaseCurLabel_2_2"));
        QCOMPARE(FormCheck::layoutOutline(dlg.layout()), expected);
    }

    void baseLineIsDisabledWithItsOwnGreyOnWhitePalette()
    {
        CurrDlg dlg;
        QVERIFY(!dlg.BaseLineEdit->isEnabled());
        const QPalette pal = dlg.BaseLineEdit->palette();
        QCOMPARE(pal.color(QPalette::Disabled, QPalette::Window), QColor(220, 220, 220));
        QCOMPARE(pal.color(QPalette::Disabled, QPalette::Base), QColor(Qt::white));
        QCOMPARE(pal.color(QPalette::Disabled, QPalette::Text), QColor(128, 128, 128));
    }

    void formStubSlotsWarnNotImplemented()
    {
        CurrDlg dlg;
        FormCheck::checkStubs(&dlg, CurrDlg::staticMetaObject, currFormStubs);
    }

    void formConnectsItsSignalsAndLeavesTheSelectButtonUnconnected()
    {
        RecordingCurrDlg dlg;
        dlg.show();
        dlg.ClearButton->click();
        dlg.OkButton->click();
        dlg.CancelButton->click();
        dlg.ToolButton->click();
        QCOMPARE(dlg.calls, (QStringList{"slotClearLine", "slotOK", "slotCancel"}));
        dlg.calls.clear();
        auto *item = new QTreeWidgetItem(dlg.ListView, QStringList{"factor", "1.5"});
        QVERIFY(ModalHelper::tapItem(dlg.ListView, item));
        dlg.LineEdit->setText(QStringLiteral("abc"));
        dlg.ComboBox->addItem(QStringLiteral("floating"));
        emit dlg.ComboBox->textActivated(QStringLiteral("floating"));
        QCOMPARE(dlg.calls,
                 (QStringList{"slotSelectionChanged factor", "slotTextChanged abc",
                              "slotComboChanged floating"}));
    }

    void captionAndNameComeFromTheFormAndTheCaller()
    {
        Fixture f;
        QCOMPARE(f.ed.windowTitle(), QStringLiteral("Currency"));
        QCOMPARE(f.ed.objectName(), QStringLiteral("Input currency"));
        QVERIFY(f.ed.isModal());
        QVERIFY(f.ed.ListView->focusProxy() == f.ed.LineEdit);
    }

    void rowsShowFullNameFactorShortNameAndTypeTopToBottom()
    {
        Fixture f;
        QCOMPARE(WidgetReaders::treeRows(f.ed.ListView),
                 (QStringList{"full name|Swiss Franc", "factor|1.50", "short name|CHF",
                              "type|floating"}));
        QCOMPARE(f.ed.BaseLineEdit->text(), QStringLiteral("EUR"));
    }

    void theComboOffersFixFirstAndStandsOnItAfterLoading()
    {
        Fixture f;
        QCOMPARE(WidgetReaders::comboTexts(f.ed.ComboBox), (QStringList{"fix", "floating"}));
        // The currency is floating, but the box was refilled after its type was chosen.
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("fix"));
    }

    void aCurrencyWithoutTypeShowsFixAndCancelThenAsks()
    {
        Fixture f;
        CurrData *bare = f.doc.currencies.append();
        f.ed.setData(bare);
        QCOMPARE(f.row("type"), QStringLiteral("fix"));
        QCOMPARE(bare->type, QString());
        // "fix" stands in the row but not in the record: that is a change.
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.ed.CancelButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(f.ed.result(), int(QDialog::Rejected));
        QCOMPARE(bare->type, QString());
    }

    void afterLoadingAllEditWidgetsAreOffUntilARowIsSelected()
    {
        Fixture f;
        QVERIFY(editWidgets(f.ed, false, false, false, false));
        QVERIFY(f.ed.LineEdit->text().isEmpty());
        QVERIFY(!f.ed.selected);
        QVERIFY(f.tap("factor"));
        QVERIFY(editWidgets(f.ed, true, true, false, false));
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("1.50"));
    }

    void theTypeRowSwitchesToTheComboShowingTheTypeAndKeepsTheLineText()
    {
        Fixture f;
        QVERIFY(f.tap("short name"));
        QVERIFY(f.tap("type"));
        QVERIFY(editWidgets(f.ed, false, false, true, false));
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("floating"));
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("CHF"));
        QCOMPARE(f.ed.selected, f.rowItem("type"));
        // The line kept its text, and nothing it held went into the type row.
        QCOMPARE(f.row("type"), QStringLiteral("floating"));
        QCOMPARE(f.row("short name"), QStringLiteral("CHF"));
    }

    void aTypeChosenInTheComboGoesIntoTheTypeRow()
    {
        Fixture f;
        QVERIFY(f.tap("type"));
        QVERIFY(chooseInCombo(f.ed.ComboBox, QStringLiteral("fix")));
        QCOMPARE(f.row("type"), QStringLiteral("fix"));
        f.ed.OkButton->click();
        QCOMPARE(f.curr->type, QStringLiteral("fix"));
        QVERIFY(!f.curr->isFloating());
    }

    void okStoresTheFourTextsAndLeavesTheNumbersToTheDocument()
    {
        Fixture f;
        const double factorvalue = f.curr->factorvalue;
        const double invfactor = f.curr->invfactor;
        QVERIFY(f.type("full name", "Franken"));
        QVERIFY(f.type("factor", "1.6"));
        QVERIFY(f.type("short name", "SFR"));
        QVERIFY(f.tap("type"));
        QVERIFY(chooseInCombo(f.ed.ComboBox, QStringLiteral("fix")));
        f.ed.OkButton->click();
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QCOMPARE((QStringList{f.curr->short_, f.curr->factor, f.curr->fullname, f.curr->type}),
                 (QStringList{"SFR", "1.6", "Franken", "fix"}));
        QCOMPARE(f.curr->factorvalue, factorvalue);
        QCOMPARE(f.curr->invfactor, invfactor);
        QVERIFY(f.doc.isModified());
        QVERIFY(!f.ed.modified);
    }

    void aFactorThatIsNoNumberIsRefusedAndAFactorWithACommaIsStoredAsTheNumber()
    {
        Fixture f;
        f.ed.show();
        QVERIFY(f.type("factor", "one,5"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.ed.OkButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text,
                 QStringLiteral("factor: \"one,5\" is no number.\n"
                                "Nothing was stored; please correct the entry."));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("factor"), QStringLiteral("one,5"));
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("one,5"));
        QCOMPARE(f.curr->factor, QStringLiteral("1.50"));
        QVERIFY(!f.doc.isModified());
        QVERIFY(!f.ed.modified);

        QVERIFY(f.type("factor", "1,25"));
        f.ed.OkButton->click();
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QCOMPARE(f.curr->factor, QStringLiteral("1.25"));
        QVERIFY(f.doc.isModified());
    }

    void aShortNameLeftEmptyIsStoredAsEmpty()
    {
        Fixture f;
        QVERIFY(f.tap("short name"));
        f.ed.ClearButton->click();
        QCOMPARE(f.row("short name"), QString());
        f.ed.OkButton->click();
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QVERIFY(f.curr->short_.isEmpty());
        QVERIFY(f.doc.isModified());
    }

    void okWithoutAChangeAcceptsAndLeavesTheDocumentUnmodified()
    {
        Fixture f;
        QVERIFY(f.tap("type"));
        f.ed.OkButton->click();
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());
    }

    void cancelWithoutAChangeRejectsWithoutAQuestion()
    {
        Fixture f;
        f.ed.show();
        f.ed.CancelButton->click();
        QVERIFY(!f.ed.isVisible());
        QCOMPARE(f.ed.result(), int(QDialog::Rejected));
        QVERIFY(!f.doc.isModified());
    }

    void cancelQuestionAnsweredYesStores()
    {
        Fixture f;
        QVERIFY(f.type("factor", "1.55"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.ed.CancelButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QCOMPARE(f.curr->factor, QStringLiteral("1.55"));
        QVERIFY(f.doc.isModified());
    }

    void cancelQuestionAnsweredNoRejectsAndKeepsTheCurrency()
    {
        Fixture f;
        QVERIFY(f.type("full name", "Franken"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.ed.CancelButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.ed.result(), int(QDialog::Rejected));
        QCOMPARE(f.curr->fullname, QStringLiteral("Swiss Franc"));
        QVERIFY(!f.doc.isModified());
        QVERIFY(!f.ed.modified);
    }

    void closingWithChangesAsksAndCancelInTheBoxKeepsTheDialog()
    {
        Fixture f;
        QVERIFY(f.type("short name", "XX"));
        f.ed.show();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QCloseEvent event;
        QApplication::sendEvent(&f.ed, &event);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QVERIFY(!event.isAccepted());
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("short name"), QStringLiteral("XX"));
        QCOMPARE(f.curr->short_, QStringLiteral("CHF"));
    }

    void theSelectButtonDoesNothing()
    {
        Fixture f;
        QVERIFY(f.tap("factor"));
        const QStringList before = WidgetReaders::treeRows(f.ed.ListView);
        f.ed.slotSelectButton();
        QCOMPARE(WidgetReaders::treeRows(f.ed.ListView), before);
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("1.50"));
    }
};

QTEST_MAIN(TestCurrEditor)
#include "tst_curreditor.moc"
