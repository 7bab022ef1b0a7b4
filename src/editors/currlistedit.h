#pragma once

#include "dialogs/scqtwidgetutil.h"
#include "forms/currlistdlg.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>

class QCloseEvent;
class WayFernData;
class currEdit;
class currSync;
class syncListEdit;
struct CurrData;

// The journey's currencies: added, changed and deleted here, their rates fetched one after
// the other, and new ones picked from the catalogue. Every command acts on the document at
// once; `changed` only decides whether closing asks to mark the journey modified.
class currListEdit : public CurrListDlg
{
    Q_OBJECT

public:
    currListEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~currListEdit() override;

    // The record that `row` of the list shows, or null when it has left the journey.
    CurrData *findByItem(QTreeWidgetItem *row) const;

    // Prepares the dialog for one opening.
    void setData();

    ScQtWidgetUtil util;
    bool changed = false;
    syncListEdit *syncListDlg = nullptr; // child dialog
    std::unique_ptr<currSync> grabber;
    currEdit *currDlg = nullptr;     // child dialog
    WayFernData *document = nullptr; // not owned
    CurrData *current = nullptr;     // the currency last worked on; not owned
    CurrData *synccurr = nullptr;    // the currency of the running walk; not owned
    QString base;

public slots:
    void slotSyncList() override;
    void slotAppend() override;
    void slotChange() override;
    void slotClose() override;
    void slotDelete() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;
    void slotSynchronize() override;
    void slotGrabSuccess();
    void slotNoSuccess();
    void slotSyncOne();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void fillList();
    // The record each row of the list shows, since the last filling.
    QHash<const QTreeWidgetItem *, CurrData *> rowRecords;
    // The record behind the walk, or null when it has left the list since.
    CurrData *walkRecord() const;
    // The record after `curr` in the list, or null.
    CurrData *nextAfter(const CurrData *curr) const;
    // Reads the page file into the catalogue unless `fill` is false (read already), opens it.
    void openCatalogue(bool fill = true);
    // After the catalogue's own page was fetched: opens the catalogue, or says why not.
    void openFetchedCatalogue();
    void showCatalogueFailure();
    // At the end of a walk: what went wrong in it stays in the status line.
    void reportWalk();

    // The grabber fetches the catalogue's page before the catalogue opens: its signals then
    // end that fetch, not a step of the walk.
    bool fetchingCatalogue = false;
    // The currencies of the running walk whose answer held no rate.
    QStringList noRate;
};
