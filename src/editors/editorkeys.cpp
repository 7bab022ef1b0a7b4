#include "editors/editorkeys.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItem>

void addOkCancelKeys(QDialog *dialog, const std::function<void()> &ok,
                     const std::function<void()> &cancel)
{
    // QDialog's own Escape would reject without asking.
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), dialog);
    QObject::connect(escape, &QShortcut::activated, dialog, cancel);
    for (const QKeySequence &keys :
         {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter),
          QKeySequence(QKeyCombination(Qt::ControlModifier | Qt::KeypadModifier, Qt::Key_Enter))}) {
        auto *confirm = new QShortcut(keys, dialog);
        QObject::connect(confirm, &QShortcut::activated, dialog, ok);
    }
}

void takeTabFocus(std::initializer_list<QToolButton *> buttons)
{
    for (QToolButton *button : buttons)
        if (button)
            button->setFocusPolicy(Qt::TabFocus);
}

void chainTabOrder(std::initializer_list<QWidget *> widgets)
{
    QWidget *before = nullptr;
    for (QWidget *widget : widgets) {
        if (!widget)
            continue;
        if (before)
            QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

void addDeleteKey(QAbstractItemView *list, QToolButton *deleteButton)
{
    auto *key = new QShortcut(QKeySequence(Qt::Key_Delete), list);
    key->setContext(Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, deleteButton, [deleteButton] {
        if (deleteButton->isEnabled())
            deleteButton->click();
    });
}

RowKeys::RowKeys(QTreeWidget *list, QLineEdit *line, QObject *parent)
    : QObject(parent), list(list), line(line)
{
    line->installEventFilter(this);
    list->installEventFilter(this);
    followLine();
}

bool RowKeys::selectNextRow()
{
    QTreeWidgetItem *from = list->currentItem();
    QTreeWidgetItem *next = from ? list->itemBelow(from) : list->topLevelItem(0);
    // A group row can't be edited: step into it.
    while (next && next->childCount() > 0) {
        next->setExpanded(true);
        next = list->itemBelow(next);
    }
    if (!next)
        return false;
    list->scrollToItem(next);
    list->setCurrentItem(next);
    return true;
}

bool RowKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == list) {
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
            followLine();
        return QObject::eventFilter(watched, event);
    }
    if (watched != line)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress: {
        auto *key = static_cast<QKeyEvent *>(event);
        const bool plain = (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
        switch (key->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (plain) {
                QKeyEvent copy(key->type(), key->key(), key->modifiers(), key->text(),
                               key->isAutoRepeat(), key->count());
                QCoreApplication::sendEvent(list, &copy);
                return true;
            }
            break;
        default:
            break;
        }
        break;
    }
    case QEvent::FocusOut:
        // Switching a focused widget off moves the focus on before the change is announced.
        if (!line->isEnabled())
            lineWentOff = true;
        break;
    case QEvent::EnabledChange:
        followLine();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void RowKeys::followLine()
{
    // A hidden dialog keeps the line as the list's proxy: nobody can reach it then.
    if (line->isEnabled() || !list->isVisible()) {
        const bool listHadFocus = QApplication::focusWidget() == list;
        list->setFocusProxy(line);
        if (listHadFocus)
            line->setFocus(Qt::OtherFocusReason);
    } else {
        list->setFocusProxy(nullptr);
        if (lineWentOff)
            list->setFocus(Qt::OtherFocusReason);
    }
    lineWentOff = false;
}
