#include "editors/useredit.h"

#include "data/wayferndata.h"

#include <QList>
#include <QStringList>

userEdit::userEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : ItemEditor<UserDlg>(parent, name, modal, doc)
{
    groupCommon = tr("common");
    groupPhone = tr("phone");
    groupBank = tr("bank");
    rowDate = tr("date");
    rowShort = tr("short");
    rowFirst = tr("first");
    rowName = tr("name");
    rowStreet = tr("street");
    rowPcode = tr("pcode");
    rowTown = tr("town");
    rowPhone = tr("phone");
    rowFax = tr("fax");
    rowEmail = tr("email");
    rowWww = tr("www");
    rowBank = tr("bank");
    rowBcode = tr("bcode");
    rowAccount = tr("account");
}

userEdit::~userEdit() = default;

QString userEdit::cancelCaption() const
{
    return tr("Cancel");
}

// Only the 14 address fields: the account stays with the record.
void userEdit::copyData(const UserData *source, UserData *target)
{
    if (!source || !target)
        return;
    target->date = source->date;
    target->short_ = source->short_;
    target->name = source->name;
    target->firstname = source->firstname;
    target->street = source->street;
    target->pcode = source->pcode;
    target->town = source->town;
    target->tel = source->tel;
    target->fax = source->fax;
    target->email = source->email;
    target->www = source->www;
    target->bank = source->bank;
    target->blz = source->blz;
    target->acount = source->acount;
}

void userEdit::prepare(UserData *user, calenderEdit *cal)
{
    actu = user;
    calendar = cal;
    selected = nullptr;
    copyData(user, &tmp);
    modified = false;
    fillList();
    disableEditWidgets();
}

void userEdit::fillList()
{
    ListView->clear();
    auto group = [](const QString &label, const QList<QStringList> &rows) {
        auto *top = new QTreeWidgetItem(QStringList{label});
        QList<QTreeWidgetItem *> children;
        for (const QStringList &row : rows)
            children.append(new QTreeWidgetItem(row));
        top->addChildren(children);
        top->setExpanded(false);
        return top;
    };
    const QList<QTreeWidgetItem *> groups{
        group(groupCommon,
              {{rowDate, tmp.date},
               {rowShort, tmp.short_},
               {rowFirst, tmp.firstname},
               {rowName, tmp.name},
               {rowStreet, tmp.street},
               {rowPcode, tmp.pcode},
               {rowTown, tmp.town}}),
        group(groupPhone,
              {{rowPhone, tmp.tel}, {rowFax, tmp.fax}, {rowEmail, tmp.email}, {rowWww, tmp.www}}),
        group(groupBank, {{rowBank, tmp.bank}, {rowBcode, tmp.blz}, {rowAccount, tmp.acount}})};
    ListView->addTopLevelItems(groups);
    // A group added while its item was not yet in the view opens as the view decides.
    for (QTreeWidgetItem *top : groups)
        top->setExpanded(false);
}

void userEdit::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!isEditableSelection(item))
        return;
    // The date can be typed or taken from the calendar; every other row is typed.
    showRow(item,
            item->text(0) == rowDate && item->parent() && item->parent()->text(0) == groupCommon
                ? RowKind::DateAndTyping
                : RowKind::PlainText);
}

void userEdit::slotSelectButton()
{
    pickDate(rowDate, calendar, actu ? actu->date : QString());
}

void userEdit::readList()
{
    tmp.date = util.getChildContent(ListView, groupCommon, rowDate, 1);
    tmp.short_ = util.getChildContent(ListView, groupCommon, rowShort, 1);
    tmp.firstname = util.getChildContent(ListView, groupCommon, rowFirst, 1);
    tmp.name = util.getChildContent(ListView, groupCommon, rowName, 1);
    tmp.street = util.getChildContent(ListView, groupCommon, rowStreet, 1);
    tmp.pcode = util.getChildContent(ListView, groupCommon, rowPcode, 1);
    tmp.town = util.getChildContent(ListView, groupCommon, rowTown, 1);
    tmp.tel = util.getChildContent(ListView, groupPhone, rowPhone, 1);
    tmp.fax = util.getChildContent(ListView, groupPhone, rowFax, 1);
    tmp.email = util.getChildContent(ListView, groupPhone, rowEmail, 1);
    tmp.www = util.getChildContent(ListView, groupPhone, rowWww, 1);
    tmp.bank = util.getChildContent(ListView, groupBank, rowBank, 1);
    tmp.blz = util.getChildContent(ListView, groupBank, rowBcode, 1);
    tmp.acount = util.getChildContent(ListView, groupBank, rowAccount, 1);
}

void userEdit::checkChanges()
{
    if (!actu)
        return;
    if (tmp.date != actu->date || tmp.short_ != actu->short_ || tmp.name != actu->name
        || tmp.firstname != actu->firstname || tmp.street != actu->street
        || tmp.pcode != actu->pcode || tmp.town != actu->town || tmp.tel != actu->tel
        || tmp.fax != actu->fax || tmp.email != actu->email || tmp.www != actu->www
        || tmp.bank != actu->bank || tmp.blz != actu->blz || tmp.acount != actu->acount)
        modified = true;
}

void userEdit::storeChanges(bool)
{
    copyData(&tmp, actu);
    if (actu)
        document->setModified(true);
    modified = false;
}
