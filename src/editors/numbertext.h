#pragma once

#include <QString>

#include <cmath>

// A number as printf's format makes it, without the locale's decimal point: a negated zero
// keeps its sign, so a share of nothing shows as -0.00.
inline QString numberText(const char *format, double value)
{
    QString text = QString::asprintf(format, value);
    if (std::signbit(value) && !text.startsWith(QLatin1Char('-')))
        text.prepend(QLatin1Char('-'));
    return text;
}
