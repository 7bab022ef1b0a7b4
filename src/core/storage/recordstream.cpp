#include "storage/recordstream.h"

#include "storage/headwalk.h"

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
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        openError = device->errorString();
        return false;
    }
    if (!device->isReadable()) {
        openError = device->errorString();
        return false;
    }
    openError.clear();
    setText(decode(device->readAll()));
    return true;
}

void RecordStream::setText(const QString &content)
{
    text = content;
    pos = 0;
    opened = true;
    headsFound = false;
    heads.clear();
    headsWalked = 0;
    hashed = false;
    headIds.clear();
    sameHeads.clear();
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

    if (!headsFound)
        findHeads();
    // The key of the hash is the text up to the first "]". A pattern with a further "]"
    // inside (a traveller's short name may hold one) shares its key with other heads: those
    // of its key are compared with it one by one.
    const qsizetype close = pattern.indexOf(u']');
    if (close >= 0 && !hashed && headsWalked > 4 * qsizetype(heads.size()) + 4096)
        buildHash();
    const QStringView all(text);
    // A head matches as its line would for readLine: the CR that ends a line is no part of
    // it, so a pattern ending in CR does not match there.
    const bool endsInCr = pattern.endsWith(u'\r');
    const auto lineBegins = [&](qsizetype h) {
        if (!all.sliced(h).startsWith(pattern))
            return false;
        const qsizetype after = h + pattern.size();
        return !endsInCr || (after < text.size() && text.at(after) != u'\n');
    };
    qsizetype hit = -1;
    if (close >= 0 && hashed) {
        const auto id = headIds.constFind(HeadKey{QStringView(pattern).left(close + 1)});
        if (id != headIds.constEnd()) {
            // A pattern that is the whole head text matches every line of its group.
            const bool wholeKey = close == pattern.size() - 1;
            hit = firstHeadFrom(sameHeads.begin() + groupBegin[size_t(*id)],
                                sameHeads.begin() + groupBegin[size_t(*id) + 1], pos, wholeKey,
                                lineBegins, headsWalked);
        }
    } else {
        hit = firstHeadFrom(heads.begin(), heads.end(), pos, false, lineBegins, headsWalked);
    }
    if (hit < 0) {
        pos = text.size();
        return;
    }
    pos = hit;
    readLine();
}

void RecordStream::findHeads()
{
    headsFound = true;
    const qsizetype size = text.size();
    qsizetype start = 0;
    while (start < size) {
        if (text.at(start) == u'[')
            heads.push_back(start);
        const qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            break;
        start = end + 1;
    }
}

void RecordStream::buildHash()
{
    hashed = true;
    std::vector<int> idOf;
    idOf.reserve(heads.size());
    headIds.reserve(qsizetype(heads.size()));
    const QStringView all(text);
    for (const qsizetype start : heads) {
        qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            end = text.size();
        const qsizetype close = all.mid(start, end - start).indexOf(u']');
        if (close < 0) {
            idOf.push_back(-1);
            continue;
        }
        const HeadKey key{all.mid(start, close + 1)};
        auto it = headIds.constFind(key);
        if (it == headIds.constEnd())
            it = headIds.insert(key, int(headIds.size()));
        idOf.push_back(*it);
    }
    // Group the line starts by key, keeping each group in file order.
    groupBegin.assign(size_t(headIds.size()) + 1, 0);
    for (const int id : idOf)
        if (id >= 0)
            ++groupBegin[size_t(id) + 1];
    for (size_t i = 1; i < groupBegin.size(); ++i)
        groupBegin[i] += groupBegin[i - 1];
    std::vector<int> fill(groupBegin.begin(), groupBegin.end() - 1);
    sameHeads.resize(size_t(groupBegin.back()));
    for (size_t i = 0; i < heads.size(); ++i)
        if (idOf[i] >= 0)
            sameHeads[size_t(fill[size_t(idOf[i])]++)] = heads[i];
}
