#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <QTextStream>

// The text of a file being written. It is committed whole: written next to the old file and
// renamed over it, so a failed save never destroys what was on disk. The bytes are Latin-1
// when every character fits and the reader would take them for Latin-1, UTF-8 otherwise.
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

    // Writes the whole file at `path`: `body` prints its text into the stream it is given.
    // Answers 0 when the file is in place; otherwise prints that `writer` could not open the
    // file and answers -1, and whatever stood at `path` stays. `reason`, when given, gets
    // the system's reason for a failure and is emptied on success.
    template <typename Body>
    static int writeFile(const QString &path, const char *writer, Body body,
                         QString *reason = nullptr)
    {
        RecordSink sink(path);
        if (!sink.open())
            return notOpen(writer, path, sink.failure(), reason);
        body(sink.stream());
        if (!sink.commit())
            return notOpen(writer, path, sink.failure(), reason);
        if (reason)
            reason->clear();
        return 0;
    }

    // Why opening or committing failed, as the system words it.
    QString failure() const;

private:
    static int notOpen(const char *writer, const QString &path, const QString &failure,
                       QString *reason);

    QString path;
    QSaveFile file;
    QString text;
    QTextStream out;
    QString error;
};
