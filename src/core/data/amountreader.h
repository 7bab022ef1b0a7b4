#pragma once

#include <QString>
#include <QStringView>

// What a typed amount, rate or percentage reads as.
struct TypedAmount
{
    bool ok = false;    // false: the text is no number and is refused
    double value = 0.0; // the number; 0.0 when refused
    QString text;       // the number written with a point ("1234.50"); empty when refused
};

// The one reader of amounts that a person types. People write the decimal mark as a point
// or as a comma, whatever language the program speaks, so the reader does not ask the
// locale:
// - Blanks around the text are dropped; one leading "+" or "-" is allowed.
// - Otherwise only digits, "." and "," are allowed, and at least one digit. No exponent
//   ("1e3"), no blank inside ("1 234"), no currency sign.
// - When the text holds both marks, the last one is the decimal mark and the other groups
//   thousands: "1.234,50" and "1,234.50" are 1234.5. A mark that stands only once is the
//   decimal mark ("12,50" is 12.5, "1,234" is 1.234); a mark that stands more than once,
//   with no other mark, groups thousands ("1.234.567" is 1234567).
// - Thousands groups stand in front of the decimal mark only: a first group of one to three
//   digits, then groups of exactly three ("12.34,5" is refused).
// - Digits on one side of the decimal mark are enough (",5" is 0.5, "12." is 12).
// - A number too large for a double ("1" and 400 zeros) is refused.
// Files are not read with it: there a text that is no number still counts as 0.0.
class AmountReader
{
public:
    static TypedAmount read(QStringView typed);
    // What goes into a record's text field: the number written with a point, or the text
    // as it stands when it is no number.
    static QString stored(const QString &typed);
};
