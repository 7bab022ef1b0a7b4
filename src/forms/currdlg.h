#pragma once

#include "ui_currdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the currency editor: the item-and-content rows, with the base currency shown
// read-only above the list. Its select button has nothing to pick and stays unconnected.
class CurrDlg : public QDialog, public Ui::CurrDlg
{
    Q_OBJECT

public:
    explicit CurrDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                     Qt::WindowFlags fl = {});
    ~CurrDlg() override;

public slots:
    virtual void slotComboChanged(const QString &);
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotOK();
    virtual void slotSelectButton();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
};
