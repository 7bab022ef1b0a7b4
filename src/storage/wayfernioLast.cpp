#include "storage/wayfernioLast.h"

#include "storage/printline.h"

WayfernIOLast::WayfernIOLast(WayFernData *document) : document(document) {}

int WayfernIOLast::ReadFile(const QString &path, const QString &name)
{
    if (path.isNull())
        return -1;
    const QString fullName = path.isEmpty() ? name : path + u'/' + name;
    RecordStream stream;
    if (!stream.open(fullName)) {
        printLine("\nWayfernIOLast::ReadFile - file not found (%s)\n", cstr(fullName).constData());
        return -1;
    }
    if (findSection(&stream, QStringLiteral("Header"), true) != 0) {
        printLine("\nWayfernIOLast::ReadFile - section not found : %s\n", "Header");
        return -1;
    }
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
