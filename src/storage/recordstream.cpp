#include "storage/recordstream.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

bool RecordStream::open(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    setText(decode(file.readAll()));
    return true;
}

void RecordStream::setText(const QString &content)
{
    text = content;
    pos = 0;
    opened = true;
    indexed = false;
    headIds.clear();
    headStarts.clear();
    groupBegin.clear();
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
    const QStringView line = QStringView(text).mid(pos, end - pos);
    pos = next;
    return line;
}

void RecordStream::skipTo(const QString &pattern)
{
    // The index knows heads by the text up to their first "]". A pattern with a further
    // "]" inside (a traveller's short name may hold one) is searched line by line.
    const bool indexable = pattern.startsWith(u'[') && pattern.endsWith(u']')
        && pattern.indexOf(u']') == pattern.size() - 1;
    if (!indexable) {
        while (!atEnd()) {
            if (readLine().startsWith(pattern))
                return;
        }
        return;
    }
    if (!indexed)
        buildIndex();
    const auto id = headIds.constFind(QStringView(pattern));
    if (id == headIds.constEnd()) {
        pos = text.size();
        return;
    }
    const auto first = headStarts.begin() + groupBegin[size_t(*id)];
    const auto last = headStarts.begin() + groupBegin[size_t(*id) + 1];
    const auto hit = std::lower_bound(first, last, pos);
    if (hit == last) {
        pos = text.size();
        return;
    }
    pos = *hit;
    readLine();
}

void RecordStream::buildIndex()
{
    indexed = true;
    std::vector<std::pair<int, qsizetype>> heads; // key id, line start
    const qsizetype size = text.size();
    const QStringView all(text);
    qsizetype start = 0;
    while (start < size) {
        qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            end = size;
        if (text.at(start) == u'[') {
            const qsizetype close = all.mid(start, end - start).indexOf(u']');
            if (close >= 0) {
                const QStringView key = all.mid(start, close + 1);
                auto it = headIds.constFind(key);
                if (it == headIds.constEnd())
                    it = headIds.insert(key, int(headIds.size()));
                heads.emplace_back(*it, start);
            }
        }
        start = end + 1;
    }
    // Group the line starts by key, keeping each group in file order.
    groupBegin.assign(size_t(headIds.size()) + 1, 0);
    for (const auto &h : heads)
        ++groupBegin[size_t(h.first) + 1];
    for (size_t i = 1; i < groupBegin.size(); ++i)
        groupBegin[i] += groupBegin[i - 1];
    std::vector<int> fill(groupBegin.begin(), groupBegin.end() - 1);
    headStarts.resize(heads.size());
    for (const auto &h : heads)
        headStarts[size_t(fill[size_t(h.first)]++)] = h.second;
}

RecordSink::RecordSink(const QString &path) : path(path), file(path), out(&text) {}

bool RecordSink::open()
{
    if (path.isEmpty() || QFileInfo(path).isDir())
        return false;
    return file.open(QIODevice::WriteOnly);
}

QByteArray RecordSink::encode(const QString &text)
{
    const bool latin1 = std::all_of(text.begin(), text.end(),
                                    [](QChar c) { return c.unicode() < 0x100; });
    return latin1 ? text.toLatin1() : text.toUtf8();
}

bool RecordSink::commit()
{
    out.flush();
    const QByteArray bytes = encode(text);
    text.clear();
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        file.commit();
        return false;
    }
    return file.commit();
}
