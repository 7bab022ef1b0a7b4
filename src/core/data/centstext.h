#pragma once

#include <QLatin1StringView>
#include <QString>

#include <charconv>
#include <cmath>

// What QString::asprintf("%.2f", value) makes of `value`, the texts of the cost lists and
// sums, made faster where the two agree. std::to_chars rounds the exact binary value to
// cents, as QString::asprintf does, except on exact ties (a value that is an odd number of
// eighths: 17.125) and around zero (the sign of a zero); those, and what is not finite or
// very large, go through QString::asprintf itself. The text is replaced only when it reads
// differently, so a recomputation that changes nothing allocates nothing.
inline void setCentsText(QString &text, double value)
{
    const double eighths = value * 8.0;
    const bool tie = eighths == std::floor(eighths) && std::fmod(eighths, 2.0) != 0.0;
    const double size = std::fabs(value);
    char digits[32];
    std::to_chars_result written{digits, std::errc::value_too_large};
    if (!tie && size >= 0.005 && size < 1e15)
        written = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2);
    if (written.ec != std::errc()) {
        text = QString::asprintf("%.2f", value);
        return;
    }
    const QLatin1StringView shown(digits, written.ptr);
    if (text != shown)
        text = shown;
}
