#include "storage/recordbytes.h"

#include <QIODevice>
#include <QStringDecoder>

#include <algorithm>
#include <cstring>

namespace {
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
} // namespace

bool RecordBytes::readWhole(QIODevice *device, QByteArray &content, QString &error)
{
    if ((!device->isOpen() && !device->open(QIODevice::ReadOnly)) || !device->isReadable()) {
        error = device->errorString();
        return false;
    }
    error.clear();
    content = device->readAll();
    return true;
}

bool RecordBytes::open(QIODevice *device)
{
    QByteArray content;
    if (!readWhole(device, content, openError))
        return false;
    setBytes(content);
    return true;
}

void RecordBytes::setBytes(const QByteArray &content)
{
    bytes = content;
    utf8 = validUtf8(bytes);
    begin = utf8 && bytes.startsWith(byteOrderMark) ? 3 : 0;
    pos = begin;
    opened = true;
    heads.clear();
}

void RecordBytes::release()
{
    setBytes(QByteArray());
    heads.release();
}

bool RecordBytes::isAscii(QByteArrayView value)
{
    return QtPrivate::isAscii(QLatin1StringView(value.data(), value.size()));
}

bool RecordBytes::validUtf8(QByteArrayView content)
{
    // Only bytes from the line of the first non-ASCII byte on need the decoder. It checks them
    // in pieces that end behind a LF: a sequence never spans an ASCII byte, so the pieces are
    // valid exactly when the whole is.
    const qsizetype piece = 1 << 20;
    qsizetype block = 0;
    while (block < content.size()
           && isAscii(content.sliced(block, std::min(piece, content.size() - block))))
        block += piece;
    if (block >= content.size())
        return false;
    qsizetype start = content.first(block).lastIndexOf('\n') + 1;
    while (start < content.size()) {
        qsizetype end = content.size();
        if (end - start > piece) {
            const qsizetype lf = content.indexOf('\n', start + piece);
            if (lf >= 0)
                end = lf + 1;
        }
        QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
        const QString decoded = decoder.decode(content.sliced(start, end - start));
        if (decoder.hasError())
            return false;
        start = end;
    }
    return true;
}

QString RecordBytes::toText(QByteArrayView value) const
{
    if (!utf8 || isAscii(value))
        return QString::fromLatin1(value);
    // The decoder drops a byte order mark at the beginning of what it is given; inside a file
    // it is a character like any other.
    if (value.startsWith(byteOrderMark))
        return QChar(0xFEFF) + toText(value.sliced(3));
    return QString::fromUtf8(value);
}

QByteArray RecordBytes::toUtf8(QByteArrayView value) const
{
    return utf8 ? value.toByteArray() : QString::fromLatin1(value).toUtf8();
}

bool RecordBytes::encode(QStringView text, QByteArray &out) const
{
    if (utf8) {
        // The file holds no lone surrogate, so a text with one begins no line.
        if (!text.isValidUtf16())
            return false;
        out += text.toUtf8();
        return true;
    }
    for (QChar c : text) {
        if (c.unicode() > 0xff)
            return false;
        out += char(c.unicode());
    }
    return true;
}

QByteArrayView RecordBytes::readLine()
{
    const qsizetype size = bytes.size();
    if (pos >= size)
        return {};
    const char *data = bytes.constData();
    const void *lf = std::memchr(data + pos, '\n', size_t(size - pos));
    qsizetype end = lf ? static_cast<const char *>(lf) - data : size;
    const qsizetype next = lf ? end + 1 : size;
    // A CR in front of the LF, or at the very end of the text, is no part of the line.
    if (end > pos && data[end - 1] == '\r')
        --end;
    const QByteArrayView line(data + pos, end - pos);
    pos = next;
    return line;
}

void RecordBytes::skipTo(QByteArrayView pattern)
{
    // Sections are mostly read in the order they stand: try the next few lines first.
    const qsizetype start = pos;
    for (int i = 0; i < 4 && !atEnd(); ++i) {
        if (readLine().startsWith(pattern))
            return;
    }
    pos = start;
    if (!pattern.startsWith('[')) {
        while (!atEnd()) {
            if (readLine().startsWith(pattern))
                return;
        }
        return;
    }

    const qsizetype hit = heads.find(bytes, begin, pos, pattern);
    if (hit < 0) {
        pos = bytes.size();
        return;
    }
    pos = hit;
    readLine();
}
