#include "editors/tipedit.h"

#include "data/wayferndata.h"

#include <QList>
#include <QSignalBlocker>
#include <QStringList>

tipEdit::tipEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : ItemEditor<TipDlg>(parent, name, modal, doc)
{
    rowCommon = tr("common");
    rowDate = tr("date");
    rowName = tr("name");
    rowStreet = tr("street");
    rowPcode = tr("pcode");
    rowTown = tr("town");
    rowTipType = tr("tiptype");
    rowShortType = tr("short tiptype");
    rowComment = tr("comment");
    rowPhoneGroup = tr("phone");
    rowPhone = tr("phone");
    rowFax = tr("fax");
    rowEmail = tr("email");
    rowWww = tr("www");
    rowQuality = tr("quality");
    rowCustom = tr("custom");
}

tipEdit::~tipEdit() = default;

QString tipEdit::cancelCaption() const
{
    return tr("Cancel");
}

TTypeData *tipEdit::liveCurrentType()
{
    if (currenttype && !document->ttypes.contains(currenttype))
        currenttype = nullptr;
    return currenttype;
}

void tipEdit::copyData(const TipData *source, TipData *target)
{
    if (!source || !target || source == target)
        return;
    target->date = source->date;
    target->name = source->name;
    target->street = source->street;
    target->pcode = source->pcode;
    target->town = source->town;
    target->tel = source->tel;
    target->fax = source->fax;
    target->email = source->email;
    target->www = source->www;
    target->tiptype = source->tiptype;
    target->typeletter = source->typeletter;
    target->qualitytype = source->qualitytype;
    target->comment = source->comment;
    target->customs.clear();
    for (int i = 0; i < source->customs.count(); ++i) {
        CustomData *custom = target->customs.append();
        custom->text = source->customs.at(i)->text;
        custom->content = source->customs.at(i)->content;
    }
}

void tipEdit::prepare(TipData *tip, calenderEdit *cal)
{
    actu = tip;
    calendar = cal;
    selected = nullptr;
    // A fresh working copy: nothing of the tip edited before may stay in it.
    tmp = TipData();
    copyData(tip, &tmp);
    modified = false;
    if (!document->ttypes.isEmpty() && tmp.tiptype.isEmpty()) {
        currenttype = document->ttypes.first();
        tmp.tiptype = currenttype->type;
        tmp.typeletter = typeLetter(tmp.tiptype);
    }
    fillList();
    disableEditWidgets();
}

void tipEdit::fillList()
{
    QString selectedLabel;
    QString parentLabel;
    if (selected) {
        selectedLabel = selected->text(0);
        if (selected->parent())
            parentLabel = selected->parent()->text(0);
    }
    selected = nullptr;
    ListView->clear();

    auto group = [](const QString &label, const QList<QStringList> &rows) {
        auto *parent = new QTreeWidgetItem(QStringList{label});
        QList<QTreeWidgetItem *> children;
        for (const QStringList &row : rows)
            children.append(new QTreeWidgetItem(row));
        parent->addChildren(children);
        return parent;
    };

    QTreeWidgetItem *common = group(rowCommon,
                                    {{rowDate, tmp.date},
                                     {rowTipType, tmp.tiptype},
                                     {rowShortType, tmp.typeletter},
                                     {rowName, tmp.name},
                                     {rowStreet, tmp.street},
                                     {rowPcode, tmp.pcode},
                                     {rowTown, tmp.town},
                                     {rowComment, tmp.comment},
                                     {rowQuality, tmp.qualitytype}});
    QTreeWidgetItem *phone =
        group(rowPhoneGroup,
              {{rowPhone, tmp.tel}, {rowFax, tmp.fax}, {rowEmail, tmp.email}, {rowWww, tmp.www}});
    QList<QTreeWidgetItem *> groups{common, phone};
    if (!tmp.customs.isEmpty()) {
        // The tip's own fields show last first.
        QList<QStringList> rows;
        for (int i = tmp.customs.count() - 1; i >= 0; --i)
            rows.append({tmp.customs.at(i)->text, tmp.customs.at(i)->content});
        groups.append(group(rowCustom, rows));
    }
    ListView->addTopLevelItems(groups);
    common->setExpanded(true);

    if (!selectedLabel.isEmpty() && !parentLabel.isEmpty()) {
        selected = util.findTreeItem(ListView, parentLabel, selectedLabel, 0);
        if (selected) {
            // Marked only: the edit widgets stay as the row left them.
            const QSignalBlocker blocker(ListView);
            selected->setSelected(true);
        }
    }
}

void tipEdit::loadTypeCustoms()
{
    tmp.customs.clear();
    const TTypeData *type = liveCurrentType();
    if (!type)
        return;
    for (int i = 0; i < type->customs.count(); ++i)
        tmp.customs.append()->text = type->customs.at(i)->text;
}

void tipEdit::readList()
{
    tmp.date = util.getChildContent(ListView, rowCommon, rowDate, 1);
    tmp.name = util.getChildContent(ListView, rowCommon, rowName, 1);
    tmp.street = util.getChildContent(ListView, rowCommon, rowStreet, 1);
    tmp.pcode = util.getChildContent(ListView, rowCommon, rowPcode, 1);
    tmp.town = util.getChildContent(ListView, rowCommon, rowTown, 1);
    tmp.tiptype = util.getChildContent(ListView, rowCommon, rowTipType, 1);
    tmp.typeletter = util.getChildContent(ListView, rowCommon, rowShortType, 1);
    tmp.comment = util.getChildContent(ListView, rowCommon, rowComment, 1);
    tmp.qualitytype = util.getChildContent(ListView, rowCommon, rowQuality, 1);
    tmp.tel = util.getChildContent(ListView, rowPhoneGroup, rowPhone, 1);
    tmp.fax = util.getChildContent(ListView, rowPhoneGroup, rowFax, 1);
    tmp.email = util.getChildContent(ListView, rowPhoneGroup, rowEmail, 1);
    tmp.www = util.getChildContent(ListView, rowPhoneGroup, rowWww, 1);
    for (int i = 0; i < tmp.customs.count(); ++i) {
        CustomData *custom = tmp.customs.at(i);
        custom->content = util.getChildContent(ListView, rowCustom, custom->text, 1);
    }
}

void tipEdit::checkChanges()
{
    if (!actu)
        return;
    if (tmp.date != actu->date || tmp.name != actu->name || tmp.street != actu->street
        || tmp.pcode != actu->pcode || tmp.town != actu->town || tmp.tiptype != actu->tiptype
        || tmp.typeletter != actu->typeletter || tmp.qualitytype != actu->qualitytype
        || tmp.comment != actu->comment || tmp.tel != actu->tel || tmp.fax != actu->fax
        || tmp.email != actu->email || tmp.www != actu->www)
        modified = true;

    // A list that went empty shows in the type; extra fields of the record go unnoticed.
    if (tmp.customs.isEmpty())
        return;
    if (actu->customs.isEmpty()) {
        modified = true;
        return;
    }
    for (int i = 0; i < tmp.customs.count(); ++i) {
        if (i >= actu->customs.count()
            || tmp.customs.at(i)->content != actu->customs.at(i)->content) {
            modified = true;
            return;
        }
    }
}

void tipEdit::storeChanges(bool)
{
    if (!actu)
        return;
    copyData(&tmp, actu);
    document->setModified(true);
    modified = false;
}

void tipEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!isEditableSelection(item))
        return;
    selected = item;
    const QString label = item->text(0);

    if (label == rowTipType) {
        util.fillTipTypes(document, ComboBox);
        util.selectComboItem(ComboBox, tmp.tiptype);
        showRow(item, RowKind::Choice);
    } else if (label == rowQuality) {
        util.fillQualityTypes(document, ComboBox);
        util.selectComboItem(ComboBox, tmp.qualitytype);
        showRow(item, RowKind::Choice);
    } else if (label == rowDate) {
        showRow(item, RowKind::DateOnly);
    } else if (label == rowName || label == rowStreet || label == rowPcode || label == rowTown
               || label == rowPhone || label == rowFax || label == rowEmail || label == rowWww
               || label == rowComment) {
        showRow(item, RowKind::PlainText);
    } else if (item->parent()) {
        if (item->parent()->text(0) == rowCustom)
            showRow(item, RowKind::PlainText);
        // The short type follows the type: selecting it changes nothing, and what is typed
        // then still lands in it.
    } else {
        showRow(item, RowKind::ShownOnly);
    }
}

void tipEdit::slotComboChanged(const QString &text)
{
    if (!selected)
        return;
    const QString label = selected->text(0);
    if (label == rowTipType) {
        const int answer = QMessageBox::information(
            this, tr("change tiptype"),
            tr("You want to change the tiptype!\nyou may loose custom data !"),
            QMessageBox::Yes | QMessageBox::Cancel);
        if (answer != QMessageBox::Yes) {
            util.selectComboItem(ComboBox, tmp.tiptype);
            return;
        }
        if (QTreeWidgetItem *row = util.findTreeItem(ListView, rowCommon, rowTipType, 0))
            row->setText(1, text);
        tmp.tiptype = text;
        tmp.typeletter = typeLetter(text);
        if (QTreeWidgetItem *row = util.findTreeItem(ListView, rowCommon, rowShortType, 0))
            row->setText(1, tmp.typeletter);
        currenttype = document->findTipType(ComboBox->currentText());
        loadTypeCustoms();
        fillList();
    } else if (label == rowQuality) {
        if (QTreeWidgetItem *row = util.findTreeItem(ListView, rowCommon, rowQuality, 0))
            row->setText(1, text);
    }
}

void tipEdit::slotSelectButton()
{
    if (!selected)
        return;
    pickDate(rowDate, calendar, actu ? actu->date : QString());
}
