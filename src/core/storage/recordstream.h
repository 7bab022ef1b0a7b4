#pragma once

#include "storage/sectionheads.h"

#include <QString>
#include <QStringView>

class QIODevice;

// A text file read whole into memory and handed out line by line, as a text stream's
// readLine would: without the LF and a CR in front of it. The file's encoding is told
// apart by its bytes: valid UTF-8 holding multi-byte sequences is UTF-8, anything else is
// Latin-1.
//
// Searches for a section head ("[" name "]" at the start of a line) go through its
// SectionHeads.
class RecordStream
{
public:
    // Reads the whole file; false when it cannot be opened, and errorString() says why.
    bool open(const QString &path);
    // Reads the device from where it stands to its end, opening it for reading first when
    // it is closed; false when it cannot be read, and errorString() says why.
    bool open(QIODevice *device);
    QString errorString() const { return openError; }
    // Uses a text in memory as the file's content.
    void setText(const QString &text);
    bool isOpen() const { return opened; }

    bool atEnd() const { return pos >= text.size(); }
    // The length of the whole text.
    qsizetype size() const { return text.size(); }
    // The next line; an empty view at the end.
    QStringView readLine();
    void rewind() { pos = 0; }

    // Reads lines until one begins with `pattern` or the stream ends, and stays behind it.
    void skipTo(const QString &pattern);

    // How many lines of the text begin a section.
    qsizetype headCount() { return heads.count(text, 0); }
    // How many section heads the searches have looked at so far: what they cost.
    qsizetype headsVisited() const { return heads.visited(); }

    static QString decode(const QByteArray &bytes);

    // A cheap hash for short texts such as section heads and record values.
    static size_t hashText(QStringView text)
    {
        size_t h = 2166136261u;
        for (QChar c : text)
            h = (h ^ c.unicode()) * 16777619u;
        return h;
    }

private:
    QString text;
    qsizetype pos = 0;
    bool opened = false;
    QString openError;
    SectionHeads<QStringView> heads;
};
