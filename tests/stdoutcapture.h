#pragma once

// Captures what the program prints on standard output while an object of this class lives.
// The printed lines are behaviour, so tests compare them.
//
//   StdoutCapture out;
//   io.ReadFile(path);
//   QCOMPARE(out.text(), "...");   // text() ends the capture
//
// The descriptor is redirected to a temporary file rather than a pipe, so a large amount of
// output can never block the writer.

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

class StdoutCapture
{
public:
    StdoutCapture()
    {
        fflush(stdout);
        saved = dup(STDOUT_FILENO);
        char name[] = "/tmp/wayfern-stdout-XXXXXX";
        fd = mkstemp(name);
        unlink(name);
        dup2(fd, STDOUT_FILENO);
    }
    ~StdoutCapture() { stop(); }
    StdoutCapture(const StdoutCapture &) = delete;
    StdoutCapture &operator=(const StdoutCapture &) = delete;

    // Ends the capture and returns everything printed since it began (UTF-8).
    QString text()
    {
        stop();
        return QString::fromUtf8(captured);
    }
    QByteArray bytes()
    {
        stop();
        return captured;
    }

private:
    void stop()
    {
        if (fd < 0)
            return;
        fflush(stdout);
        dup2(saved, STDOUT_FILENO);
        close(saved);
        lseek(fd, 0, SEEK_SET);
        char buffer[65536];
        ssize_t n;
        while ((n = read(fd, buffer, sizeof buffer)) > 0)
            captured.append(buffer, n);
        close(fd);
        fd = -1;
    }

    int saved = -1;
    int fd = -1;
    QByteArray captured;
};
