#pragma once

#include "ui_calenderdlg.h"

#include <QDialog>

// The form of the date picker: builds the widgets and declares the slots that
// calenderEdit fills in.
class CalenderDlg : public QDialog, public Ui::CalenderDlg
{
    Q_OBJECT

public:
    explicit CalenderDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~CalenderDlg() override;

public slots:
    virtual void slotCancel();
    virtual void slotComboChanged(int);
    virtual void slotOK();
    virtual void slotSpinBoxChanged(int);
    virtual void slotTableCurrentChanged(int, int);
};
