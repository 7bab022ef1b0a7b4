#pragma once

#include "ui_tipdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the tip editor: the item-and-content rows, grouped.
class TipDlg : public QDialog, public Ui::TipDlg
{
    Q_OBJECT

public:
    explicit TipDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                    Qt::WindowFlags fl = {});
    ~TipDlg() override;

public slots:
    virtual void slotComboChanged(const QString &);
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotOK();
    virtual void slotSelectButton();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
};
