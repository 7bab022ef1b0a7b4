#pragma once

#include "ui_currlistdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the currency list: the journey's currencies with their factors, the buttons
// that add, change and delete them, and those that fetch rates and the catalogue.
class CurrListDlg : public QDialog, public Ui::CurrListDlg
{
    Q_OBJECT

public:
    explicit CurrListDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~CurrListDlg() override;

public slots:
    virtual void slotSyncList();
    virtual void slotAppend();
    virtual void slotChange();
    virtual void slotClose();
    virtual void slotDelete();
    virtual void slotInsert();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotSynchronize();
};
