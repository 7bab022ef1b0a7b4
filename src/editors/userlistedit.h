#pragma once

#include "dialogs/scqtwidgetutil.h"
#include "forms/userlistdlg.h"
#include "settle/travellerleave.h"

#include <QHash>
#include <QString>

class WayFernData;
class calenderEdit;
class userCashEdit;
class userEdit;
class userKtoEdit;
struct UserData;

// The travellers of a journey: added, changed and deleted here, and deposits, pay-offs and
// accounts reached from here. There is no working copy: every command acts on the document
// at once, so closing asks nothing.
class userListEdit : public UserListDlg
{
    Q_OBJECT

public:
    userListEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~userListEdit() override;

    // The record that `row` of the list shows, or null when it has left the journey.
    UserData *findByItem(QTreeWidgetItem *row) const;

    // Fills the list; the traveller last worked on comes up selected.
    void prepare(calenderEdit *calendar);

    userCashEdit *userCash = nullptr; // child dialog
    userKtoEdit *userKto = nullptr;   // child dialog
    userEdit *userInput = nullptr;    // child dialog
    WayFernData *document = nullptr;  // not owned
    UserData *currentUser = nullptr;  // the traveller last worked on; not owned
    calenderEdit *calendar = nullptr; // not owned

public slots:
    void slotKonto() override;
    void slotAppend() override;
    void slotAuszahl() override;
    void slotChange() override;
    void slotClose() override;
    void slotDelete() override;
    void slotDoubleClicked(QTreeWidgetItem *item) override;
    void slotEinzahl() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;

signals:
    void overChanged();

private:
    void fillList();
    // The record each row of the list shows, since the last filling.
    QHash<const QTreeWidgetItem *, UserData *> rowRecords;
    // A deposit (magic -2) or a pay-off (magic -3) for the selected traveller.
    void bookCash(int magic, const QString &type);
    void setRowButtons(bool on);
    // What the delete question adds for a traveller with account lines.
    QString leaveText(const TravellerLeave &leave) const;

    ScQtWidgetUtil util;
    // The users list's generation after the last change made or seen here.
    unsigned long long usersSeen = 0;
};
