#include "editors/costsedit.h"

#include "data/amountreader.h"
#include "data/wayferndata.h"
#include "dialogs/refusal.h"
#include "editors/userpayedit.h"

#include <QList>
#include <QStringList>

costsEdit::costsEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : ItemEditor<CostsDlg>(parent, name, modal, doc)
{
    userPay = new userPayEdit(this, "User costs", true, doc);
    userPay->hide();
    rowDate = tr("date");
    rowType = tr("type");
    rowShort = tr("short");
    rowCurrency = tr("currency type");
    rowForeign = tr("foreign value");
    rowBase = tr("base value");
    rowComment = tr("comment");
    rowExchange = tr("exch. rate");
    // The share button comes before OK in the Tab order.
    takeTabFocus({UserButton});
    chainTabOrder({ToolButton, UserButton, OkButton, CancelButton});
}

costsEdit::~costsEdit() = default;

QString costsEdit::cancelCaption() const
{
    return tr("Cancel");
}

// An empty rate or the file's "(null)" stands for the currency's own rate.
static bool isUnsetRate(const QString &rate)
{
    return rate.isEmpty() || rate == QLatin1String("(null)");
}

void costsEdit::copyData(const CostsData *source, CostsData *target)
{
    if (!source || !target)
        return;
    target->comment = source->comment;
    target->shared = source->shared;
    target->id = source->id;
    target->exchange = source->exchange;
    target->exchangevalue = source->exchangevalue;
    target->fval = source->fval;
    target->bval = source->bval;
    target->type = source->type;
    target->typeletter = source->typeletter;
    target->date = source->date;
    target->ctype = source->ctype;
}

void costsEdit::prepare(CostsData *cost, calenderEdit *cal)
{
    modified = false;
    shareEdited = false;
    actu = cost;
    selected = nullptr;
    calendar = cal;
    costDate = cost ? cost->date : QString();
    copyData(cost, &tmp);
    if (!document->currencies.isEmpty() && tmp.ctype.isEmpty())
        tmp.ctype = document->currencies.first()->short_;
    if (!document->ctypes.isEmpty() && tmp.type.isEmpty())
        tmp.type = document->ctypes.first()->type;
    tmp.typeletter = typeLetter(tmp.type);
    fillList();
    disableEditWidgets();
    UserButton->setEnabled(false);
}

void costsEdit::fillList()
{
    ListView->clear();
    const QList<QStringList> rows{{rowDate, tmp.date},         {rowType, tmp.type},
                                  {rowShort, tmp.typeletter},  {rowCurrency, tmp.ctype},
                                  {rowForeign, tmp.fval},      {rowBase, tmp.bval},
                                  {rowExchange, tmp.exchange}, {rowComment, tmp.comment}};
    QList<QTreeWidgetItem *> items;
    for (const QStringList &row : rows)
        items.append(new QTreeWidgetItem(row));
    ListView->addTopLevelItems(items);
}

void costsEdit::readList()
{
    tmp.date = util.getContent(ListView, rowDate, 1);
    tmp.type = util.getContent(ListView, rowType, 1);
    tmp.typeletter = util.getContent(ListView, rowShort, 1);
    tmp.ctype = util.getContent(ListView, rowCurrency, 1);
    tmp.fval = AmountReader::stored(util.getContent(ListView, rowForeign, 1));
    tmp.bval = util.getContent(ListView, rowBase, 1);
    tmp.exchange = AmountReader::stored(util.getContent(ListView, rowExchange, 1));
    tmp.comment = util.getContent(ListView, rowComment, 1);
}

bool costsEdit::inputAccepted()
{
    if (!Refusal::date(this, rowDate, util.getContent(ListView, rowDate, 1)))
        return false;
    const QString foreign = util.getContent(ListView, rowForeign, 1);
    if (!Refusal::amount(this, rowForeign, foreign).ok)
        return false;
    const QString rate = util.getContent(ListView, rowExchange, 1);
    return isUnsetRate(rate) || Refusal::amount(this, rowExchange, rate).ok;
}

void costsEdit::checkChanges()
{
    if (!actu)
        return;
    if (tmp.date != actu->date || tmp.type != actu->type || tmp.typeletter != actu->typeletter
        || tmp.ctype != actu->ctype || tmp.fval != actu->fval || tmp.bval != actu->bval
        || tmp.exchange != actu->exchange || tmp.comment != actu->comment
        || tmp.shared != actu->shared)
        modified = true;
}

void costsEdit::storeChanges(bool)
{
    if (!actu)
        return;
    // Every changed cost passes through the share dialog once, and again when its amount
    // changed after the shares were confirmed, so that no share of an old amount is stored
    // unseen; whatever it answers, the cost is stored.
    if (document->userflag && (!shareEdited || tmp.bval != sharedAmount))
        slotUserPay();
    copyData(&tmp, actu);
    document->setModified(true);
    emit overChanged();
    modified = false;
}

void costsEdit::recalc()
{
    // The base value follows the foreign value with either decimal mark; text that is no
    // number (yet) counts as 0, as in a file. OK refuses it.
    const QString typed = tmp.fval;
    const TypedAmount amount = AmountReader::read(typed);
    if (amount.ok)
        tmp.fval = amount.text;
    document->recalcCost(&tmp, tmp.ctype);
    tmp.fval = typed;
    if (QTreeWidgetItem *row = util.findItem(ListView, rowForeign, 0))
        row->setText(1, tmp.fval);
    if (QTreeWidgetItem *row = util.findItem(ListView, rowBase, 0))
        row->setText(1, tmp.bval);
}

void costsEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!isEditableSelection(item))
        return;
    selected = item;
    UserButton->setEnabled(document->userflag);
    const QString label = item->text(0);

    if (label == rowType) {
        util.fillCostTypes(document, ComboBox);
        util.selectComboItem(ComboBox, tmp.type);
        showRow(item, RowKind::Choice);
    } else if (label == rowCurrency) {
        enableFor(RowKind::Choice);
        util.fillCurrencies(document, ComboBox);
        util.selectComboItem(ComboBox, tmp.ctype);
        // The rate of the currency tells more here than its name.
        if (const CurrData *currency = document->findCurrency(tmp.ctype))
            LineEdit->setText(currency->factor);
    } else if (label == rowExchange) {
        ClearButton->setEnabled(false);
        // A currency that is not in the table counts as not floating: the row is shown
        // as it stands.
        const CurrData *currency = document->findCurrency(tmp.ctype);
        // For a fixed rate the line keeps the state the row before left it in.
        if (currency && currency->isFloating())
            LineEdit->setEnabled(true);
        util.fillCurrencies(document, ComboBox);
        util.selectComboItem(ComboBox, tmp.ctype);
        ComboBox->setEnabled(false);
        ToolButton->setEnabled(false);
        const QString rate = item->text(1);
        if (currency && (rate.isEmpty() || rate == QLatin1String("(null)")))
            LineEdit->setText(currency->factor);
        else
            LineEdit->setText(rate);
    } else if (label == rowDate) {
        showRow(item, RowKind::DateOnly);
    } else {
        const bool typed = label == rowForeign || label == rowComment;
        showRow(item, typed ? RowKind::PlainText : RowKind::ShownOnly);
    }
}

void costsEdit::slotTextChanged(const QString &text)
{
    if (!selected)
        return;
    const QString label = selected->text(0);
    if (label == rowDate || label == rowExchange || label == rowComment) {
        // A rate typed by hand is kept as text: it does not enter the base value.
        selected->setText(1, text);
    } else if (label == rowForeign) {
        tmp.fval = text;
        recalc();
    }
}

void costsEdit::slotComboChanged(const QString &text)
{
    if (!selected)
        return;
    const QString label = selected->text(0);
    if (label == rowType) {
        if (QTreeWidgetItem *row = util.findItem(ListView, rowType, 0))
            row->setText(1, text);
        tmp.typeletter = typeLetter(text);
        if (QTreeWidgetItem *row = util.findItem(ListView, rowShort, 0))
            row->setText(1, tmp.typeletter);
    } else if (label == rowCurrency) {
        if (QTreeWidgetItem *row = util.findItem(ListView, rowCurrency, 0))
            row->setText(1, text);
        QTreeWidgetItem *rateRow = util.findItem(ListView, rowExchange, 0);
        const CurrData *currency = text.isNull() ? nullptr : document->findCurrency(text);
        // A new currency brings its own rate, over one typed by hand.
        if (rateRow && currency) {
            rateRow->setText(1, currency->factor);
            LineEdit->setText(currency->factor);
        }
        tmp.ctype = text;
        recalc();
    }
}

void costsEdit::slotSelectButton()
{
    pickDate(rowDate, calendar, actu ? actu->date : QString(), &costDate);
}

void costsEdit::slotUserPay()
{
    // Costs from old files carry no id of their own and can't be shared.
    if (tmp.id <= 0)
        return;
    // The shares carry the cost's date, and so does the cost: a cost without a date gets it
    // here, before the shares are made.
    if (costDate.isEmpty() && calendar && !pickMissingDate())
        return;
    if (!tmp.shared)
        document->addAllKto(tmp.id);
    // The amount as the row shows it.
    const double amount = tmp.bval.toDouble();
    userPay->prepare(amount, costDate, calendar, tmp.id);
    userPay->exec();
    userPay->hide();
    if (userPay->result() == QDialog::Accepted) {
        tmp.shared = true;
        emit overChanged();
        shareEdited = true;
        sharedAmount = tmp.bval;
    } else if (!tmp.shared) {
        document->removeAllKto(tmp.id);
    }
}

bool costsEdit::pickMissingDate()
{
    calendar->setDate(costDate);
    calendar->exec();
    calendar->hide();
    if (calendar->result() != QDialog::Accepted)
        return false;
    costDate = calendar->dateText();
    tmp.date = costDate;
    QTreeWidgetItem *row = util.findItem(ListView, rowDate, 0);
    if (row)
        row->setText(1, costDate);
    if (row && selected == row)
        LineEdit->setText(costDate);
    return true;
}
