#pragma once

// Small file helpers shared by the core's tests.

#include "stdoutcapture.h"

#include <QByteArray>
#include <QList>
#include <QString>

bool writeBytes(const QString &path, const QByteArray &bytes);
QByteArray readBytes(const QString &path);

// A file of tests/data.
QString fixture(const QString &name);

// The lines of a file written by the program, with the two lines that carry the moment of
// writing replaced, so that two writes can be compared.
QList<QByteArray> undatedLines(const QByteArray &bytes);

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
