#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QString>
#include <QStringEncoder>
#include <QStringView>

class QIODevice;

// Writes a text into a device in pieces, never holding the whole of it, in the encoding that
// RecordSink::encode() chooses for the whole text: Latin-1 while every character is ASCII,
// and when it is not, Latin-1 or UTF-8 as the whole text decides.
//
// The text is written as `body` prints it. A text that stays ASCII, the common case, is
// written in one run. Otherwise the first run writes the ASCII part up to the first other
// character and then only looks at the rest to choose the encoding; `body` runs a second time
// and its text is written from that character on. So `body` must print the same text both
// times (a dated head that keeps its width is fine: it stands in the first part).
class ChunkWriter
{
public:
    // False when a write into `device` failed.
    template <typename Body>
    static bool write(QIODevice *device, Body body)
    {
        ChunkWriter first(device, Mode::Ascii, 0);
        body(&first);
        if (!first.finish())
            return false;
        if (first.mode == Mode::Ascii)
            return true;
        ChunkWriter second(device, first.chosen(), first.written);
        body(&second);
        return second.finish();
    }

    ChunkWriter &operator<<(QStringView text);
    ChunkWriter &operator<<(const QString &text) { return *this << QStringView(text); }
    // Known to be ASCII: names of keys and numbers.
    ChunkWriter &operator<<(QLatin1StringView ascii);
    ChunkWriter &operator<<(const char *ascii) { return *this << QLatin1StringView(ascii); }
    ChunkWriter &operator<<(char ascii) { return *this << QLatin1StringView(&ascii, 1); }
    ChunkWriter &operator<<(int number);
    ChunkWriter &operator<<(qsizetype number);
    // The number as "%.<precision>f" makes it, through QString::asprintf.
    void fixed(double value, int precision);
    // One record line "key=value;\n", in one step where all of it is ASCII.
    void record(QStringView key, QStringView value);
    void record(QStringView key, QLatin1StringView asciiValue);

    ChunkWriter(const ChunkWriter &) = delete;
    ChunkWriter &operator=(const ChunkWriter &) = delete;

private:
    // Ascii: writing while all is ASCII. Survey: past the first other character, only choosing
    // the encoding. Latin1, Utf8: writing in that encoding, behind the part already written.
    enum class Mode { Ascii, Survey, Latin1, Utf8 };

    ChunkWriter(QIODevice *device, Mode mode, qsizetype skip);
    // Characters that all fit in Latin-1.
    void appendLatin1(QStringView text);
    void survey(QStringView text);
    void checkSurveyed(bool last);
    Mode chosen() const;
    // Writes the buffer out when it holds a piece, or whatever it holds when `all`.
    void flush(bool all);
    bool finish();

    QIODevice *device;
    Mode mode;
    QByteArray buffer;
    QStringEncoder latin1{QStringConverter::Latin1};
    bool ok = true;
    // Characters written in the ASCII run; the second run skips as many.
    qsizetype written = 0;
    qsizetype skip = 0;
    // What the survey found: a character beyond Latin-1, and whether the Latin-1 bytes of the
    // rest would read as UTF-8 (they are checked in pieces that end at an ASCII byte).
    bool wide = false;
    bool invalidUtf8 = false;
    QByteArray surveyed;
    // The end of a UTF-8 piece that may pair with the beginning of the next.
    char16_t highSurrogate = 0;
};
