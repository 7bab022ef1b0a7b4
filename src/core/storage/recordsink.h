#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <QTextStream>

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
