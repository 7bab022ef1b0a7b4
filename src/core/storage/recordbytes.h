#pragma once

#include "storage/sectionheads.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

class QIODevice;

// A journey file's bytes, read whole and handed out line by line as byte views: the same lines,
// heads and searches as RecordStream gives on the decoded text, without decoding the file.
// Only the values that a reader keeps become texts (see toText()).
//
// The encoding is told apart as RecordStream::decode() does: valid UTF-8 holding multi-byte
// sequences is UTF-8, anything else Latin-1. Either way every byte below 0x80 stands for its
// ASCII character and no byte of a multi-byte sequence is below 0x80, so lines, "=", ";" and
// "[" split the bytes where they split the text. A UTF-8 file's leading byte order mark is no
// part of its first line, as for the decoder.
class RecordBytes
{
public:
    // Reads the device from where it stands to its end, opening it for reading first when
    // it is closed; false when it cannot be read, and errorString() says why.
    bool open(QIODevice *device);
    // The same steps for any reader of a whole device: its bytes, or false and why not.
    static bool readWhole(QIODevice *device, QByteArray &content, QString &error);
    QString errorString() const { return openError; }
    // Uses bytes in memory as the file's content.
    void setBytes(const QByteArray &content);
    bool isOpen() const { return opened; }
    bool isUtf8() const { return utf8; }

    bool atEnd() const { return pos >= bytes.size(); }
    // The number of bytes from the beginning of the text to its end.
    qsizetype size() const { return bytes.size() - begin; }
    // The next line, without the LF and a CR in front of it; an empty view at the end.
    QByteArrayView readLine();
    void rewind() { pos = begin; }
    // Lets go of the bytes and what the searches built on them, once nothing more is read:
    // what follows a read (the first recomputation) then has their memory.
    void release();
    void skipToEnd() { pos = bytes.size(); }

    // Reads lines until one begins with `pattern` (in the file's encoding, see encode()) or
    // the stream ends, and stays behind it.
    void skipTo(QByteArrayView pattern);

    // Appends `text` in the file's encoding to `out`; false when the file cannot hold it,
    // so that no line of it can begin with the text.
    bool encode(QStringView text, QByteArray &out) const;
    // The text that `value` stands for in the file.
    QString toText(QByteArrayView value) const;
    // The same for a printed line: UTF-8.
    QByteArray toUtf8(QByteArrayView value) const;
    // True when `value` reads as the same text in either encoding.
    static bool isAscii(QByteArrayView value);

    // How many lines of the text begin a section.
    qsizetype headCount() { return heads.count(bytes, begin); }
    // How many section heads the searches have looked at so far: what they cost.
    qsizetype headsVisited() const { return heads.visited(); }

private:
    static bool validUtf8(QByteArrayView content);

    QByteArray bytes;
    qsizetype begin = 0; // behind a byte order mark
    qsizetype pos = 0;
    bool utf8 = false;
    bool opened = false;
    QString openError;
    SectionHeads<QByteArrayView> heads;
};
