#pragma once

// Small file helpers shared by the core's tests.

#include "stdoutcapture.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

inline bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    return file.write(bytes) == bytes.size();
}

inline QByteArray readBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

inline QString fixture(const QString &name)
{
    return QStringLiteral(WAYFERN_TEST_DATA "/") + name;
}

// The lines of a file written by the program, with the two lines that carry the moment of
// writing replaced, so that two writes can be compared.
inline QList<QByteArray> undatedLines(const QByteArray &bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    for (QByteArray &line : lines) {
        if (line.startsWith("# last modified : date = "))
            line = "# last modified : date = <date>";
        else if (line.startsWith("#                 time = "))
            line = "#                 time = <time>";
    }
    return lines;
}

// Writes `bytes` to `path`, then runs `read` and returns its result; what it printed on
// standard output goes to *printed.
template <typename Read>
int readPrinted(const QString &path, const QByteArray &bytes, QString *printed, Read read)
{
    if (!writeBytes(path, bytes))
        return -99;
    StdoutCapture out;
    const int result = read();
    const QString text = out.text();
    if (printed)
        *printed = text;
    return result;
}
