#pragma once

#include "ui_userpaydlg.h"

#include <QDialog>

class QEvent;
class QTreeWidgetItem;

// The form of the share dialog: builds the widgets and declares the slots that userPayEdit
// fills in.
class UserPayDlg : public QDialog, public Ui::UserPayDlg
{
    Q_OBJECT

public:
    explicit UserPayDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                        Qt::WindowFlags fl = {});
    ~UserPayDlg() override;

public slots:
    virtual void slotSelectButton();
    virtual void slotCancel();
    virtual void slotClicked(QTreeWidgetItem *, int);
    virtual void slotDoubleClicked(QTreeWidgetItem *);
    virtual void slotKonto();
    virtual void slotOk();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotShare();
    virtual void slotTextChanged(const QString &);

protected:
    bool event(QEvent *e) override;
};
