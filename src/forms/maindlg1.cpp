#include "forms/maindlg1.h"

#include "forms/formsupport.h"
#include "lists/journeylistmodels.h"

#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QToolButton>
#include <QTreeView>

// The selected row of a single-selection list, or an invalid index when none is.
static QModelIndex selectedRow(const QTreeView *list)
{
    const QModelIndexList rows = list->selectionModel()->selectedRows();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

MainDlg1::MainDlg1(QWidget *parent, const char *name, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
    initShellResources();
    setupUi(this);
    if (name)
        setObjectName(QString::fromUtf8(name));
    OverListView->header()->setSortIndicatorShown(true);
    costModel = new CostListModel(nullptr, this);
    CostsListView->setModel(costModel);
    tipModel = new TipListModel(nullptr, this);
    TipListView->setModel(tipModel);

    connect(ChangeButton, &QToolButton::clicked, this, [this] { slotCostsChange(); });
    connect(DeleteButton, &QToolButton::clicked, this, [this] { slotCostsDelete(); });
    connect(TChangeButton, &QToolButton::clicked, this, [this] { slotTipChange(); });
    connect(TDeleteButton, &QToolButton::clicked, this, [this] { slotTipDelete(); });
    connect(InsertButton, &QToolButton::clicked, this, [this] { slotCostsNew(); });
    connect(TInsertButton, &QToolButton::clicked, this, [this] { slotTipNew(); });
    // Return in a list changes the current entry like a double click, through the event
    // filter below: item activation would also come with the double click and run the
    // change twice.
    CostsListView->installEventFilter(this);
    connect(CostsListView, &QTreeView::doubleClicked, this, [this] { slotCostsChange(); });
    connect(CostsListView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { slotCostsSelectionChanged(selectedRow(CostsListView)); });
    connect(TipListView, &QTreeView::doubleClicked, this, [this] { slotTipChange(); });
    TipListView->installEventFilter(this);
    connect(TipListView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { slotTipSelectionChanged(selectedRow(TipListView)); });
    connect(CopyButton, &QToolButton::clicked, this, [this] { slotCCopy(); });
    connect(PasteButton, &QToolButton::clicked, this, [this] { slotCPaste(); });
    connect(TCopyButton, &QToolButton::clicked, this, [this] { slotTCopy(); });
    connect(TPasteButton, &QToolButton::clicked, this, [this] { slotTPaste(); });
}

MainDlg1::~MainDlg1()
{
    disconnectChildren(this);
}

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

void MainDlg1::slotCostsSelectionChanged(const QModelIndex &)
{
    qWarning("MainDlg1::slotCostsSelectionChanged( const QModelIndex & ): Not implemented yet!");
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

void MainDlg1::slotTipSelectionChanged(const QModelIndex &)
{
    qWarning("MainDlg1::slotTipSelectionChanged( const QModelIndex & ): Not implemented yet!");
}
