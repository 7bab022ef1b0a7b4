#pragma once

#include "data/journeyrecords.h"
#include "editors/itemeditor.h"
#include "forms/userdlg.h"

#include <QString>

class WayFernData;
class calenderEdit;

// Edits the address data of one traveller, in three closed groups of rows. The account
// (value, count, lines) is not this dialog's business and stays as it is.
class userEdit : public ItemEditor<UserDlg>
{
    Q_OBJECT

public:
    userEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~userEdit() override;

    // Loads the dialog with `user`, which stays the caller's.
    void prepare(UserData *user, calenderEdit *calendar);

    // Group labels; "phone" and "bank" are a group and a row each, told apart by the group.
    QString groupCommon;
    QString groupPhone;
    QString groupBank;
    QString rowDate;
    QString rowShort;
    QString rowFirst;
    QString rowName;
    QString rowStreet;
    QString rowPcode;
    QString rowTown;
    QString rowPhone;
    QString rowFax;
    QString rowEmail;
    QString rowWww;
    QString rowBank;
    QString rowBcode;
    QString rowAccount;

    UserData tmp;
    UserData *actu = nullptr;         // not owned
    calenderEdit *calendar = nullptr; // not owned

public slots:
    void slotSelectButton() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;

protected:
    void readList() override;
    void checkChanges() override;
    void storeChanges(bool fromQuestion) override;
    QString cancelCaption() const override;

private:
    static void copyData(const UserData *source, UserData *target);
    void fillList();
};
