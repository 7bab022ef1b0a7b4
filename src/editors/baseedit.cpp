#include "editors/baseedit.h"

#include "data/wayferndata.h"

#include <QList>
#include <QMessageBox>
#include <QStringList>

baseEdit::baseEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : ItemEditor<BaseDlg>(parent, name, modal, doc)
{
    rowTitle = tr("journey title");
    rowBase = tr("base currency");
    rowDistance = tr("distance type");
    rowUser = tr("user flag");
    setData();
    modified = false;
    basechanged = false;
}

baseEdit::~baseEdit() = default;

QString baseEdit::cancelCaption() const
{
    return tr("Cancel");
}

void baseEdit::setData()
{
    selected = nullptr;
    tmp.journeyname = document->journeyname;
    tmp.basecurrency = document->basecurrency;
    tmp.distancetype = document->distancetype;
    tmp.userflag = document->userflag;
    fillList();
    modified = false;
    basechanged = false;
    ComboBox->setEnabled(false);
    util.fillCurrencies(document, ComboBox);
    util.selectComboItem(ComboBox, tmp.basecurrency);
    ToolButton->setEnabled(false);
    LineEdit->setEnabled(false);
    ClearButton->setEnabled(false);
    LineEdit->clear();
}

void baseEdit::fillList()
{
    ListView->clear();
    // The rows show the document's values, top to bottom.
    const QList<QStringList> rows{{rowTitle, document->journeyname},
                                  {rowBase, document->basecurrency},
                                  {rowDistance, document->distancetype},
                                  {rowUser, document->userflag ? tr("yes") : tr("no")}};
    QList<QTreeWidgetItem *> items;
    for (const QStringList &row : rows)
        items.append(new QTreeWidgetItem(row));
    ListView->addTopLevelItems(items);
}

void baseEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!isEditableSelection(item))
        return;
    // The base currency comes from the table only; every other row, the user flag too,
    // can be typed.
    showRow(item, item->text(0) == rowBase ? RowKind::Choice : RowKind::PlainText);
}

void baseEdit::slotClicked(QTreeWidgetItem *item, int column)
{
    // A tap on the content of the user flag row flips it.
    if (column != 1 || !item || item->text(0) != rowUser)
        return;
    item->setText(1, item->text(1) == tr("yes") ? tr("no") : tr("yes"));
}

void baseEdit::slotComboChanged(const QString &text)
{
    if (QTreeWidgetItem *row = util.findItem(ListView, rowBase, 0))
        row->setText(1, text);
}

void baseEdit::slotSelectButton()
{
    // No row of this editor takes a date.
}

void baseEdit::readList()
{
    tmp.userflag = util.getContent(ListView, rowUser, 1) == tr("yes");
    tmp.journeyname = util.getContent(ListView, rowTitle, 1);
    tmp.basecurrency = util.getContent(ListView, rowBase, 1);
    tmp.distancetype = util.getContent(ListView, rowDistance, 1);
}

void baseEdit::checkBaseCurrency()
{
    if (tmp.basecurrency == document->basecurrency)
        return;
    const auto answer = QMessageBox::information(
        this, tr("Cancel"),
        tr("You have modified the base currency!\nDo you want to use the new one ?"),
        QMessageBox::Yes | QMessageBox::No);
    if (answer == QMessageBox::Yes) {
        basechanged = true;
    } else {
        // The row keeps the new text until the next setData.
        tmp.basecurrency = document->basecurrency;
        util.selectComboItem(ComboBox, tmp.basecurrency);
        basechanged = false;
    }
}

void baseEdit::checkChanges()
{
    if (tmp.userflag != document->userflag || tmp.journeyname != document->journeyname
        || tmp.basecurrency != document->basecurrency || tmp.distancetype != document->distancetype)
        modified = true;
}

void baseEdit::readAndCheck()
{
    // The base currency question comes first, on Cancel as well.
    readList();
    checkBaseCurrency();
    checkChanges();
}

void baseEdit::storeChanges(bool fromQuestion)
{
    document->journeyname = tmp.journeyname;
    document->basecurrency = tmp.basecurrency;
    document->distancetype = tmp.distancetype;
    document->userflag = tmp.userflag;
    document->setModified(true);
    if (basechanged) {
        emit baseCurrencyChanged();
        // Saved through the question on Cancel, the overview waits for the view's refresh.
        if (!fromQuestion)
            emit overChanged();
    }
    modified = false;
}
