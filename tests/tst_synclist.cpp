#include "coretestutil.h"
#include "formcheck.h"
#include "modalhelper.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "forms/synclistdlg.h"
#include "rates/synclistedit.h"

#include <QHeaderView>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const char selectionStub[] = "SyncListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not "
                             "implemented yet!";

class RecordingSyncListDlg : public SyncListDlg
{
public:
    QStringList calls;
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotCancel() override { calls << "slotCancel"; }
    void slotClearLine() override { calls << "slotClearLine"; }
    void slotOK() override { calls << "slotOK"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
    void slotTextChanged(const QString &t) override { calls << "slotTextChanged " + t; }
};

const FormCheck::WidgetRow formWidgets[] = {
    {"SyncListDlg", "SyncListDlg", "synclist"},
    {"OkButton", "QToolButton", "", "OKButton",
     "confirms the changes.\nIf pressed, all changed will be stored.", ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancelButton",
     "all changes will be lost,\nif this button is pressed.\n\nThe user is asked to "
     "confirm\nthe cancellation.",
     ":/pixmaps/cancel.xpm"},
    {"ListView", "QTreeWidget", "short|full name", "select an item to edit",
     "This list shows the available\ncurrency types. By selecting\none or more and "
     "confirming,\nthe selected are stored into\nthe currency list."},
};

const FormCheck::StubRow formStubs[] = {
    {"slotSelectButton()", "SyncListDlg::slotSelectButton(): Not implemented yet!"},
    {"slotCancel()", "SyncListDlg::slotCancel(): Not implemented yet!"},
    {"slotClearLine()", "SyncListDlg::slotClearLine(): Not implemented yet!"},
    {"slotOK()", "SyncListDlg::slotOK(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)", selectionStub},
    {"slotTextChanged(QString)",
     "SyncListDlg::slotTextChanged( const QString & ): Not implemented yet!"},
};

// The currencies the journey starts with in these tests.
void fillCurrencies(WayFernData &doc)
{
    for (const char *code : {"EUR", "CHF"}) {
        CurrData *c = doc.currencies.append();
        c->short_ = QString::fromLatin1(code);
        c->fullname = c->short_;
        c->factor = QStringLiteral("1.0");
        c->type = c->fix;
    }
}

QStringList currencyRows(const WayFernData &doc)
{
    QStringList out;
    for (const CurrData *c : doc.currencies)
        out << QStringList{c->short_, c->fullname, c->factor, c->type}.join(u'|');
    return out;
}

const QByteArray threeOptions =
    "<html>\n<body><form><select name=s><option value=USD>US Dollar</option>"
    "<option value=AUD>Australian Dollar</option><option value=NOK>Norwegian Krone</option>"
    "</select></form>\n</html>\n";

// A journey whose configuration points at a page file in a directory of its own, and the
// dialog built as the currency list builds it.
struct Fixture
{
    explicit Fixture(const QByteArray &pageBytes = threeOptions)
    {
        fillCurrencies(doc);
        doc.config.datapath = dir.path();
        doc.config.syncfile = QStringLiteral("rate.html");
        if (!pageBytes.isNull())
            writeBytes(pagePath(), pageBytes);
        dialog.hide();
    }

    QString pagePath() const { return dir.filePath("rate.html"); }

    QTreeWidgetItem *row(const QString &code)
    {
        return WidgetReaders::topLevelItem(dialog.ListView, code);
    }

    // Taps a row as a finger does; each tap runs the form's selection slot, which is a stub.
    bool tap(const QString &code)
    {
        QTest::ignoreMessage(QtWarningMsg, selectionStub);
        return ModalHelper::tapItem(dialog.ListView, row(code));
    }

    // Opens the dialog as the currency list does before its exec().
    int open()
    {
        const int result = dialog.fillList();
        dialog.show();
        return result;
    }

    QTemporaryDir dir;
    WayFernData doc;
    syncListEdit dialog{nullptr, "synclist", true, &doc};
};

} // namespace

class TestSyncList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        SyncListDlg dlg(nullptr, "synclist", true);
        QVERIFY(dlg.isModal());
        QCOMPARE(dlg.objectName(), QStringLiteral("synclist"));
        QCOMPARE(FormCheck::childWidgets(&dlg),
                 (QStringList{"OkButton:QToolButton", "CancelButton:QToolButton",
                              "ListView:QTreeWidget"}));
        QCOMPARE(dlg.ListView->selectionMode(), QAbstractItemView::MultiSelection);
        QVERIFY(dlg.ListView->allColumnsShowFocus());
        QVERIFY(dlg.ListView->header()->isSortIndicatorShown());
        QVERIFY(dlg.ListView->rootIsDecorated());
        QCOMPARE(dlg.ListView->columnCount(), 2);
        SyncListDlg form;
        FormCheck::checkWidgets(&form, formWidgets);
    }

    void formLayoutHasTheButtonsRightOfASpacerAboveTheList()
    {
        SyncListDlg dlg;
        QCOMPARE(FormCheck::layoutOutline(dlg.layout()),
                 (QStringList{"QVBoxLayout margins 11 spacing 6",
                              "  QHBoxLayout margins 0 spacing 6", "    spacer 20x20 Expanding",
                              "    OkButton", "    CancelButton", "  ListView"}));
    }

    void formStubSlotsWarnNotImplemented()
    {
        SyncListDlg dlg;
        FormCheck::checkStubs(&dlg, SyncListDlg::staticMetaObject, formStubs);
    }

    void formConnectsItsButtonsAndListToTheSlots()
    {
        RecordingSyncListDlg dlg;
        dlg.show();
        dlg.OkButton->click();
        dlg.CancelButton->click();
        QCOMPARE(dlg.calls, (QStringList{"slotOK", "slotCancel"}));
        dlg.calls.clear();
        auto *item = new QTreeWidgetItem(dlg.ListView, QStringList{"AUD", "Australian Dollar"});
        QVERIFY(ModalHelper::tapItem(dlg.ListView, item));
        QCOMPARE(dlg.calls, (QStringList{"slotSelectionChanged AUD"}));
        // A second tap takes the mark away again: many rows may be marked, one by one.
        QVERIFY(ModalHelper::tapItem(dlg.ListView, item));
        QCOMPARE(dlg.calls, (QStringList{"slotSelectionChanged AUD", "slotSelectionChanged null"}));
    }

    void editorKeepsTheFormCaptionSortsOnShortAndOpensMaximized()
    {
        WayFernData doc;
        syncListEdit dialog(nullptr, "Sync list", true, &doc);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("synclist"));
        QCOMPARE(dialog.objectName(), QStringLiteral("Sync list"));
        QVERIFY(dialog.isModal());
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.windowState() & Qt::WindowMaximized);
        QCOMPARE(dialog.document, &doc);
        QVERIFY(dialog.ListView->isSortingEnabled());
        QCOMPARE(dialog.ListView->header()->sortIndicatorSection(), 0);
        QCOMPARE(dialog.ListView->header()->sortIndicatorOrder(), Qt::AscendingOrder);
        QVERIFY(dialog.ListView->allColumnsShowFocus());
    }

    void editorKeepsTheFormsStubsForTheSlotsItDoesNotOverride()
    {
        Fixture f;
        for (const char *stub : {"SyncListDlg::slotSelectButton(): Not implemented yet!",
                                 "SyncListDlg::slotClearLine(): Not implemented yet!",
                                 "SyncListDlg::slotTextChanged( const QString & ): Not "
                                 "implemented yet!",
                                 selectionStub})
            QTest::ignoreMessage(QtWarningMsg, stub);
        f.dialog.slotSelectButton();
        f.dialog.slotClearLine();
        f.dialog.slotTextChanged(QStringLiteral("x"));
        f.dialog.slotSelectionChanged(nullptr);
    }

    void fillListReadsThePageFileUnderTheDataPath()
    {
        Fixture f;
        QCOMPARE(f.open(), -2);
        QCOMPARE(WidgetReaders::headerTexts(f.dialog.ListView),
                 (QStringList{"short", "full name"}));
        QCOMPARE(WidgetReaders::treeRows(f.dialog.ListView),
                 (QStringList{"AUD|Australian Dollar", "NOK|Norwegian Krone", "USD|US Dollar"}));
        QVERIFY(!f.dialog.hasSelection());
    }

    void pageWithoutClosingTagsLosesItsLastOptionInTheList()
    {
        Fixture f("<p><select name=s><option value=USD>US Dollar<option value=AUD>Australian "
                  "Dollar<option value=NOK>Norwegian Krone</select>\n");
        QCOMPARE(f.open(), -2);
        QCOMPARE(WidgetReaders::treeRows(f.dialog.ListView),
                 (QStringList{"AUD|Australian Dollar", "USD|US Dollar"}));
    }

    void twoBoxesOnDifferentLinesListTheFirstOnly()
    {
        Fixture f("<p><select name=s><option value=USD>US Dollar</option></select>\n"
                  "<p><select name=s><option value=AUD>Australian Dollar</option></select>\n");
        QCOMPARE(f.open(), -2);
        QCOMPARE(WidgetReaders::treeRows(f.dialog.ListView), (QStringList{"USD|US Dollar"}));
    }

    void boxAtTheVeryFirstCharacterListsNothing()
    {
        Fixture f("<select name=s><option value=USD>US Dollar</option></select>\n");
        QCOMPARE(f.open(), 0);
        QCOMPARE(f.dialog.ListView->topLevelItemCount(), 0);
    }

    void missingPageFileLeavesTheListEmptyWithoutAWord()
    {
        Fixture f(QByteArray{});
        StdoutCapture out;
        QCOMPARE(f.open(), -1);
        QCOMPARE(out.text(), QString());
        QCOMPARE(f.dialog.ListView->topLevelItemCount(), 0);
    }

    void jsonCatalogueIsListedSortedOnShort()
    {
        Fixture f("{\"NOK\":\"Norwegian Krone\",\"AUD\":\"Australian Dollar\",\"BGN\":\"Bulgarian "
                  "Lev\"}");
        QCOMPARE(f.open(), 0);
        QCOMPARE(
            WidgetReaders::treeRows(f.dialog.ListView),
            (QStringList{"AUD|Australian Dollar", "BGN|Bulgarian Lev", "NOK|Norwegian Krone"}));
    }

    void listIsSortedOnShortInTheListViewsOwnComparison()
    {
        Fixture f("<p><select name=s><option value=usd>lower</option><option value=EUR>Euro"
                  "</option><option value=\"CHF\">quoted</option><option value=eur>euro"
                  "</option><option value=AUD>Australian Dollar</option><option value=Zz>zed"
                  "</option><option value=\xc4UD>umlaut</option></select>\n");
        QCOMPARE(f.open(), -2);
        // Case sensitive, by character code: quote, capitals, small letters, then Latin-1.
        QCOMPARE(WidgetReaders::columnTexts(f.dialog.ListView, 0),
                 (QStringList{"\"CHF\"", "AUD", "EUR", "Zz", "eur", "usd",
                              QString::fromLatin1("\xc4UD")}));
        // And each neighbour stands where the item's own comparison puts it.
        QTreeWidget *list = f.dialog.ListView;
        for (int i = 1; i < list->topLevelItemCount(); ++i)
            QVERIFY(*list->topLevelItem(i - 1) < *list->topLevelItem(i));
        // The names go along with their codes.
        QCOMPARE(
            WidgetReaders::columnTexts(list, 1),
            (QStringList{"quoted", "Australian Dollar", "Euro", "zed", "euro", "lower", "umlaut"}));
    }

    void refillingEmptiesTheListAndForgetsTheMarks()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("NOK"));
        QVERIFY(f.dialog.hasSelection());
        writeBytes(f.pagePath(),
                   "<p><select name=s><option value=SEK>Swedish Krona</option>"
                   "<option value=NOK>Norwegian Krone</option></select>\n");
        // Emptying a marked list changes the selection once, which the form's stub reports.
        QTest::ignoreMessage(QtWarningMsg, selectionStub);
        QCOMPARE(f.open(), -2);
        QCOMPARE(WidgetReaders::treeRows(f.dialog.ListView),
                 (QStringList{"NOK|Norwegian Krone", "SEK|Swedish Krona"}));
        QVERIFY(!f.dialog.hasSelection());
    }

    void okAppendsTheMarkedCurrenciesWithTheirNamesOnly()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("USD"));
        QVERIFY(f.tap("AUD"));
        QVERIFY(!f.doc.isModified());
        f.dialog.OkButton->click();
        QCOMPARE(f.dialog.result(), int(QDialog::Accepted));
        QVERIFY(!f.dialog.isVisible());
        QVERIFY(f.doc.isModified());
        // In the order the list shows them; factor and type stay empty until a rate comes.
        QCOMPARE(currencyRows(f.doc),
                 (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix", "AUD|Australian Dollar||",
                              "USD|US Dollar||"}));
        QVERIFY(f.doc.currencies.at(2)->factor.isNull());
        QVERIFY(f.doc.currencies.at(2)->type.isNull());
    }

    void okWithNothingMarkedAcceptsAndLeavesTheDocumentAlone()
    {
        Fixture f;
        f.open();
        QVERIFY(!f.dialog.storeSelected());
        f.dialog.OkButton->click();
        QCOMPARE(f.dialog.result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());
        QCOMPARE(f.doc.currencies.count(), 2);
    }

    void sameCurrencyChosenInTwoOpeningsStandsTwice()
    {
        Fixture f;
        for (int opening = 0; opening < 2; ++opening) {
            if (opening > 0) // the marks of the first opening go as the list is emptied
                QTest::ignoreMessage(QtWarningMsg, selectionStub);
            f.open();
            QVERIFY(f.tap("NOK"));
            f.dialog.OkButton->click();
            f.dialog.hide();
        }
        QCOMPARE(currencyRows(f.doc),
                 (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix", "NOK|Norwegian Krone||",
                              "NOK|Norwegian Krone||"}));
    }

    void aCurrencyTheJourneyHoldsAlreadyIsAppendedAgain()
    {
        Fixture f("<p><select name=s><option value=EUR>Euro</option></select>\n");
        f.open();
        QVERIFY(f.tap("EUR"));
        QVERIFY(f.dialog.storeSelected());
        QCOMPARE(WidgetReaders::treeRows(f.dialog.ListView), (QStringList{"EUR|Euro"}));
        QCOMPARE(currencyRows(f.doc),
                 (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix", "EUR|Euro||"}));
    }

    void cancelWithSelectionAnsweredYesStoresExactlyLikeOk()
    {
        Fixture byOk;
        byOk.open();
        QVERIFY(byOk.tap("USD"));
        QVERIFY(byOk.tap("NOK"));
        byOk.dialog.OkButton->click();

        Fixture byCancel;
        byCancel.open();
        QVERIFY(byCancel.tap("USD"));
        QVERIFY(byCancel.tap("NOK"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        byCancel.dialog.CancelButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(byCancel.dialog.result(), int(QDialog::Accepted));
        QVERIFY(!byCancel.dialog.isVisible());

        QCOMPARE(currencyRows(byCancel.doc), currencyRows(byOk.doc));
        QCOMPARE(currencyRows(byCancel.doc),
                 (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix", "NOK|Norwegian Krone||",
                              "USD|US Dollar||"}));
        QCOMPARE(byCancel.doc.isModified(), byOk.doc.isModified());
        QVERIFY(byCancel.doc.isModified());
    }

    void cancelAsksTheSaveQuestionWithItsCaptionTextAndButtons()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("AUD"));
        ModalTicket box = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *question = static_cast<QMessageBox *>(w);
                if (question->parentWidget() == nullptr)
                    out.error = QStringLiteral("the question has no parent");
                if (static_cast<QAbstractButton *>(question->defaultButton())
                    != question->button(QMessageBox::Yes))
                    out.error = QStringLiteral("Yes is not the default");
                if (question->escapeButton() != question->button(QMessageBox::Cancel))
                    out.error = QStringLiteral("Cancel is not the escape");
                question->button(QMessageBox::Cancel)->click();
            });
        f.dialog.slotCancel();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(box->icon, QMessageBox::Information);
    }

    void cancelWithSelectionAnsweredNoRejectsAndStoresNothing()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("AUD"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.dialog.CancelButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.dialog.result(), int(QDialog::Rejected));
        QVERIFY(!f.dialog.isVisible());
        QVERIFY(!f.doc.isModified());
        QCOMPARE(currencyRows(f.doc), (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix"}));
    }

    void cancelWithSelectionAnsweredCancelKeepsTheDialogAndItsMarks()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("AUD"));
        QVERIFY(f.tap("USD"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        f.dialog.CancelButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QVERIFY(f.dialog.isVisible());
        QCOMPARE(f.dialog.ListView->selectedItems().size(), 2);
        QVERIFY(!f.doc.isModified());
        QCOMPARE(f.doc.currencies.count(), 2);
    }

    void escapeInTheQuestionAnswersCancel()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("AUD"));
        ModalTicket box = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &) { QTest::keyClick(w, Qt::Key_Escape); });
        f.dialog.slotCancel();
        QVERIFY2(box->handled, qPrintable(box->error));
        QVERIFY(f.dialog.isVisible());
        QVERIFY(f.dialog.hasSelection());
        QCOMPARE(f.doc.currencies.count(), 2);
    }

    void cancelWithNothingMarkedRejectsWithoutAQuestion()
    {
        Fixture f;
        f.open();
        // Armed only to see whether a question comes: it must not.
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        f.dialog.CancelButton->click();
        QCOMPARE(f.dialog.result(), int(QDialog::Rejected));
        QVERIFY(!f.dialog.isVisible());
        QVERIFY(!box->handled);
        QVERIFY(!f.doc.isModified());
        QCOMPARE(f.doc.currencies.count(), 2);
    }

    void emptyListOkAndCancelLeaveTheDocumentUnchanged()
    {
        Fixture f(QByteArray{});
        QCOMPARE(f.open(), -1);
        QVERIFY(!f.dialog.hasSelection());
        QVERIFY(!f.dialog.storeSelected());
        f.dialog.OkButton->click();
        QCOMPARE(f.dialog.result(), int(QDialog::Accepted));
        f.open();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        f.dialog.CancelButton->click();
        QCOMPARE(f.dialog.result(), int(QDialog::Rejected));
        QVERIFY(!box->handled);
        QVERIFY(!f.doc.isModified());
        QCOMPARE(currencyRows(f.doc), (QStringList{"EUR|EUR|1.0|fix", "CHF|CHF|1.0|fix"}));
    }

    void closingTheWindowAsksLikeCancel()
    {
        Fixture f;
        f.open();
        QVERIFY(f.tap("NOK"));
        ModalTicket keep = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QVERIFY(!f.dialog.close());
        QVERIFY2(keep->handled, qPrintable(keep->error));
        QCOMPARE(keep->title, QStringLiteral("Cancel"));
        QVERIFY(f.dialog.isVisible());

        ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QVERIFY(f.dialog.close());
        QVERIFY2(yes->handled, qPrintable(yes->error));
        QVERIFY(!f.dialog.isVisible());
        QCOMPARE(f.dialog.result(), int(QDialog::Accepted));
        QCOMPARE(f.doc.currencies.last()->short_, QStringLiteral("NOK"));
        QVERIFY(f.doc.isModified());
    }

    void closingWithNothingMarkedClosesWithoutAQuestion()
    {
        Fixture f;
        f.open();
        QVERIFY(f.dialog.close());
        QVERIFY(!f.dialog.isVisible());
        QCOMPARE(f.dialog.result(), int(QDialog::Rejected));
        QVERIFY(!f.doc.isModified());
    }

    void execRunsUntilOkAndTheCallerHides()
    {
        Fixture f;
        QCOMPARE(f.dialog.fillList(), -2);
        ModalTicket run = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<syncListEdit *>(w) != nullptr; },
            [](QWidget *w, ModalOutcome &out) {
                auto *dialog = static_cast<syncListEdit *>(w);
                QTreeWidgetItem *row = WidgetReaders::topLevelItem(dialog->ListView, "USD");
                QTest::ignoreMessage(QtWarningMsg, selectionStub);
                if (!ModalHelper::tapItem(dialog->ListView, row))
                    out.error = QStringLiteral("USD could not be tapped");
                dialog->OkButton->click();
            });
        QCOMPARE(f.dialog.exec(), int(QDialog::Accepted));
        f.dialog.hide();
        QVERIFY2(run->handled && run->error.isEmpty(), qPrintable(run->error));
        QCOMPARE(f.doc.currencies.last()->short_, QStringLiteral("USD"));
        QCOMPARE(f.doc.currencies.last()->fullname, QStringLiteral("US Dollar"));
        QVERIFY(f.doc.isModified());
    }

    void aHundredThousandCurrenciesAreListedSorted()
    {
        QByteArray options;
        for (int i = 99999; i >= 0; --i)
            options += "<option value=C" + QByteArray::number(100000 + i) + ">n"
                + QByteArray::number(i) + "</option>";
        Fixture f("<p><select name=s>" + options + "</select>\n");
        QCOMPARE(f.open(), -2);
        QTreeWidget *list = f.dialog.ListView;
        QCOMPARE(list->topLevelItemCount(), 100000);
        QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("C100000"));
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("n0"));
        QCOMPARE(list->topLevelItem(99999)->text(0), QStringLiteral("C199999"));
    }
};

QTEST_MAIN(TestSyncList)
#include "tst_synclist.moc"
