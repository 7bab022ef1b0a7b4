#pragma once

#include "data/journeyrecords.h"
#include "editors/itemeditor.h"
#include "forms/tipdlg.h"

#include <QString>

class calenderEdit;
class WayFernData;

// Enters and changes one tip: an address with a date, a type, a quality, a comment and the
// fields of its own that its type prescribes. The rows are grouped: "common", "phone" and,
// when the tip has fields of its own, "custom".
class tipEdit : public ItemEditor<TipDlg>
{
    Q_OBJECT

public:
    tipEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~tipEdit() override;

    // Loads the dialog with the tip; a tip without a type gets the first one (but not its
    // fields: those come with a change of type).
    void prepare(TipData *tip, calenderEdit *calendar);
    // The thirteen texts and the tip's own fields.
    void copyData(const TipData *source, TipData *target);
    // The tip's own fields become those of `currenttype`, all empty.
    void loadTypeCustoms();

    QString rowCommon;
    QString rowDate;
    QString rowName;
    QString rowStreet;
    QString rowPcode;
    QString rowTown;
    QString rowTipType;
    QString rowShortType;
    QString rowComment;
    QString rowPhoneGroup;
    QString rowPhone;
    QString rowFax;
    QString rowEmail;
    QString rowWww;
    QString rowQuality;
    QString rowCustom;

    TipData tmp;
    TipData *actu = nullptr;          // not owned
    calenderEdit *calendar = nullptr; // not owned
    TTypeData *currenttype = nullptr; // the tip type chosen last; not owned

public slots:
    void slotComboChanged(const QString &text) override;
    void slotSelectButton() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;

protected:
    void readList() override;
    void checkChanges() override;
    void storeChanges(bool fromQuestion) override;
    QString cancelCaption() const override;

private:
    // Builds the rows from `tmp`; the row selected before stays selected.
    void fillList();
    // The type's short letter: its first capital, or empty.
    // `currenttype` if it still stands in the document's table, else null: the table may
    // have been replaced with the journey.
    TTypeData *liveCurrentType();
};
