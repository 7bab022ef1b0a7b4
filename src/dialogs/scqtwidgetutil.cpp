#include "dialogs/scqtwidgetutil.h"

#include "data/wayferndata.h"

#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QStringList>
#include <QTreeWidget>
#include <QTreeWidgetItem>
#include <QWidget>

void ScQtWidgetUtil::setAllWidgetsFont(const QString &family, int size)
{
    const QFont font(family, size, QFont::Normal, false);
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        widget->setFont(font);
        widget->update();
    }
}

void ScQtWidgetUtil::selectComboItem(QComboBox *combo, const QString &text)
{
    if (!combo || text.isEmpty())
        return;
    for (int i = 0; i < combo->count(); ++i) {
        combo->setCurrentIndex(i);
        if (combo->currentText() == text)
            return;
    }
}

// A missing row reads as "not found", which an editor may store like any value: it stays the
// same in every language.
QString ScQtWidgetUtil::getContent(QTreeWidget *view, const QString &key, int column)
{
    if (const QTreeWidgetItem *item = findItem(view, key, 0))
        return item->text(column);
    return QStringLiteral("not found");
}

QString ScQtWidgetUtil::getChildContent(QTreeWidget *view, const QString &parentKey,
                                        const QString &childKey, int column)
{
    if (const QTreeWidgetItem *item = findTreeItem(view, parentKey, childKey, 0))
        return item->text(column);
    return QStringLiteral("not found");
}

QTreeWidgetItem *ScQtWidgetUtil::findItem(QTreeWidget *view, const QString &text, int column)
{
    if (!view)
        return nullptr;
    for (int i = 0; i < view->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = view->topLevelItem(i);
        if (item->text(column) == text)
            return item;
    }
    return nullptr;
}

QTreeWidgetItem *ScQtWidgetUtil::findTreeItem(QTreeWidget *view, const QString &parentKey,
                                              const QString &childKey, int column)
{
    const QTreeWidgetItem *parent = findItem(view, parentKey, 0);
    if (!parent)
        return nullptr;
    for (int i = 0; i < parent->childCount(); ++i) {
        QTreeWidgetItem *child = parent->child(i);
        if (child->text(column) == childKey)
            return child;
    }
    return nullptr;
}

static void fillBox(QComboBox *box, const QStringList &names)
{
    if (!box)
        return;
    box->clear();
    for (const QString &name : names)
        box->insertItem(box->count(), name);
}

void ScQtWidgetUtil::fillCostTypes(WayFernData *document, QComboBox *box)
{
    fillBox(box, document ? document->costTypeNames() : QStringList());
}

void ScQtWidgetUtil::fillCurrencies(WayFernData *document, QComboBox *box)
{
    fillBox(box, document ? document->currencyNames() : QStringList());
}

void ScQtWidgetUtil::fillTipTypes(WayFernData *document, QComboBox *box)
{
    fillBox(box, document ? document->tipTypeNames() : QStringList());
}

void ScQtWidgetUtil::fillQualityTypes(WayFernData *document, QComboBox *box)
{
    fillBox(box, document ? document->qualityTypeNames() : QStringList());
}
