#include "editors/curredit.h"

#include "data/amountreader.h"
#include "data/wayferndata.h"
#include "dialogs/refusal.h"

#include <QList>
#include <QStringList>

currEdit::currEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : ItemEditor<CurrDlg>(parent, name, modal, doc)
{
    rowShort = tr("short name");
    rowFactor = tr("factor");
    rowFullname = tr("full name");
    rowType = tr("type");
}

currEdit::~currEdit() = default;

QString currEdit::cancelCaption() const
{
    return tr("Cancel");
}

// Only the four texts: factorvalue and invfactor follow the factor text in the document.
void currEdit::copyData(const CurrData *source, CurrData *target)
{
    if (!source || !target)
        return;
    target->short_ = source->short_;
    target->factor = source->factor;
    target->fullname = source->fullname;
    target->type = source->type;
}

void currEdit::setData(CurrData *curr)
{
    actu = curr;
    selected = nullptr;
    copyData(curr, &tmp);
    modified = false;
    if (tmp.type.isEmpty()) {
        if (curr)
            tmp.type = curr->fix;
    } else {
        util.selectComboItem(ComboBox, tmp.type);
    }
    // Refilled after the selection above, so "fix" comes first and the box stands on it
    // until the type row is selected.
    ComboBox->clear();
    ComboBox->addItem(tmp.fix);
    ComboBox->addItem(tmp.floating);
    fillList();
    disableEditWidgets();
}

void currEdit::fillList()
{
    BaseLineEdit->setText(document->basecurrency);
    ListView->clear();
    ListView->addTopLevelItems(
        QList<QTreeWidgetItem *>{new QTreeWidgetItem(QStringList{rowFullname, tmp.fullname}),
                                 new QTreeWidgetItem(QStringList{rowFactor, tmp.factor}),
                                 new QTreeWidgetItem(QStringList{rowShort, tmp.short_}),
                                 new QTreeWidgetItem(QStringList{rowType, tmp.type})});
}

void currEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!isEditableSelection(item))
        return;
    if (item->text(0) == rowType) {
        // The line keeps whatever it showed: the choice is made in the box.
        selected = item;
        util.selectComboItem(ComboBox, tmp.type);
        LineEdit->setEnabled(false);
        ClearButton->setEnabled(false);
        ComboBox->setEnabled(true);
        return;
    }
    showRow(item, RowKind::PlainText);
}

void currEdit::slotComboChanged(const QString &text)
{
    if (QTreeWidgetItem *row = util.findItem(ListView, rowType, 0))
        row->setText(1, text);
}

// A currency has nothing to pick: the button is never connected.
void currEdit::slotSelectButton() {}

void currEdit::readList()
{
    tmp.short_ = util.getContent(ListView, rowShort, 1);
    tmp.factor = AmountReader::stored(util.getContent(ListView, rowFactor, 1));
    tmp.fullname = util.getContent(ListView, rowFullname, 1);
    tmp.type = util.getContent(ListView, rowType, 1);
}

bool currEdit::inputAccepted()
{
    const QString factor = util.getContent(ListView, rowFactor, 1);
    return factor.isEmpty() || Refusal::amount(this, rowFactor, factor).ok;
}

void currEdit::checkChanges()
{
    if (!actu)
        return;
    if (tmp.short_ != actu->short_ || tmp.factor != actu->factor || tmp.fullname != actu->fullname
        || tmp.type != actu->type)
        modified = true;
}

void currEdit::storeChanges(bool)
{
    copyData(&tmp, actu);
    if (actu)
        document->setModified(true);
    modified = false;
}
