#pragma once

// Small checks of a form as designed, shared by the tests of the account dialogs.

#include "modalhelper.h"

#include <QBoxLayout>
#include <QLayout>
#include <QLayoutItem>
#include <QMessageBox>
#include <QSpacerItem>
#include <QStringList>
#include <QWidget>

#include <memory>

namespace FormCheck {

// The direct child widgets of a form with an object name, in creation order, each as
// "Name:Class". Dialogs that the logic class builds as children are left out.
inline QStringList childWidgets(const QWidget *form)
{
    QStringList list;
    for (QWidget *w : form->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (w->objectName().isEmpty() || w->isWindow())
            continue;
        list << w->objectName() + ":" + QString::fromLatin1(w->metaObject()->className());
    }
    return list;
}

// One box layout as text: "margins/spacing" followed by its items, a widget by its object
// name, a spacer as "spacer(W,H,policy)" and a nested layout as "[...]".
inline QString describe(const QLayout *layout)
{
    if (!layout)
        return QStringLiteral("(none)");
    const QMargins m = layout->contentsMargins();
    QString text = QStringLiteral("%1,%2,%3,%4/%5")
                       .arg(m.left())
                       .arg(m.top())
                       .arg(m.right())
                       .arg(m.bottom())
                       .arg(layout->spacing());
    if (qobject_cast<const QHBoxLayout *>(layout))
        text.prepend(QStringLiteral("H "));
    else if (qobject_cast<const QVBoxLayout *>(layout))
        text.prepend(QStringLiteral("V "));
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        text += QLatin1Char(' ');
        if (QWidget *w = item->widget()) {
            text += w->objectName();
        } else if (QSpacerItem *s = item->spacerItem()) {
            text += QStringLiteral("spacer(%1,%2,%3)")
                        .arg(s->sizeHint().width())
                        .arg(s->sizeHint().height())
                        .arg(s->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding
                                 ? QStringLiteral("Expanding")
                                 : QStringLiteral("other"));
        } else if (QLayout *l = item->layout()) {
            text += QLatin1Char('[') + describe(l) + QLatin1Char(']');
        }
    }
    return text;
}

// What a question box offered, besides the ticket's title and text.
struct BoxRecord
{
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

// Answers the next message box with `button` and records which buttons it had.
inline ModalTicket answerAndRecord(QMessageBox::StandardButton button,
                                   std::shared_ptr<BoxRecord> record)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
        [button, record](QWidget *w, ModalOutcome &out) {
            auto *box = static_cast<QMessageBox *>(w);
            record->buttons = box->standardButtons();
            record->icon = box->icon();
            if (QAbstractButton *b = box->button(button))
                b->click();
            else {
                out.error = QStringLiteral("the message box has no such button");
                box->reject();
            }
        });
}

} // namespace FormCheck
