#include "storage/recordstream.h"

#include "storage/recordbytes.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>

bool RecordStream::open(const QString &path)
{
    QFile file(path);
    return open(&file);
}

bool RecordStream::open(QIODevice *device)
{
    QByteArray content;
    if (!RecordBytes::readWhole(device, content, openError))
        return false;
    setText(decode(content));
    return true;
}

void RecordStream::setText(const QString &content)
{
    text = content;
    pos = 0;
    opened = true;
    heads.clear();
}

QString RecordStream::decode(const QByteArray &bytes)
{
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!ascii) {
        QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
        QString decoded = utf8.decode(bytes);
        if (!utf8.hasError())
            return decoded;
    }
    return QString::fromLatin1(bytes);
}

QStringView RecordStream::readLine()
{
    const qsizetype size = text.size();
    if (pos >= size)
        return {};
    qsizetype end = text.indexOf(u'\n', pos);
    qsizetype next;
    if (end < 0) {
        end = size;
        next = size;
    } else {
        next = end + 1;
    }
    // A CR in front of the LF, or at the very end of the text, is no part of the line.
    if (end > pos && text.at(end - 1) == u'\r')
        --end;
    const QStringView line = QStringView(text).sliced(pos, end - pos);
    pos = next;
    return line;
}

void RecordStream::skipTo(const QString &pattern)
{
    // Sections are mostly read in the order they stand: try the next few lines first.
    const qsizetype start = pos;
    for (int i = 0; i < 4 && !atEnd(); ++i) {
        if (readLine().startsWith(pattern))
            return;
    }
    pos = start;
    if (!pattern.startsWith(u'[')) {
        while (!atEnd()) {
            if (readLine().startsWith(pattern))
                return;
        }
        return;
    }

    const qsizetype hit = heads.find(text, 0, pos, pattern);
    if (hit < 0) {
        pos = text.size();
        return;
    }
    pos = hit;
    readLine();
}
