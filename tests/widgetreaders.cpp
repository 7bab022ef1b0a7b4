#include "widgetreaders.h"

#include <QComboBox>
#include <QTableWidget>
#include <QTreeWidget>

namespace WidgetReaders {

QStringList headerTexts(const QTreeWidget *list)
{
    QStringList texts;
    for (int i = 0; i < list->columnCount(); ++i)
        texts << list->headerItem()->text(i);
    return texts;
}

QStringList itemTexts(const QTreeWidgetItem *item)
{
    const int columns = item->treeWidget() ? item->treeWidget()->columnCount()
                                           : item->columnCount();
    QStringList texts;
    for (int i = 0; i < columns; ++i)
        texts << item->text(i);
    return texts;
}

namespace {

void addRows(const QTreeWidgetItem *item, int depth, QChar separator, QStringList &rows)
{
    rows << QString(2 * depth, u' ') + itemTexts(item).join(separator);
    for (int i = 0; i < item->childCount(); ++i)
        addRows(item->child(i), depth + 1, separator, rows);
}

} // namespace

QStringList treeRows(const QTreeWidget *list, QChar separator)
{
    QStringList rows;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        addRows(list->topLevelItem(i), 0, separator, rows);
    return rows;
}

QStringList columnTexts(const QTreeWidget *list, int column)
{
    QStringList texts;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        texts << list->topLevelItem(i)->text(column);
    return texts;
}

QTreeWidgetItem *topLevelItem(const QTreeWidget *list, const QString &text)
{
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->text(0) == text)
            return list->topLevelItem(i);
    return nullptr;
}

QStringList tableTexts(const QTableWidget *table)
{
    QStringList texts;
    for (int r = 0; r < table->rowCount(); ++r)
        for (int c = 0; c < table->columnCount(); ++c)
            texts << (table->item(r, c) ? table->item(r, c)->text() : QString());
    return texts;
}

QStringList tableHeaderTexts(const QTableWidget *table)
{
    QStringList texts;
    for (int c = 0; c < table->columnCount(); ++c) {
        const QTableWidgetItem *head = table->horizontalHeaderItem(c);
        texts << (head ? head->text() : QString());
    }
    return texts;
}

QStringList comboTexts(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

} // namespace WidgetReaders
