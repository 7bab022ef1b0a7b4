#pragma once

#include "data/journeyrecords.h"
#include "dialogs/scqtwidgetutil.h"
#include "forms/usercashdlg.h"

#include <QString>

class QCloseEvent;
class WayFernData;
class calenderEdit;

// Books a deposit or a pay-off: fills in one new account line that the caller has already
// appended to the traveller. The amount is typed as a positive number; a pay-off is stored
// negative.
class userCashEdit : public UserCashDlg
{
    Q_OBJECT

public:
    userCashEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~userCashEdit() override;

    // `type` is the stored word, "deposit" or "pay off". An empty date opens the calendar
    // at once.
    void prepare(QString type, QString date, UserData *user, KtoData *line, calenderEdit *calendar);

    // Ends the dialog. The line and its traveller belong to the caller, who removes a
    // rejected line again: the dialog lets go of both, so nothing reaches them afterwards.
    void done(int result) override;

public slots:
    void slotSelectButton() override;
    void slotCancel() override;
    void slotComboChanged(const QString &text) override;
    void slotOk() override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    // An empty line books 0.0; other text must be a number. A refusal has shown its box.
    bool amountAccepted();
    void readEntry();
    void checkChanges();
    void store();

    ScQtWidgetUtil util;
    calenderEdit *calendar = nullptr; // not owned
    WayFernData *document = nullptr;  // not owned
    UserData *user = nullptr;         // not owned
    KtoData *actu = nullptr;          // owned by the user
    KtoData tmp;
    QString cashDate;
    QString cashType;
    QString shownType; // cashType in the user's language
    bool modified = false;
};
