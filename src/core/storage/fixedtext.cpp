#include "storage/fixedtext.h"

#include <QLatin1StringView>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// How the magnitude of a finite value, times 10^precision, compares with the whole numbers
// around it: `whole` is the number below it and `beyond` whether the exact product lies
// above, at or below the half between it and the next. Worked out on the binary value's
// integers, so no rounding of the product can tip a value that lies near a half.
struct Scaled
{
    uint64_t whole;
    int beyond; // -1 below the half, 0 on it, 1 above it
};

constexpr int fastPrecisions = 5; // 0 to 4 places, the journey's 2 and 4 among them
constexpr uint64_t powersOfTen[fastPrecisions] = {1, 10, 100, 1000, 10000};

// False when the value is not finite or 10^15 or more in magnitude.
bool scaled(double value, int precision, Scaled &out)
{
    if (!(std::fabs(value) < 1e15))
        return false;
    uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const int biased = int((bits >> 52) & 0x7ff);
    const uint64_t fraction = bits & ((uint64_t(1) << 52) - 1);
    // value = mantissa * 2^exponent
    const uint64_t mantissa = biased ? fraction | (uint64_t(1) << 52) : fraction;
    const int exponent = (biased ? biased : 1) - 1075;
    // Below 10^15 * 10^4 < 2^64: the product and every whole part fit.
    const unsigned __int128 product = static_cast<unsigned __int128>(mantissa) * powersOfTen[precision];
    if (exponent >= 0) {
        out = {uint64_t(product << exponent), -1};
        return true;
    }
    const int shift = -exponent;
    if (shift >= 100) { // the product is below 2^67: far below one half
        out = {0, -1};
        return true;
    }
    const unsigned __int128 unit = static_cast<unsigned __int128>(1) << shift;
    const unsigned __int128 rest = product & (unit - 1);
    const unsigned __int128 half = unit >> 1;
    out = {uint64_t(product >> shift), rest > half ? 1 : rest == half ? 0 : -1};
    return true;
}

// The digits of `whole` / 10^precision with `precision` places, behind `sign`.
int writeScaled(uint64_t whole, bool negative, int precision, char (&out)[64])
{
    char *p = out;
    if (negative)
        *p++ = '-';
    const uint64_t power = powersOfTen[precision];
    p = std::to_chars(p, out + sizeof out, whole / power).ptr;
    if (precision > 0) {
        *p++ = '.';
        uint64_t places = whole % power;
        for (int i = precision; i > 0; --i) {
            p[i - 1] = char('0' + places % 10);
            places /= 10;
        }
        p += precision;
    }
    return int(p - out);
}

} // namespace

// Qt's formatting rounds a half away from zero and prints a negated zero without its sign;
// to_chars, like C's printf, rounds the exact value half to even. Halves and negative values
// that round to zero go through Qt.
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
    if (precision >= 0 && precision < fastPrecisions) {
        Scaled s;
        scaled(value, precision, s);
        if (s.beyond == 0)
            return -1;
        const uint64_t whole = s.whole + (s.beyond > 0 ? 1 : 0);
        if (whole == 0 && value < 0)
            return -1;
        return writeScaled(whole, value < 0, precision, out);
    }
    // A half in the last place: the value has exactly precision + 1 binary places.
    const double scaledValue = std::ldexp(value, precision);
    const double twice = std::ldexp(value, precision + 1);
    if (scaledValue != std::trunc(scaledValue) && twice == std::trunc(twice))
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

int printfFixedText(double value, int precision, char (&out)[64])
{
    Scaled s;
    if (precision >= 0 && precision < fastPrecisions && scaled(value, precision, s)) {
        const uint64_t whole = s.whole + (s.beyond > 0 || (s.beyond == 0 && s.whole % 2) ? 1 : 0);
        return writeScaled(whole, std::signbit(value), precision, out);
    }
    const auto [end, error] =
        std::to_chars(out, out + sizeof out, value, std::chars_format::fixed, precision);
    return error == std::errc() ? int(end - out) : -1;
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
