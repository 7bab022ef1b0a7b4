#include "stdoutcapture.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

StdoutCapture::StdoutCapture()
{
    fflush(stdout);
    char name[] = "/tmp/wayfern-stdout-XXXXXX";
    fd = mkstemp(name);
    if (fd < 0) {
        qWarning("StdoutCapture: no temporary file, standard output is not captured");
        return;
    }
    unlink(name);
    saved = dup(STDOUT_FILENO);
    dup2(fd, STDOUT_FILENO);
}

StdoutCapture::~StdoutCapture()
{
    stop();
}

QString StdoutCapture::text()
{
    stop();
    return QString::fromUtf8(captured);
}

QByteArray StdoutCapture::bytes()
{
    stop();
    return captured;
}

void StdoutCapture::stop()
{
    if (fd < 0)
        return;
    fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    saved = -1;
    lseek(fd, 0, SEEK_SET);
    char buffer[65536];
    ssize_t n;
    while ((n = read(fd, buffer, sizeof buffer)) > 0)
        captured.append(buffer, n);
    close(fd);
    fd = -1;
}
