#pragma once

#include <QString>

// A number as Qt's QString::asprintf("%.<precision>f") gives it, much faster for the common
// values: amounts and shares are formatted hundreds of thousands of times in a large journey.
QString fixedText(double value, int precision);

// The same written into `out` when that is the fast way; -1 when the value needs Qt's
// formatting (a half in the last place, a negated zero, very large and special values).
int fastFixedText(double value, int precision, char (&out)[64]);

// The text of C's printf "%.<precision>f", which rounds the exact value half to even and
// keeps the sign of a negated zero, written into `out`; -1 when it does not fit. A journey's
// trace prints two for every account line.
int printfFixedText(double value, int precision, char (&out)[64]);

// Makes `text` the fixedText of `value`, replacing it only when it reads differently: a
// recomputation that changes nothing allocates nothing.
void setFixedText(QString &text, double value, int precision);

// A number as the files write it: fixedText(), except that a negative number that rounds to
// zero is written without its sign, as the negated zero is. Read back, "-0.0000" is the
// negated zero, which writes "0.0000": a file written, read and written again would change.
QString fileFixedText(double value, int precision);
