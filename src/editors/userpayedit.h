#pragma once

#include "data/recordlist.h"
#include "dialogs/scqtwidgetutil.h"
#include "forms/userpaydlg.h"

#include <QList>
#include <QString>

#include <memory>

class QCloseEvent;
class QPixmap;
class QTreeWidgetItem;
class WayFernData;
class calenderEdit;
class userKtoEdit;
struct UserData;

// Divides the base amount of one cost among the travellers, in whole cents that add up to
// it. It works on a temporary list
// of travellers; their account lines (magic = the cost's id) change only on confirmation.
// A row counts as ticked when its picture in column 0 is the tick pixmap.
class userPayEdit : public UserPayDlg
{
    Q_OBJECT

public:
    userPayEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);
    ~userPayEdit() override;

    // Loads the dialog for the cost `id`; every traveller must already hold a line with
    // that magic. An empty date opens the calendar at once.
    void prepare(double shareval, QString date, calenderEdit *calendar, int id);

public slots:
    void slotSelectButton() override;
    void slotCancel() override;
    void slotClicked(QTreeWidgetItem *item, int column) override;
    void slotDoubleClicked(QTreeWidgetItem *item) override;
    void slotKonto() override;
    void slotOk() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;
    void slotShare() override;
    void slotTextChanged(const QString &text) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    // Every opening starts in the rows.
    void showEvent(QShowEvent *event) override;

private:
    void clearTmp();
    void copyActuToTmp();
    void fillList();
    void recalcShares();
    // Divides the amount anew among the lines' sharers when their shares do not add up to it.
    void divideChangedAmount();
    // The amount in proportion to `weights` (one per temporary traveller) into the lines
    // and their rows (null where a traveller has no row); weight 0 books nothing.
    void divideAmong(const QList<QTreeWidgetItem *> &rows, const QList<qint64> &weights);
    // The rows into the temporary lines. With `refuse`, a share that is no number shows the
    // refusal box first and nothing is read: the answer is false.
    bool readShares(bool refuse);
    void checkShares();
    void copyTmpToActu();
    bool isTicked(QTreeWidgetItem *item) const;
    void setTick(QTreeWidgetItem *item, bool ticked);

    ScQtWidgetUtil util;
    RecordList<UserData> tmpUsers; // only short_ and the temp line are used
    qint64 selSerial = 0;          // cacheKey of selPixmap
    int costId = 0;
    calenderEdit *calendar = nullptr; // not owned
    userKtoEdit *userKto = nullptr;   // child of this dialog
    std::unique_ptr<QPixmap> unselPixmap;
    std::unique_ptr<QPixmap> selPixmap;
    QTreeWidgetItem *selected = nullptr; // not owned
    WayFernData *document = nullptr;     // not owned
    bool modified = false;
    QString shareDate;
    double shareVal = 0.0;
};
