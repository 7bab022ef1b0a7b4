#pragma once

#include "storage/chunkwriter.h"

#include <QByteArray>
#include <QIODevice>
#include <QSaveFile>
#include <QString>
#include <QTextStream>

// The text of a file being written. A file is committed whole: written next to the old file
// and renamed over it, so a failed save never destroys what was on disk. The bytes are
// Latin-1 when every character fits and the reader would take them for Latin-1, UTF-8
// otherwise.
class RecordSink
{
public:
    explicit RecordSink(const QString &path);
    // False when the file cannot be created.
    bool open();
    // Where the bytes go until commit() or cancel().
    QIODevice *device() { return &file; }
    // False when the file could not be put in place.
    bool commit();
    // Leaves whatever stood at the path as it was.
    void cancel();

    static QByteArray encode(const QString &text);

    // Writes the text that `body` prints into the stream it is given to `device`, opened for
    // writing first when it is closed. Answers 0 when every byte is written; otherwise
    // prints that `writer` could not open `name` and answers -1. `reason`, when given, gets
    // the system's reason for a failure and is emptied on success.
    template <typename Body>
    static int writeDevice(QIODevice *device, const QString &name, const char *writer, Body body,
                           QString *reason = nullptr)
    {
        if (!device->isOpen() && !device->open(QIODevice::WriteOnly))
            return notOpen(writer, name, device->errorString(), reason);
        if (!device->isWritable())
            return notOpen(writer, name, device->errorString(), reason);
        QString text;
        {
            QTextStream out(&text);
            body(&out);
        }
        if (!writeText(device, text))
            return notOpen(writer, name, device->errorString(), reason);
        if (reason)
            reason->clear();
        return 0;
    }

    // The same for a large file: `body` prints into a ChunkWriter, which writes the bytes in
    // pieces (and may run `body` twice, see there).
    template <typename Body>
    static int streamDevice(QIODevice *device, const QString &name, const char *writer, Body body,
                            QString *reason = nullptr)
    {
        if (!device->isOpen() && !device->open(QIODevice::WriteOnly))
            return notOpen(writer, name, device->errorString(), reason);
        if (!device->isWritable())
            return notOpen(writer, name, device->errorString(), reason);
        if (!ChunkWriter::write(device, body))
            return notOpen(writer, name, device->errorString(), reason);
        if (reason)
            reason->clear();
        return 0;
    }

    // Puts a whole file in place at `path`: `write` writes its bytes into the device it is
    // given and answers 0, or -1 after it has printed and told its own failure. Answers 0
    // when the file is in place; otherwise -1, and whatever stood at `path` stays. A file
    // that cannot be created or put in place is printed and told as writeDevice() does.
    template <typename Write>
    static int saveFile(const QString &path, const char *writer, Write write,
                        QString *reason = nullptr)
    {
        RecordSink sink(path);
        if (!sink.open())
            return notOpen(writer, path, sink.failure(), reason);
        if (write(sink.device()) != 0) {
            sink.cancel();
            return -1;
        }
        if (!sink.commit())
            return notOpen(writer, path, sink.failure(), reason);
        if (reason)
            reason->clear();
        return 0;
    }

    // Why opening or committing failed, as the system words it.
    QString failure() const;

private:
    static bool writeText(QIODevice *device, const QString &text);
    static int notOpen(const char *writer, const QString &path, const QString &failure,
                       QString *reason);

    QString path;
    QSaveFile file;
    QString error;
};
