#pragma once

#include "data/journeyrecords.h"
#include "editors/itemeditor.h"
#include "forms/currdlg.h"

#include <QString>

class WayFernData;

// Edits the four texts of one currency: short name, factor, full name and type. The numbers
// behind the factor are the document's business; it derives them from the text.
class currEdit : public ItemEditor<CurrDlg>
{
    Q_OBJECT

public:
    currEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~currEdit() override;

    // Loads the dialog with `curr`, which stays the caller's.
    void setData(CurrData *curr);

    QString rowShort;
    QString rowFactor;
    QString rowFullname;
    QString rowType;

    CurrData tmp;
    CurrData *actu = nullptr; // not owned

public slots:
    void slotComboChanged(const QString &text) override;
    void slotSelectButton() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;

protected:
    void readList() override;
    void checkChanges() override;
    void storeChanges(bool fromQuestion) override;
    QString cancelCaption() const override;
    // The factor must be a number; left empty, the currency counts one to one.
    bool inputAccepted() override;

private:
    static void copyData(const CurrData *source, CurrData *target);
    void fillList();
};
