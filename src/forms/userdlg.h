#pragma once

#include "ui_userdlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the user editor: the item-and-content rows. Its combo box is never used, so
// it has no slot for it.
class UserDlg : public QDialog, public Ui::UserDlg
{
    Q_OBJECT

public:
    explicit UserDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                     Qt::WindowFlags fl = {});
    ~UserDlg() override;

public slots:
    virtual void slotSelectButton();
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotOK();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
};
