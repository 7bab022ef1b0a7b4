#include "storage/fixedtext.h"

#include <QLatin1StringView>

#include <charconv>
#include <cmath>

// to_chars writes the exact value rounded half to even, while Qt's formatting rounds a half
// away from zero and prints a negated zero without its sign: those go through Qt.
int fastFixedText(double value, int precision, char (&out)[64])
{
    // Zero of either sign prints as "0.00...".
    if (value == 0 && precision > 0 && precision < 60) {
        out[0] = '0';
        out[1] = '.';
        for (int i = 0; i < precision; ++i)
            out[2 + i] = '0';
        return precision + 2;
    }
    if (!(std::fabs(value) < 1e15) || value == 0)
        return -1;
    // A half in the last place: the value has exactly precision + 1 binary places.
    const double scaled = std::ldexp(value, precision);
    const double twice = std::ldexp(value, precision + 1);
    if (scaled != std::trunc(scaled) && twice == std::trunc(twice))
        return -1;
    const auto [end, error] =
        std::to_chars(out, out + sizeof out, value, std::chars_format::fixed, precision);
    if (error != std::errc())
        return -1;
    const int length = int(end - out);
    if (out[0] == '-') {
        bool zero = true;
        for (int i = 1; i < length; ++i)
            zero = zero && (out[i] == '0' || out[i] == '.');
        if (zero)
            return -1;
    }
    return length;
}

QString fixedText(double value, int precision)
{
    char out[64];
    const int length = fastFixedText(value, precision, out);
    if (length >= 0)
        return QString::fromLatin1(out, length);
    if (precision == 2)
        return QString::asprintf("%.2f", value);
    if (precision == 4)
        return QString::asprintf("%.4f", value);
    return QString::asprintf("%.*f", precision, value);
}

QString fileFixedText(double value, int precision)
{
    QString text = fixedText(value, precision);
    if (text.startsWith(u'-')) {
        bool zero = true;
        for (qsizetype i = 1; zero && i < text.size(); ++i)
            zero = text.at(i) == u'0' || text.at(i) == u'.';
        if (zero)
            text.remove(0, 1);
    }
    return text;
}

void setFixedText(QString &text, double value, int precision)
{
    char out[64];
    const int length = fastFixedText(value, precision, out);
    if (length < 0) {
        text = fixedText(value, precision);
        return;
    }
    // Compared here rather than through Qt: a refresh does this twice for every cost.
    bool same = text.size() == length;
    const QChar *now = text.constData();
    for (int i = 0; same && i < length; ++i)
        same = now[i].unicode() == uchar(out[i]);
    if (!same)
        text = QLatin1StringView(out, length);
}
