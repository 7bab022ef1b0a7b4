#pragma once

#include "ui_usercashdlg.h"

#include <QDialog>

class QEvent;

// The form of the deposit and pay-off dialog: builds the widgets and declares the slots
// that userCashEdit fills in.
class UserCashDlg : public QDialog, public Ui::UserCashDlg
{
    Q_OBJECT

public:
    explicit UserCashDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~UserCashDlg() override;

public slots:
    virtual void slotSelectButton();
    virtual void slotCancel();
    virtual void slotComboChanged(const QString &);
    virtual void slotOk();

protected:
    bool event(QEvent *e) override;
};
