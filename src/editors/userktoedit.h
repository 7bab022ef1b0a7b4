#pragma once

#include "dialogs/scqtwidgetutil.h"
#include "forms/userktodlg.h"

class QCloseEvent;
class WayFernData;
struct UserData;

// Shows the account of one traveller, read-only: the newest line on top, each row with the
// running total up to itself, so the top row's total is the balance.
class userKtoEdit : public UserKtoDlg
{
    Q_OBJECT

public:
    userKtoEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~userKtoEdit() override;

    // Fills the dialog with the account of `user`; a null user changes nothing.
    void prepare(UserData *user);

    // Ends the dialog and lets go of the traveller, who may leave the journey afterwards.
    void done(int result) override;

public slots:
    void slotClose() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    ScQtWidgetUtil util;
    UserData *user = nullptr;        // not owned
    WayFernData *document = nullptr; // not owned
};
