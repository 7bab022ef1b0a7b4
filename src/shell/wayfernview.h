#pragma once

#include "data/journeyrecords.h"
#include "forms/maindlg1.h"
#include "storage/scqtutil.h"

#include <QString>

#include <memory>

class QPixmap;
class QModelIndex;
class QTreeView;
class WayFernData;
class JourneyUndo;
class WayfernApp;
class WayfernIO;
class WayfernIOCfg;
class WayfernIOLast;
class baseEdit;
class calenderEdit;
class costsEdit;
class currListEdit;
class settleEdit;
class tipEdit;
class userListEdit;

// The working surface: overview, costs and tips of the journey in hand. Owns the file
// objects and the first-level dialogs and keeps the lists in step with the document: every
// action ends in a refresh that sorts, recomputes and refills.
class WayfernView : public MainDlg1
{
    Q_OBJECT

public:
    WayfernView(WayfernApp *parent, WayFernData *doc);
    ~WayfernView() override;

    // Both answer false when the file could not be read whole or written, and then leave
    // the journey in hand as it was; `fileProblem` says why, for the user.
    bool loadView(const QString &path);
    bool saveView(const QString &path);
    bool saveLast();
    // The dialog actions of the main window. The base and currency dialogs answer how many
    // costs got their shares divided anew because their base value changed.
    int openBase();
    int openCurr();
    void openUser();
    // Beyond the dialogs of the journey's records: settling up at the end.
    void openSettle();

    bool loadCfg();
    bool loadLast();
    void createDialogs();
    void initLists();
    void refreshView();
    // After an undo or a redo: the lists show the journey as the step left it, unsorted,
    // so that it stays exactly as it was. `cost` becomes the current one when given.
    void refreshAfterStep(CostsData *cost);
    void sortCosts();
    void sortTips();
    void fillCosts();
    void fillTips();
    // The records of the lists' current rows, or null.
    CostsData *currentCost() const;
    TipData *currentTip() const;
    void calcSums();
    double categorySum(const QString &type);
    void fillOverview();

    ScQtUtil util;
    CostsData *actucost = nullptr;
    TipData *actutip = nullptr;
    UserData *actuuser = nullptr;
    CurrData *actucurr = nullptr;
    currListEdit *currListInput = nullptr; // child widget
    baseEdit *baseInput = nullptr;         // child widget
    costsEdit *costsInput = nullptr;       // child widget
    tipEdit *tipInput = nullptr;           // child widget
    userListEdit *userListInput = nullptr; // child widget
    calenderEdit *calendar = nullptr;
    settleEdit *settleInput = nullptr; // child widget
    WayFernData *doc = nullptr;
    WayfernApp *app = nullptr;
    std::unique_ptr<QPixmap> sharedPixmap;
    std::unique_ptr<QPixmap> unsharedPixmap;
    bool costCopied = false;
    bool tipCopied = false;
    std::unique_ptr<WayfernIO> io;
    std::unique_ptr<WayfernIOLast> ioLast;
    std::unique_ptr<WayfernIOCfg> ioCfg;
    // Every action on the journey is a step here, to be undone and redone.
    std::unique_ptr<JourneyUndo> undo;
    CostsData costBuffer;
    TipData tipBuffer;
    QString labelCommon;
    QString labelJourney;
    QString labelBaseCurrency;
    QString labelCosts;
    QString labelTotal;
    QString labelPerDay;
    QString labelUser;
    QString labelCategory;
    QString fileProblem;

public slots:
    void slotCCopy() override;
    void slotCPaste() override;
    void slotCostsChange() override;
    void slotCostsDelete() override;
    void slotCostsNew() override;
    void slotCostsSelectionChanged(const QModelIndex &row) override;
    void slotTipSelectionChanged(const QModelIndex &row) override;
    void slotTipNew() override;
    void slotTipChange() override;
    void slotTipDelete() override;
    void slotTCopy() override;
    void slotTPaste() override;
    void slotOverChanged();
    void slotBCurrChanged();
    void slotTabViewChanged(QWidget *widget);

private:
    // Makes `row` of the list current and selected and brings it into view; -1 does nothing.
    static void showCurrent(QTreeView *list, int row);
    // Moves a journey read aside into the document in hand.
    void takeJourney(WayFernData &read);
    // The current records must never be followed once their journey is gone.
    void forgetStaleRecords();
    // The date sort moves contents between list positions: afterwards `actucost` points at
    // the position that holds the cost it pointed at before.
    void sortCostsFollowingCurrent();
    // How a step names a cost or a tip: "13.11.2026 Fuel 75.40 EUR".
    static QString stepName(const CostsData *cost);
};
