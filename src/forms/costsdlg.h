#pragma once

#include "ui_costsdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the costs editor: the item-and-content rows plus the share button.
class CostsDlg : public QDialog, public Ui::CostsDlg
{
    Q_OBJECT

public:
    explicit CostsDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                      Qt::WindowFlags fl = {});
    ~CostsDlg() override;

public slots:
    virtual void slotUserPay();
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotComboChanged(const QString &);
    virtual void slotOK();
    virtual void slotSelectButton();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
    virtual void slotTip();
};
