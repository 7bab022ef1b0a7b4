#include "rates/synclistedit.h"

#include "data/wayferndata.h"
#include "rates/catalogue.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QList>
#include <QMessageBox>
#include <QTreeWidgetItem>

syncListEdit::syncListEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : SyncListDlg(parent, name, modal)
{
    document = doc;
    ListView->sortByColumn(0, Qt::AscendingOrder);
    ListView->setSortingEnabled(true);
    ListView->setAllColumnsShowFocus(true);
    showMaximized();
}

syncListEdit::~syncListEdit() = default;

int syncListEdit::fillList()
{
    ListView->clear();
    return readCatalogue();
}

int syncListEdit::readCatalogue()
{
    const QString path = document->config.datapath + QLatin1Char('/') + document->config.syncfile;
    QList<CatalogueEntry> entries;
    const int result = Catalogue::readFile(path, &entries);

    QList<QTreeWidgetItem *> rows;
    rows.reserve(entries.size());
    for (const CatalogueEntry &entry : entries)
        rows.append(new QTreeWidgetItem(QStringList{entry.short_, entry.fullname}));
    // One batch, sorted once: a sorted view would place every item on its own.
    ListView->setSortingEnabled(false);
    ListView->addTopLevelItems(rows);
    ListView->setSortingEnabled(true);
    return result;
}

bool syncListEdit::storeSelected()
{
    bool stored = false;
    const int count = ListView->topLevelItemCount();
    for (int i = 0; i < count; ++i) {
        const QTreeWidgetItem *row = ListView->topLevelItem(i);
        if (!row->isSelected())
            continue;
        // Only the names: factor and type stay empty until the next synchronisation.
        CurrData *currency = document->currencies.append();
        currency->short_ = row->text(0);
        currency->fullname = row->text(1);
        stored = true;
    }
    return stored;
}

bool syncListEdit::hasSelection() const
{
    return !ListView->selectedItems().isEmpty();
}

void syncListEdit::slotOK()
{
    if (storeSelected())
        document->setModified(true);
    accept();
}

void syncListEdit::slotCancel()
{
    if (!hasSelection()) {
        reject();
        return;
    }
    QMessageBox box(QMessageBox::Information, tr("Cancel"),
                    tr("You have modified the data!\nDo you want to save the changes ?"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Cancel);
    const int answer = box.exec();
    if (answer == QMessageBox::Yes) {
        storeSelected();
        document->setModified(true);
        accept();
    } else if (answer == QMessageBox::No) {
        reject();
    }
    // Cancel, or the box closed without an answer: the dialog stays with its marks.
}

void syncListEdit::closeEvent(QCloseEvent *event)
{
    slotCancel();
    if (isVisible())
        event->ignore();
    else
        event->accept();
}
