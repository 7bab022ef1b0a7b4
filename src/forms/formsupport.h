#pragma once

#include <QObject>
#include <QString>
#include <QtGlobal>

// What every form class does alike.

// The forms' pixmaps live in a static library, and nothing would pull their registration
// in: every form calls its resource file's function before it builds its widgets. Each file
// is registered once per program.
#define WAYFERN_REGISTER_RESOURCE_ONCE(qrc)                                                        \
    do {                                                                                           \
        static const bool registered = [] {                                                        \
            Q_INIT_RESOURCE(qrc);                                                                  \
            return true;                                                                           \
        }();                                                                                       \
        Q_UNUSED(registered);                                                                      \
    } while (false)

// forms.qrc: the pictures of the common dialogs.
inline void initFormResources()
{
    WAYFERN_REGISTER_RESOURCE_ONCE(forms);
}

// shell.qrc: the pictures of the main form and the window's actions.
inline void initShellResources()
{
    WAYFERN_REGISTER_RESOURCE_ONCE(shell);
}

// The first steps of every dialog form's constructor: its pictures, its widgets, then its
// object name (when given) and whether it is modal.
template <class Form>
void setUpDialogForm(Form *form, const char *name, bool modal)
{
    initFormResources();
    form->setupUi(form);
    if (name)
        form->setObjectName(QString::fromUtf8(name));
    form->setModal(modal);
}

// For a form's destructor: the widgets outlive the form's part of the object, and nothing
// they emit may reach its slots now.
inline void disconnectChildren(QObject *form)
{
    for (QObject *child : form->findChildren<QObject *>())
        QObject::disconnect(child, nullptr, form, nullptr);
}
