#include "storage/wayferniolast.h"

#include "storage/printline.h"
#include "storage/recordsink.h"

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
    RecordSink sink(path);
    if (!sink.open()) {
        printLine("\nWayfernIOLast::WriteFile(%s) : file not open\n", cstr(path).constData());
        return -1;
    }
    QTextStream *stream = sink.stream();
    writeFileHead(stream, "last", "Last-State-File");
    *stream << "[Header]\n";
    writeRecord(stream, QStringLiteral("LASTFILE"), document->lastfile);
    *stream << "\n##EOF WAYFERN LASTSTATE FILE \n";
    if (!sink.commit()) {
        printLine("\nWayfernIOLast::WriteFile(%s) : file not open\n", cstr(path).constData());
        return -1;
    }
    return 0;
}
