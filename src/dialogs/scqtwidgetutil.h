#pragma once

#include "storage/scqtutil.h"

#include <QString>

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;
class WayFernData;

// The record tools of ScQtUtil plus the widget tools that the editors need: one `util`
// member serves for both.
class ScQtWidgetUtil : public ScQtUtil
{
public:
    // Gives every widget of the application the font `family` at `size` points.
    static void setAllWidgetsFont(const QString &family, int size);
    // Makes the entry with `text` current. When no entry holds it, the walk leaves the last
    // entry current. A null or empty text does nothing.
    static void selectComboItem(QComboBox *combo, const QString &text);
    // Column `column` of the first top-level row whose column 0 is `key`, or the
    // translated "not found".
    static QString getContent(QTreeWidget *view, const QString &key, int column);
    // The same for the child `childKey` of the top-level row `parentKey`.
    static QString getChildContent(QTreeWidget *view, const QString &parentKey,
                                   const QString &childKey, int column);
    // The first top-level row whose text in `column` is `text`, or null.
    static QTreeWidgetItem *findItem(QTreeWidget *view, const QString &text, int column);
    // The first child of the top-level row `parentKey` whose text in `column` is `childKey`.
    static QTreeWidgetItem *findTreeItem(QTreeWidget *view, const QString &parentKey,
                                         const QString &childKey, int column);

    // Each clears the box and appends the document's names, first record to last.
    static void fillCostTypes(WayFernData *document, QComboBox *box);
    static void fillCurrencies(WayFernData *document, QComboBox *box);
    static void fillTipTypes(WayFernData *document, QComboBox *box);
    static void fillQualityTypes(WayFernData *document, QComboBox *box);
};
