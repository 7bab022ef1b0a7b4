#include "rates/catalogue.h"

#include "rates/jsonpage.h"
#include "storage/recordstream.h"

#include <QBuffer>
#include <QFile>
#include <QJsonObject>
#include <QJsonValue>

namespace {

const QByteArray selectTag("<select name=s");
const QByteArray selectEnd("</select");
const QLatin1String optionTag("<option value=");

} // namespace

namespace Catalogue {

int readBox(const QByteArray &bytes, QList<CatalogueEntry> *entries)
{
    // Positions walk forward through the box; nothing is cut off its front, so a box of any
    // number of options costs one pass.
    const QString box = RecordStream::decode(bytes);
    const qsizetype size = box.size();
    qsizetype pos = 0;
    for (;;) {
        const qsizetype option = box.indexOf(optionTag, pos);
        if (option < 0)
            return BrokenOff;
        pos = option + optionTag.size();

        const qsizetype close = box.indexOf(u'>', pos);
        if (close < 0)
            return BrokenOff;
        QString shortName = box.mid(pos, close - pos);
        pos = close + 1;

        const qsizetype open = box.indexOf(u'<', pos);
        if (open < 0)
            return BrokenOff;
        QString fullName = box.mid(pos, open - pos);
        pos = open + 1;

        // The box ended right behind this name: the entry in hand is dropped.
        if (pos >= size)
            return Read;
        // The "<" belongs to the next tag.
        pos = open;
        entries->append({std::move(shortName), std::move(fullName)});
    }
}

bool readJson(const QByteArray &page, QList<CatalogueEntry> *entries)
{
    QJsonObject object;
    if (!JsonPage::readObject(page, &object))
        return false;
    QList<CatalogueEntry> found;
    found.reserve(object.size());
    for (auto at = object.constBegin(); at != object.constEnd(); ++at) {
        // A value that is no text (a rate answer's numbers, say): no catalogue at all.
        if (!at.value().isString())
            return false;
        found.append({at.key(), at.value().toString()});
    }
    entries->append(found);
    return true;
}

int readDevice(QIODevice *device, QList<CatalogueEntry> *entries)
{
    const qint64 start = device->pos();
    while (!device->atEnd()) {
        const QByteArray line = device->readLine();
        // Only the first qualifying line counts, and never one that starts with the box.
        const qsizetype at = line.indexOf(selectTag);
        if (at <= 0)
            continue;
        const qsizetype end = line.indexOf(selectEnd, at);
        if (end < 0)
            return BrokenOff;
        return readBox(line.mid(at, end - at), entries);
    }
    // No box: the page may be a service's JSON catalogue.
    if (device->seek(start))
        readJson(device->readAll(), entries);
    return Read;
}

int readBytes(const QByteArray &page, QList<CatalogueEntry> *entries)
{
    QBuffer buffer;
    buffer.setData(page);
    if (!buffer.open(QIODevice::ReadOnly))
        return NotOpened;
    return readDevice(&buffer, entries);
}

int readFile(const QString &path, QList<CatalogueEntry> *entries)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return NotOpened;
    return readDevice(&file, entries);
}

} // namespace Catalogue
