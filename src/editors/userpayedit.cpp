#include "editors/userpayedit.h"

#include "data/amountreader.h"
#include "data/journeyrecords.h"
#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "dialogs/refusal.h"
#include "dialogs/savechangesquestion.h"
#include "editors/editorkeys.h"
#include "editors/numbertext.h"
#include "editors/userktoedit.h"
#include "settle/settlement.h"
#include "settle/sharedivision.h"
#include "storage/printline.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QPixmap>
#include <QShowEvent>
#include <QTreeWidgetItem>
#include <QVariant>

namespace {

// A pointer left over from an earlier lookup is used only while its line still exists.
KtoData *liveLine(const UserData *user)
{
    return user->kto.contains(user->actukto) ? user->actukto : nullptr;
}

QString amountText(double value)
{
    return numberText("%.2f", value);
}

QString percentText(double value)
{
    return numberText("%.1f", value);
}

} // namespace

userPayEdit::userPayEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : UserPayDlg(parent, name, modal)
{
    unselPixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/unsel.xpm"));
    selPixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/sel.xpm"));
    // Rows share copies of this one pixmap, and copies keep its key.
    selSerial = selPixmap->cacheKey();

    userKto = new userKtoEdit(this, "User account", true, doc);
    userKto->hide();

    // Callers always pass a name; the caption of the form is then kept.
    if (!name)
        setWindowTitle(QString());
    document = doc;

    ListView->setSortingEnabled(false);
    ListView->setAllColumnsShowFocus(true);
    ListView->setIconSize(QSize(16, 16));
    // Five columns on a handheld's 240 pixels: the numbers and the tick take what they need,
    // the names the rest, so nothing needs a horizontal scroll.
    QHeaderView *header = ListView->header();
    header->setMinimumSectionSize(1);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(1, QHeaderView::Stretch);

    showMaximized();
    ListView->setFocusProxy(LineEdit);
    // No pointer needed: Tab goes from the rows to the line, the buttons, OK and Cancel; Up
    // and Down move between the travellers, Return in the line goes on to the next one;
    // Ctrl+Return is OK and Escape is Cancel with its question.
    takeTabFocus({ShareButton, ToolButton, OkButton, CancelButton});
    chainTabOrder({ListView, LineEdit, ShareButton, ToolButton, OkButton, CancelButton});
    auto *rowKeys = new RowKeys(ListView, LineEdit, this);
    connect(LineEdit, &QLineEdit::returnPressed, this, [rowKeys] { rowKeys->selectNextRow(); });
    addOkCancelKeys(
        this, [this] { slotOk(); }, [this] { slotCancel(); });
}

userPayEdit::~userPayEdit()
{
    // The rows are children of the list and still refer to the pixmaps' data by copy; the
    // dialog's own pictures go now.
    unselPixmap.reset();
    selPixmap.reset();
}

void userPayEdit::showEvent(QShowEvent *event)
{
    UserPayDlg::showEvent(event);
    ListView->setFocus(Qt::OtherFocusReason);
}

void userPayEdit::prepare(double shareval, QString date, calenderEdit *cal, int id)
{
    selected = nullptr;
    costId = id;
    calendar = cal;
    shareDate = date;
    if (shareDate.isEmpty())
        slotSelectButton();
    else
        TextLabel->setText(shareDate);
    shareVal = shareval;

    printf("\nuserPayEdit::prepare - shareval = %.4f", shareVal);
    printf("\n                       ID = %d", costId);
    fflush(stdout);

    ValTextLabel->setText(amountText(shareval) + QLatin1Char(' ') + document->basecurrency);

    clearTmp();
    copyActuToTmp();
    divideChangedAmount();
    fillList();

    modified = false;
    ShareButton->setEnabled(true);
    LineEdit->setEnabled(false);
    LineEdit->clear();
}

void userPayEdit::clearTmp()
{
    tmpUsers.clear();
}

void userPayEdit::copyActuToTmp()
{
    document->findAllKto(costId);
    for (UserData *user : document->users) {
        KtoData *line = liveLine(user);
        if (!line)
            break;
        printf("\nuserPayEdit::copyActuToTmp - user = %s", cstr(user->short_).constData());
        printf("\n                           - actukto  = %p", static_cast<void *>(line));
        printf("\n                           - val  = %.4f", line->change);
        printf("\n                           - perc = %.4f", line->percentage);
        printf("\n                           - date = %s", cstr(line->date).constData());
        fflush(stdout);

        UserData *tmpUser = tmpUsers.append();
        tmpUser->short_ = user->short_;
        tmpUser->temp.change = line->change;
        tmpUser->temp.percentage = line->percentage;
        tmpUser->temp.date = line->date;
        tmpUser->temp.type = line->type;
        tmpUser->temp.magic = line->magic;
    }
}

void userPayEdit::fillList()
{
    ListView->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(tmpUsers.count());
    for (const UserData *tmpUser : tmpUsers) {
        auto *row = new QTreeWidgetItem;
        row->setText(0, QString());
        row->setText(1, tmpUser->short_);
        row->setText(2, percentText(tmpUser->temp.percentage));
        row->setText(3, amountText(tmpUser->temp.change));
        setTick(row, tmpUser->temp.change != 0.0);
        rows.append(row);
    }
    ListView->addTopLevelItems(rows);
}

bool userPayEdit::isTicked(QTreeWidgetItem *item) const
{
    const QVariant picture = item->data(0, Qt::DecorationRole);
    return picture.canConvert<QPixmap>() && picture.value<QPixmap>().cacheKey() == selSerial;
}

void userPayEdit::setTick(QTreeWidgetItem *item, bool ticked)
{
    item->setData(0, Qt::DecorationRole, ticked ? *selPixmap : *unselPixmap);
}

void userPayEdit::slotClicked(QTreeWidgetItem *item, int column)
{
    if (column != 0 || !item)
        return;
    setTick(item, !isTicked(item));
    recalcShares();
}

void userPayEdit::divideChangedAmount()
{
    QList<double> changes;
    QList<double> percentages;
    for (const UserData *tmpUser : tmpUsers) {
        // Rows that show another cost's line (a lookup that stopped at a traveller without
        // a line) are no shares of this cost: nothing to divide.
        if (tmpUser->temp.magic != costId)
            return;
        changes.append(tmpUser->temp.change);
        percentages.append(tmpUser->temp.percentage);
    }
    // The amount, currency or rate changed since the cost was shared: the same travellers
    // share the new amount in the same proportions, so that what is shown and stored
    // belongs to the cost as it is now.
    if (!ShareDivision::divideAnew(Settlement::toCents(shareVal), changes, percentages))
        return;
    for (int i = 0; i < tmpUsers.count(); ++i) {
        tmpUsers.at(i)->temp.change = changes.at(i);
        tmpUsers.at(i)->temp.percentage = percentages.at(i);
    }
}

void userPayEdit::divideAmong(const QList<QTreeWidgetItem *> &rows, const QList<qint64> &weights)
{
    const qint64 cents = Settlement::toCents(shareVal);
    const QList<qint64> parts = ShareDivision::byWeights(cents, weights);
    const QList<double> percent = ShareDivision::percentages(parts, cents, weights);
    for (int i = tmpUsers.count() - 1; i >= 0; --i) {
        QTreeWidgetItem *row = rows.at(i);
        if (!row)
            continue;
        UserData *tmpUser = tmpUsers.at(i);
        if (weights.at(i) != 0) {
            tmpUser->temp.change = ShareDivision::changeOfShare(parts.at(i));
            tmpUser->temp.percentage = percent.at(i);
        } else {
            tmpUser->temp.change = 0.0;
            tmpUser->temp.percentage = 0.0;
        }
        row->setText(3, amountText(tmpUser->temp.change));
        row->setText(2, percentText(tmpUser->temp.percentage));
    }
}

void userPayEdit::recalcShares()
{
    // The ticked rows share the amount alike, in whole cents that add up to it.
    QList<QTreeWidgetItem *> rows;
    QList<qint64> weights;
    for (const UserData *tmpUser : tmpUsers) {
        QTreeWidgetItem *row = util.findItem(ListView, tmpUser->short_, 1);
        rows.append(row);
        weights.append(row && isTicked(row) ? 1 : 0);
    }
    divideAmong(rows, weights);
    modified = false;
}

void userPayEdit::slotShare()
{
    const int answer = QMessageBox::information(
        this, tr("Share costs"), tr("Would you like to share the costs \namoung all users ?"),
        QMessageBox::Yes | QMessageBox::Cancel);
    if (answer != QMessageBox::Yes)
        return;
    if (document->users.isEmpty())
        return;
    // Everybody with a row shares alike: the rows are what is booked, so the shares add up
    // to the amount.
    QList<QTreeWidgetItem *> rows;
    QList<qint64> weights;
    for (const UserData *tmpUser : tmpUsers) {
        QTreeWidgetItem *row = util.findItem(ListView, tmpUser->short_, 1);
        rows.append(row);
        weights.append(row ? 1 : 0);
        if (row)
            setTick(row, true);
    }
    divideAmong(rows, weights);
    modified = false;
}

void userPayEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!item)
        return;
    selected = item;
    LineEdit->setEnabled(true);
    LineEdit->setText(item->text(3));
}

void userPayEdit::slotDoubleClicked(QTreeWidgetItem *item)
{
    slotSelectionChanged(item);
}

void userPayEdit::slotTextChanged(const QString &text)
{
    if (selected)
        selected->setText(3, text);
}

void userPayEdit::slotSelectButton()
{
    if (!calendar)
        return;
    calendar->setDate(shareDate);
    calendar->exec();
    calendar->hide();
    if (calendar->result() == 1) {
        shareDate = calendar->dateText();
        TextLabel->setText(shareDate);
    }
}

// An empty share counts as 0.0; other text must be a number.
static bool isShareText(const QString &text)
{
    return text.trimmed().isEmpty() || AmountReader::read(text).ok;
}

bool userPayEdit::readShares(bool refuse)
{
    for (int i = 0; refuse && i < tmpUsers.count(); ++i) {
        const QTreeWidgetItem *row = util.findItem(ListView, tmpUsers.at(i)->short_, 1);
        if (row && !isShareText(row->text(3))) {
            Refusal::showNoNumber(this, tr("share of %1").arg(tmpUsers.at(i)->short_),
                                  row->text(3));
            return false;
        }
    }
    for (int i = tmpUsers.count() - 1; i >= 0; --i) {
        UserData *tmpUser = tmpUsers.at(i);
        QTreeWidgetItem *row = util.findItem(ListView, tmpUser->short_, 1);
        if (!row)
            continue;
        tmpUser->temp.date = shareDate;
        tmpUser->temp.type = QStringLiteral("share");
        tmpUser->temp.change = AmountReader::read(row->text(3)).value;
        tmpUser->temp.percentage = AmountReader::read(row->text(2)).value;
    }
    return true;
}

void userPayEdit::checkShares()
{
    document->findAllKto(costId);
    const int pairs = qMin(tmpUsers.count(), document->users.count());
    for (int i = 0; i < pairs; ++i) {
        const KtoData *line = liveLine(document->users.at(i));
        const KtoData &temp = tmpUsers.at(i)->temp;
        // A traveller without a line has nothing to compare; his row could not exist.
        if (!line)
            break;
        if (line->change != temp.change || line->percentage != temp.percentage
            || line->date != temp.date || line->type != temp.type || line->magic != temp.magic) {
            modified = true;
            break;
        }
    }
}

void userPayEdit::copyTmpToActu()
{
    document->findAllKto(costId);
    const int pairs = qMin(tmpUsers.count(), document->users.count());
    for (int i = 0; i < pairs; ++i) {
        UserData *user = document->users.at(i);
        KtoData *line = liveLine(user);
        if (!line)
            break;
        const UserData *tmpUser = tmpUsers.at(i);
        user->short_ = tmpUser->short_;
        line->change = tmpUser->temp.change;
        line->percentage = tmpUser->temp.percentage;
        line->date = tmpUser->temp.date;
        line->type = tmpUser->temp.type;
        line->magic = tmpUser->temp.magic;
    }
}

void userPayEdit::slotOk()
{
    if (!readShares(true))
        return;
    checkShares();
    if (modified) {
        copyTmpToActu();
        document->recalcUsers();
        document->setModified(true);
        modified = false;
    }
    clearTmp();
    accept();
}

void userPayEdit::slotCancel()
{
    const bool modifiedBefore = modified;
    readShares(false);
    checkShares();
    if (!modified) {
        modified = false;
        clearTmp();
        reject();
        return;
    }
    switch (askSaveChanges(this, tr("Cancel"))) {
    case QMessageBox::Yes:
        // Yes stores, so it is refused like OK.
        if (!readShares(true)) {
            modified = modifiedBefore;
            break;
        }
        copyTmpToActu();
        document->recalcUsers();
        document->setModified(true);
        modified = false;
        clearTmp();
        accept();
        break;
    case QMessageBox::No:
        modified = false;
        clearTmp();
        reject();
        break;
    default:
        // The dialog stays open with its temporary list.
        break;
    }
}

void userPayEdit::closeEvent(QCloseEvent *event)
{
    slotCancel();
    // accept() and reject() hide the dialog; while it is still shown the answer kept it open.
    if (isVisible())
        event->ignore();
    else
        event->accept();
}

void userPayEdit::slotKonto()
{
    if (!selected)
        return;
    UserData *user = document->findUser(selected->text(1));
    if (!user)
        return;
    userKto->prepare(user);
    userKto->exec();
    userKto->hide();
}
