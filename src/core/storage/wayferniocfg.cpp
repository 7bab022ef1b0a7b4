#include "storage/wayferniocfg.h"

#include "storage/printline.h"
#include "storage/recordsink.h"

#include <QFile>
#include <QTextStream>

WayfernIOCfg::WayfernIOCfg(WayFernData *document) : document(document) {}

int WayfernIOCfg::ReadFile(const QString &path, const QString &name)
{
    // No folder at all is no file to read, and nothing to say about it.
    if (path.isNull())
        return -1;
    const QString fullName = joinPath(path, name);
    QFile file(fullName);
    return ReadFile(&file, fullName);
}

int WayfernIOCfg::ReadFile(QIODevice *device, const QString &name)
{
    RecordStream stream;
    if (!openAtHeader(stream, device, name, "WayfernIOCfg"))
        return -1;
    WayFernConfig &config = document->config;
    walkSection(&stream, [&](QStringView key, QStringView value) {
        if (keyIs(key, u"DATA-PATH"))
            config.datapath = stringValue(value);
        else if (keyIs(key, u"LAST"))
            config.last = stringValue(value);
        else if (keyIs(key, u"TEMPLATE"))
            config.template_ = stringValue(value);
        else if (keyIs(key, u"HELPPROG"))
            config.helpprog = stringValue(value);
        else if (keyIs(key, u"HELPFILE"))
            config.helpfile = stringValue(value);
        else
            printLine("\nWayfernIOCfg::ReadFile(%s) : unknown header-entry : %s\n", "Header",
                      key.toUtf8().constData());
    });

    if (findSection(&stream, QStringLiteral("HTMLSYNC"), true) != 0) {
        printLine("\nWayfernIOCfg::ReadFile - section not found : %s\n", "HTMLSYNC");
        return -1;
    }
    walkSection(&stream, [&](QStringView key, QStringView value) {
        if (keyIs(key, u"SYNCFILE"))
            config.syncfile = stringValue(value);
        else if (keyIs(key, u"SERVER"))
            config.server = stringValue(value);
        else if (keyIs(key, u"FROMPREFIX"))
            config.fromprefix = stringValue(value);
        else if (keyIs(key, u"TOPREFIX"))
            config.toprefix = stringValue(value);
        else if (keyIs(key, u"POSTFIX"))
            config.postfix = stringValue(value);
        else if (keyIs(key, u"CATALOGUE"))
            config.catalogue = stringValue(value);
        else
            printLine("\nWayfernIOCfg::ReadFile(%s) : unknown syncheader-entry : %s\n", "HTMLSYNC",
                      key.toUtf8().constData());
    });
    return 0;
}

int WayfernIOCfg::WriteFile(const QString &path)
{
    return RecordSink::saveFile(path, "WayfernIOCfg",
                                [&](QIODevice *file) { return WriteFile(file, path); });
}

int WayfernIOCfg::WriteFile(QIODevice *device, const QString &name)
{
    const WayFernConfig &config = document->config;
    return RecordSink::writeDevice(device, name, "WayfernIOCfg", [&](QTextStream *stream) {
        writeFileHead(stream, "config", "Config-File");
        *stream << "[Header]\n";
        writeRecord(stream, QStringLiteral("DATA-PATH"), config.datapath);
        writeRecord(stream, QStringLiteral("LAST"), config.last);
        writeRecord(stream, QStringLiteral("TEMPLATE"), config.template_);
        writeRecord(stream, QStringLiteral("HELPPROG"), config.helpprog);
        writeRecord(stream, QStringLiteral("HELPFILE"), config.helpfile);
        *stream << "\n";
        // No "[HTMLSYNC]" head and the page file under the key "HTMLSYNC": the reader differs.
        writeRecord(stream, QStringLiteral("HTMLSYNC"), config.syncfile);
        writeRecord(stream, QStringLiteral("SERVER"), config.server);
        writeRecord(stream, QStringLiteral("FROMPREFIX"), config.fromprefix);
        writeRecord(stream, QStringLiteral("TOPREFIX"), config.toprefix);
        writeRecord(stream, QStringLiteral("POSTFIX"), config.postfix);
        // Optional: a file without it is written as it always was.
        if (!config.catalogue.isEmpty())
            writeRecord(stream, QStringLiteral("CATALOGUE"), config.catalogue);
        *stream << "\n";
        *stream << "\n##EOF WAYFERN CONFIG FILE \n";
    });
}
