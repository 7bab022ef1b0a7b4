#pragma once

#include "ui_userlistdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the user list: the travellers with their balances, and the buttons that add,
// change and delete them and book on their accounts.
class UserListDlg : public QDialog, public Ui::UserListDlg
{
    Q_OBJECT

public:
    explicit UserListDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~UserListDlg() override;

public slots:
    virtual void slotKonto();
    virtual void slotAppend();
    virtual void slotAuszahl();
    virtual void slotChange();
    virtual void slotClose();
    virtual void slotDelete();
    virtual void slotDoubleClicked(QTreeWidgetItem *);
    virtual void slotEinzahl();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
};
