#include "rates/synclistedit.h"

syncListEdit::syncListEdit(QWidget *parent, const char *name, bool modal, WayFernData *doc)
    : QDialog(parent), document(doc)
{
    if (name)
        setObjectName(QString::fromLatin1(name));
    setModal(modal);
}

int syncListEdit::fillList()
{
    return ++fillCount;
}
