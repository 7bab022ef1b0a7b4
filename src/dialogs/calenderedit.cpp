#include "dialogs/calenderedit.h"

#include "calendar/calendar.h"

#include <QDate>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableWidgetItem>

namespace {

// Without a selection the chosen day would show only while the table has the focus: paint
// the current cell as highlighted at all times.
class CurrentDayDelegate : public QStyledItemDelegate
{
public:
    explicit CurrentDayDelegate(QAbstractItemView *view) : QStyledItemDelegate(view), view(view) {}

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index == view->currentIndex())
            option->state |= QStyle::State_Selected;
    }

private:
    QAbstractItemView *view;
};

} // namespace

calenderEdit::calenderEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : CalenderDlg(parent, name, modal)
{
    // Callers always pass a name; the caption of the form is then kept.
    if (!name)
        setWindowTitle(QString());
    document = doc;

    // The grid stands still: no scrolling, no resizable sections.
    Table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QHeaderView *header = Table->horizontalHeader();
    header->setDefaultSectionSize(36);
    header->setMinimumSectionSize(1);
    for (int col = 0; col < 7; ++col) {
        header->resizeSection(col, 36);
        header->setSectionResizeMode(col, QHeaderView::Stretch);
        Table->setHorizontalHeaderItem(col, new QTableWidgetItem(Calendar::nameOfDay(col + 1)));
    }
    Table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    Table->verticalHeader()->hide();
    // The current cell alone marks the chosen day; the days are not for typing.
    Table->setSelectionMode(QAbstractItemView::NoSelection);
    Table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Table->setItemDelegate(new CurrentDayDelegate(Table));

    showMaximized();

    const QDate today = QDate::currentDate();
    year = today.year();
    month = today.month();
    day = today.day();

    fillTable();
    fillMonthBox();
    YearSpinBox->setValue(year);
}

calenderEdit::~calenderEdit() = default;

void calenderEdit::fillTable()
{
    int row = 0;
    int col = 0;
    int targetRow = 0;
    int targetCol = 0;
    const QList<CalendarDay> days = Calendar::daysOfMonth(year, month, false);
    for (const CalendarDay &cell : days) {
        if (row >= Table->rowCount())
            break;
        const QString number = QString::asprintf("%02d", cell.number);
        if (QTableWidgetItem *item = Table->item(row, col))
            item->setText(number);
        else
            Table->setItem(row, col, new QTableWidgetItem(number));
        if (cell.number == day && cell.kind == 1) {
            targetRow = row;
            targetCol = col;
        }
        if (++col > 6) {
            col = 0;
            ++row;
        }
    }
    // Moves the cursor, which runs slotTableCurrentChanged again until it rests.
    Table->setCurrentCell(targetRow, targetCol);
}

void calenderEdit::fillMonthBox()
{
    // Appends without clearing: each call leaves twelve more entries behind the earlier ones.
    for (int m = 1; m <= 12; ++m)
        MonthComboBox->insertItem(MonthComboBox->count(), Calendar::nameOfMonth(m));
    MonthComboBox->setCurrentIndex(month - 1);
}

void calenderEdit::setDate(const QString &date)
{
    if (date.isEmpty())
        return;

    DateParts parts{day, month, year};
    const int reached = DateText::read(date, DateText::Picker, parts);
    day = parts.day;
    month = parts.month;
    year = parts.year;
    // Two-digit years: "03.05.02" is 2002. Any year below 2000 is taken this way.
    if ((reached & DateText::Year) && year < 2000)
        year += 2000;

    fillTable();
    fillMonthBox();
    YearSpinBox->setValue(year);
}

QString calenderEdit::dateText()
{
    text = QString::asprintf("%02d.%02d.%04d", day, month, year);
    return text;
}

int calenderEdit::daysBetween(const QString &from, const QString &to)
{
    return DateText::daysBetween(from, to, work);
}

void calenderEdit::slotCancel()
{
    reject();
}

void calenderEdit::slotComboChanged(int index)
{
    month = index + 1;
    fillTable();
}

void calenderEdit::slotOK()
{
    accept();
}

void calenderEdit::slotSpinBoxChanged(int value)
{
    year = value;
    fillTable();
}

void calenderEdit::slotTableCurrentChanged(int row, int col)
{
    const QTableWidgetItem *item = Table->item(row, col);
    day = item ? item->text().toInt(nullptr, 10) : 0;
    fillTable();
}
