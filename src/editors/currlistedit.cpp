#include "editors/currlistedit.h"

#include "data/wayferndata.h"
#include "editors/curredit.h"
#include "rates/currsync.h"
#include "rates/syncfailure.h"
#include "rates/synclistedit.h"

#include <QCloseEvent>
#include <QFile>
#include <QList>
#include <QMessageBox>
#include <QTreeWidgetItem>

currListEdit::currListEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : CurrListDlg(parent, name, modal)
{
    // Callers always pass a name: the form's caption stays, the name is the object's.
    if (!name)
        setWindowTitle(QString());
    document = doc;
    CurrListView->setSortingEnabled(false);
    CurrListView->setAllColumnsShowFocus(true);

    currDlg = new currEdit(this, "Input currency", true, doc);
    currDlg->hide();
    syncListDlg = new syncListEdit(this, "exchange rate list", true, doc);
    syncListDlg->hide();
    showMaximized();
    StatusTextLabel->setText(QStringLiteral(""));
    // A failed request's reason is long (it names the address): it wraps within the dialog
    // rather than widening it past a small screen.
    StatusTextLabel->setWordWrap(true);
    StatusTextLabel->setSizePolicy(QSizePolicy::Ignored,
                                   StatusTextLabel->sizePolicy().verticalPolicy());
    grabber = std::make_unique<currSync>(doc, StatusTextLabel);
    connect(grabber.get(), &currSync::grabSuccess, this, &currListEdit::slotGrabSuccess);
    connect(grabber.get(), &currSync::noSuccess, this, &currListEdit::slotNoSuccess);
    changed = false;
}

currListEdit::~currListEdit() = default;

void currListEdit::setData()
{
    base = document->basecurrency;
    BaseCTextLabel->setText(tr("base currency") + QStringLiteral(" : ") + base);
    fillList();
    StatusTextLabel->setText(QStringLiteral(""));
    DeleteButton->setEnabled(false);
    ChangeButton->setEnabled(false);
    SyncButton->setEnabled(!base.isEmpty());
    SyncListButton->setEnabled(true);
    changed = false;
}

void currListEdit::fillList()
{
    CurrListView->clear();
    rowRecords.clear();
    // The currency last worked on may have left the list, even with the journey it belonged
    // to; then nothing comes up selected.
    if (!document->currencies.contains(current))
        current = nullptr;
    QList<QTreeWidgetItem *> rows;
    QTreeWidgetItem *shown = nullptr;
    for (CurrData *curr : document->currencies) {
        auto *row = new QTreeWidgetItem(QStringList{curr->short_, curr->factor, curr->fullname});
        rowRecords.insert(row, curr);
        if (curr == current)
            shown = row;
        rows.append(row);
    }
    CurrListView->addTopLevelItems(rows);
    if (shown) {
        // Selected and current alike, so that the buttons act on the row that is shown.
        CurrListView->scrollToItem(shown);
        CurrListView->setCurrentItem(shown);
    }
}

CurrData *currListEdit::findByItem(QTreeWidgetItem *row) const
{
    // A row of an earlier filling, or one whose record has left since, finds nothing.
    CurrData *record = rowRecords.value(row);
    return document->currencies.contains(record) ? record : nullptr;
}

void currListEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    DeleteButton->setEnabled(item != nullptr);
    ChangeButton->setEnabled(item != nullptr);
}

void currListEdit::slotAppend()
{
    current = document->currencies.append();
    if (document->currencies.last()) {
        currDlg->setData(current);
        currDlg->exec();
        currDlg->hide();
        if (currDlg->result() == QDialog::Rejected) {
            document->currencies.remove(current);
            current = document->currencies.first();
        } else {
            changed = true;
        }
    }
    fillList();
}

void currListEdit::slotChange()
{
    if (QTreeWidgetItem *row = CurrListView->currentItem()) {
        if (CurrData *curr = findByItem(row)) {
            current = curr;
            currDlg->setData(current);
            currDlg->exec();
            currDlg->hide();
            if (currDlg->result() == QDialog::Accepted)
                changed = true;
        }
    }
    fillList();
}

void currListEdit::slotDelete()
{
    CurrData *curr = findByItem(CurrListView->currentItem());
    if (!curr)
        return;
    current = curr;
    // Told by the short name: a second record of the base currency's name stays as well.
    if (curr->short_ != document->basecurrency) {
        const QString text = tr("Delete currency") + QLatin1Char('\n') + curr->fullname
            + QLatin1Char('\n') + curr->short_ + QStringLiteral("\n\n") + tr("confirm with yes !");
        const auto answer = QMessageBox::information(this, tr("Delete item"), text,
                                                     QMessageBox::Yes | QMessageBox::Cancel);
        if (answer == QMessageBox::Yes) {
            // Costs in this currency are left alone: the document settles their link.
            document->currencies.remove(curr);
            current = document->currencies.first();
            changed = true;
        }
    } else {
        const QString text = tr("Delete base currency") + QLatin1Char('\n') + curr->short_
            + QStringLiteral("\n\n") + tr("is not possible !");
        QMessageBox::information(this, tr("Delete item"), text, QMessageBox::Ok);
    }
    fillList();
}

void currListEdit::slotClose()
{
    if (!changed) {
        accept();
        return;
    }
    const auto answer = QMessageBox::information(
        this, tr("Cancel"), tr("You have modified the data!\nDo you want to save the changes ?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    // The records were changed in place: No keeps them and only leaves the journey's
    // modified flag as it was.
    if (answer == QMessageBox::Yes) {
        document->setModified(true);
        changed = false;
        accept();
    } else if (answer == QMessageBox::No) {
        changed = false;
        accept();
    }
}

void currListEdit::closeEvent(QCloseEvent *event)
{
    slotClose();
    // Cancel in the question keeps the list open.
    if (isVisible())
        event->ignore();
    else
        event->accept();
}

void currListEdit::slotSyncList()
{
    const QString address = document->config.catalogue;
    if (address.isEmpty()) {
        // The catalogue reads the page of the last request; when that request failed, its
        // page was removed, and the reason tells more than an empty list would.
        if (grabber->failure().failed() && !QFile::exists(grabber->pageFile()))
            showCatalogueFailure();
        else
            openCatalogue();
        return;
    }
    // A walk that is running gives way: the grabber serves one request at a time.
    if (synccurr) {
        synccurr = nullptr;
        noRate.clear();
        SyncButton->setEnabled(!base.isEmpty());
    }
    // The page comes without blocking the window; the catalogue opens when it is in.
    SyncListButton->setEnabled(false);
    fetchingCatalogue = true;
    if (!grabber->requestPage(address)) {
        // No request is running, so no signal will come: the page file is all there is.
        fetchingCatalogue = false;
        openCatalogue();
    }
}

void currListEdit::openFetchedCatalogue()
{
    syncListDlg->fillList();
    if (syncListDlg->ListView->topLevelItemCount() == 0) {
        // An empty list would only hide that the page held no catalogue.
        SyncFailure failure;
        failure.kind = SyncFailure::Kind::NoCatalogue;
        grabber->noteFailure(failure);
        showCatalogueFailure();
        return;
    }
    openCatalogue(false);
}

void currListEdit::showCatalogueFailure()
{
    SyncListButton->setEnabled(true);
    QMessageBox::warning(this, tr("exchange rate list"), currSync::describe(grabber->failure()),
                         QMessageBox::Ok);
}

void currListEdit::openCatalogue(bool fill)
{
    SyncListButton->setEnabled(true);
    if (fill)
        syncListDlg->fillList();
    syncListDlg->exec();
    syncListDlg->hide();
    // The last currency dialog decides, not the catalogue: the catalogue marks the journey
    // modified itself.
    if (currDlg->result() == QDialog::Accepted)
        changed = true;
    fillList();
}

CurrData *currListEdit::walkRecord() const
{
    return document->currencies.contains(synccurr) ? synccurr : nullptr;
}

CurrData *currListEdit::nextAfter(const CurrData *curr) const
{
    const int i = document->currencies.indexOf(curr);
    if (i < 0 || i + 1 >= document->currencies.count())
        return nullptr;
    return document->currencies.at(i + 1);
}

void currListEdit::slotSynchronize()
{
    SyncButton->setEnabled(false);
    noRate.clear();
    synccurr = document->currencies.first();
    slotSyncOne();
}

void currListEdit::slotSyncOne()
{
    synccurr = walkRecord();
    if (!synccurr)
        return;
    QString to = synccurr->short_;
    const QString from = document->basecurrency;
    // The base currency has no rate of its own.
    if (to == from) {
        synccurr = nextAfter(synccurr);
        if (synccurr)
            to = synccurr->short_;
    }
    if (to != from)
        grabber->requestRate(from, to);
}

void currListEdit::slotGrabSuccess()
{
    if (fetchingCatalogue) {
        fetchingCatalogue = false;
        openFetchedCatalogue();
        return;
    }
    // A record deleted while its rate was on the way ends the walk: there is nothing to
    // write the rate into, and nothing to go on from.
    CurrData *curr = walkRecord();
    if (!curr) {
        synccurr = nullptr;
        slotNoSuccess();
        return;
    }
    const double value = grabber->readRate();
    if (value != -1.0) {
        curr->factorvalue = value;
        curr->factor = QString::asprintf("%.4f", value);
        changed = true;
    } else {
        noRate.append(curr->short_);
    }
    synccurr = nextAfter(curr);
    if (synccurr)
        slotSyncOne();
    else
        slotNoSuccess();
}

void currListEdit::slotNoSuccess()
{
    if (fetchingCatalogue) {
        // The catalogue would open empty: the grabber's words say why instead.
        fetchingCatalogue = false;
        showCatalogueFailure();
        return;
    }
    synccurr = nullptr;
    fillList();
    SyncButton->setEnabled(true);
    reportWalk();
}

void currListEdit::reportWalk()
{
    // A failed request ends the walk and says why; currencies passed over for want of a
    // rate are named as well, so that the line tells everything that went wrong.
    QStringList words;
    const SyncFailure &failure = grabber->failure();
    if (failure.failed() && failure.kind != SyncFailure::Kind::NoRate)
        words.append(currSync::describe(failure));
    if (!noRate.isEmpty()) {
        SyncFailure missing;
        missing.kind = SyncFailure::Kind::NoRate;
        missing.currency = noRate.join(QStringLiteral(", "));
        words.append(currSync::describe(missing));
    }
    noRate.clear();
    if (!words.isEmpty())
        grabber->keepStatus(words.join(QStringLiteral("; ")));
}
