#include "editors/userktoedit.h"

#include "data/journeyrecords.h"
#include "data/wayferndata.h"
#include "editors/numbertext.h"

#include <QCloseEvent>
#include <QTreeWidgetItem>

userKtoEdit::userKtoEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : UserKtoDlg(parent, name, modal)
{
    // Callers always pass a name; the caption of the form is then kept.
    if (!name)
        setWindowTitle(QString());
    document = doc;

    ListView->setSortingEnabled(false);
    ListView->setAllColumnsShowFocus(true);
    showMaximized();
    prepare(nullptr);
}

userKtoEdit::~userKtoEdit() = default;

void userKtoEdit::prepare(UserData *u)
{
    user = u;
    if (!user)
        return;
    ValTextLabel->setText(numberText("%.2f", user->value) + QLatin1Char(' ')
                          + document->basecurrency);
    setWindowTitle(tr("account : %1").arg(user->short_));

    ListView->clear();
    // The newest line goes on top, as each row shows the total up to itself.
    QList<QTreeWidgetItem *> rows;
    rows.reserve(user->kto.count());
    double total = 0.0;
    for (const KtoData *line : user->kto) {
        total += line->change;
        auto *row = new QTreeWidgetItem;
        row->setText(0, line->date);
        row->setText(1, numberText("%.2f", line->change));
        row->setText(2, numberText("%.2f", total));
        rows.prepend(row);
    }
    ListView->addTopLevelItems(rows);
}

void userKtoEdit::slotClose()
{
    accept();
}

void userKtoEdit::done(int result)
{
    user = nullptr;
    UserKtoDlg::done(result);
}

void userKtoEdit::closeEvent(QCloseEvent *event)
{
    slotClose();
    event->accept();
}
