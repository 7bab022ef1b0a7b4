#pragma once

#include <QObject>
#include <QtGlobal>

// What every form class does alike.

// The forms' pixmaps live in a static library, and nothing would pull their registration
// in: every form calls this before it builds its widgets.
inline void initFormResources()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(forms);
        return true;
    }();
    Q_UNUSED(done);
}

// For a form's destructor: the widgets outlive the form's part of the object, and nothing
// they emit may reach its slots now.
inline void disconnectChildren(QObject *form)
{
    for (QObject *child : form->findChildren<QObject *>())
        QObject::disconnect(child, nullptr, form, nullptr);
}
