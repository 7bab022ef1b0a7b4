#pragma once

#include <QHash>
#include <QSaveFile>
#include <QString>
#include <QStringView>
#include <QTextStream>

#include <vector>

// A text file read whole into memory and handed out line by line, as a text stream's
// readLine would: without the LF and a CR in front of it. The file's encoding is told
// apart by its bytes: valid UTF-8 holding multi-byte sequences is UTF-8, anything else is
// Latin-1.
//
// Section heads ("[" name "]" at the start of a line) are indexed on first use, so that a
// search for a head costs a lookup instead of a pass over the file.
class RecordStream
{
public:
    // Reads the whole file; false when it cannot be opened.
    bool open(const QString &path);
    // Uses a text in memory as the file's content.
    void setText(const QString &text);
    bool isOpen() const { return opened; }

    bool atEnd() const { return pos >= text.size(); }
    // The next line; an empty view at the end.
    QStringView readLine();
    void rewind() { pos = 0; }

    // Reads lines until one begins with `pattern` or the stream ends, and stays behind it.
    void skipTo(const QString &pattern);

    static QString decode(const QByteArray &bytes);

private:
    void buildIndex();

    QString text;
    qsizetype pos = 0;
    bool opened = false;

    // Heads by the text up to their first "]"; each key's line starts, ascending.
    bool indexed = false;
    QHash<QStringView, int> headIds;
    std::vector<qsizetype> headStarts; // grouped by key
    std::vector<int> groupBegin;       // per key id: first entry in headStarts, plus one end
};

// The text of a file being written. It is committed whole: written next to the old file and
// renamed over it, so a failed save never destroys what was on disk. The bytes are Latin-1
// when every character fits, UTF-8 otherwise.
class RecordSink
{
public:
    explicit RecordSink(const QString &path);
    // False when the file cannot be created.
    bool open();
    QTextStream *stream() { return &out; }
    // False when the file could not be written or put in place.
    bool commit();

    static QByteArray encode(const QString &text);

private:
    QString path;
    QSaveFile file;
    QString text;
    QTextStream out;
};
