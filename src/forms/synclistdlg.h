#pragma once

#include "ui_synclistdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the currency catalogue: the currencies that the rate service offers, to be
// picked one or more at a time, with OK and Cancel above them.
class SyncListDlg : public QDialog, public Ui::SyncListDlg
{
    Q_OBJECT

public:
    explicit SyncListDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~SyncListDlg() override;

public slots:
    virtual void slotSelectButton();
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotOK();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
};
