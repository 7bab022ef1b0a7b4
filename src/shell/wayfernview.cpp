#include "shell/wayfernview.h"

#include "data/datetext.h"
#include "data/journeycalc.h"
#include "data/journeyhistory.h"
#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "dialogs/scqtwidgetutil.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/currlistedit.h"
#include "editors/editorkeys.h"
#include "editors/settleedit.h"
#include "editors/tipedit.h"
#include "editors/userlistedit.h"
#include "lists/journeylistmodels.h"
#include "settle/costshares.h"
#include "shell/journeyundo.h"
#include "shell/wayfernapp.h"
#include "storage/printline.h"
#include "storage/wayfernio.h"
#include "storage/wayferniocfg.h"
#include "storage/wayferniolast.h"

#include <QDate>
#include <QHeaderView>
#include <QIcon>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QPixmap>
#include <QTreeView>
#include <QTreeWidget>

WayfernView::WayfernView(WayfernApp *parent, WayFernData *doc)
    : MainDlg1(parent, nullptr, {}), doc(doc)
{
    // The last-state file is found through the configuration: the order matters.
    io = std::make_unique<WayfernIO>(doc);
    ioCfg = std::make_unique<WayfernIOCfg>(doc);
    loadCfg();
    ioLast = std::make_unique<WayfernIOLast>(doc);
    loadLast();

    unsharedPixmap = std::make_unique<QPixmap>(QStringLiteral(":/shell/unshared.xpm"));
    sharedPixmap = std::make_unique<QPixmap>(QStringLiteral(":/shell/shared.xpm"));
    costModel->setJourney(doc);
    costModel->setMarks(QIcon(*sharedPixmap), QIcon(*unsharedPixmap));
    tipModel->setJourney(doc);

    doc->clearAll();
    undo = std::make_unique<JourneyUndo>(doc);
    connect(undo.get(), &JourneyUndo::stepApplied, this, &WayfernView::refreshAfterStep);
    app = parent;
    actucost = nullptr;
    actutip = nullptr;
    actuuser = doc->users.first();
    actucurr = doc->currencies.first();

    createDialogs();

    labelCommon = tr("common");
    labelJourney = tr("journey");
    labelBaseCurrency = tr("base currency");
    labelCosts = tr("costs");
    labelTotal = tr("total");
    labelPerDay = tr("perday");
    labelUser = tr("user account");
    labelCategory = tr("costs by category");

    initLists();
    addDeleteKey(CostsListView, DeleteButton);
    addDeleteKey(TipListView, TDeleteButton);

    costCopied = false;
    tipCopied = false;

    ScQtWidgetUtil::setAllWidgetsFont(QStringLiteral("helvetica"), 8);

    CopyButton->setEnabled(false);
    PasteButton->setEnabled(false);
    TCopyButton->setEnabled(false);
    TPasteButton->setEnabled(false);
}

// Out of line: the file objects' classes are complete only here.
WayfernView::~WayfernView() = default;

void WayfernView::createDialogs()
{
    // Built in this order: costs, tip, base settings, currency list, user list, calendar;
    // settling up comes last. Their object names are identifiers, the same in every language.
    costsInput = new costsEdit(this, "Input costs", true, doc);
    costsInput->hide();
    tipInput = new tipEdit(this, "Tip", true, doc);
    tipInput->hide();
    baseInput = new baseEdit(this, "base settings", true, doc);
    baseInput->hide();
    currListInput = new currListEdit(this, "Currency List", true, doc);
    currListInput->hide();
    userListInput = new userListEdit(this, "User List", true, doc);
    userListInput->hide();
    calendar = new calenderEdit(this, "Calendar", true, doc);
    calendar->hide();
    settleInput = new settleEdit(this, "Settle up", true, doc);
    settleInput->hide();

    connect(costsInput, &costsEdit::overChanged, this, &WayfernView::slotOverChanged);
    connect(baseInput, &baseEdit::overChanged, this, &WayfernView::slotOverChanged);
    connect(baseInput, &baseEdit::baseCurrencyChanged, this, &WayfernView::slotBCurrChanged);
    connect(userListInput, &userListEdit::overChanged, this, &WayfernView::slotOverChanged);
    connect(settleInput, &settleEdit::overChanged, this, &WayfernView::slotOverChanged);
}

int WayfernView::openBase()
{
    // A new base currency changes every base value, and the shares follow: every account
    // line may change.
    JourneyStep step(doc, ChangeScope::everyAccount());
    step.setText(tr("base settings"));
    const CostShares::BaseCents before = CostShares::baseCents(*doc);
    // The dialog's signals do the rest.
    baseInput->setData();
    baseInput->exec();
    baseInput->hide();
    // A new base currency refreshed the view already; the balances follow the shares.
    const int divided = CostShares::followBaseValues(*doc, before);
    if (divided > 0)
        refreshView();
    return divided;
}

int WayfernView::openCurr()
{
    JourneyStep step(doc, ChangeScope::everyAccount());
    step.setText(tr("currencies and rates"));
    const CostShares::BaseCents before = CostShares::baseCents(*doc);
    // No refresh: changed rates, and the shares that follow them, reach the lists with the
    // next one.
    currListInput->setData();
    currListInput->exec();
    currListInput->hide();
    return CostShares::followBaseValues(*doc, before);
}

void WayfernView::openUser()
{
    userListInput->prepare(calendar);
    userListInput->exec();
    userListInput->hide();
    // Whatever the list did went into the document at once.
    refreshView();
}

void WayfernView::openSettle()
{
    JourneyStep step(doc, ChangeScope::everyAccount());
    step.setText(tr("book the settle-up plan"));
    settleInput->setData();
    settleInput->exec();
    settleInput->hide();
    // A booked plan changed the balances that the overview shows.
    refreshView();
}

void WayfernView::initLists()
{
    CostsListView->setSortingEnabled(false);
    CostsListView->setAllColumnsShowFocus(true);
    fillCosts();
    CostsListView->show();
    DeleteButton->setEnabled(false);
    ChangeButton->setEnabled(false);

    TipListView->setSortingEnabled(false);
    TipListView->setAllColumnsShowFocus(true);
    fillTips();
    TipListView->show();
    TDeleteButton->setEnabled(false);
    TChangeButton->setEnabled(false);

    OverListView->setSortingEnabled(false);
    OverListView->setAllColumnsShowFocus(true);
    fillOverview();
    OverListView->show();
}

void WayfernView::refreshView()
{
    // The sorts change the journey: outside an action they join the step before.
    JourneyStep step(doc, ChangeScope());
    forgetStaleRecords();
    sortCostsFollowingCurrent();
    calcSums();
    fillCosts();
    sortTips();
    fillTips();
    if (doc->userflag)
        doc->recalcUsers();
    fillOverview();
}

void WayfernView::refreshAfterStep(CostsData *cost)
{
    if (cost)
        actucost = cost;
    forgetStaleRecords();
    if (actuuser && !doc->users.contains(actuuser))
        actuuser = doc->users.first();
    if (actucurr && !doc->currencies.contains(actucurr))
        actucurr = doc->currencies.first();
    calcSums();
    fillCosts();
    fillTips();
    if (doc->userflag)
        doc->recalcUsers();
    fillOverview();
}

QString WayfernView::stepName(const CostsData *cost)
{
    QStringList parts{cost->date, cost->type, cost->fval, cost->ctype};
    parts.removeAll(QString());
    return parts.join(QLatin1Char(' '));
}

void WayfernView::forgetStaleRecords()
{
    if (actucost && !doc->costs.contains(actucost))
        actucost = nullptr;
    if (actutip && !doc->tips.contains(actutip))
        actutip = nullptr;
}

void WayfernView::sortCosts()
{
    // Shares the record tools' memory of the date read last, as their date helpers do.
    JourneyCalc::sortCosts(*doc, ScQtUtil::lastDate);
}

void WayfernView::sortCostsFollowingCurrent()
{
    if (!actucost) {
        sortCosts();
        return;
    }
    // The currency pointer travels with a cost's contents and is recomputed by every
    // refresh: a mark in it that no record can hold finds the cost again.
    static CurrData mark;
    CurrData *const saved = actucost->curr;
    actucost->curr = &mark;
    sortCosts();
    for (CostsData *cost : doc->costs) {
        if (cost->curr == &mark) {
            cost->curr = saved;
            actucost = cost;
            break;
        }
    }
}

void WayfernView::sortTips()
{
    JourneyCalc::sortTips(*doc, ScQtUtil::lastDate);
}

void WayfernView::fillCosts()
{
    costModel->reload();
    showCurrent(CostsListView, costModel->rowOf(actucost));
}

void WayfernView::fillTips()
{
    for (TipData *tip : doc->tips) {
        const char letter = *doc->firstCapital(tip->tiptype);
        tip->typeletter = letter ? QString(QLatin1Char(letter)) : QStringLiteral("");
    }
    tipModel->reload();
    showCurrent(TipListView, tipModel->rowOf(actutip));
}

void WayfernView::showCurrent(QTreeView *list, int row)
{
    if (row < 0)
        return;
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    // Current as well as selected: change and delete take the current row.
    list->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

CostsData *WayfernView::currentCost() const
{
    return costModel->costAt(CostsListView->currentIndex().row());
}

TipData *WayfernView::currentTip() const
{
    return tipModel->tipAt(TipListView->currentIndex().row());
}

void WayfernView::slotCostsSelectionChanged(const QModelIndex &row)
{
    if (!row.isValid())
        return;
    actucost = costModel->costAt(row.row());
    // Nothing disables these again: the enabled state only grows.
    ChangeButton->setEnabled(true);
    DeleteButton->setEnabled(true);
    CopyButton->setEnabled(true);
}

void WayfernView::slotTipSelectionChanged(const QModelIndex &row)
{
    if (!row.isValid())
        return;
    actutip = tipModel->tipAt(row.row());
    TChangeButton->setEnabled(true);
    TDeleteButton->setEnabled(true);
    TCopyButton->setEnabled(true);
}

void WayfernView::slotOverChanged()
{
    fillOverview();
}

void WayfernView::slotBCurrChanged()
{
    doc->rebaseCurrencies();
    refreshView();
}

void WayfernView::slotTabViewChanged(QWidget *widget)
{
    if (widget)
        refreshView();
}

void WayfernView::calcSums()
{
    // The calendar serves as the date tool for the span of the journey.
    JourneyCalc::calcSums(*doc, [this](const QString &from, const QString &to) {
        return calendar->daysBetween(from, to);
    });
}

double WayfernView::categorySum(const QString &type)
{
    return JourneyCalc::categorySum(*doc, type);
}

void WayfernView::fillOverview()
{
    // Built top to bottom, each item appended after the one before.
    OverListView->clear();

    auto *common = new QTreeWidgetItem(OverListView, QStringList{labelCommon});
    new QTreeWidgetItem(common, QStringList{labelBaseCurrency, doc->basecurrency});
    new QTreeWidgetItem(common, QStringList{labelJourney, doc->journeyname});
    common->setExpanded(true);

    auto *costs = new QTreeWidgetItem(OverListView, QStringList{labelCosts});
    new QTreeWidgetItem(costs, QStringList{labelTotal, doc->totaltext});
    new QTreeWidgetItem(costs, QStringList{labelPerDay, doc->perdaytext});
    costs->setExpanded(true);

    auto *category = new QTreeWidgetItem(OverListView, QStringList{labelCategory});
    const QList<double> sums = JourneyCalc::categorySums(*doc);
    for (int i = 0; i < doc->ctypes.count(); ++i)
        new QTreeWidgetItem(
            category, QStringList{doc->ctypes.at(i)->type, QString::asprintf("%.2f", sums.at(i))});
    category->setExpanded(false);

    if (doc->userflag) {
        auto *users = new QTreeWidgetItem(OverListView, QStringList{labelUser});
        for (const UserData *user : doc->users)
            new QTreeWidgetItem(users,
                                QStringList{user->short_, QString::asprintf("%.2f", user->value)});
        users->setExpanded(false);
    }
}

bool WayfernView::loadCfg()
{
    if (ioCfg->ReadFile(doc->config.cfgpath, QStringLiteral("wayfern.cfg")) != 0) {
        printLine("\nWayfernView::loadCfg - not able to read %s/wayfern.cfg",
                  cstr(doc->config.cfgpath).constData());
        return false;
    }
    return true;
}

bool WayfernView::loadLast()
{
    if (ioLast->ReadFile(doc->config.datapath, doc->config.last) != 0) {
        printLine("\nWayfernView::loadLast - not able to read %s/%s",
                  cstr(doc->config.datapath).constData(), cstr(doc->config.last).constData());
        return false;
    }
    return true;
}

bool WayfernView::saveLast()
{
    if (ioLast->WriteFile(doc->config.datapath + QStringLiteral("/") + doc->config.last) != 0) {
        printLine("\nWayfernView::saveLast - not able to write %s/%s",
                  cstr(doc->config.datapath).constData(), cstr(doc->config.last).constData());
        return false;
    }
    return true;
}

bool WayfernView::loadView(const QString &path)
{
    // The file is read aside and taken only when it was read whole: a file that is no
    // journey, or one cut off in the middle, leaves the journey in hand untouched. A header
    // without a name keeps the name in hand, as a read into the document itself would.
    WayFernData read;
    read.journeyname = doc->journeyname;
    read.basecurrency = doc->basecurrency;
    read.distancetype = doc->distancetype;
    read.userflag = doc->userflag;
    WayfernIO reader(&read);
    const bool opened = reader.ReadFile(path) == 0;
    if (!opened)
        printLine("\nWayfernView::loadView - not able to read %s", cstr(path).constData());
    switch (reader.readProblem) {
    case WayfernIO::ReadProblem::None:
        break;
    case WayfernIO::ReadProblem::NotOpened:
        fileProblem = reader.readProblemDetail;
        return false;
    case WayfernIO::ReadProblem::NoHeader:
        fileProblem = tr("It is not a journey: it has no [Header] section.");
        return false;
    case WayfernIO::ReadProblem::SectionMissing:
        fileProblem = tr("It is cut off or damaged: the section [%1] is missing.")
                          .arg(reader.readProblemDetail);
        return false;
    }
    fileProblem.clear();
    takeJourney(read);
    // A new journey: the current records of the old one are gone, and so are its steps.
    actucost = nullptr;
    actutip = nullptr;
    // Sorting what was read is part of reading it, not a step.
    doc->history = nullptr;
    refreshView();
    doc->history = undo.get();
    undo->clear();
    return true;
}

void WayfernView::takeJourney(WayFernData &read)
{
    doc->journeyname = read.journeyname;
    doc->basecurrency = read.basecurrency;
    doc->distancetype = read.distancetype;
    doc->userflag = read.userflag;
    // The records move whole, so that what points between them (a cost at its currency)
    // still holds.
    doc->currencies = std::move(read.currencies);
    doc->costs = std::move(read.costs);
    doc->tips = std::move(read.tips);
    doc->users = std::move(read.users);
    doc->ctypes = std::move(read.ctypes);
    doc->ttypes = std::move(read.ttypes);
    doc->qtypes = std::move(read.qtypes);
}

bool WayfernView::saveView(const QString &path)
{
    if (io->WriteFile(path) != 0) {
        fileProblem = io->writeProblem;
        return false;
    }
    fileProblem.clear();
    doc->setModified(false);
    undo->markSaved();
    return true;
}

void WayfernView::slotCostsNew()
{
    // A new cost starts on the day of the selected cost, or today in a journey without one:
    // every stored cost has a date.
    const bool fromSelected = actucost && doc->costs.contains(actucost)
        && DateText::isDate(actucost->date);
    const QString date = fromSelected ? actucost->date
                                      : QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"));
    const int id = doc->nextCostId();
    JourneyStep step(doc, ChangeScope::costs({id}));
    CostsData *cost = doc->costs.append();
    cost->date = date;
    actucost = cost;
    cost->id = id;
    costsInput->prepare(actucost, calendar);
    costsInput->exec();
    costsInput->hide();
    if (costsInput->result() == QDialog::Rejected) {
        doc->removeAllKto(id);
        doc->costs.remove(cost);
        actucost = doc->costs.first();
    } else {
        step.setText(tr("new cost %1").arg(stepName(cost)));
    }
    refreshView();
}

void WayfernView::slotCostsChange()
{
    if (!CostsListView->currentIndex().isValid())
        return;
    actucost = currentCost();
    if (!actucost) {
        refreshView();
        return;
    }
    JourneyStep step(doc, ChangeScope::costs({actucost->id}));
    costsInput->prepare(actucost, calendar);
    costsInput->exec();
    costsInput->hide();
    // Named as the cost is now; the sort may move its contents to another row.
    step.setText(tr("change cost %1").arg(stepName(actucost)));
    refreshView();
}

void WayfernView::slotCostsDelete()
{
    CostsData *cost = currentCost();
    if (!cost)
        return;
    const QString text = tr("Delete entry") + QStringLiteral("\n") + cost->fval
        + QStringLiteral(" ") + cost->ctype + QStringLiteral("\n") + tr("or ") + cost->bval
        + QStringLiteral(" ") + doc->basecurrency + QStringLiteral("\n\n")
        + tr("confirm with yes !");
    JourneyStep step(doc, ChangeScope::costs({cost->id}));
    step.setText(tr("delete cost %1").arg(stepName(cost)));
    const auto answer = QMessageBox::information(this, tr("Delete item"), text,
                                                 QMessageBox::Yes | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) {
        // The account lines first: they are found through the cost's id.
        doc->removeAllKto(cost->id);
        doc->costs.remove(cost);
        actucost = doc->costs.first();
        doc->setModified(true);
    }
    refreshView();
}

void WayfernView::slotCCopy()
{
    if (!actucost || !doc->costs.contains(actucost))
        return;
    costCopied = true;
    PasteButton->setEnabled(true);
    costsInput->copyData(actucost, &costBuffer);
}

void WayfernView::slotCPaste()
{
    if (!actucost || !costCopied || !doc->costs.contains(actucost))
        return;
    // A new cost of its own: the source's account lines stay with the source.
    const int id = doc->nextCostId();
    JourneyStep step(doc, ChangeScope::costs({id}));
    // On top of the selected entry; the sort then places it by its date.
    CostsData *cost = doc->costs.insert(doc->costs.indexOf(actucost));
    actucost = cost;
    costsInput->copyData(&costBuffer, cost);
    cost->id = id;
    cost->shared = false;
    step.setText(tr("paste cost %1").arg(stepName(cost)));
    doc->setModified(true);
    refreshView();
}

// The tip actions refresh only the tip list, so that a new or changed tip keeps its place
// until the next full refresh; only paste sorts.
void WayfernView::slotTipNew()
{
    JourneyStep step(doc, ChangeScope());
    TipData *tip = doc->tips.append();
    actutip = tip;
    tipInput->prepare(actutip, calendar);
    tipInput->exec();
    tipInput->hide();
    if (tipInput->result() == QDialog::Rejected) {
        doc->tips.remove(tip);
        actutip = doc->tips.first();
    } else {
        step.setText(tr("new tip %1").arg(tip->name));
    }
    fillTips();
}

void WayfernView::slotTipChange()
{
    JourneyStep step(doc, ChangeScope());
    if (TipListView->currentIndex().isValid()) {
        actutip = currentTip();
        if (actutip) {
            tipInput->prepare(actutip, calendar);
            tipInput->exec();
            tipInput->hide();
            step.setText(tr("change tip %1").arg(actutip->name));
        }
    }
    fillTips();
}

void WayfernView::slotTipDelete()
{
    TipData *tip = currentTip();
    if (!tip)
        return;
    const QString text = tr("Delete entry") + QStringLiteral("\n") + tip->tiptype
        + QStringLiteral("\n") + tip->name + QStringLiteral("\n\n") + tr("confirm with yes !");
    JourneyStep step(doc, ChangeScope());
    step.setText(tr("delete tip %1").arg(tip->name));
    const auto answer = QMessageBox::information(this, tr("Delete item"), text,
                                                 QMessageBox::Yes | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes) {
        doc->tips.remove(tip);
        doc->setModified(true);
    }
    // Whatever the answer, the first tip becomes the current one.
    actutip = doc->tips.first();
    fillTips();
}

void WayfernView::slotTCopy()
{
    if (!actutip || !doc->tips.contains(actutip))
        return;
    tipCopied = true;
    TPasteButton->setEnabled(true);
    tipInput->copyData(actutip, &tipBuffer);
}

void WayfernView::slotTPaste()
{
    if (!actutip || !tipCopied || !doc->tips.contains(actutip))
        return;
    JourneyStep step(doc, ChangeScope());
    // In front of the selected tip; the full refresh then sorts it in by its date.
    TipData *tip = doc->tips.insert(doc->tips.indexOf(actutip));
    actutip = tip;
    tipInput->copyData(&tipBuffer, tip);
    step.setText(tr("paste tip %1").arg(tip->name));
    doc->setModified(true);
    refreshView();
}
