#pragma once

#include "dialogs/scqtwidgetutil.h"
#include "forms/synclistdlg.h"

class QCloseEvent;
class WayFernData;

// The currencies that the rate service offers, read from the page file that the last rate
// request left. The ones the user marks are appended to the journey's currency list. The
// list view's items are the only data: nothing is kept between two openings.
class syncListEdit : public SyncListDlg
{
    Q_OBJECT

public:
    syncListEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~syncListEdit() override;

    // Empties the list and reads the page file into it; the result is readCatalogue's.
    int fillList();
    // 0 normal end, -1 the page file cannot be opened, -2 the text breaks off; the entries
    // read before an early end stay listed.
    int readCatalogue();
    // Appends the marked currencies to the document; true when any was appended.
    bool storeSelected();
    bool hasSelection() const;

    WayFernData *document = nullptr; // not owned

public slots:
    void slotCancel() override;
    void slotOK() override;

protected:
    // Closing the window is Cancel; if the question keeps the dialog, the close is refused.
    void closeEvent(QCloseEvent *event) override;

private:
    ScQtWidgetUtil util;
};
