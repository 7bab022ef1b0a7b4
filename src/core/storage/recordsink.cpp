#include "storage/recordsink.h"

#include "storage/printline.h"
#include "storage/recordstream.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>

RecordSink::RecordSink(const QString &path) : path(path), file(path) {}

bool RecordSink::open()
{
    if (path.isEmpty()) {
        error = QString::fromLocal8Bit(strerror(ENOENT));
        return false;
    }
    if (QFileInfo(path).isDir()) {
        error = QString::fromLocal8Bit(strerror(EISDIR));
        return false;
    }
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    return true;
}

QString RecordSink::failure() const
{
    return error;
}

QByteArray RecordSink::encode(const QString &text)
{
    // Plain ASCII, the common case, reads back as itself in any case.
    if (std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; }))
        return text.toLatin1();
    const bool fits =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
    if (fits) {
        // Latin-1 bytes that happen to be valid UTF-8 ("\u00c3\u00a9" is C3 A9) would read
        // back as other letters: such a text is written in UTF-8, which reads back as itself.
        QByteArray latin1 = text.toLatin1();
        if (RecordStream::decode(latin1) == text)
            return latin1;
    }
    return text.toUtf8();
}

bool RecordSink::writeText(QIODevice *device, const QString &text)
{
    const QByteArray bytes = encode(text);
    return device->write(bytes) == bytes.size();
}

bool RecordSink::commit()
{
    if (!file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

void RecordSink::cancel()
{
    file.cancelWriting();
    file.commit();
}

int RecordSink::notOpen(const char *writer, const QString &path, const QString &failure,
                        QString *reason)
{
    printLine("\n%s::WriteFile(%s) : file not open\n", writer, cstr(path).constData());
    if (reason)
        *reason = failure;
    return -1;
}
