#pragma once

#include "ui_maindlg1.h"

#include <QWidget>

class CostListModel;
class QModelIndex;
class TipListModel;

// The form of the main view: three tabs for the overview, the costs and the tips. It only
// builds the widgets; WayfernView gives the slots their bodies.
class MainDlg1 : public QWidget, public Ui::MainDlg1
{
    Q_OBJECT

public:
    explicit MainDlg1(QWidget *parent = nullptr, const char *name = nullptr,
                      Qt::WindowFlags flags = {});
    ~MainDlg1() override;

    // The rows of the cost and tip lists; the view gives them the journey.
    CostListModel *costModel = nullptr; // child object
    TipListModel *tipModel = nullptr;   // child object

public slots:
    virtual void slotTPaste();
    virtual void slotCCopy();
    virtual void slotCPaste();
    virtual void slotCostsChange();
    virtual void slotCostsDelete();
    virtual void slotCostsNew();
    // The selected row, or an invalid index when nothing is selected.
    virtual void slotCostsSelectionChanged(const QModelIndex &row);
    virtual void slotTCopy();
    virtual void slotTipChange();
    virtual void slotTipDelete();
    virtual void slotTipNew();
    virtual void slotTipSelectionChanged(const QModelIndex &row);

protected:
    bool event(QEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;
};
