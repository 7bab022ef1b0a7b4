#pragma once

#include "data/amountreader.h"

#include <QCoreApplication>
#include <QString>

class QWidget;

// The one answer to a typed entry that can't be stored: a warning box that names the field
// and the text. The caller keeps its dialog open with what was typed and stores nothing.
class Refusal
{
    Q_DECLARE_TR_FUNCTIONS(Refusal)

public:
    // Reads `text` as an amount, a rate or a percentage (AmountReader). When it is no number
    // the box says so and the answer is not ok.
    static TypedAmount amount(QWidget *parent, const QString &field, const QString &text);
    // True for a real day "dd.mm.yyyy"; otherwise the box says so and the answer is false.
    static bool date(QWidget *parent, const QString &field, const QString &text);

    static void showNoNumber(QWidget *parent, const QString &field, const QString &text);
    static void showNoDate(QWidget *parent, const QString &field, const QString &text);
};
