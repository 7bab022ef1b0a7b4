#include "editortestutil.h"
#include "formcheck.h"
#include "loopbackhttp.h"
#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "editors/curredit.h"
#include "editors/currlistedit.h"
#include "forms/currlistdlg.h"
#include "rates/currsync.h"
#include "rates/synclistedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

class RecordingCurrListDlg : public CurrListDlg
{
public:
    QStringList calls;
    void slotSyncList() override { calls << "slotSyncList"; }
    void slotAppend() override { calls << "slotAppend"; }
    void slotChange() override { calls << "slotChange"; }
    void slotClose() override { calls << "slotClose"; }
    void slotDelete() override { calls << "slotDelete"; }
    void slotInsert() override { calls << "slotInsert"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
    void slotSynchronize() override { calls << "slotSynchronize"; }
};

// A journey whose rate pages come from a server on the loopback address, fetched by wget
// into a page file of its own.
struct Journey
{
    Journey()
    {
        server.start();
        doc.config.datapath = dir.path();
        doc.config.syncfile = QStringLiteral("sync.html");
        doc.config.server = server.address();
        doc.config.fromprefix = QStringLiteral("/v1/latest?from=");
        doc.config.toprefix = QStringLiteral("&to=");
        doc.config.postfix = QStringLiteral("");
    }

    QTemporaryDir dir;
    LoopbackHttp server;
    WayFernData doc;
};

// The list on the small journey: EUR (base, 1.0), CHF (1.50), USD (0.90).
struct Fixture : Journey
{
    Fixture()
    {
        fillJourney(doc, false);
        doc.findCurrency(QStringLiteral("CHF"))->fullname = QStringLiteral("Swiss Franc");
        list.hide();
        list.setData();
    }

    static QString target(const QString &from, const QString &to)
    {
        return QStringLiteral("/v1/latest?from=%1&to=%2").arg(from, to);
    }
    // The service's answer for one pair, as it gives it.
    void rate(const QString &from, const QString &to, const QString &number)
    {
        server.setRoute(target(from, to),
                        QStringLiteral(R"({"amount":1.0,"base":"%1","date":"2026-11-20",)"
                                       R"("rates":{"%2":%3}})")
                            .arg(from, to, number)
                            .toUtf8(),
                        "application/json");
    }
    // The walk has refilled the list and given the button back.
    bool walkEnded() const { return list.SyncButton->isEnabled(); }

    CurrData *curr(const char *shortName)
    {
        for (CurrData *c : doc.currencies)
            if (c->short_ == QLatin1String(shortName))
                return c;
        return nullptr;
    }
    QTreeWidgetItem *rowOf(const QString &shortName)
    {
        return WidgetReaders::topLevelItem(list.CurrListView, shortName);
    }
    bool tap(const QString &shortName)
    {
        return ModalHelper::tapItem(list.CurrListView, rowOf(shortName));
    }
    QStringList rows() const { return WidgetReaders::treeRows(list.CurrListView); }
    QStringList shorts() const
    {
        QStringList names;
        for (CurrData *c : doc.currencies)
            names << c->short_;
        return names;
    }
    currListEdit list{nullptr, "Currency List", true, &doc};
};

// In the next currency editor: runs `fill`, then presses the button `button`.
ModalTicket inNextCurrEditor(const QString &button,
                             std::function<void(currEdit *, ModalOutcome &)> fill = {})
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<currEdit *>(w) != nullptr; },
        [button, fill](QWidget *w, ModalOutcome &out) {
            auto *ed = qobject_cast<currEdit *>(w);
            out.title = ed->windowTitle();
            out.objectName = ed->objectName();
            if (fill)
                fill(ed, out);
            if (auto *b = ed->findChild<QToolButton *>(button))
                b->click();
            else
                out.error += QStringLiteral("no button %1; ").arg(button);
        });
}

// Types `text` into the row `label` of the currency editor.
void typeInto(currEdit *ed, const QString &label, const QString &text, ModalOutcome &out)
{
    QTreeWidgetItem *row = WidgetReaders::topLevelItem(ed->ListView, label);
    if (!row || !ModalHelper::tapItem(ed->ListView, row)) {
        out.error += QStringLiteral("row %1 not tapped; ").arg(label);
        return;
    }
    ed->ClearButton->click();
    QTest::keyClicks(ed->LineEdit, text);
}

const FormCheck::WidgetRow listFormWidgets[] = {
    {"CurrListDlg", "CurrListDlg", "Curreny List"},
    {"BaseCTextLabel", "QLabel", "Base currency", "BaseCurrencyLabel",
     "shows the actual base currency"},
    {"StatusTextLabel", "QLabel", "Status", "StatusLabel",
     "shows the status while the synchronisation\nis active."},
    {"AppendButton", "QToolButton", "", "AppendButton",
     "appends a new currency to\nthe currency list.\nThis will open an empty currency dialog\n"
     "to fill in the data.",
     ":/pixmaps/curradd.xpm"},
    {"ChangeButton", "QToolButton", "", "ChangeButton",
     "changes the data of an existing currency.\nThe currency to be changed has to be selected.",
     ":/pixmaps/currchange.xpm"},
    {"DeleteButton", "QToolButton", "", "DeleteButton",
     "deletes the selected currency from the list.\nThe user is asked to confirm the\naction.",
     ":/pixmaps/currdelete.xpm"},
    {"SyncButton", "QToolButton", "", "SyncButton",
     "SyncButton\nsynchronizes the currency exchange rates\nwith the yahoo website (if internet "
     "is available)",
     ":/pixmaps/currsync.xpm"},
    {"SyncListButton", "QToolButton", "", "SyncListButton",
     "shows a list with all availble currencies\non the yahoo web site. The user\ncan select one "
     "or more from this list\nto use them in the program.",
     ":/pixmaps/currsynclist.xpm"},
    {"CloseButton", "QToolButton", "", "CloseButton", "closes the form and stores\nthe changes",
     ":/pixmaps/close.xpm"},
    {"CurrListView", "QTreeWidget", "currency|factor|Full name", "CurrencyList",
     "This list shows the different currencies used during\nthe journey."},
};

const FormCheck::StubRow listFormStubs[] = {
    {"slotSyncList()", "CurrListDlg::slotSyncList(): Not implemented yet!"},
    {"slotAppend()", "CurrListDlg::slotAppend(): Not implemented yet!"},
    {"slotChange()", "CurrListDlg::slotChange(): Not implemented yet!"},
    {"slotClose()", "CurrListDlg::slotClose(): Not implemented yet!"},
    {"slotDelete()", "CurrListDlg::slotDelete(): Not implemented yet!"},
    {"slotInsert()", "CurrListDlg::slotInsert(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "CurrListDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotSynchronize()", "CurrListDlg::slotSynchronize(): Not implemented yet!"},
};

// Long enough for wget on a loopback address however busy the machine; nothing waits for
// it unless something is wrong.
constexpr int walkTimeout = 30000;

const QString saveQuestion =
    QStringLiteral("You have modified the data!\nDo you want to save the changes ?");

// In the next currency list: the rate of `currency` set to `factor` in its editor, then the
// list closed and its question answered with Yes. The ticket holds the list's caption and
// base currency line.
ModalTicket setFactorInNextList(const QString &currency, const QString &factor)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<currListEdit *>(w) != nullptr; },
        [currency, factor](QWidget *w, ModalOutcome &out) {
            auto *l = qobject_cast<currListEdit *>(w);
            out.title = l->windowTitle();
            out.text = l->BaseCTextLabel->text();
            QTreeWidgetItem *row = WidgetReaders::topLevelItem(l->CurrListView, currency);
            if (!ModalHelper::tapItem(l->CurrListView, row))
                out.error += currency + QStringLiteral(" not tapped; ");
            ModalTicket ed = inNextCurrEditor("OkButton", [factor](currEdit *e, ModalOutcome &o) {
                typeInto(e, "factor", factor, o);
            });
            l->ChangeButton->click();
            if (!ed->handled || !ed->error.isEmpty())
                out.error += QStringLiteral("editor: ") + ed->error;
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            l->CloseButton->click();
            if (!box->handled)
                out.error += QStringLiteral("no question on close; ");
        });
}

} // namespace

class TestCurrList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("WAYFERNCFG", ".");
        // A failed request ends after 3 seconds instead of 30.
        currSync::setIntervals(50, 3000, 200);
        currSync::setReapInterval(50);
    }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    // The form.

    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        CurrListDlg dlg(nullptr, "Currency List", true);
        QCOMPARE(dlg.objectName(), QStringLiteral("Currency List"));
        QVERIFY(dlg.isModal());
        QCOMPARE(FormCheck::childWidgets(&dlg),
                 (QStringList{"BaseCTextLabel:QLabel", "StatusTextLabel:QLabel",
                              "AppendButton:QToolButton", "ChangeButton:QToolButton",
                              "DeleteButton:QToolButton", "SyncButton:QToolButton",
                              "SyncListButton:QToolButton", "CloseButton:QToolButton",
                              "CurrListView:QTreeWidget"}));
        for (QLabel *label : {dlg.BaseCTextLabel, dlg.StatusTextLabel})
            QCOMPARE(label->frameShape(), QFrame::Panel);
        for (QToolButton *b : {dlg.AppendButton, dlg.ChangeButton, dlg.DeleteButton, dlg.SyncButton,
                               dlg.SyncListButton, dlg.CloseButton})
            QCOMPARE(b->iconSize(), QSize(24, 16));
        QVERIFY(!dlg.CurrListView->header()->sectionsClickable());
        CurrListDlg form;
        FormCheck::checkWidgets(&form, listFormWidgets);
    }

    void formLayoutStacksTheLabelsTheButtonRowAndTheList()
    {
        CurrListDlg dlg;
        QCOMPARE(FormCheck::layoutOutline(dlg.layout()),
                 (QStringList{"QVBoxLayout margins 11 spacing 6", "  BaseCTextLabel",
                              "  StatusTextLabel", "  QHBoxLayout margins 0 spacing 6",
                              "    AppendButton", "    ChangeButton", "    DeleteButton",
                              "    SyncButton", "    SyncListButton", "    spacer 20x20 Expanding",
                              "    CloseButton", "  CurrListView"}));
    }

    void formStubSlotsWarnNotImplemented()
    {
        CurrListDlg dlg;
        FormCheck::checkStubs(&dlg, CurrListDlg::staticMetaObject, listFormStubs);
    }

    void formConnectsItsButtonsAndListToTheSlots()
    {
        RecordingCurrListDlg dlg;
        dlg.show();
        for (QToolButton *b : {dlg.AppendButton, dlg.ChangeButton, dlg.DeleteButton,
                               dlg.CloseButton, dlg.SyncButton, dlg.SyncListButton})
            b->click();
        QCOMPARE(dlg.calls,
                 (QStringList{"slotAppend", "slotChange", "slotDelete", "slotClose",
                              "slotSynchronize", "slotSyncList"}));
        dlg.calls.clear();
        auto *item = new QTreeWidgetItem(dlg.CurrListView, QStringList{"CHF"});
        QVERIFY(ModalHelper::tapItem(dlg.CurrListView, item));
        QCOMPARE(dlg.calls, (QStringList{"slotSelectionChanged CHF"}));
        dlg.calls.clear();
        const QRect rect = dlg.CurrListView->visualItemRect(item);
        QTest::mouseDClick(dlg.CurrListView->viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY(dlg.calls.contains("slotChange"));
        dlg.calls.clear();
        emit dlg.CurrListView->itemActivated(item, 0);
        QCOMPARE(dlg.calls, (QStringList{"slotChange"}));
    }

    // Opening.

    void theListOwnsItsTwoDialogsBuiltModalAndHidden()
    {
        Fixture f;
        QCOMPARE(f.list.windowTitle(), QStringLiteral("Curreny List"));
        QCOMPARE(f.list.objectName(), QStringLiteral("Currency List"));
        QStringList dialogs;
        for (QDialog *d : f.list.findChildren<QDialog *>(Qt::FindDirectChildrenOnly)) {
            dialogs << d->objectName() + u':' + QString::fromLatin1(d->metaObject()->className());
            QVERIFY(d->isHidden());
            QVERIFY(d->isModal());
        }
        QCOMPARE(dialogs,
                 (QStringList{"Input currency:currEdit", "exchange rate list:syncListEdit"}));
        QVERIFY(f.list.grabber);
        QVERIFY(!f.list.CurrListView->isSortingEnabled());
        QVERIFY(f.list.CurrListView->allColumnsShowFocus());
    }

    void setDataShowsTheBaseCurrencyAndTheTableInItsOrder()
    {
        Fixture f;
        QCOMPARE(f.list.BaseCTextLabel->text(), QStringLiteral("base currency : EUR"));
        QCOMPARE(f.list.StatusTextLabel->text(), QString());
        QCOMPARE(f.rows(), (QStringList{"EUR|1.0|EUR", "CHF|1.50|Swiss Franc", "USD|0.90|USD"}));
        QCOMPARE(f.list.findByItem(f.rowOf("USD")), f.curr("USD"));
        QVERIFY(!f.list.DeleteButton->isEnabled());
        QVERIFY(!f.list.ChangeButton->isEnabled());
        QVERIFY(f.list.SyncButton->isEnabled());
        QVERIFY(f.list.SyncListButton->isEnabled());
        QVERIFY(!f.list.changed);
        QCOMPARE(f.list.base, QStringLiteral("EUR"));
    }

    void aJourneyWithoutBaseCurrencyHasTheSyncButtonDisabled()
    {
        Fixture f;
        f.doc.basecurrency = QString();
        f.list.setData();
        QVERIFY(!f.list.SyncButton->isEnabled());
        f.doc.basecurrency = QStringLiteral("");
        f.list.setData();
        QVERIFY(!f.list.SyncButton->isEnabled());
        QCOMPARE(f.list.BaseCTextLabel->text(), QStringLiteral("base currency : "));
        QVERIFY(f.list.SyncListButton->isEnabled());
    }

    void selectingARowSwitchesChangeAndDeleteOn()
    {
        Fixture f;
        QVERIFY(f.tap("CHF"));
        QVERIFY(f.list.DeleteButton->isEnabled());
        QVERIFY(f.list.ChangeButton->isEnabled());
        f.list.CurrListView->clearSelection();
        QVERIFY(!f.list.DeleteButton->isEnabled());
        QVERIFY(!f.list.ChangeButton->isEnabled());
    }

    // Append, change, delete.

    void aConfirmedNewCurrencyIsAppendedAndSelected()
    {
        Fixture f;
        ModalTicket ed = inNextCurrEditor("OkButton", [](currEdit *e, ModalOutcome &out) {
            if (e->ListView->topLevelItemCount() != 4 || !e->LineEdit->text().isEmpty())
                out.error += QStringLiteral("not an empty currency; ");
            typeInto(e, "short name", "NOK", out);
            typeInto(e, "factor", "11.45", out);
            typeInto(e, "full name", "Norwegian Krone", out);
        });
        f.list.AppendButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(ed->title, QStringLiteral("Currency"));
        QCOMPARE(ed->objectName, QStringLiteral("Input currency"));
        QCOMPARE(f.shorts(), (QStringList{"EUR", "CHF", "USD", "NOK"}));
        QCOMPARE(f.doc.currencies.last()->type, QStringLiteral("fix"));
        QCOMPARE(f.list.current, f.doc.currencies.last());
        QCOMPARE(f.rows().last(), QStringLiteral("NOK|11.45|Norwegian Krone"));
        QVERIFY(f.rowOf("NOK")->isSelected());
        QCOMPARE(f.list.CurrListView->currentItem(), f.rowOf("NOK"));
        QVERIFY(f.list.changed);
    }

    void appendingAndThenCancellingRemovesTheNewRecordAndCurrentMovesToTheFirst()
    {
        Fixture f;
        QVERIFY(f.tap("USD"));
        // The empty type shows as "fix", which counts as a change: Cancel asks, and No drops.
        ModalTicket box;
        ModalTicket ed = inNextCurrEditor("CancelButton", [&box](currEdit *, ModalOutcome &) {
            box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        });
        f.list.AppendButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QVERIFY(box);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text, saveQuestion);
        QCOMPARE(f.shorts(), (QStringList{"EUR", "CHF", "USD"}));
        QCOMPARE(f.list.current, f.doc.currencies.first());
        QVERIFY(f.rowOf("EUR")->isSelected());
        QCOMPARE(f.list.CurrListView->topLevelItemCount(), 3);
        QVERIFY(!f.list.changed);
    }

    void aChangeConfirmedIsShownAndSetsChanged()
    {
        Fixture f;
        QVERIFY(f.tap("CHF"));
        ModalTicket ed = inNextCurrEditor("OkButton", [](currEdit *e, ModalOutcome &out) {
            if (e->actu == nullptr || e->actu->short_ != QLatin1String("CHF"))
                out.error += QStringLiteral("not CHF; ");
            typeInto(e, "factor", "1.55", out);
        });
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(f.rows().at(1), QStringLiteral("CHF|1.55|Swiss Franc"));
        QCOMPARE(f.list.current, f.curr("CHF"));
        QVERIFY(f.rowOf("CHF")->isSelected());
        QVERIFY(f.list.changed);
        QVERIFY(f.doc.isModified());
    }

    void aChangeCancelledLeavesChangedAlone()
    {
        Fixture f;
        QVERIFY(f.tap("USD"));
        ModalTicket ed = inNextCurrEditor("CancelButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QVERIFY(!f.list.changed);
        QCOMPARE(f.list.current, f.curr("USD"));
        QVERIFY(f.rowOf("USD")->isSelected());
    }

    void doubleClickingARowOpensTheCurrencyEditor()
    {
        Fixture f;
        QVERIFY(f.tap("USD"));
        ModalTicket ed = inNextCurrEditor("OkButton", [](currEdit *e, ModalOutcome &out) {
            typeInto(e, "full name", "US Dollar", out);
        });
        const QRect rect = f.list.CurrListView->visualItemRect(f.rowOf("USD"));
        QTest::mouseDClick(f.list.CurrListView->viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(f.curr("USD")->fullname, QStringLiteral("US Dollar"));
    }

    void changeWithoutARowOnlyRefills()
    {
        Fixture f;
        f.curr("USD")->factor = QStringLiteral("0.95");
        f.list.slotChange();
        QCOMPARE(f.rows().last(), QStringLiteral("USD|0.95|USD"));
        QVERIFY(!f.list.changed);
    }

    void deletingAskedAndAnsweredYesRemovesTheCurrency()
    {
        Fixture f;
        QVERIFY(f.tap("CHF"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text,
                 QStringLiteral("Delete currency\nSwiss Franc\nCHF\n\nconfirm with yes !"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(f.shorts(), (QStringList{"EUR", "USD"}));
        QCOMPARE(f.list.current, f.doc.currencies.first());
        QVERIFY(f.rowOf("EUR")->isSelected());
        QVERIFY(f.list.changed);
        // The journey is marked only when the list is closed with Yes.
        QVERIFY(!f.doc.isModified());
    }

    void deletingAnsweredCancelKeepsTheCurrency()
    {
        Fixture f;
        QVERIFY(f.tap("USD"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.shorts(), (QStringList{"EUR", "CHF", "USD"}));
        QCOMPARE(f.list.current, f.curr("USD"));
        QVERIFY(!f.list.changed);
    }

    void deletingTheBaseCurrencyIsRefused()
    {
        Fixture f;
        QVERIFY(f.tap("EUR"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text, QStringLiteral("Delete base currency\nEUR\n\nis not possible !"));
        QCOMPARE(box->buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(f.shorts(), (QStringList{"EUR", "CHF", "USD"}));
        QVERIFY(!f.list.changed);
    }

    void aSecondRecordWithTheBaseCurrencysShortNameIsRefusedAsWell()
    {
        Fixture f;
        CurrData *second = f.doc.currencies.append();
        second->short_ = QStringLiteral("EUR");
        second->fullname = QStringLiteral("Euro again");
        f.list.setData();
        QCOMPARE(f.doc.currencies.indexOf(second), 3);
        QVERIFY(ModalHelper::tapItem(f.list.CurrListView, f.list.CurrListView->topLevelItem(3)));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        f.list.DeleteButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text, QStringLiteral("Delete base currency\nEUR\n\nis not possible !"));
        QCOMPARE(f.doc.currencies.count(), 4);
        QCOMPARE(f.list.current, second);
    }

    void deleteWithoutARowDoesNothing()
    {
        Fixture f;
        f.list.slotDelete();
        QCOMPARE(f.doc.currencies.count(), 3);
        QVERIFY(!f.list.changed);
    }

    // Closing.

    void closingUnchangedAcceptsWithoutAQuestion()
    {
        Fixture f;
        f.list.show();
        f.list.CloseButton->click();
        QVERIFY(!f.list.isVisible());
        QCOMPARE(f.list.result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());
    }

    void closingChangedAnsweredYesMarksTheJourneyModified()
    {
        Fixture f;
        f.list.show();
        f.list.changed = true;
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.CloseButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text, saveQuestion);
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(f.list.result(), int(QDialog::Accepted));
        QVERIFY(f.doc.isModified());
        QVERIFY(!f.list.changed);
    }

    void closingChangedAnsweredNoKeepsTheRecordsButLeavesTheJourneyUnmarked()
    {
        Fixture f;
        QVERIFY(f.tap("CHF"));
        ModalTicket del = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.list.DeleteButton->click();
        QVERIFY2(del->handled, qPrintable(del->error));
        f.list.show();
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::No);
        f.list.CloseButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.list.result(), int(QDialog::Accepted));
        QVERIFY(!f.list.isVisible());
        QCOMPARE(f.shorts(), (QStringList{"EUR", "USD"}));
        QVERIFY(!f.doc.isModified());
        QVERIFY(!f.list.changed);
    }

    void closingTheWindowAsksAndCancelInTheBoxKeepsTheList()
    {
        Fixture f;
        f.list.show();
        f.list.changed = true;
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QCloseEvent event;
        QApplication::sendEvent(&f.list, &event);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QVERIFY(!event.isAccepted());
        QVERIFY(f.list.isVisible());
        QVERIFY(f.list.changed);
        QVERIFY(!f.doc.isModified());
    }

    // The catalogue.

    void theCatalogueOpensAtOnceAndTheLastCurrencyDialogDecidesChanged()
    {
        Fixture f;
        // The last currency dialog was confirmed, in an earlier opening of the list.
        QVERIFY(f.tap("USD"));
        ModalTicket ed = inNextCurrEditor("OkButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled, qPrintable(ed->error));
        f.list.setData();
        QVERIFY(!f.list.changed);

        ModalTicket cat = ModalHelper::rejectNextDialog({}, "syncListEdit");
        f.list.SyncListButton->click();
        QVERIFY2(cat->handled && cat->error.isEmpty(), qPrintable(cat->error));
        QCOMPARE(cat->objectName, QStringLiteral("exchange rate list"));
        QVERIFY(f.list.syncListDlg->isHidden());
        // Rejected, and still the currency dialog's earlier OK counts.
        QVERIFY(f.list.changed);
        // Without a catalogue address nothing is fetched first.
        QVERIFY(f.server.targets().isEmpty());
    }

    void theCatalogueAfterACancelledCurrencyDialogLeavesChangedAlone()
    {
        Fixture f;
        QVERIFY(f.tap("USD"));
        ModalTicket ed = inNextCurrEditor("CancelButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled, qPrintable(ed->error));
        ModalTicket cat = ModalHelper::acceptNextDialog(
            [&f](QDialog *) { f.doc.currencies.append()->short_ = QStringLiteral("NOK"); },
            "syncListEdit");
        f.list.SyncListButton->click();
        QVERIFY2(cat->handled && cat->error.isEmpty(), qPrintable(cat->error));
        QVERIFY(!f.list.changed);
        // What the catalogue added shows at once, and the last currency stays selected.
        QCOMPARE(f.rows().last(), QStringLiteral("NOK||"));
        QVERIFY(f.rowOf("USD")->isSelected());
    }

    void withACatalogueAddressThePageIsFetchedBeforeTheCatalogueOpens()
    {
        Fixture f;
        f.server.setRoute(QStringLiteral("/v1/currencies"),
                          R"({"AUD":"Australian Dollar","NOK":"Norwegian Krone"})",
                          "application/json");
        f.doc.config.catalogue = f.server.address() + QStringLiteral("/v1/currencies");
        ModalTicket cat = ModalHelper::acceptNextDialog({}, "syncListEdit", walkTimeout);
        f.list.SyncListButton->click();
        // The window stays usable while the page comes; the button waits for it.
        QVERIFY(!cat->handled);
        QVERIFY(!f.list.SyncListButton->isEnabled());
        QVERIFY(f.list.AppendButton->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(cat->handled, walkTimeout);
        QVERIFY2(cat->error.isEmpty(), qPrintable(cat->error));
        QCOMPARE(f.server.targets(), QStringList{"/v1/currencies"});
        QVERIFY(f.list.SyncListButton->isEnabled());
        // The fetch was not taken for a walk: no rate was asked for.
        QVERIFY(f.list.SyncButton->isEnabled());
    }

    void aCatalogueFetchThatFailsSaysWhyInsteadOfOpeningTheCatalogue()
    {
        Fixture f;
        f.server.setStatusRoute(QStringLiteral("/v1/currencies"), 404, "not here");
        f.doc.config.catalogue = f.server.address() + QStringLiteral("/v1/currencies");
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok, walkTimeout);
        f.list.SyncListButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(box->handled, walkTimeout);
        QVERIFY2(box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("exchange rate list"));
        const QString reason =
            QStringLiteral("did not get data ... the server refused the request ")
            + f.doc.config.catalogue;
        QCOMPARE(box->text, reason);
        QCOMPARE(f.list.StatusTextLabel->text(), reason);
        QVERIFY(f.list.syncListDlg->isHidden());
        QVERIFY(f.list.SyncListButton->isEnabled());
        QCOMPARE(f.rows().size(), 3);
        QVERIFY(!QFile::exists(f.dir.filePath(QStringLiteral("sync.html"))));
    }

    void theCatalogueFetchedWhileAWalkRunsEndsTheWalk()
    {
        Fixture f;
        // CHF's page never comes to its end.
        f.server.setSlowRoute(f.target("EUR", "CHF"), "{", 100);
        f.rate("EUR", "USD", "0.95");
        f.server.setRoute(QStringLiteral("/v1/currencies"), R"({"NOK":"Norwegian Krone"})",
                          "application/json");
        f.doc.config.catalogue = f.server.address() + QStringLiteral("/v1/currencies");
        f.list.SyncButton->click();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.targets().size(), 1, walkTimeout);
        ModalTicket cat = ModalHelper::rejectNextDialog({}, "syncListEdit", walkTimeout);
        f.list.SyncListButton->click();
        // The grabber serves one page at a time: the walk gives way and its button comes back.
        QVERIFY(f.list.SyncButton->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(cat->handled, walkTimeout);
        QVERIFY2(cat->error.isEmpty(), qPrintable(cat->error));
        QCOMPARE(f.server.targets(),
                 (QStringList{Fixture::target("EUR", "CHF"), QStringLiteral("/v1/currencies")}));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.90"));
        f.server.stop();
    }

    // The walk over all rates, through wget and the page server.

    void theWalkAsksForEachForeignCurrencyBaseFirstAndWritesTheFactors()
    {
        Fixture f;
        f.rate("EUR", "CHF", "1.23456");
        f.rate("EUR", "USD", "0.9");
        // What the list shows whenever a rate is asked for.
        QStringList whileWalking;
        connect(&f.server, &LoopbackHttp::requested, &f.list,
                [&f, &whileWalking](const QString &) { whileWalking << f.rows().at(1); });
        f.list.SyncButton->click();
        QVERIFY(!f.list.SyncButton->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        // The base currency comes first in the table and is skipped; the base currency is
        // asked for first, the foreign one second.
        QCOMPARE(f.server.targets(), (QStringList{f.target("EUR", "CHF"), f.target("EUR", "USD")}));
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.2346"));
        QCOMPARE(f.curr("CHF")->factorvalue, 1.23456);
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.9000"));
        QCOMPARE(f.curr("USD")->factorvalue, 0.9);
        QCOMPARE(f.curr("EUR")->factor, QStringLiteral("1.0"));
        // New rates show only when the walk is over.
        QCOMPARE(whileWalking, (QStringList{"CHF|1.50|Swiss Franc", "CHF|1.50|Swiss Franc"}));
        QCOMPARE(f.rows(),
                 (QStringList{"EUR|1.0|EUR", "CHF|1.2346|Swiss Franc", "USD|0.9000|USD"}));
        QVERIFY(f.list.changed);
    }

    void aFailedRequestEndsTheWalkAndKeepsTheRatesBeforeIt()
    {
        Fixture f;
        CurrData *nok = f.doc.currencies.append();
        nok->short_ = QStringLiteral("NOK");
        nok->factor = QStringLiteral("11.0");
        f.list.setData();
        f.rate("EUR", "CHF", "1.6");
        f.server.setStatusRoute(f.target("EUR", "USD"), 404, "no such pair");
        f.rate("EUR", "NOK", "11.45");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.server.targets(), (QStringList{f.target("EUR", "CHF"), f.target("EUR", "USD")}));
        QCOMPARE(
            f.rows(),
            (QStringList{"EUR|1.0|EUR", "CHF|1.6000|Swiss Franc", "USD|0.90|USD", "NOK|11.0|"}));
    }

    void aSuccessAfterTheWalkBelongsToNoWalk()
    {
        Fixture f;
        f.rate("EUR", "CHF", "1.6");
        f.rate("EUR", "USD", "0.95");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        f.curr("USD")->factor = QStringLiteral("0.97");
        emit f.list.grabber->grabSuccess();
        QCOMPARE(f.server.targets().size(), 2);
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.97"));
        QVERIFY(f.list.SyncButton->isEnabled());
    }

    void anUnreadableRateLeavesTheRecordAndTheWalkGoesOn()
    {
        Fixture f;
        // An answer without the currency asked for holds no rate.
        f.server.setRoute(f.target("EUR", "CHF"), R"({"amount":1.0,"rates":{"GBP":0.8}})",
                          "application/json");
        f.rate("EUR", "USD", "0.95");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.server.targets(), (QStringList{f.target("EUR", "CHF"), f.target("EUR", "USD")}));
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.9500"));
    }

    void aHostileAnswerLeavesTheRateAndTheWalkGoesOn_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("number malformed")
            << QByteArray(R"({"amount":1.0,"base":"EUR","rates":{"CHF":1.2.3}})");
        QTest::newRow("code missing") << QByteArray(R"({"amount":1.0,"base":"EUR","rates":{}})");
        QByteArray binary(4096, '\0');
        for (int i = 0; i < binary.size(); ++i)
            binary[i] = char((i * 131 + 7) & 0xff);
        QTest::newRow("binary bytes") << binary;
        QTest::newRow("one line of 10 MB")
            << QByteArray(10 * 1024 * 1024, 'x') + "Exchange Rate <td>1.7</td>\n";
        QByteArray page;
        page.reserve(50 * 1024 * 1024 + 100);
        while (page.size() < 50 * 1024 * 1024)
            page += "<tr><td>no rate here</td></tr>\n";
        QTest::newRow("page of 50 MB") << page;
    }
    void aHostileAnswerLeavesTheRateAndTheWalkGoesOn()
    {
        QFETCH(QByteArray, answer);
        Fixture f;
        f.server.setRoute(f.target("EUR", "CHF"), answer, "application/octet-stream");
        f.rate("EUR", "USD", "0.95");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.server.targets(), (QStringList{f.target("EUR", "CHF"), f.target("EUR", "USD")}));
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("CHF")->factorvalue, 1.5);
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.9500"));
    }

    void aRateOfZeroFromACellThatIsNoNumberIsStoredAsFourZeros()
    {
        Fixture f;
        // A rate table whose cell holds no number.
        f.server.setRoute(f.target("EUR", "CHF"),
                          "<html>\nrates <table><th>Exchange Rate</th><td>a</td><td>b</td>"
                          "<td>c</td><td>n/a</td></table>\n</html>\n");
        f.rate("EUR", "USD", "0.95");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("0.0000"));
        QCOMPARE(f.curr("CHF")->factorvalue, 0.0);
        QCOMPARE(f.rows().at(1), QStringLiteral("CHF|0.0000|Swiss Franc"));
    }

    void withAnEmptyTableSynchronizeDisablesTheButtonAndNothingElse()
    {
        Fixture f;
        f.doc.clearCurrencies();
        f.list.setData();
        QVERIFY(f.list.SyncButton->isEnabled());
        f.list.SyncButton->click();
        QVERIFY(!f.list.SyncButton->isEnabled());
        QVERIFY(!f.list.changed);
        QCOMPARE(f.list.StatusTextLabel->text(), QString());
        f.list.setData();
        QVERIFY(f.list.SyncButton->isEnabled());
        QVERIFY(f.server.targets().isEmpty());
    }

    void whenTheBaseCurrencyIsLastTheWalkEndsWithoutARequestAndTheButtonStaysOff()
    {
        Fixture f;
        f.doc.basecurrency = QStringLiteral("USD");
        f.list.setData();
        f.rate("USD", "EUR", "0.66");
        f.rate("USD", "CHF", "1.1");
        f.list.SyncButton->click();
        // The step that writes CHF's rate is the one that meets USD and stops.
        QTRY_COMPARE_WITH_TIMEOUT(f.curr("CHF")->factor, QStringLiteral("1.1000"), walkTimeout);
        QCOMPARE(f.server.targets(), (QStringList{f.target("USD", "EUR"), f.target("USD", "CHF")}));
        QCOMPARE(f.curr("EUR")->factor, QStringLiteral("0.6600"));
        QVERIFY(!f.list.SyncButton->isEnabled());
        // No refill either: the list still shows the rates from before.
        QCOMPARE(f.rows().at(0), QStringLiteral("EUR|1.0|EUR"));
        QCOMPARE(f.rows().at(1), QStringLiteral("CHF|1.50|Swiss Franc"));
    }

    void twoConsecutiveEntriesWithTheBaseShortNameStopTheWalk()
    {
        Fixture f;
        CurrData *second = f.doc.currencies.insert(1);
        second->short_ = QStringLiteral("EUR");
        f.list.setData();
        f.list.SyncButton->click();
        QVERIFY(!f.list.SyncButton->isEnabled());
        QCOMPARE(f.list.StatusTextLabel->text(), QString());
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QVERIFY(f.server.targets().isEmpty());
    }

    void aBaseCurrencyInTheMiddleIsSkipped()
    {
        Fixture f;
        f.doc.basecurrency = QStringLiteral("CHF");
        f.list.setData();
        f.rate("CHF", "EUR", "0.6");
        f.rate("CHF", "USD", "0.55");
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.server.targets(), (QStringList{f.target("CHF", "EUR"), f.target("CHF", "USD")}));
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("EUR")->factor, QStringLiteral("0.6000"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.5500"));
    }

    void theListStaysUsableDuringTheWalk()
    {
        Fixture f;
        // CHF's page never comes to its end.
        f.server.setSlowRoute(f.target("EUR", "CHF"), "{", 100);
        f.list.SyncButton->click();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.targets().size(), 1, walkTimeout);
        QVERIFY(!f.list.SyncButton->isEnabled());
        for (QToolButton *b : {f.list.AppendButton, f.list.SyncListButton, f.list.CloseButton})
            QVERIFY(b->isEnabled());
        QVERIFY(f.tap("USD"));
        QVERIFY(f.list.ChangeButton->isEnabled());
        // The time-out ends the walk.
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QCOMPARE(f.server.targets().size(), 1);
        f.server.stop();
    }

    void deletingTheRecordOfARunningWalkEndsTheWalkWithoutWritingAnywhere()
    {
        Fixture f;
        f.rate("EUR", "CHF", "1.7");
        f.rate("EUR", "USD", "0.8");
        // CHF is deleted in the list while its rate is on the way.
        ModalTicket box;
        bool tapped = false;
        connect(&f.server, &LoopbackHttp::requested, &f.list, [&](const QString &target) {
            if (target != Fixture::target("EUR", "CHF"))
                return;
            tapped = f.tap("CHF");
            box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            f.list.DeleteButton->click();
        });
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QVERIFY(tapped);
        QVERIFY(box);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.shorts(), (QStringList{"EUR", "USD"}));
        QCOMPARE(f.server.targets(), QStringList{Fixture::target("EUR", "CHF")});
        QCOMPARE(f.rows(), (QStringList{"EUR|1.0|EUR", "USD|0.90|USD"}));
    }

    void aCurrencyAppendedDuringTheWalkIsReachedByIt()
    {
        Fixture f;
        f.rate("EUR", "CHF", "1.7");
        f.rate("EUR", "USD", "0.8");
        f.rate("EUR", "NOK", "11.45");
        ModalTicket ed;
        connect(&f.server, &LoopbackHttp::requested, &f.list, [&](const QString &target) {
            if (target != Fixture::target("EUR", "CHF"))
                return;
            ed = inNextCurrEditor("OkButton", [](currEdit *e, ModalOutcome &out) {
                typeInto(e, "short name", "NOK", out);
            });
            f.list.AppendButton->click();
        });
        f.list.SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), walkTimeout);
        QVERIFY(ed);
        QVERIFY2(ed->handled && ed->error.isEmpty(), qPrintable(ed->error));
        QCOMPARE(f.server.targets(),
                 (QStringList{Fixture::target("EUR", "CHF"), Fixture::target("EUR", "USD"),
                              Fixture::target("EUR", "NOK")}));
        QCOMPARE(f.curr("NOK")->factor, QStringLiteral("11.4500"));
    }

    void aJourneyReplacedBetweenOpeningsForgetsTheCurrentCurrency()
    {
        Fixture f;
        QVERIFY(f.tap("CHF"));
        ModalTicket ed = inNextCurrEditor("OkButton");
        f.list.ChangeButton->click();
        QVERIFY2(ed->handled, qPrintable(ed->error));
        QCOMPARE(f.list.current, f.curr("CHF"));
        f.doc.clearCurrencies();
        fillJourney(f.doc, false);
        f.list.setData();
        QCOMPARE(f.list.current, nullptr);
        QVERIFY(f.list.CurrListView->selectedItems().isEmpty());
        QCOMPARE(f.rows().size(), 3);
    }

    // The view.

    void theViewBuildsTheCurrencyListBetweenBaseSettingsAndTheUserList()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernView *v = app.view;
        QStringList dialogs;
        for (QDialog *d : v->findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
            dialogs << d->objectName();
        const int base = dialogs.indexOf("base settings");
        QVERIFY(base >= 0);
        QCOMPARE(dialogs.indexOf("Currency List"), base + 1);
        QCOMPARE(dialogs.indexOf("User List"), base + 2);
        QVERIFY(v->currListInput);
        QCOMPARE(v->currListInput->objectName(), QStringLiteral("Currency List"));
        QCOMPARE(v->currListInput->windowTitle(), QStringLiteral("Curreny List"));
        QVERIFY(v->currListInput->isHidden());
        QVERIFY(v->currListInput->isModal());
    }

    void openCurrRunsTheListAndLeavesTheViewToTheNextRefresh()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QVERIFY(app.doc->findCurrency(QStringLiteral("CHF")));
        const QStringList costsBefore = WidgetReaders::treeRows(v->CostsListView);
        ModalTicket list = setFactorInNextList(QStringLiteral("CHF"), QStringLiteral("3.00"));
        app.openCurr->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(list->title, QStringLiteral("Curreny List"));
        QCOMPARE(list->text, QStringLiteral("base currency : EUR"));
        QVERIFY(!v->currListInput->isVisible());
        QCOMPARE(app.doc->findCurrency(QStringLiteral("CHF"))->factor, QStringLiteral("3.00"));
        QVERIFY(app.doc->isModified());
        // No refresh: the costs keep their base values until the next one.
        QCOMPARE(WidgetReaders::treeRows(v->CostsListView), costsBefore);
        v->refreshView();
        QVERIFY(WidgetReaders::treeRows(v->CostsListView) != costsBefore);
    }
    void newRatesDivideTheSharesOfTheirCostsAnewAndSaySo()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayFernData *doc = app.doc;
        // The dinner: 36 CHF at 1.5 is 24.00, 8.00 for each of three.
        const CostsData *dinner = nullptr;
        for (const CostsData *cost : doc->costs)
            if (cost->ctype == QLatin1String("CHF") && cost->fval == QLatin1String("36.00"))
                dinner = cost;
        QVERIFY(dinner);
        const auto shares = [&] {
            QStringList texts;
            for (const UserData *user : doc->users)
                if (const KtoData *line = user->findKto(dinner->id))
                    texts << user->short_ + u'=' + QString::number(line->change, 'f', 2);
            return texts.join(u' ');
        };
        QCOMPARE(shares(), QStringLiteral("AB=-8.00 CD=-8.00 EF=-8.00"));

        ModalTicket list = setFactorInNextList(QStringLiteral("CHF"), QStringLiteral("3.00"));
        app.openCurr->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        // 36 CHF at 3.00 is 12.00: the same three share it alike.
        QCOMPARE(shares(), QStringLiteral("AB=-4.00 CD=-4.00 EF=-4.00"));
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("The shares of 1 costs were divided anew at their new base values."));
        app.view->refreshView();
        QCOMPARE(dinner->bval, QStringLiteral("12.00"));

        // One step with the new rate.
        app.editUndo->trigger();
        QCOMPARE(doc->findCurrency(QStringLiteral("CHF"))->factor, QStringLiteral("1.50"));
        QCOMPARE(shares(), QStringLiteral("AB=-8.00 CD=-8.00 EF=-8.00"));
    }
};

QTEST_MAIN(TestCurrList)
#include "tst_currlist.moc"
