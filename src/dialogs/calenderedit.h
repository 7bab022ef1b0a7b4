#pragma once

#include "data/datetext.h"
#include "forms/calenderdlg.h"

#include <QString>

class WayFernData;

// The date picker that all editors share: one month as a grid of six weeks, a month box
// and a year spin box. Dates come and go as "dd.mm.yyyy" texts.
class calenderEdit : public CalenderDlg
{
    Q_OBJECT

public:
    calenderEdit(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                 WayFernData *document = nullptr);
    ~calenderEdit() override;

    // Loads the dialog with a date text; an empty or null text keeps the date shown last.
    void setDate(const QString &date);
    // The chosen date as "%02d.%02d.%04d".
    QString dateText();
    // Days from one date text to the other.
    int daysBetween(const QString &from, const QString &to);

public slots:
    void slotCancel() override;
    void slotComboChanged(int index) override;
    void slotOK() override;
    void slotSpinBoxChanged(int value) override;
    void slotTableCurrentChanged(int row, int col) override;

protected:
    QString text;
    int year = 0;
    int month = 0;
    int day = 0;
    WayFernData *document = nullptr; // not owned, not used here

private:
    void fillTable();
    void fillMonthBox();
    // daysBetween's working numbers: an empty text leaves them as the last parse made them.
    DateParts work;
};
