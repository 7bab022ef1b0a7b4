#pragma once

// The bytes of a journey as its file holds them, for comparing states of a journey: written
// aside (the journey's own file and flags stay as they are), without the two dated comment
// lines, which differ from write to write. Header only, for the core's tests and the
// window's alike.

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QTemporaryDir>

// A journey file's bytes without the two dated comment lines.
inline QByteArray undatedJourney(const QByteArray &bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    lines.removeIf([](const QByteArray &line) {
        return line.startsWith("# last modified :") || line.startsWith("#                 time =");
    });
    return lines.join('\n');
}

inline QByteArray journeyBytes(WayFernData *doc)
{
    static QTemporaryDir dir;
    const QString path = dir.path() + QStringLiteral("/bytes.wfn");
    WayfernIO io(doc);
    if (io.WriteFile(path) != 0)
        return QByteArray("<not written>");
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable>");
    return undatedJourney(f.readAll());
}
