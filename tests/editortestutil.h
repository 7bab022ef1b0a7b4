#pragma once

// A small journey built in code for the editor tests, and the finger-like steps that the
// tests take on an item-and-content editor.

#include "modalhelper.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QHeaderView>
#include <QStringList>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItem>

// EUR (base, fix, 1.0), CHF (floating, 1.50), USD (floating, 0.90); cost types Food, Hotel,
// Transport; with users: AB, CD, EF.
inline void fillJourney(WayFernData &doc, bool users = true)
{
    doc.journeyname = QStringLiteral("Lakes");
    doc.basecurrency = QStringLiteral("EUR");
    doc.distancetype = QStringLiteral("km");
    doc.userflag = users;
    const char *const currencies[][3] = {
        {"EUR", "1.0", "fix"}, {"CHF", "1.50", "floating"}, {"USD", "0.90", "floating"}};
    for (const auto &c : currencies) {
        CurrData *curr = doc.currencies.append();
        curr->short_ = QString::fromLatin1(c[0]);
        curr->factor = QString::fromLatin1(c[1]);
        curr->fullname = curr->short_;
        curr->type = QString::fromLatin1(c[2]);
    }
    for (const char *type : {"Food", "Hotel", "Transport"})
        doc.ctypes.append()->type = QString::fromLatin1(type);
    if (users)
        for (const char *s : {"AB", "CD", "EF"})
            doc.users.append()->short_ = QString::fromLatin1(s);
    doc.recalcFactors();
}

inline QString contentOf(QTreeWidget *list, const QString &label)
{
    QTreeWidgetItem *row = WidgetReaders::topLevelItem(list, label);
    return row ? row->text(1) : QStringLiteral("<no row>");
}

// Chooses `text` in an enabled combo box with the arrow keys, as the keyboard does; each
// step is an activation of its own, as on the device.
inline bool chooseInCombo(QComboBox *combo, const QString &text)
{
    const int target = combo->findText(text);
    if (target < 0 || !combo->isEnabled())
        return false;
    while (combo->currentIndex() < target)
        QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > target)
        QTest::keyClick(combo, Qt::Key_Up);
    return combo->currentText() == text;
}

// The list settings that every item-and-content form has.
inline void checkItemContentList(const QTreeWidget *list)
{
    QVERIFY(list->allColumnsShowFocus());
    QVERIFY(list->rootIsDecorated());
    QVERIFY(list->header()->isSortIndicatorShown());
}

// The layout outline of an item-and-content form; `besideCombo` names the buttons that
// stand right of the combo box.
inline QStringList itemContentOutline(const QStringList &besideCombo = {})
{
    QStringList lines{"QVBoxLayout margins 11 spacing 6", "  QVBoxLayout margins 0 spacing 6",
                      "    QHBoxLayout margins 0 spacing 6", "      ComboBox"};
    for (const QString &button : besideCombo)
        lines << QStringLiteral("      ") + button;
    return lines
        + QStringList{"      spacer 20x20 Expanding",
                      "      OkButton",
                      "      CancelButton",
                      "    QHBoxLayout margins 0 spacing 6",
                      "      ClearButton",
                      "      LineEdit",
                      "      ToolButton",
                      "    ListView"};
}
