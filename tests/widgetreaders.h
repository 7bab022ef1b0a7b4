#pragma once

// What a list, a table or a combo box shows, read into plain lists of texts that a test
// compares in one QCOMPARE.
//
//     QCOMPARE(WidgetReaders::headerTexts(form.CostsListView),
//              (QStringList{"date", "tp", "base", "foreign", "fcurr"}));
//     QCOMPARE(WidgetReaders::treeRows(dlg.ListView), (QStringList{"..||dir", "a.wfn|12|file"}));

#include <QString>
#include <QStringList>

class QComboBox;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace WidgetReaders {

// The column heads of a list.
QStringList headerTexts(const QTreeWidget *list);

// The texts of one row, one per column of its list (of the row itself when it stands in
// no list).
QStringList itemTexts(const QTreeWidgetItem *item);

// Every row of a list, top to bottom and depth first, as its column texts joined by
// `separator`; a child is indented by two blanks for each level below the top.
QStringList treeRows(const QTreeWidget *list, QChar separator = u'|');

// Column `column` of the top-level rows, top to bottom.
QStringList columnTexts(const QTreeWidget *list, int column = 0);

// The first top-level row whose first column is exactly `text`, or null.
QTreeWidgetItem *topLevelItem(const QTreeWidget *list, const QString &text);

// The cells of a table row by row, an empty text for a cell without an item.
QStringList tableTexts(const QTableWidget *table);

// The column heads of a table.
QStringList tableHeaderTexts(const QTableWidget *table);

// The entries of a combo box, first to last.
QStringList comboTexts(const QComboBox *box);

} // namespace WidgetReaders
