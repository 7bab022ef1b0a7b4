#pragma once

#include "data/datetext.h"
#include "storage/recordbytes.h"
#include "storage/recordstream.h"
#include "wayfernversion.h"

#include <QString>
#include <QStringView>

#include <cstring>

class ChunkWriter;
class QIODevice;
class QTextStream;

namespace Wayfern {
// The release date goes into no file; the version (wayfernversion.h) into every one.
inline constexpr const char releaseDate[] = "26.05.2002";
// The version of the file syntax, in the processing line.
inline constexpr const char formatVersion[] = "0.1";
} // namespace Wayfern

// The text record syntax that the journey, configuration and last-state files share:
// "KEY=value;" lines in sections that begin with "[name]" and end at the first empty line.
// Also the value converters and a few text tools.
class ScQtUtil
{
public:
    // Parts of the record last split by splitRecord.
    QString key;
    QString sep;
    QString value; // up to the last ";" of the line
    QString rest;  // behind it

    // The parts of one line as views into it.
    struct RecordView
    {
        QStringView key;
        QStringView sep;
        QStringView value;
        QStringView rest;
    };

    // The same parts as byte views into a line of a file's bytes.
    struct ByteRecordView
    {
        QByteArrayView key;
        QByteArrayView sep;
        QByteArrayView value;
        QByteArrayView rest;
    };

    // 0 found (the stream stands behind the head); -1 not found; -3 bad call.
    int findSection(RecordStream *stream, const QString &name, bool rewind);
    // The same for a whole head "[name]" in the file's encoding (RecordBytes::encode()).
    static int findHead(RecordBytes *stream, QByteArrayView head, bool rewind);
    // 0 split; -1 no "=" or no ";"; -2 null or empty line (the fields keep their values).
    int splitRecord(const QString &line);
    static int splitRecord(QStringView line, RecordView &parts);
    static int splitRecord(QByteArrayView line, ByteRecordView &parts);
    // Every string field that a reader stores passes through here: never null.
    static QString stringValue(const QString &value);
    static QString stringValue(QStringView value);

    // Compares a record key with a name; cheap on a mismatch, which is the common case.
    template <size_t N>
    static bool keyIs(QStringView key, const char16_t (&name)[N])
    {
        return key.size() == qsizetype(N - 1)
            && std::memcmp(key.utf16(), name, (N - 1) * sizeof(char16_t)) == 0;
    }

    template <size_t N>
    static bool keyIs(QByteArrayView key, const char (&name)[N])
    {
        return key.size() == qsizetype(N - 1) && std::memcmp(key.data(), name, N - 1) == 0;
    }

    // Walks a section body: `dispatch(key, value)` for every line up to the first empty one
    // or the end of the stream. The last line of a stream is never dispatched.
    template <typename Dispatch>
    static void walkSection(RecordStream *stream, Dispatch dispatch)
    {
        while (!stream->atEnd()) {
            const QStringView line = stream->readLine();
            if (stream->atEnd() || line.isEmpty())
                return;
            RecordView parts;
            splitRecord(line, parts);
            dispatch(parts.key, parts.value);
        }
    }
    // The same on a file's bytes, with views of bytes.
    template <typename Dispatch>
    static void walkSection(RecordBytes *stream, Dispatch dispatch)
    {
        while (!stream->atEnd()) {
            const QByteArrayView line = stream->readLine();
            if (stream->atEnd() || line.isEmpty())
                return;
            ByteRecordView parts;
            splitRecord(line, parts);
            dispatch(parts.key, parts.value);
        }
    }

    // Each writes one line "key=value;" and returns 0. The numeric forms print the value
    // through `format`; neither key nor value is ever taken as a format.
    int writeRecord(QTextStream *stream, const QString &key, const QString &value);
    int writeRecord(QTextStream *stream, const QString &key, bool value);
    int writeRecord(QTextStream *stream, const QString &key, int value, const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, unsigned int value,
                    const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, short value, const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, unsigned short value,
                    const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, long value, const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, unsigned long value,
                    const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, float value, const QString &format);
    int writeRecord(QTextStream *stream, const QString &key, double value, const QString &format);

    // The same into a writer of large files.
    static void writeRecord(ChunkWriter *out, const QString &key, const QString &value);
    static void writeRecord(ChunkWriter *out, const QString &key, bool value);
    static void writeRecord(ChunkWriter *out, const QString &key, int value, const QString &format);
    static void writeRecord(ChunkWriter *out, const QString &key, unsigned int value,
                            const QString &format);
    static void writeRecord(ChunkWriter *out, const QString &key, long value,
                            const QString &format);
    static void writeRecord(ChunkWriter *out, const QString &key, double value,
                            const QString &format);

    // The file `name` in the folder `path`, or `name` alone when `path` is empty.
    static QString joinPath(const QString &path, const QString &name);
    // The first steps of reading a small settings file: reads `device` (opened for reading
    // when it is closed) and finds its "Header" section. A failure prints its line, naming
    // `reader` and, for a device that cannot be read, `name`.
    bool openAtHeader(RecordStream &stream, QIODevice *device, const QString &name,
                      const char *reader);

    // The processing line of a file of this `type` and the comment block under it, dated now.
    static void writeFileHead(QTextStream *stream, const char *type, const char *title);
    static void writeFileHead(ChunkWriter *out, const char *type, const char *title);

    // Base 16 behind a lower-case "0x", "0h", "x" or "h"; base 10 otherwise; 0 on failure.
    int toInt(const QString &value);
    unsigned int toUInt(const QString &value);
    short toShort(const QString &value);
    unsigned short toUShort(const QString &value);
    long toLong(const QString &value);
    unsigned long toULong(const QString &value);
    float toFloat(const QString &value);
    double toDouble(const QString &value);
    // The same conversions for the readers, on a view into the line.
    int toInt(QStringView value);
    static double toDouble(QStringView value);
    // And on the bytes of a value, `file` telling what text they stand for.
    int toInt(QByteArrayView value, const RecordBytes &file);
    static double toDouble(QByteArrayView value, const RecordBytes &file);
    // True exactly for "TRUE". A null text answers the previous result.
    bool toBool(const QString &value);

    // "trip.wfn" gives "trip"; no dot at position 1 or later gives "".
    static QString fileBaseName(const QString &name);
    // Parts of "dd.mm.yyyy", read as DateText::Record; a null or empty text answers the
    // previous result.
    int dateDay(const QString &date);
    int dateMonth(const QString &date);
    int dateYear(const QString &date);
    // What the three above read last, each part on its own. The date sort of the view
    // reads into it too, so that an empty date there gives back the same parts.
    static DateParts lastDate;
    // Word n (from 1; 0 and below mean the first) of a text split at blanks and tabs.
    static QString nthWord(const QString &text, int n);

private:
    QString pattern; // of findSection, kept to spare an allocation per section

    // The results that survive into the next call.
    static bool lastBool;
};
