#pragma once

// What a list, a table or a combo box shows, read into plain lists of texts that a test
// compares in one QCOMPARE.
//
//     QCOMPARE(WidgetReaders::headerTexts(form.CostsListView),
//              (QStringList{"date", "tp", "base", "foreign", "fcurr"}));
//     QCOMPARE(WidgetReaders::treeRows(dlg.ListView), (QStringList{"..||dir", "a.wfn|12|file"}));

#include <QIcon>
#include <QString>
#include <QStringList>

class QAbstractItemView;
class QComboBox;
class QTableWidget;
class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;

namespace WidgetReaders {

// A list is read through its model, as the view shows it, whether its rows are items of
// its own or come from a model.

// The column heads of a list.
QStringList headerTexts(const QTreeView *list);

// The texts of one row, one per column of its list (of the row itself when it stands in
// no list).
QStringList itemTexts(const QTreeWidgetItem *item);

// Every row of a list, top to bottom and depth first, as its column texts joined by
// `separator`; a child is indented by two blanks for each level below the top.
QStringList treeRows(const QTreeView *list, QChar separator = u'|');

// Column `column` of the top-level rows, top to bottom.
QStringList columnTexts(const QTreeView *list, int column = 0);

// The texts of the top-level row `row`, one per column.
QStringList rowTexts(const QTreeView *list, int row);

// The picture before the first column of the top-level row `row`.
QIcon rowIcon(const QTreeView *list, int row);

// How many top-level rows a list has.
int rowCount(const QTreeView *list);

// The first top-level row whose first column is exactly `text`, or -1.
int rowOf(const QTreeView *list, const QString &text);

// The current top-level row, or -1 when there is none.
int currentRow(const QAbstractItemView *list);

// The selected top-level rows, top to bottom.
QList<int> selectedRows(const QAbstractItemView *list);

// The first top-level row whose first column is exactly `text`, or null.
QTreeWidgetItem *topLevelItem(const QTreeWidget *list, const QString &text);

// The cells of a table row by row, an empty text for a cell without an item.
QStringList tableTexts(const QTableWidget *table);

// The column heads of a table.
QStringList tableHeaderTexts(const QTableWidget *table);

// The entries of a combo box, first to last.
QStringList comboTexts(const QComboBox *box);

} // namespace WidgetReaders
