#include "storage/wayferniolast.h"

#include "storage/printline.h"
#include "storage/recordsink.h"

#include <QFile>
#include <QTextStream>

WayfernIOLast::WayfernIOLast(WayFernData *document) : document(document) {}

int WayfernIOLast::ReadFile(const QString &path, const QString &name)
{
    // No folder at all is no file to read, and nothing to say about it.
    if (path.isNull())
        return -1;
    const QString fullName = joinPath(path, name);
    QFile file(fullName);
    return ReadFile(&file, fullName);
}

int WayfernIOLast::ReadFile(QIODevice *device, const QString &name)
{
    RecordStream stream;
    if (!openAtHeader(stream, device, name, "WayfernIOLast"))
        return -1;
    walkSection(&stream, [&](QStringView key, QStringView value) {
        if (keyIs(key, u"LASTFILE"))
            document->lastfile = stringValue(value);
        else
            printLine("\nWayfernIOLast::ReadFile(%s) : unknown header-entry : %s\n", "Header",
                      key.toUtf8().constData());
    });
    return 0;
}

int WayfernIOLast::WriteFile(const QString &path)
{
    return RecordSink::saveFile(path, "WayfernIOLast",
                                [&](QIODevice *file) { return WriteFile(file, path); });
}

int WayfernIOLast::WriteFile(QIODevice *device, const QString &name)
{
    return RecordSink::writeDevice(device, name, "WayfernIOLast", [&](QTextStream *stream) {
        writeFileHead(stream, "last", "Last-State-File");
        *stream << "[Header]\n";
        writeRecord(stream, QStringLiteral("LASTFILE"), document->lastfile);
        *stream << "\n##EOF WAYFERN LASTSTATE FILE \n";
    });
}
