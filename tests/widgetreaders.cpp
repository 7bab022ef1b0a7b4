#include "widgetreaders.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QTableWidget>
#include <QTreeWidget>

#include <algorithm>

namespace WidgetReaders {

QStringList headerTexts(const QTreeView *list)
{
    const QAbstractItemModel *model = list->model();
    QStringList texts;
    for (int i = 0; i < model->columnCount(); ++i)
        texts << model->headerData(i, Qt::Horizontal).toString();
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

QStringList indexTexts(const QAbstractItemModel *model, int row, const QModelIndex &parent)
{
    QStringList texts;
    for (int c = 0; c < model->columnCount(parent); ++c)
        texts << model->index(row, c, parent).data().toString();
    return texts;
}

void addRows(const QAbstractItemModel *model, const QModelIndex &parent, int depth, QChar separator,
             QStringList &rows)
{
    for (int r = 0; r < model->rowCount(parent); ++r) {
        rows << QString(2 * depth, u' ') + indexTexts(model, r, parent).join(separator);
        addRows(model, model->index(r, 0, parent), depth + 1, separator, rows);
    }
}

} // namespace

QStringList treeRows(const QTreeView *list, QChar separator)
{
    QStringList rows;
    addRows(list->model(), QModelIndex(), 0, separator, rows);
    return rows;
}

QStringList columnTexts(const QTreeView *list, int column)
{
    const QAbstractItemModel *model = list->model();
    QStringList texts;
    for (int r = 0; r < model->rowCount(); ++r)
        texts << model->index(r, column).data().toString();
    return texts;
}

QStringList rowTexts(const QTreeView *list, int row)
{
    return indexTexts(list->model(), row, QModelIndex());
}

QIcon rowIcon(const QTreeView *list, int row)
{
    return list->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
}

int rowCount(const QTreeView *list)
{
    return list->model()->rowCount();
}

int rowOf(const QTreeView *list, const QString &text)
{
    return int(columnTexts(list).indexOf(text));
}

int currentRow(const QAbstractItemView *list)
{
    const QModelIndex current = list->currentIndex();
    return current.isValid() && !current.parent().isValid() ? current.row() : -1;
}

QList<int> selectedRows(const QAbstractItemView *list)
{
    QList<int> rows;
    for (const QModelIndex &index : list->selectionModel()->selectedRows())
        if (!index.parent().isValid())
            rows << index.row();
    std::sort(rows.begin(), rows.end());
    return rows;
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
