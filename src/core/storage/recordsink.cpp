#include "storage/recordsink.h"

#include "storage/printline.h"
#include "storage/recordstream.h"

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
