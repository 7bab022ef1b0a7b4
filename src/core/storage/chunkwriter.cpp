#include "storage/chunkwriter.h"

#include "storage/fixedtext.h"

#include <QIODevice>
#include <QStringDecoder>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {
constexpr qsizetype piece = 64 * 1024;
constexpr qsizetype surveyPiece = 1024 * 1024;

} // namespace

ChunkWriter::ChunkWriter(QIODevice *device, Mode mode, qsizetype skip)
    : device(device), mode(mode), skip(skip)
{
    buffer.reserve(piece + 1024);
}

ChunkWriter &ChunkWriter::operator<<(QStringView text)
{
    if (skip > 0) {
        const qsizetype skipped = std::min(skip, text.size());
        skip -= skipped;
        text = text.sliced(skipped);
    }
    switch (mode) {
    case Mode::Ascii: {
        qsizetype ascii = text.size();
        if (!QtPrivate::isAscii(text)) {
            ascii = 0;
            while (text[ascii].unicode() < 0x80)
                ++ascii;
        }
        appendLatin1(text.first(ascii));
        written += ascii;
        if (ascii < text.size()) {
            // The encoding of the rest is open: what is written stays as it is in either.
            flush(true);
            mode = Mode::Survey;
            survey(text.sliced(ascii));
            return *this;
        }
        break;
    }
    case Mode::Survey:
        survey(text);
        return *this;
    case Mode::Latin1:
        appendLatin1(text);
        break;
    case Mode::Utf8:
        // A surrogate pair split between two pieces is encoded whole.
        if (!text.isEmpty() && highSurrogate) {
            const char16_t pair[2] = {highSurrogate, text.front().unicode()};
            buffer += QStringView(pair, 2).toUtf8();
            text = text.sliced(1);
            highSurrogate = 0;
        }
        if (!text.isEmpty() && text.back().isHighSurrogate()) {
            highSurrogate = text.back().unicode();
            text.chop(1);
        }
        buffer += text.toUtf8();
        break;
    }
    flush(false);
    return *this;
}

void ChunkWriter::appendLatin1(QStringView text)
{
    // Through the library's encoder: a loop of our own costs a callback per character in the
    // instrumented fuzz builds.
    const qsizetype old = buffer.size();
    buffer.resize(old + text.size());
    latin1.appendToBuffer(buffer.data() + old, text);
}

ChunkWriter &ChunkWriter::operator<<(QLatin1StringView ascii)
{
    if (skip > 0 || mode == Mode::Survey || highSurrogate)
        return *this << QString(ascii);
    buffer.append(ascii.data(), ascii.size());
    if (mode == Mode::Ascii)
        written += ascii.size();
    flush(false);
    return *this;
}

ChunkWriter &ChunkWriter::operator<<(int number)
{
    char digits[16];
    const char *end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return *this << QLatin1StringView(digits, end);
}

ChunkWriter &ChunkWriter::operator<<(qsizetype number)
{
    char digits[24];
    const char *end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return *this << QLatin1StringView(digits, end);
}

void ChunkWriter::fixed(double value, int precision)
{
    char digits[64];
    const int length = fastFixedText(value, precision, digits);
    if (length >= 0)
        *this << QLatin1StringView(digits, length);
    else
        *this << fileFixedText(value, precision);
}

void ChunkWriter::record(QStringView key, QStringView value)
{
    // Most lines of a journey are ASCII and go into the buffer with one resize.
    if (skip > 0 || highSurrogate || mode == Mode::Survey || mode == Mode::Utf8
        || !QtPrivate::isAscii(key) || !QtPrivate::isAscii(value)) {
        *this << key << '=' << value << QLatin1StringView(";\n");
        return;
    }
    const qsizetype old = buffer.size();
    buffer.resize(old + key.size() + value.size() + 3);
    char *out = latin1.appendToBuffer(buffer.data() + old, key);
    *out++ = '=';
    out = latin1.appendToBuffer(out, value);
    *out++ = ';';
    *out = '\n';
    if (mode == Mode::Ascii)
        written += key.size() + value.size() + 3;
    flush(false);
}

void ChunkWriter::record(QStringView key, QLatin1StringView asciiValue)
{
    if (skip > 0 || highSurrogate || mode == Mode::Survey || mode == Mode::Utf8
        || !QtPrivate::isAscii(key)) {
        *this << key << '=' << asciiValue << QLatin1StringView(";\n");
        return;
    }
    const qsizetype old = buffer.size();
    buffer.resize(old + key.size() + asciiValue.size() + 3);
    char *out = latin1.appendToBuffer(buffer.data() + old, key);
    *out++ = '=';
    std::memcpy(out, asciiValue.data(), size_t(asciiValue.size()));
    out += asciiValue.size();
    *out++ = ';';
    *out = '\n';
    if (mode == Mode::Ascii)
        written += key.size() + asciiValue.size() + 3;
    flush(false);
}

void ChunkWriter::survey(QStringView text)
{
    if (wide)
        return;
    for (QChar c : text) {
        if (c.unicode() > 0xff) {
            wide = true;
            surveyed.clear();
            return;
        }
        surveyed += char(c.unicode());
    }
    if (surveyed.size() >= surveyPiece)
        checkSurveyed(false);
}

void ChunkWriter::checkSurveyed(bool last)
{
    // Up to the last ASCII byte: no UTF-8 sequence spans one, so the pieces are valid exactly
    // when the whole is.
    qsizetype end = surveyed.size();
    if (!last) {
        while (end > 0 && static_cast<unsigned char>(surveyed.at(end - 1)) >= 0x80)
            --end;
        if (end == 0)
            return;
    }
    if (!invalidUtf8) {
        QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
        const QString decoded = decoder.decode(QByteArrayView(surveyed).first(end));
        invalidUtf8 = decoder.hasError();
    }
    surveyed.remove(0, end);
}

ChunkWriter::Mode ChunkWriter::chosen() const
{
    // Latin-1 bytes that would read as UTF-8 would read back as other letters.
    return wide || !invalidUtf8 ? Mode::Utf8 : Mode::Latin1;
}

void ChunkWriter::flush(bool all)
{
    if (buffer.size() < (all ? 1 : piece))
        return;
    if (ok && device->write(buffer) != buffer.size())
        ok = false;
    buffer.resize(0);
}

bool ChunkWriter::finish()
{
    if (mode == Mode::Survey && !wide)
        checkSurveyed(true);
    if (highSurrogate) {
        buffer += QStringView(&highSurrogate, 1).toUtf8();
        highSurrogate = 0;
    }
    flush(true);
    return ok;
}
