#pragma once

#include "editors/itemeditor.h"
#include "forms/basedlg.h"

#include <QString>

class WayFernData;

// The four settings of a journey that the base settings editor changes.
struct JourneySettings
{
    QString journeyname;
    QString basecurrency;
    QString distancetype;
    bool userflag = false;
};

// Edits the journey's title, base currency, distance type and user flag. The record is the
// document's own, so there is no pointer to it: the values travel between the document and
// the working copy.
class baseEdit : public ItemEditor<BaseDlg>
{
    Q_OBJECT

public:
    baseEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~baseEdit() override;

    // Loads the dialog from the document.
    void setData();

    QString rowTitle;
    QString rowBase;
    QString rowDistance;
    QString rowUser;
    JourneySettings tmp;
    bool basechanged = false; // the user confirmed a new base currency

public slots:
    void slotClicked(QTreeWidgetItem *item, int column) override;
    void slotComboChanged(const QString &text) override;
    void slotSelectButton() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;

signals:
    void overChanged();
    void baseCurrencyChanged();

protected:
    void readList() override;
    void checkChanges() override;
    void readAndCheck() override;
    void storeChanges(bool fromQuestion) override;
    QString cancelCaption() const override;

private:
    void fillList();
    void checkBaseCurrency();
};
