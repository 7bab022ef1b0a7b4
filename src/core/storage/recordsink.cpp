#include "storage/recordsink.h"

#include "storage/printline.h"

#include <QFileInfo>

#include <algorithm>

RecordSink::RecordSink(const QString &path) : path(path), file(path), out(&text) {}

bool RecordSink::open()
{
    if (path.isEmpty() || QFileInfo(path).isDir())
        return false;
    return file.open(QIODevice::WriteOnly);
}

QByteArray RecordSink::encode(const QString &text)
{
    const bool latin1 =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
    return latin1 ? text.toLatin1() : text.toUtf8();
}

bool RecordSink::commit()
{
    out.flush();
    const QByteArray bytes = encode(text);
    text.clear();
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        file.commit();
        return false;
    }
    return file.commit();
}

int RecordSink::notOpen(const char *writer, const QString &path)
{
    printLine("\n%s::WriteFile(%s) : file not open\n", writer, cstr(path).constData());
    return -1;
}
