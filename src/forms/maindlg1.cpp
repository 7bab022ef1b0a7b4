#include "forms/maindlg1.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>

static void initShellResources()
{
    // The pixmaps live in a static library; make sure the linker keeps them.
    Q_INIT_RESOURCE(shell);
}

// The selected item of a single-selection list, or null when nothing is selected.
static QTreeWidgetItem *selectedItem(QTreeWidget *list)
{
    const QList<QTreeWidgetItem *> items = list->selectedItems();
    return items.isEmpty() ? nullptr : items.first();
}

MainDlg1::MainDlg1(QWidget *parent, const char *name, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
    initShellResources();
    setupUi(this);
    if (name)
        setObjectName(QString::fromLatin1(name));
    OverListView->header()->setSortIndicatorShown(true);

    connect(CostsListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotCostsSelectionChanged(selectedItem(CostsListView)); });
    connect(TipListView, &QTreeWidget::itemSelectionChanged, this,
            [this] { slotTipSelectionChanged(selectedItem(TipListView)); });
    // Return in a list changes the current entry, like a double click; item activation
    // would also fire on the double click and run the change twice.
    CostsListView->installEventFilter(this);
    TipListView->installEventFilter(this);
}

MainDlg1::~MainDlg1() = default;

bool MainDlg1::event(QEvent *e)
{
    const bool handled = QWidget::event(e);
    if (e->type() == QEvent::ApplicationFontChange) {
        // The tab widget keeps the font it has now as its own.
        QFont font = TabWidget2->font();
        font.setResolveMask(QFont::AllPropertiesResolved);
        TabWidget2->setFont(font);
    }
    return handled;
}

bool MainDlg1::eventFilter(QObject *watched, QEvent *e)
{
    if (e->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(e)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (watched == CostsListView)
                slotCostsChange();
            else if (watched == TipListView)
                slotTipChange();
        }
    }
    return QWidget::eventFilter(watched, e);
}

void MainDlg1::slotTPaste()
{
    qWarning("MainDlg1::slotTPaste(): Not implemented yet!");
}

void MainDlg1::slotCCopy()
{
    qWarning("MainDlg1::slotCCopy(): Not implemented yet!");
}

void MainDlg1::slotCPaste()
{
    qWarning("MainDlg1::slotCPaste(): Not implemented yet!");
}

void MainDlg1::slotCostsChange()
{
    qWarning("MainDlg1::slotCostsChange(): Not implemented yet!");
}

void MainDlg1::slotCostsDelete()
{
    qWarning("MainDlg1::slotCostsDelete(): Not implemented yet!");
}

void MainDlg1::slotCostsNew()
{
    qWarning("MainDlg1::slotCostsNew(): Not implemented yet!");
}

void MainDlg1::slotCostsSelectionChanged(QTreeWidgetItem *)
{
    qWarning("MainDlg1::slotCostsSelectionChanged(QTreeWidgetItem*): Not implemented yet!");
}

void MainDlg1::slotTCopy()
{
    qWarning("MainDlg1::slotTCopy(): Not implemented yet!");
}

void MainDlg1::slotTipChange()
{
    qWarning("MainDlg1::slotTipChange(): Not implemented yet!");
}

void MainDlg1::slotTipDelete()
{
    qWarning("MainDlg1::slotTipDelete(): Not implemented yet!");
}

void MainDlg1::slotTipNew()
{
    qWarning("MainDlg1::slotTipNew(): Not implemented yet!");
}

void MainDlg1::slotTipSelectionChanged(QTreeWidgetItem *)
{
    qWarning("MainDlg1::slotTipSelectionChanged(QTreeWidgetItem*): Not implemented yet!");
}
