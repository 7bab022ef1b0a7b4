#pragma once

// Captures what the program prints on standard output while an object of this class lives.
// The printed lines are behaviour, so tests compare them.
//
//   StdoutCapture out;
//   io.ReadFile(path);
//   QCOMPARE(out.text(), "...");   // text() ends the capture
//
// The descriptor is redirected to a temporary file rather than a pipe, so no amount of
// output can block the writer while nobody reads.

#include <QByteArray>
#include <QString>

class StdoutCapture
{
public:
    StdoutCapture();
    ~StdoutCapture();
    StdoutCapture(const StdoutCapture &) = delete;
    StdoutCapture &operator=(const StdoutCapture &) = delete;

    // End the capture and return everything printed since it began: as UTF-8 text, or the
    // bytes as they are.
    QString text();
    QByteArray bytes();

private:
    void stop();

    int saved = -1;
    int fd = -1;
    QByteArray captured;
};
