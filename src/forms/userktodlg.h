#pragma once

#include "ui_userktodlg.h"

#include <QDialog>

class AccountListModel;
class QEvent;

// The form of the account list of one traveller: builds the widgets and declares the slot
// that userKtoEdit fills in.
class UserKtoDlg : public QDialog, public Ui::UserKtoDlg
{
    Q_OBJECT

public:
    explicit UserKtoDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                        Qt::WindowFlags fl = {});
    ~UserKtoDlg() override;

    // The lines of the account shown.
    AccountListModel *accountModel = nullptr; // child object

public slots:
    virtual void slotClose();

protected:
    bool event(QEvent *e) override;
};
