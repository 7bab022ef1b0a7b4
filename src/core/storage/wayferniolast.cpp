#include "storage/wayferniolast.h"

#include "storage/printline.h"
#include "storage/recordsink.h"

#include <QTextStream>

WayfernIOLast::WayfernIOLast(WayFernData *document) : document(document) {}

int WayfernIOLast::ReadFile(const QString &path, const QString &name)
{
    RecordStream stream;
    if (!openAtHeader(stream, path, name, "WayfernIOLast"))
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
    return RecordSink::writeFile(path, "WayfernIOLast", [&](QTextStream *stream) {
        writeFileHead(stream, "last", "Last-State-File");
        *stream << "[Header]\n";
        writeRecord(stream, QStringLiteral("LASTFILE"), document->lastfile);
        *stream << "\n##EOF WAYFERN LASTSTATE FILE \n";
    });
}
