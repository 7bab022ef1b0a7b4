#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "editors/baseedit.h"
#include "forms/basedlg.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

class RecordingBaseDlg : public BaseDlg
{
public:
    QStringList calls;
    void slotClicked(QTreeWidgetItem *i, int c) override
    {
        calls << QStringLiteral("slotClicked %1 %2").arg(i ? i->text(0) : "null").arg(c);
    }
    void slotCancel() override { calls << "slotCancel"; }
    void slotClearLine() override { calls << "slotClearLine"; }
    void slotComboChanged(const QString &t) override { calls << "slotComboChanged " + t; }
    void slotOK() override { calls << "slotOK"; }
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
    void slotTextChanged(const QString &t) override { calls << "slotTextChanged " + t; }
};

struct Fixture
{
    Fixture()
    {
        fillJourney(doc, false);
        ed = std::make_unique<baseEdit>(nullptr, "base settings", true, &doc);
    }
    bool tap(const QString &label)
    {
        return ModalHelper::tapItem(ed->ListView, WidgetReaders::topLevelItem(ed->ListView, label));
    }
    QString row(const QString &label) { return contentOf(ed->ListView, label); }

    WayFernData doc;
    std::unique_ptr<baseEdit> ed;
};

// The form as designed: object name, class, text, tool tip, what's-this text, picture.
const FormCheck::WidgetRow baseFormWidgets[] = {
    {"BaseDlg", "BaseDlg", "Base Info"},
    {"ComboBox", "QComboBox", "", "select the box, if enabled",
     "ComboBox used for different purposes.\nIf e.g. the currency type has to be\n"
     "entered, this combobox will show\nthe possibilities."},
    {"OkButton", "QToolButton", "", "OKButton",
     "confirms the changes.\nIf pressed, all changed will be stored.", ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancelButton",
     "all changes will be lost,\nif this button is pressed.\n\nThe user is asked to confirm\n"
     "the cancellation.",
     ":/pixmaps/cancel.xpm"},
    {"ClearButton", "QToolButton", "", "ClearButton", "This button clears the EditLine.",
     ":/pixmaps/clear.xpm"},
    {"LineEdit", "QLineEdit", "", "EditorLine",
     "Enter the data for the\nselected listviewitem here."},
    {"ToolButton", "QToolButton", "...", "SelectorButton",
     "This button is used for different\npurposes.\nE.g. in case of date input, the button\n"
     "opens a calendar for date input."},
    {"ListView", "QTreeWidget", "item|content", "select an item to edit", "ListView with TipData"},
};

const FormCheck::StubRow baseFormStubs[] = {
    {"slotClicked(QTreeWidgetItem*,int)",
     "BaseDlg::slotClicked( QTreeWidgetItem *, int ): Not implemented yet!"},
    {"slotCancel()", "BaseDlg::slotCancel(): Not implemented yet!"},
    {"slotClearLine()", "BaseDlg::slotClearLine(): Not implemented yet!"},
    {"slotComboChanged(QString)",
     "BaseDlg::slotComboChanged( const QString & ): Not implemented yet!"},
    {"slotOK()", "BaseDlg::slotOK(): Not implemented yet!"},
    {"slotSelectButton()", "BaseDlg::slotSelectButton(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "BaseDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotTextChanged(QString)",
     "BaseDlg::slotTextChanged( const QString & ): Not implemented yet!"},
};

} // namespace

class TestBaseEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        BaseDlg dlg(nullptr, "base settings", true);
        QCOMPARE(dlg.objectName(), QStringLiteral("base settings"));
        QVERIFY(dlg.isModal());
        QCOMPARE(
            FormCheck::childWidgets(&dlg),
            (QStringList{"ComboBox:QComboBox", "OkButton:QToolButton", "CancelButton:QToolButton",
                         "ClearButton:QToolButton", "LineEdit:QLineEdit", "ToolButton:QToolButton",
                         "ListView:QTreeWidget"}));
        QVERIFY(!dlg.ComboBox->isEditable());
        for (QToolButton *b : {dlg.OkButton, dlg.CancelButton, dlg.ClearButton})
            QCOMPARE(b->iconSize(), QSize(24, 16));
        checkItemContentList(dlg.ListView);
        // Unnamed, the form keeps the name it was designed with.
        BaseDlg form;
        FormCheck::checkWidgets(&form, baseFormWidgets);
    }

    void formLayoutStacksTheRowsWithTheirMarginsAndSpacings()
    {
        BaseDlg dlg;
        QCOMPARE(FormCheck::layoutOutline(dlg.layout()), itemContentOutline());
    }

    void formStubSlotsWarnNotImplemented()
    {
        BaseDlg dlg;
        FormCheck::checkStubs(&dlg, BaseDlg::staticMetaObject, baseFormStubs);
    }

    void formConnectsItsSignalsToTheSlots()
    {
        RecordingBaseDlg dlg;
        dlg.show();
        dlg.ClearButton->click();
        dlg.OkButton->click();
        dlg.CancelButton->click();
        dlg.ToolButton->click();
        QCOMPARE(dlg.calls,
                 (QStringList{"slotClearLine", "slotOK", "slotCancel", "slotSelectButton"}));
        dlg.calls.clear();
        auto *item = new QTreeWidgetItem(dlg.ListView, QStringList{"user flag", "no"});
        QVERIFY(ModalHelper::tapItem(dlg.ListView, item, 1));
        dlg.LineEdit->setText(QStringLiteral("abc"));
        dlg.ComboBox->addItem(QStringLiteral("CHF"));
        emit dlg.ComboBox->textActivated(QStringLiteral("CHF"));
        QCOMPARE(dlg.calls,
                 (QStringList{"slotSelectionChanged user flag", "slotClicked user flag 1",
                              "slotTextChanged abc", "slotComboChanged CHF"}));
    }

    void rowsShowTheDocumentsSettingsTopToBottom()
    {
        Fixture f;
        QCOMPARE(f.ed->windowTitle(), QStringLiteral("Base Info"));
        QCOMPARE(f.ed->objectName(), QStringLiteral("base settings"));
        QCOMPARE(WidgetReaders::columnTexts(f.ed->ListView, 0),
                 (QStringList{"journey title", "base currency", "distance type", "user flag"}));
        QCOMPARE(WidgetReaders::columnTexts(f.ed->ListView, 1),
                 (QStringList{"Lakes", "EUR", "km", "no"}));
        f.doc.userflag = true;
        f.doc.journeyname = QStringLiteral("Passes");
        f.ed->setData();
        QCOMPARE(WidgetReaders::columnTexts(f.ed->ListView, 1),
                 (QStringList{"Passes", "EUR", "km", "yes"}));
        QCOMPARE(f.ed->ComboBox->count(), 3);
        QCOMPARE(f.ed->ComboBox->currentText(), QStringLiteral("EUR"));
        for (QWidget *w : std::initializer_list<QWidget *>{f.ed->ComboBox, f.ed->ToolButton,
                                                           f.ed->LineEdit, f.ed->ClearButton})
            QVERIFY2(!w->isEnabled(), qPrintable(w->objectName()));
        QVERIFY(!f.ed->modified);
        QVERIFY(!f.ed->basechanged);
    }

    void baseRowTakesTheComboAndOtherRowsTheLine()
    {
        Fixture f;
        QVERIFY(f.tap("base currency"));
        QVERIFY(f.ed->ComboBox->isEnabled());
        QVERIFY(!f.ed->LineEdit->isEnabled());
        QVERIFY(!f.ed->ClearButton->isEnabled());
        QCOMPARE(f.ed->LineEdit->text(), QStringLiteral("EUR"));
        for (const char *label : {"journey title", "distance type", "user flag"}) {
            QVERIFY(f.tap(QString::fromLatin1(label)));
            QVERIFY(f.ed->LineEdit->isEnabled());
            QVERIFY(f.ed->ClearButton->isEnabled());
            QVERIFY(!f.ed->ComboBox->isEnabled());
            QVERIFY(!f.ed->ToolButton->isEnabled());
        }
        QVERIFY(f.tap("journey title"));
        f.ed->ClearButton->click();
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("North"));
        QCOMPARE(f.row("journey title"), QStringLiteral("North"));
        f.ed->slotSelectButton(); // nothing to pick here
        QCOMPARE(f.row("journey title"), QStringLiteral("North"));
    }

    void okStoresTheFourSettingsAndMarksTheDocument()
    {
        Fixture f;
        QSignalSpy over(f.ed.get(), &baseEdit::overChanged);
        QSignalSpy base(f.ed.get(), &baseEdit::baseCurrencyChanged);
        QVERIFY(f.tap("distance type"));
        f.ed->ClearButton->click();
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("miles"));
        QVERIFY(f.tap("user flag"));
        f.ed->ClearButton->click();
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("yes"));
        f.ed->OkButton->click();
        QCOMPARE(f.ed->result(), int(QDialog::Accepted));
        QCOMPARE(f.doc.distancetype, QStringLiteral("miles"));
        QVERIFY(f.doc.userflag);
        QCOMPARE(f.doc.basecurrency, QStringLiteral("EUR"));
        QVERIFY(f.doc.isModified());
        QCOMPARE(over.count(), 0);
        QCOMPARE(base.count(), 0);
    }

    void okWithoutAChangeAcceptsAndLeavesTheDocumentUnmodified()
    {
        Fixture f;
        QVERIFY(f.tap("journey title"));
        f.ed->OkButton->click();
        QCOMPARE(f.ed->result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());
    }

    void aTypedUserFlagCountsOnlyAsTheExactYes()
    {
        Fixture f;
        QVERIFY(f.tap("user flag"));
        f.ed->ClearButton->click();
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("Yes"));
        f.ed->OkButton->click();
        QVERIFY(!f.doc.userflag);
    }

    void aTapOnTheContentOfTheUserFlagFlipsIt()
    {
        Fixture f;
        QTreeWidgetItem *flag = WidgetReaders::topLevelItem(f.ed->ListView, "user flag");
        QVERIFY(ModalHelper::tapItem(f.ed->ListView, flag, 1));
        QCOMPARE(flag->text(1), QStringLiteral("yes"));
        QVERIFY(ModalHelper::tapItem(f.ed->ListView, flag, 1));
        QCOMPARE(flag->text(1), QStringLiteral("no"));
        // Other rows do not flip.
        QTreeWidgetItem *title = WidgetReaders::topLevelItem(f.ed->ListView, "journey title");
        QVERIFY(ModalHelper::tapItem(f.ed->ListView, title, 1));
        QCOMPARE(title->text(1), QStringLiteral("Lakes"));
    }

    void aTapOnColumn0OfTheUserFlagRowOnlySelectsIt()
    {
        Fixture f;
        QTreeWidgetItem *flag = WidgetReaders::topLevelItem(f.ed->ListView, "user flag");
        QVERIFY(ModalHelper::tapItem(f.ed->ListView, flag, 0));
        QCOMPARE(f.ed->selected, flag);
        QCOMPARE(flag->text(1), QStringLiteral("no"));
        QCOMPARE(f.ed->LineEdit->text(), QStringLiteral("no"));
    }

    void aTapOnAUserFlagEditedToOtherTextTurnsItToYes()
    {
        Fixture f;
        QTreeWidgetItem *flag = WidgetReaders::topLevelItem(f.ed->ListView, "user flag");
        QVERIFY(f.tap("user flag"));
        f.ed->ClearButton->click();
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("maybe"));
        QCOMPARE(flag->text(1), QStringLiteral("maybe"));
        QVERIFY(ModalHelper::tapItem(f.ed->ListView, flag, 1));
        QCOMPARE(flag->text(1), QStringLiteral("yes"));
        f.ed->OkButton->click();
        QVERIFY(f.doc.userflag);
    }

    void anEmptyCurrencyTableLeavesTheBoxEmptyAndTheRowItsValue()
    {
        WayFernData doc;
        doc.basecurrency = QStringLiteral("EUR");
        baseEdit ed(nullptr, "base settings", true, &doc);
        QCOMPARE(ed.ComboBox->count(), 0);
        QCOMPARE(contentOf(ed.ListView, "base currency"), QStringLiteral("EUR"));
        QVERIFY(ModalHelper::tapItem(ed.ListView,
                                     WidgetReaders::topLevelItem(ed.ListView, "base currency")));
        QVERIFY(ed.ComboBox->isEnabled());
        QCOMPARE(ed.ComboBox->count(), 0);
        ed.OkButton->click();
        QCOMPARE(doc.basecurrency, QStringLiteral("EUR"));
        QVERIFY(!doc.isModified());
    }

    void newBaseCurrencyAskedAndYesOnOkStoresAndEmitsBothSignals()
    {
        Fixture f;
        QStringList order;
        connect(f.ed.get(), &baseEdit::baseCurrencyChanged, this, [&order] { order << "base"; });
        connect(f.ed.get(), &baseEdit::overChanged, this, [&order] { order << "over"; });
        QVERIFY(f.tap("base currency"));
        QVERIFY(chooseInCombo(f.ed->ComboBox, QStringLiteral("CHF")));
        QCOMPARE(f.row("base currency"), QStringLiteral("CHF"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.ed->OkButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text,
                 QStringLiteral(
                     "You have modified the base currency!\nDo you want to use the new one ?"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box->icon, QMessageBox::Information);
        QCOMPARE(f.doc.basecurrency, QStringLiteral("CHF"));
        QVERIFY(f.doc.isModified());
        QCOMPARE(order, (QStringList{"base", "over"}));
        QCOMPARE(f.ed->result(), int(QDialog::Accepted));
    }

    void answeringNoToTheBaseQuestionWithNoOtherChangeSimplyAccepts()
    {
        Fixture f;
        QSignalSpy base(f.ed.get(), &baseEdit::baseCurrencyChanged);
        QVERIFY(f.tap("base currency"));
        QVERIFY(chooseInCombo(f.ed->ComboBox, QStringLiteral("USD")));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.ed->OkButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.ed->result(), int(QDialog::Accepted));
        QVERIFY(!f.ed->modified);
        QVERIFY(!f.doc.isModified());
        QCOMPARE(f.doc.basecurrency, QStringLiteral("EUR"));
        QCOMPARE(base.count(), 0);
        // The box falls back; the row keeps the new text until the next setData.
        QCOMPARE(f.ed->ComboBox->currentText(), QStringLiteral("EUR"));
        QCOMPARE(f.row("base currency"), QStringLiteral("USD"));
        f.ed->setData();
        QCOMPARE(f.row("base currency"), QStringLiteral("EUR"));
    }

    void cancelQuestionAnsweredYesStoresAndEmitsOnlyTheBaseSignal()
    {
        Fixture f;
        QSignalSpy over(f.ed.get(), &baseEdit::overChanged);
        QSignalSpy base(f.ed.get(), &baseEdit::baseCurrencyChanged);
        QVERIFY(f.tap("base currency"));
        QVERIFY(chooseInCombo(f.ed->ComboBox, QStringLiteral("CHF")));
        ModalTicket first = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        ModalTicket second = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.ed->CancelButton->click();
        QVERIFY2(first->handled, qPrintable(first->error));
        QVERIFY2(second->handled, qPrintable(second->error));
        QCOMPARE(second->title, QStringLiteral("Cancel"));
        QCOMPARE(second->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(second->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(second->icon, QMessageBox::Information);
        // The base currency is asked first, on Cancel as well.
        QCOMPARE(first->text,
                 QStringLiteral(
                     "You have modified the base currency!\nDo you want to use the new one ?"));
        QCOMPARE(f.ed->result(), int(QDialog::Accepted));
        QCOMPARE(f.doc.basecurrency, QStringLiteral("CHF"));
        QCOMPARE(base.count(), 1);
        QCOMPARE(over.count(), 0);
    }

    void cancelQuestionAnsweredNoRejectsAndKeepsTheDocument()
    {
        Fixture f;
        QVERIFY(f.tap("journey title"));
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("!"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.ed->close();
        QVERIFY2(box->handled, qPrintable(box->error));
        QVERIFY(!f.ed->isVisible());
        QCOMPARE(f.ed->result(), int(QDialog::Rejected));
        QCOMPARE(f.doc.journeyname, QStringLiteral("Lakes"));
        QVERIFY(!f.doc.isModified());
    }

    void closingWithChangesAndCancelInTheBoxKeepsTheDialog()
    {
        Fixture f;
        QVERIFY(f.tap("journey title"));
        QTest::keyClicks(f.ed->LineEdit, QStringLiteral("!"));
        f.ed->show();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QCloseEvent event;
        QApplication::sendEvent(f.ed.get(), &event);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        // Refused, or Qt would close the dialog all the same.
        QVERIFY(!event.isAccepted());
        QVERIFY(f.ed->isVisible());
        QCOMPARE(f.row("journey title"), QStringLiteral("Lakes!"));
        QCOMPARE(f.doc.journeyname, QStringLiteral("Lakes"));
    }

    // Through the window: the base action and the rebasing that follows.
    void baseActionRebasesTheJourneyAndRefreshesTheLists()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(v->baseInput);
        QCOMPARE(v->baseInput->objectName(), QStringLiteral("base settings"));
        QVERIFY(v->baseInput->isHidden());
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        ModalTicket dialog = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<baseEdit *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *ed = static_cast<baseEdit *>(w);
                out.title = ed->windowTitle();
                if (!ModalHelper::tapItem(
                        ed->ListView, WidgetReaders::topLevelItem(ed->ListView, "base currency"))
                    || !chooseInCombo(ed->ComboBox, QStringLiteral("CHF")))
                    out.error = QStringLiteral("can't choose CHF");
                ed->OkButton->click();
            });
        app.openBase->trigger();
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QVERIFY2(question->handled, qPrintable(question->error));
        QVERIFY(v->baseInput->isHidden());
        QCOMPARE(app.doc->basecurrency, QStringLiteral("CHF"));
        QCOMPARE(app.doc->findCurrency(QStringLiteral("CHF"))->factor, QStringLiteral("1.0000"));
        QCOMPARE(app.doc->findCurrency(QStringLiteral("EUR"))->factor, QStringLiteral("0.6667"));
        QCOMPARE(app.doc->findCurrency(QStringLiteral("USD"))->factor, QStringLiteral("0.6000"));
        QCOMPARE(WidgetReaders::headerTexts(v->CostsListView).value(2), QStringLiteral("CHF"));
        // The Hotel cost of 90.00 EUR, now in francs.
        QCOMPARE(WidgetReaders::rowTexts(v->CostsListView, 0).value(2), QStringLiteral("134.99"));
        QTreeWidgetItem *common = v->OverListView->topLevelItem(0);
        QCOMPARE(common->child(0)->text(1), QStringLiteral("CHF"));
        QVERIFY(app.doc->isModified());
    }
};

QTEST_MAIN(TestBaseEditor)
#include "tst_baseeditor.moc"
