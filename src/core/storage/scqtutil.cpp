#include "storage/scqtutil.h"

#include "storage/chunkwriter.h"
#include "storage/fixedtext.h"
#include "storage/printline.h"

#include <QDateTime>
#include <QTextStream>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <type_traits>

namespace {
// Ends every record. A view of Latin-1 goes into the stream as it is, while a C string is
// first made into a text of its own: a journey has many records.
constexpr QLatin1StringView recordEnd(";\n");
} // namespace

bool ScQtUtil::lastBool = false;
DateParts ScQtUtil::lastDate;

int ScQtUtil::findSection(RecordStream *stream, const QString &name, bool rewind)
{
    if (name.isEmpty() || !stream || !stream->isOpen())
        return -3;
    pattern.truncate(0);
    pattern.append(u'[').append(name).append(u']');
    if (rewind)
        stream->rewind();
    stream->skipTo(pattern);
    // Tested after the search: a head on the very last line counts as not found.
    return stream->atEnd() ? -1 : 0;
}

int ScQtUtil::findHead(RecordBytes *stream, QByteArrayView head, bool rewind)
{
    if (head.size() <= 2 || !stream || !stream->isOpen())
        return -3;
    if (rewind)
        stream->rewind();
    stream->skipTo(head);
    return stream->atEnd() ? -1 : 0;
}

int ScQtUtil::splitRecord(QByteArrayView line, ByteRecordView &parts)
{
    if (line.isEmpty())
        return -2;
    parts = ByteRecordView{"", "", "", ""};
    // Lines are short and mostly end in the ";": plain loops beat the library's searches.
    const char *const bytes = line.data();
    const qsizetype size = line.size();
    qsizetype eq = 0;
    while (eq < size && bytes[eq] != '=')
        ++eq;
    if (eq == size)
        return -1;
    parts.key = line.first(eq);
    parts.sep = line.sliced(eq, 1);
    const QByteArrayView remainder = line.sliced(eq + 1);
    qsizetype semi = remainder.size() - 1;
    while (semi >= 0 && remainder[semi] != ';')
        --semi;
    if (semi < 0)
        return -1;
    parts.value = remainder.first(semi);
    parts.rest = remainder.sliced(semi + 1);
    return 0;
}

int ScQtUtil::splitRecord(QStringView line, RecordView &parts)
{
    if (line.isEmpty())
        return -2;
    parts = RecordView{u"", u"", u"", u""};
    const qsizetype eq = line.indexOf(u'=');
    if (eq < 0)
        return -1;
    // Every position is inside the line: sliced() spares the range checks of mid().
    parts.key = line.first(eq);
    parts.sep = line.sliced(eq, 1);
    const QStringView remainder = line.sliced(eq + 1);
    // The value runs to the last ";": text with a ";" of its own comes back whole, and a
    // line whose value holds none splits as it always did.
    const qsizetype semi = remainder.lastIndexOf(u';');
    if (semi < 0)
        return -1;
    parts.value = remainder.first(semi);
    parts.rest = remainder.sliced(semi + 1);
    return 0;
}

int ScQtUtil::splitRecord(const QString &line)
{
    RecordView parts;
    const int result = splitRecord(QStringView(line), parts);
    if (result == -2)
        return result;
    key = stringValue(parts.key);
    sep = stringValue(parts.sep);
    value = stringValue(parts.value);
    rest = stringValue(parts.rest);
    return result;
}

QString ScQtUtil::stringValue(const QString &value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

QString ScQtUtil::stringValue(QStringView value)
{
    return value.isEmpty() ? QStringLiteral("") : value.toString();
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, const QString &value)
{
    *stream << key << '=' << value << recordEnd;
    return 0;
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, bool value)
{
    return writeRecord(stream, key, value ? QStringLiteral("TRUE") : QStringLiteral("FALSE"));
}

QString ScQtUtil::joinPath(const QString &path, const QString &name)
{
    return path.isEmpty() ? name : path + u'/' + name;
}

bool ScQtUtil::openAtHeader(RecordStream &stream, QIODevice *device, const QString &name,
                            const char *reader)
{
    if (!stream.open(device)) {
        printLine("\n%s::ReadFile - file not found (%s)\n", reader, cstr(name).constData());
        return false;
    }
    if (findSection(&stream, QStringLiteral("Header"), true) != 0) {
        printLine("\n%s::ReadFile - section not found : %s\n", reader, "Header");
        return false;
    }
    return true;
}

namespace {
// The processing line and the comment block of a file head, dated now.
QString fileHead(const char *type, const char *title)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDate d = now.date();
    const QTime t = now.time();
    // One formatting into one buffer: a small file is mostly its head, and the fuzzer
    // writes hundreds of them a second.
    char head[1024];
    const int length = std::snprintf(
        head, sizeof head,
        "<?wayfern version=\"%s\" type=\"%s\"?>\n"
        "#-------------------------------------------------------------\n"
        "# %s for wayfern\n"
        "# written from wayfern : %s\n"
        "# last modified : date = %02d.%02d.%04d\n"
        "#                 time = %02d:%02d:%02d\n"
        "#\n"
        "# File is automatically generated, dont modify manually\n"
        "#\n\n",
        Wayfern::formatVersion, type, title, Wayfern::version, d.day(), d.month(), d.year(),
        t.hour(), t.minute(), t.second());
    return QString::fromUtf8(head, std::clamp(length, 0, int(sizeof head) - 1));
}

// "key=value;" of a number: "%d" of a whole number, "%.4f" and "%.2f" of a fraction, another
// format through printf.
template <typename T>
void writeNumber(ChunkWriter *out, const QString &key, T value, const QString &format)
{
    if constexpr (std::is_integral_v<T>) {
        // printf's "%d" takes the bits of an unsigned number as an int.
        if (format == QLatin1StringView("%d")) {
            char digits[16];
            const char *end = std::to_chars(digits, digits + sizeof digits, int(value)).ptr;
            out->record(key, QLatin1StringView(digits, end));
            return;
        }
    } else {
        const int precision = format == QLatin1StringView("%.4f") ? 4
            : format == QLatin1StringView("%.2f")                 ? 2
                                                                  : -1;
        char digits[64];
        const int length = precision < 0 ? -1 : fastFixedText(value, precision, digits);
        if (length >= 0) {
            out->record(key, QLatin1StringView(digits, length));
            return;
        }
        if (precision >= 0) {
            out->record(key, fileFixedText(value, precision));
            return;
        }
    }
    out->record(key, QString::asprintf(format.toLatin1().constData(), value));
}
} // namespace

void ScQtUtil::writeFileHead(QTextStream *stream, const char *type, const char *title)
{
    *stream << fileHead(type, title);
}

void ScQtUtil::writeFileHead(ChunkWriter *out, const char *type, const char *title)
{
    *out << fileHead(type, title);
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, const QString &value)
{
    out->record(key, value);
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, bool value)
{
    out->record(key, value ? QLatin1StringView("TRUE") : QLatin1StringView("FALSE"));
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, int value, const QString &format)
{
    writeNumber(out, key, value, format);
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, unsigned int value,
                           const QString &format)
{
    writeNumber(out, key, value, format);
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, long value, const QString &format)
{
    writeNumber(out, key, value, format);
}

void ScQtUtil::writeRecord(ChunkWriter *out, const QString &key, double value,
                           const QString &format)
{
    writeNumber(out, key, value, format);
}

namespace {
template <typename T>
int writeFormatted(QTextStream *stream, const QString &key, T value, const QString &format)
{
    // Every account line has a few numbers: a whole number in "%d" is printed without a
    // text of its own, and the bytes of other formats go on the stack.
    if constexpr (std::is_same_v<T, int>) {
        if (format == QLatin1StringView("%d")) {
            char number[16];
            const char *end = std::to_chars(number, number + sizeof number, value).ptr;
            *stream << key << '=' << QLatin1StringView(number, end) << recordEnd;
            return 0;
        }
    }
    char formatBytes[16];
    if (format.size() < qsizetype(sizeof formatBytes)) {
        qsizetype i = 0;
        for (; i < format.size(); ++i) {
            const char16_t c = format.at(i).unicode();
            formatBytes[i] = c < 0x100 ? char(c) : '?';
        }
        formatBytes[i] = 0;
        *stream << key << '=' << QString::asprintf(formatBytes, value) << recordEnd;
    } else {
        *stream << key << '=' << QString::asprintf(format.toLatin1().constData(), value)
                << recordEnd;
    }
    return 0;
}
} // namespace

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, int value, const QString &format)
{
    return writeFormatted(stream, key, value, format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, unsigned int value,
                          const QString &format)
{
    return writeFormatted(stream, key, value, format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, short value,
                          const QString &format)
{
    return writeFormatted(stream, key, int(value), format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, unsigned short value,
                          const QString &format)
{
    return writeFormatted(stream, key, unsigned(value), format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, long value,
                          const QString &format)
{
    return writeFormatted(stream, key, value, format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, unsigned long value,
                          const QString &format)
{
    return writeFormatted(stream, key, value, format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, float value,
                          const QString &format)
{
    return writeFormatted(stream, key, double(value), format);
}

int ScQtUtil::writeRecord(QTextStream *stream, const QString &key, double value,
                          const QString &format)
{
    return writeFormatted(stream, key, value, format);
}

namespace {
// Splits off the lower-case hexadecimal prefixes; the library's ok flag is ignored, so
// text that does not convert gives 0.
template <typename T, typename Convert>
T convertPrefixed(const QString &value, Convert convert)
{
    if (value.isNull())
        return 0;
    if (value.startsWith(QLatin1String("0x")) || value.startsWith(QLatin1String("0h")))
        return convert(value.mid(2), 16);
    if (value.startsWith(u'x') || value.startsWith(u'h'))
        return convert(value.mid(1), 16);
    return convert(value, 10);
}
} // namespace

int ScQtUtil::toInt(const QString &value)
{
    return convertPrefixed<int>(value, [](const QString &s, int b) { return s.toInt(nullptr, b); });
}

unsigned int ScQtUtil::toUInt(const QString &value)
{
    return convertPrefixed<unsigned int>(
        value, [](const QString &s, int b) { return s.toUInt(nullptr, b); });
}

short ScQtUtil::toShort(const QString &value)
{
    return convertPrefixed<short>(value,
                                  [](const QString &s, int b) { return s.toShort(nullptr, b); });
}

unsigned short ScQtUtil::toUShort(const QString &value)
{
    return convertPrefixed<unsigned short>(
        value, [](const QString &s, int b) { return s.toUShort(nullptr, b); });
}

long ScQtUtil::toLong(const QString &value)
{
    return convertPrefixed<long>(value,
                                 [](const QString &s, int b) { return s.toLong(nullptr, b); });
}

unsigned long ScQtUtil::toULong(const QString &value)
{
    return convertPrefixed<unsigned long>(
        value, [](const QString &s, int b) { return s.toULong(nullptr, b); });
}

namespace {
// Plain decimal numbers are by far the most common values of a file; they are converted
// here without the library's general parser. `out` is only set for such a text.
char16_t unit(QChar c)
{
    return c.unicode();
}

char16_t unit(char c)
{
    return static_cast<unsigned char>(c);
}

// The number that a plain decimal text stands for; false for any other text, which then
// goes through the general parser.
template <typename Number, typename View>
bool plainDecimal(View value, Number &result)
{
    char buffer[40];
    const qsizetype length = value.size();
    if (length == 0 || length >= qsizetype(sizeof buffer))
        return false;
    for (qsizetype i = 0; i < length; ++i) {
        const char16_t c = unit(value[i]);
        if (!((c >= u'0' && c <= u'9') || c == u'.' || (c == u'-' && i == 0)))
            return false;
        buffer[i] = char(c);
    }
    const auto [end, error] = std::from_chars(buffer, buffer + length, result);
    return error == std::errc() && end == buffer + length;
}
} // namespace

int ScQtUtil::toInt(QStringView value)
{
    int result = 0;
    return plainDecimal(value, result) ? result : toInt(value.toString());
}

double ScQtUtil::toDouble(QStringView value)
{
    double result = 0;
    return plainDecimal(value, result) ? result : value.toDouble();
}

int ScQtUtil::toInt(QByteArrayView value, const RecordBytes &file)
{
    int result = 0;
    return plainDecimal(value, result) ? result : toInt(file.toText(value));
}

double ScQtUtil::toDouble(QByteArrayView value, const RecordBytes &file)
{
    double result = 0;
    return plainDecimal(value, result) ? result : QStringView(file.toText(value)).toDouble();
}

float ScQtUtil::toFloat(const QString &value)
{
    return value.isNull() ? 0.0f : value.toFloat();
}

double ScQtUtil::toDouble(const QString &value)
{
    return value.isNull() ? 0.0 : value.toDouble();
}

bool ScQtUtil::toBool(const QString &value)
{
    if (!value.isNull())
        lastBool = value == u"TRUE";
    return lastBool;
}

QString ScQtUtil::fileBaseName(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 1)
        return QStringLiteral("");
    return name.left(dot);
}

int ScQtUtil::dateDay(const QString &date)
{
    DateText::read(date, DateText::Record, lastDate, DateText::Day);
    return lastDate.day;
}

int ScQtUtil::dateMonth(const QString &date)
{
    DateText::read(date, DateText::Record, lastDate, DateText::Month);
    return lastDate.month;
}

int ScQtUtil::dateYear(const QString &date)
{
    DateText::read(date, DateText::Record, lastDate, DateText::Year);
    return lastDate.year;
}

QString ScQtUtil::nthWord(const QString &text, int n)
{
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    const qsizetype size = text.size();
    qsizetype i = 0;
    for (int word = 1;; ++word) {
        while (i < size && isBlank(text.at(i)))
            ++i;
        if (i >= size)
            return QStringLiteral("");
        const qsizetype start = i;
        while (i < size && !isBlank(text.at(i)))
            ++i;
        if (word >= n)
            return text.mid(start, i - start);
    }
}
