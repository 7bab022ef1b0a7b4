#pragma once

#include "data/journeyrecords.h"
#include "editors/itemeditor.h"
#include "forms/costsdlg.h"

#include <QString>

class calenderEdit;
class userPayEdit;
class WayFernData;

// Enters and changes one cost. The type and the currency come from combo boxes, the base
// value follows the foreign value as it is typed, and a changed cost can be shared among
// the travellers.
class costsEdit : public ItemEditor<CostsDlg>
{
    Q_OBJECT

public:
    costsEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~costsEdit() override;

    // Loads the dialog with the cost; new costs get the first type and currency.
    void prepare(CostsData *cost, calenderEdit *calendar);
    // Field by field; the amounts the view recomputes (numbers, sums, currency, list row)
    // are not carried.
    void copyData(const CostsData *source, CostsData *target);

    QString rowDate;
    QString rowType;
    QString rowShort;
    QString rowCurrency;
    QString rowForeign;
    QString rowBase;
    QString rowComment;
    QString rowExchange;

    CostsData tmp;
    CostsData *actu = nullptr;        // not owned
    calenderEdit *calendar = nullptr; // not owned
    QString costDate;                 // the date as last confirmed in the calendar
    bool shareEdited = false;         // the share dialog was confirmed since prepare
    QString sharedAmount;             // the base value that it was confirmed for
    userPayEdit *userPay = nullptr;   // child of this dialog

public slots:
    void slotUserPay() override;
    void slotComboChanged(const QString &text) override;
    void slotSelectButton() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;
    void slotTextChanged(const QString &text) override;

signals:
    void overChanged();

protected:
    void readList() override;
    void checkChanges() override;
    void storeChanges(bool fromQuestion) override;
    QString cancelCaption() const override;
    // The date must be a real day, the foreign value a number, the rate a number or empty.
    bool inputAccepted() override;

private:
    void fillList();
    void recalc();
    // The calendar for a cost that has no date yet; the chosen date goes into the date row.
    bool pickMissingDate();
};
