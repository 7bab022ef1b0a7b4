#include "rates/catalogue.h"

#include "storage/recordstream.h"

#include <QBuffer>
#include <QFile>

namespace {

const QByteArray selectTag("<select name=s");
const QByteArray selectEnd("</select");
const QLatin1String optionTag("<option value=");

bool isJsonBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

// A small reader for the one JSON shape a catalogue has: an object whose values are all
// texts. It walks the text once and keeps the object's order, duplicates included.
class JsonScan
{
public:
    explicit JsonScan(const QString &text) : s(text) {}

    bool object(QList<CatalogueEntry> *out)
    {
        skipBlanks();
        if (!take(u'{'))
            return false;
        skipBlanks();
        if (!take(u'}')) {
            for (;;) {
                CatalogueEntry entry;
                if (!string(&entry.short_))
                    return false;
                skipBlanks();
                if (!take(u':'))
                    return false;
                skipBlanks();
                if (!string(&entry.fullname))
                    return false;
                out->append(std::move(entry));
                skipBlanks();
                if (take(u'}'))
                    break;
                if (!take(u','))
                    return false;
                skipBlanks();
            }
        }
        skipBlanks();
        return i == s.size();
    }

private:
    void skipBlanks()
    {
        while (i < s.size() && isJsonBlank(s.at(i)))
            ++i;
    }

    bool take(char16_t c)
    {
        if (i < s.size() && s.at(i) == c) {
            ++i;
            return true;
        }
        return false;
    }

    static int hexValue(QChar c)
    {
        const char16_t u = c.unicode();
        if (u >= u'0' && u <= u'9')
            return u - u'0';
        if (u >= u'a' && u <= u'f')
            return u - u'a' + 10;
        if (u >= u'A' && u <= u'F')
            return u - u'A' + 10;
        return -1;
    }

    bool string(QString *out)
    {
        if (!take(u'"'))
            return false;
        const qsizetype size = s.size();
        while (i < size) {
            // Plain characters are copied in runs, not one by one.
            qsizetype run = i;
            while (run < size && s.at(run) != u'"' && s.at(run) != u'\\'
                   && s.at(run).unicode() >= 0x20)
                ++run;
            out->append(QStringView(s).mid(i, run - i));
            i = run;
            if (i >= size)
                return false;
            const QChar c = s.at(i);
            if (c == u'"') {
                ++i;
                return true;
            }
            if (c != u'\\')
                return false; // a control character inside a text
            if (++i >= size)
                return false;
            const char16_t e = s.at(i++).unicode();
            switch (e) {
            case u'"':
                out->append(u'"');
                break;
            case u'\\':
                out->append(u'\\');
                break;
            case u'/':
                out->append(u'/');
                break;
            case u'b':
                out->append(u'\b');
                break;
            case u'f':
                out->append(u'\f');
                break;
            case u'n':
                out->append(u'\n');
                break;
            case u'r':
                out->append(u'\r');
                break;
            case u't':
                out->append(u'\t');
                break;
            case u'u': {
                if (size - i < 4)
                    return false;
                int code = 0;
                for (int k = 0; k < 4; ++k) {
                    const int h = hexValue(s.at(i + k));
                    if (h < 0)
                        return false;
                    code = code * 16 + h;
                }
                i += 4;
                // Surrogate pairs come as two escapes and join by themselves in UTF-16.
                out->append(QChar(char16_t(code)));
                break;
            }
            default:
                return false;
            }
        }
        return false;
    }

    const QString &s;
    qsizetype i = 0;
};

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
    // Any JSON object starts with "{" behind blanks; other pages are left alone at once.
    qsizetype first = 0;
    if (page.startsWith("\xEF\xBB\xBF"))
        first = 3;
    while (first < page.size() && isJsonBlank(QChar(page.at(first))))
        ++first;
    if (first >= page.size() || page.at(first) != '{')
        return false;

    const QString text = RecordStream::decode(page.mid(first));
    QList<CatalogueEntry> found;
    if (!JsonScan(text).object(&found))
        return false;
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
