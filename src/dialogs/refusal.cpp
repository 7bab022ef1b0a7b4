#include "dialogs/refusal.h"

#include "data/datetext.h"

#include <QMessageBox>

TypedAmount Refusal::amount(QWidget *parent, const QString &field, const QString &text)
{
    const TypedAmount read = AmountReader::read(text);
    if (!read.ok)
        showNoNumber(parent, field, text);
    return read;
}

bool Refusal::date(QWidget *parent, const QString &field, const QString &text)
{
    if (DateText::isDate(text))
        return true;
    showNoDate(parent, field, text);
    return false;
}

void Refusal::showNoNumber(QWidget *parent, const QString &field, const QString &text)
{
    QMessageBox::warning(
        parent, tr("Input refused"),
        tr("%1: \"%2\" is no number.\nNothing was stored; please correct the entry.")
            .arg(field, text));
}

void Refusal::showNoDate(QWidget *parent, const QString &field, const QString &text)
{
    QMessageBox::warning(
        parent, tr("Input refused"),
        tr("%1: \"%2\" is no date.\nNothing was stored; please pick a date.").arg(field, text));
}
